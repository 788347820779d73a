#pragma once

#include <windows.h>

#include <string>

class Form;
class RegIniFunc;
class StringTable;

/// Asks for a printer and prints the current Pattern as it is stored in `iniFile`. A small window with a Cancel
/// button stands over the form meanwhile. When the printer fails, the system's words say why.
void PrintPattern(Form& owner, const RegIniFunc& store, const StringTable& texts,
                  const std::wstring& iniFile);
