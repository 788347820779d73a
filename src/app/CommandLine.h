#pragma once

#include "platform/InstanceGuard.h"
#include "platform/TopLevelWindows.h"

#include <string_view>

class RegIniFunc;
class StringTable;

/// Whether the user's settings, or else the maker's, say that there is a keyboard with buttons.
[[nodiscard]] bool HasKeyboard(const RegIniFunc& store);

/// What the program was started for. Its command line is "/k", "/t:" + page, or "/w:" + button, the last with
/// or without "/ap" behind it.
class StartUp {
public:
    int InitialPage = -1;       ///< 0...2 from "/t:", else -1
    int WizardButton = 0;       ///< 0...7 from "/w:"
    bool ButtonRequest = false; ///< "/ap" followed "/w:"

    /// Reads HKLM "QLBINI" into `store`, looks for another instance and for the keyboard, and sets the values
    /// above and the global WizardForButton. False: end the program without a word.
    [[nodiscard]] bool ParseCommandLine(std::wstring_view commandLine, RegIniFunc& store,
                                        InstanceGuard& guard, TopLevelWindows& windows,
                                        const StringTable& texts);

private:
    [[nodiscard]] bool ParseOption(const std::wstring& line, const std::wstring& request);
};
