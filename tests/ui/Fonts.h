#pragma once

#include <string>
#include <vector>

/// The faces that the on-screen page has to offer, in the order the system reports them: TrueType, upright,
/// weight up to 400, character set ANSI or Shift-JIS; each once.
const std::vector<std::wstring>& OfferedFaces();

/// Whether `face` is one of them, however it is spelled.
bool IsOffered(const std::wstring& face);
