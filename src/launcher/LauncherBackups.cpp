#include "launcher/LauncherBackups.h"

#include "app/LauncherNotification.h"
#include "app/SingleInstance.h"
#include "browse/Paths.h"
#include "exchange/StoredSettings.h"
#include "launcher/LauncherTexts.h"
#include "platform/InstanceGuard.h"
#include "settings/RegIniFunc.h"

namespace {

StoredSettings SettingsOf(const LauncherBackups::Parts& parts) {
    return {parts.registry, parts.profileFiles, parts.ansiText,
            parts.store.IniFileExist ? parts.store.OwnIniFile() : std::wstring()};
}

/// The settings program's claim, for as long as this lives.
class Claim {
public:
    explicit Claim(InstanceGuard& guard) : guard_(guard), refused_(guard.AnotherInstanceRuns()) {}
    ~Claim() { guard_.GiveUp(); }
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;

    [[nodiscard]] bool IsRefused() const { return refused_; }

private:
    InstanceGuard& guard_;
    bool refused_;
};

} // namespace

bool LauncherBackups::TakeIfChanged() {
    const StoredSettings settings = SettingsOf(parts_);
    return !Backups(settings, parts_.files, parts_.clock).TakeIfChanged().path.empty();
}

std::vector<std::wstring> LauncherBackups::Newest() const {
    const StoredSettings settings = SettingsOf(parts_);
    std::vector<std::wstring> paths = Backups(settings, parts_.files, parts_.clock).List();
    if (paths.size() > kListed) {
        paths.resize(kListed);
    }
    return paths;
}

std::wstring LauncherBackups::TimeOf(const std::wstring& path) {
    constexpr std::size_t kMinutes = 13; // of "2026-11-22 031502"
    std::wstring text = WithoutExtension(LastPart(path));
    if (text.size() > kMinutes + 2) {
        text.insert(kMinutes + 2, L":").insert(kMinutes, L":");
    }
    return text;
}

std::wstring LauncherBackups::Folder() const {
    const StoredSettings settings = SettingsOf(parts_);
    return Backups(settings, parts_.files, parts_.clock).Folder();
}

std::wstring LauncherBackups::Restore(const std::wstring& path) {
    Restored restored;
    {
        const Claim claim(parts_.guard);
        if (claim.IsRefused()) {
            BringDialogForward(parts_.windows, parts_.texts);
            return {};
        }
        StoredSettings settings = SettingsOf(parts_);
        Backups backups(settings, parts_.files, parts_.clock);
        restored = ::Restore(settings, parts_.files, backups, path);
    }
    if (restored.outcome == Restored::Outcome::Done) {
        LauncherNotification(parts_.windows).NotifyLauncher();
    }
    return TextOf(restored, path);
}

std::wstring LauncherBackups::TextOf(const Restored& restored, const std::wstring& path) const {
    const auto say = [&](Say what, const std::vector<std::wstring>& parts) {
        return Said(parts_.tongue, what, parts);
    };
    switch (restored.outcome) {
    case Restored::Outcome::Done:
        return say(Say::kRestored, {TimeOf(path)});
    case Restored::Outcome::Unchanged:
        return say(Say::kUnchanged, {TimeOf(path)});
    case Restored::Outcome::NoBackup:
        return say(Say::kNoBackup, {Folder()});
    case Restored::Outcome::Refused:
        return say(Say::kRefused, {restored.refused.section + L" " + restored.refused.key}) + L"\n" +
               say(restored.putBack ? Say::kPutBack : Say::kNotPutBack, {});
    case Restored::Outcome::Wrong:
        return path + L": " + say(restored.errors.front().what, restored.errors.front().parts);
    default:
        return say(Say::kFileUnreadable, {path});
    }
}
