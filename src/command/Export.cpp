#include "command/Command.h"
#include "exchange/SettingsFile.h"
#include "platform/WholeFiles.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

namespace {

/// The maker's value for what is not stored.
std::optional<std::wstring> DefaultText(const RegIniFunc& store, const std::wstring& key) {
    const std::wstring section = PatternSection(1);
    const RegistryPlace place = store.IniFileExist
                                    ? RegistryPlace{kDefaultKey + (L'\\' + section), key, false}
                                    : *TranslateIniName(section, key, kDefaultKey);
    std::wstring text = store.RegGetText(RegistryHive::LocalMachine, place);
    const bool isThere = !text.empty() && !(place.isNumber && text == L"0");
    return isThere ? std::optional(std::move(text)) : std::nullopt;
}

/// Those Patterns, numbered from 1 on, as the dialog would show them: what is not stored is the maker's default,
/// which another computer may not have.
Settings Chosen(const Command& command, const Settings& all, const std::vector<Choice>& chosen) {
    const StoredSettings& store = command.settings;
    Settings settings;
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        const std::wstring from = PatternSection(chosen[i].number);
        const std::wstring to = PatternSection(static_cast<int>(i) + 1);
        for (const PatternEntry& entry : PatternEntries(kMaxButtons)) {
            const EntryName name{to, entry.key};
            if (const auto stored = all.find({from, entry.key}); stored != all.end()) {
                settings[name] = stored->second;
                continue;
            }
            const auto text = entry.field->hasDefault ? DefaultText(command.store, entry.key) : std::nullopt;
            if (text) {
                settings[name] = store.ValueOf(name, *text);
            }
        }
    }
    const EntryName count{kProgramSection, L"NumUser"};
    settings[count] = store.ValueOf(count, DecimalText(chosen.size()));
    return settings;
}

} // namespace

int RunExport(Command& command, const Arguments& arguments) {
    Settings settings = command.settings.Read();
    if (!arguments.names.empty()) {
        const auto chosen = command.ChoosePatterns(command.Patterns(), arguments.names);
        if (!chosen) {
            return kExitUsage;
        }
        settings = Chosen(command, settings, *chosen);
    }
    return command.WriteFile(arguments, SettingsFileText(settings, command.settings));
}
