#pragma once

#include <string>

/// Text in the ANSI code page of the session, and back. ToAnsi fails when a character would be lost.
std::string ToAnsi(const std::wstring& text);
std::wstring FromAnsi(const std::string& bytes);
