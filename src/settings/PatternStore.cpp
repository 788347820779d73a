#include "settings/PatternStore.h"

#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

PatternStore::PatternStore(RegIniFunc& store, int buttonCount) : store_(store), buttonCount_(buttonCount) {
    constexpr const wchar_t* kConvAppKey = L"Software\\Korvo\\KORVOQLB\\UTLSetting\\ConvAppKey";
    for (int button = 1; button <= kMaxButtons; ++button) {
        const std::int32_t slot =
            store_.RegGetDword(RegistryHive::LocalMachine, kConvAppKey, L"AppKey" + DecimalText(button));
        storageSlots_(button) = slot >= 1 && slot <= buttonCount_ ? slot : button;
    }
}

std::vector<PatternEntry> PatternStore::Entries() const {
    std::vector<PatternEntry> entries = PatternEntries(buttonCount_);
    for (PatternEntry& entry : entries) {
        if (entry.button != 0) {
            entry.key = entry.field->IniKey(StorageSlot(entry.button), entry.program);
        }
    }
    return entries;
}

Pattern PatternStore::LoadDefaultPattern() const {
    const std::wstring section = PatternSection(1);
    const auto read = [&](const std::wstring& key) {
        return store_.IniFileExist
                   ? store_.RegGetString(RegistryHive::LocalMachine, kDefaultKey + (L'\\' + section), key)
                   : store_.RegGetText(RegistryHive::LocalMachine,
                                       *TranslateIniName(section, key, kDefaultKey));
    };
    Pattern pattern;
    for (const PatternEntry& entry : Entries()) {
        if (entry.field->hasDefault) {
            entry.SetText(pattern, read(entry.key));
        }
    }
    return pattern;
}

std::wstring PatternStore::LoadPatternName(int number, const Pattern& defaults) const {
    return store_.IniGetString(PatternSection(number), FieldOf(&Pattern::UserName).IniKey(),
                               defaults.UserName, store_.OwnIniFile());
}

Pattern PatternStore::LoadPattern(int number, const Pattern& defaults) const {
    // No command line is "FALSE", so it tells a missing entry from an empty one.
    const std::wstring kMissing = L"FALSE";
    const std::wstring section = PatternSection(number);
    Pattern pattern;
    for (const PatternEntry& entry : Entries()) {
        const bool isProgram = entry.field->kind == FieldKind::Program;
        const std::wstring stored = store_.IniGetString(
            section, entry.key, isProgram ? kMissing : entry.TextOf(defaults), store_.OwnIniFile());
        if (isProgram && stored == kMissing) {
            pattern.Btn(entry.button).Program(entry.program) =
                defaults.Btn(entry.button).Program(entry.program);
        } else {
            entry.SetText(pattern, stored);
        }
    }
    return pattern;
}

void PatternStore::SavePattern(int number, Pattern& pattern) {
    for (int button = 1; button <= buttonCount_; ++button) {
        if (pattern.Btn(button).Name.empty()) {
            pattern.Btn(button).Name = L" ";
        }
    }
    const std::wstring section = PatternSection(number);
    for (const PatternEntry& entry : Entries()) {
        std::wstring text = entry.TextOf(pattern);
        if (text.empty() && entry.field->kind == FieldKind::Program && store_.IniFileExist) {
            text = L" "; // an entry without text would read as missing in an ini file
        }
        store_.IniSetString(section, entry.key, text, store_.OwnIniFile());
    }
}
