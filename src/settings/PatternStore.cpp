#include "settings/PatternStore.h"

#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

namespace {

constexpr const wchar_t* kDefaultSetKey = L"Software\\Korvo\\KORVOQLB\\Default\\Setting\\Set1";
constexpr const wchar_t* kDefaultIniKey = L"Software\\Korvo\\KORVOQLB\\Default\\USER1";
constexpr const wchar_t* kConvAppKey = L"Software\\Korvo\\KORVOQLB\\UTLSetting\\ConvAppKey";

std::int16_t ProgramCount(const std::wstring& text) {
    return static_cast<std::int16_t>(NumberInRangeOr(text, 1, kMaxPrograms, 0));
}

void SetProgram(ButtonSlot& slot, int k, const std::wstring& stored) {
    auto [command, parameters] = SplitAtBar(stored);
    slot.AP(k) = std::move(command);
    slot.Param(k) = std::move(parameters);
}

} // namespace

PatternStore::PatternStore(RegIniFunc& store, int buttonCount) : store_(store), buttonCount_(buttonCount) {
    for (int button = 1; button <= kMaxButtons; ++button) {
        const std::int32_t slot =
            store_.RegGetDword(RegistryHive::LocalMachine, kConvAppKey, L"AppKey" + DecimalText(button));
        storageSlots_(button) = slot >= 1 && slot <= buttonCount_ ? slot : button;
    }
}

Pattern PatternStore::LoadDefaultPattern() const {
    const bool ini = store_.IniFileExist;
    const auto readString = [&](const std::wstring& path, const std::wstring& name) {
        return store_.RegGetString(RegistryHive::LocalMachine, path, name);
    };
    Pattern pattern;
    pattern.UserName = ini ? readString(kDefaultIniKey, L"UserName") : readString(kDefaultSetKey, L"SetName");
    for (int button = 1; button <= buttonCount_; ++button) {
        ButtonSlot& slot = pattern.Btn(button);
        const std::wstring stored = DecimalText(StorageSlot(button));
        const std::wstring path = ini ? kDefaultIniKey : kDefaultSetKey + (L"\\AppKey" + stored);
        const std::wstring prefix = ini ? L"Btn" + stored + L"_" : L"";
        slot.Exec = TrimBlanks(readString(path, ini ? prefix + L"Exec" : L"Execute"));
        slot.NumAP =
            ProgramCount(ini ? readString(path, prefix + L"NumAP")
                             : DecimalText(store_.RegGetDword(RegistryHive::LocalMachine, path, L"NumAP")));
        slot.Name = readString(path, ini ? prefix + L"Name" : L"DispTitle");
        for (int k = 1; k <= kMaxPrograms; ++k) {
            SetProgram(slot, k, readString(path, prefix + L"AP" + DecimalText(k)));
        }
    }
    return pattern;
}

std::wstring PatternStore::LoadPatternName(int number, const Pattern& defaults) const {
    return store_.IniGetString(PatternSection(number), L"UserName", defaults.UserName, store_.OwnIniFile());
}

Pattern PatternStore::LoadPattern(int number, const Pattern& defaults) const {
    Pattern pattern;
    pattern.UserName = LoadPatternName(number, defaults);
    for (int button = 1; button <= buttonCount_; ++button) {
        pattern.Btn(button) = LoadSlot(PatternSection(number), button, defaults.Btn(button));
    }
    return pattern;
}

ButtonSlot PatternStore::LoadSlot(const std::wstring& section, int button, const ButtonSlot& fallback) const {
    // No command line is "FALSE", so it tells a missing entry from an empty one.
    const std::wstring kMissing = L"FALSE";
    const std::wstring prefix = L"Btn" + DecimalText(StorageSlot(button));
    const auto read = [&](const std::wstring& field, const std::wstring& otherwise) {
        return store_.IniGetString(section, prefix + field, otherwise, store_.OwnIniFile());
    };
    ButtonSlot slot;
    slot.Exec = TrimBlanks(read(L"_Exec", fallback.Exec));
    slot.NumAP = ProgramCount(read(L"_NumAP", DecimalText(fallback.NumAP)));
    slot.Name = read(L"_Name", fallback.Name);
    for (int k = 1; k <= kMaxPrograms; ++k) {
        const std::wstring stored = read(L"_AP" + DecimalText(k), kMissing);
        if (stored == kMissing) {
            slot.AP(k) = fallback.AP(k);
            slot.Param(k) = fallback.Param(k);
        } else {
            SetProgram(slot, k, stored);
        }
    }
    for (int k = 1; k <= kMaxPrograms; ++k) {
        slot.Title(k) = read(L"_Title" + DecimalText(k), fallback.Title(k));
    }
    return slot;
}

bool PatternStore::SavePattern(int number, Pattern& pattern) {
    const std::wstring section = PatternSection(number);
    // A refused write does not keep the later ones from being tried.
    bool taken = store_.IniSetString(section, L"UserName", pattern.UserName, store_.OwnIniFile());
    for (int button = 1; button <= buttonCount_; ++button) {
        taken = SaveSlot(section, button, pattern.Btn(button)) && taken;
    }
    return taken;
}

bool PatternStore::SaveSlot(const std::wstring& section, int button, ButtonSlot& slot) {
    const std::wstring prefix = L"Btn" + DecimalText(StorageSlot(button));
    bool taken = true;
    const auto write = [&](const std::wstring& field, const std::wstring& text) {
        taken = store_.IniSetString(section, prefix + field, text, store_.OwnIniFile()) && taken;
    };
    write(L"_Exec", slot.Exec);
    write(L"_NumAP", DecimalText(slot.NumAP));
    if (slot.Name.empty()) {
        slot.Name = L" ";
    }
    write(L"_Name", slot.Name);
    for (int k = 1; k <= kMaxPrograms; ++k) {
        std::wstring stored = slot.AP(k);
        if (!TrimBlanks(slot.Param(k)).empty() && stored.find(L'|') == std::wstring::npos) {
            stored.append(1, L'|').append(slot.Param(k));
        }
        if (stored.empty() && store_.IniFileExist) {
            stored = L" "; // an entry without text would read as missing in an ini file
        }
        write(L"_AP" + DecimalText(k), stored);
    }
    for (int k = 1; k <= kMaxPrograms; ++k) {
        write(L"_Title" + DecimalText(k), slot.Title(k));
    }
    return taken;
}
