#pragma once

#include "exchange/Backups.h"
#include "launcher/TrayMenu.h"

#include <string>
#include <vector>

class AnsiText;
class Clock;
class InstanceGuard;
class ProfileFiles;
class Registry;
class RegIniFunc;
class StringTable;
class TopLevelWindows;
class WholeFiles;

/// The backups of the settings, as the launcher's menu has them.
class LauncherBackups {
public:
    struct Parts {
        Registry& registry;
        ProfileFiles& profileFiles;
        const AnsiText& ansiText;
        const RegIniFunc& store;
        WholeFiles& files;
        const Clock& clock;
        InstanceGuard& guard; ///< of the settings program
        TopLevelWindows& windows;
        const StringTable& texts;
        Tongue tongue;
    };

    explicit LauncherBackups(const Parts& parts) : parts_(parts) {}

    static constexpr std::size_t kListed = 10;

    /// One more, unless the settings are as the newest says. False when none could be written.
    bool TakeIfChanged();
    /// Full names, newest first, at most kListed.
    [[nodiscard]] std::vector<std::wstring> Newest() const;
    /// "2026-11-22 03:15:02".
    [[nodiscard]] static std::wstring TimeOf(const std::wstring& path);

    /// Brings all settings back, and tells whoever listens. Returns what to tell the user; nothing when the settings
    /// are open, which come forward instead.
    [[nodiscard]] std::wstring Restore(const std::wstring& path);

    /// Where the backups are; empty when there is no such place.
    [[nodiscard]] std::wstring Folder() const;

private:
    [[nodiscard]] std::wstring TextOf(const Restored& restored, const std::wstring& path) const;

    Parts parts_;
};
