#pragma once

#include <string>
#include <vector>

class StringTable;

/// What an entry of the icon's menu does.
enum TrayCommand : int {
    kTrayNothing = 0,
    kTraySettings = 1,
    kTrayKeys = 2,
    kTrayStartWithWindows = 3,
    kTrayAbout = 4,
    kTrayExit = 5,
    kTrayBackUpNow = 6,
    kTrayBackupFolder = 7,
    kTrayPattern1 = 100, ///< ... kTrayPattern1 + 9
    kTrayBackup1 = 200,  ///< ... kTrayBackup1 + 9, from the newest on
};

struct TrayEntry {
    enum class Mark { None, Dot, Check };

    int command = kTrayNothing;
    std::wstring text{}; ///< "&" before an access key; empty: a line
    Mark mark = Mark::None;
    std::vector<TrayEntry> items{}; ///< of a menu of its own

    bool operator==(const TrayEntry&) const = default;
};

struct TrayState {
    std::vector<std::wstring> patterns; ///< names, from Pattern 1 on
    int current = 1;
    bool startsWithWindows = false;
    std::vector<std::wstring> backups; ///< their times, newest first
};

[[nodiscard]] std::vector<TrayEntry> TrayMenu(const TrayState& state, const StringTable& texts);
