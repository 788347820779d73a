#include "launcher/TrayMenu.h"

#include "launcher/LauncherTexts.h"
#include "settings/StdModule.h"

namespace {

std::vector<TrayEntry> BackupEntries(const TrayState& state, const StringTable& texts) {
    std::vector<TrayEntry> entries;
    int command = kTrayBackup1;
    for (const std::wstring& time : state.backups) {
        entries.push_back({command++, time});
    }
    if (!entries.empty()) {
        entries.emplace_back();
    }
    entries.push_back({kTrayBackUpNow, texts.ResText(kTextMenuBackUpNow)});
    entries.push_back({kTrayBackupFolder, texts.ResText(kTextMenuBackupFolder)});
    return entries;
}

} // namespace

std::vector<TrayEntry> TrayMenu(const TrayState& state, const StringTable& texts) {
    using Mark = TrayEntry::Mark;
    std::vector<TrayEntry> entries;
    int number = 0;
    for (const std::wstring& name : state.patterns) {
        ++number;
        const std::wstring text = TrimBlanks(name).empty() ? DecimalText(number) : WithoutAccessKeys(name);
        entries.push_back(
            {kTrayPattern1 + number - 1, text, number == state.current ? Mark::Dot : Mark::None});
    }
    const auto add = [&](int command, int text, Mark mark = Mark::None) {
        entries.push_back({command, texts.ResText(text), mark});
    };
    entries.emplace_back();
    add(kTraySettings, kTextMenuSettings);
    add(kTrayKeys, kTextMenuKeys);
    entries.push_back({.text = texts.ResText(kTextMenuBackups), .items = BackupEntries(state, texts)});
    entries.emplace_back();
    add(kTrayStartWithWindows, kTextMenuStartWithWindows, state.startsWithWindows ? Mark::Check : Mark::None);
    add(kTrayAbout, kTextMenuAbout);
    add(kTrayExit, kTextMenuExit);
    return entries;
}
