#pragma once

#include "platform/Shell.h"
#include "platform/TopLevelWindows.h"

class StringTable;

/// The help file beside the program.
[[nodiscard]] std::wstring HelpFile(const Shell& shell);

[[nodiscard]] bool HasHelpFile(const Shell& shell);

/// Brings the open help window forward, or opens the help file. False when neither could be done.
bool ShowHelp(Shell& shell, TopLevelWindows& windows, const StringTable& texts, WindowId owner);
