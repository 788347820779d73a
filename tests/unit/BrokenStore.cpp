#include "BrokenStore.h"

namespace {

constexpr std::int32_t kStoredColor = 77;
constexpr std::int32_t kEditedColor = 99;

} // namespace

BrokenStore::BrokenStore(bool iniFile, int current, int buttonCount) : buttons(buttonCount) {
    store.IniFileExist = iniFile;
    FakeFonts installed;
    installed.Add(L"Arial");
    installed.Add(L"Verdana");
    fonts.EnumerateFonts(installed);
    windows.Add(L"KORVOQLBCLASS");

    PutMachine(L"", L"NTNumAPBtn", kDialogButtons - kDesktopButtons);
    PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey1", 2);
    PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey2", 1);
    PutDefaults();

    PutUser(L"OnScreen", L"Time", 5);
    PutUser(L"Setting\\Set3", L"Unknown", "theirs");
    PutLine(L"Other", L"Unknown", "theirs");
    PutLine(L"USER3", L"Unknown", "theirs");

    patterns.emplace(store, buttons);
    defaults = patterns->LoadDefaultPattern();
    for (int number = 1; number <= kPatterns; ++number) {
        Pattern pattern = FullPattern(Word(number));
        patterns->SavePattern(number, pattern);
    }
    SaveOnScreen(store, {0, L"Arial", 1, kStoredColor});
    store.IniSetString(kProgramSection, L"CurrUser", std::to_wstring(current), kOwnFile);
    store.IniSetString(kProgramSection, L"NumUser", std::to_wstring(kPatterns), kOwnFile);
    ForgetOperations();
}

void BrokenStore::PutDefaults() {
    PutMachine(L"Default\\Setting\\Set1", L"SetName", "Standard");
    PutMachine(L"Default\\USER1", L"UserName", "Standard");
    for (int button = 1; button <= buttons; ++button) {
        const std::string name = "Default " + std::to_string(button);
        const std::wstring number = std::to_wstring(button);
        PutMachine(L"Default\\Setting\\Set1\\AppKey" + number, L"DispTitle", name.c_str());
        PutMachine(L"Default\\USER1", L"Btn" + number + L"_Name", name.c_str());
    }
}

std::wstring BrokenStore::Word(int pattern) {
    const wchar_t* const words[] = {L"One", L"Second", L"Three", L"Fourth one"};
    return words[pattern - 1];
}

Pattern BrokenStore::FullPattern(const std::wstring& word) const {
    Pattern pattern;
    pattern.UserName = word;
    for (int button = 1; button <= buttons; ++button) {
        ButtonSlot& slot = pattern.Btn(button);
        const std::wstring own = word + std::to_wstring(button);
        slot.Name = own;
        slot.Exec = word.size() % 2 == 0 ? L"S" : L"P";
        slot.NumAP = static_cast<std::int16_t>(1 + word.size() % kMaxPrograms);
        for (int k = 1; k <= kMaxPrograms; ++k) {
            slot.AP(k) = own + L"-" + std::to_wstring(k) + L".exe";
            slot.Param(k) = L"/" + own;
            slot.Title(k) = own + L" " + std::to_wstring(k);
        }
    }
    return pattern;
}

ButtonSlot BrokenStore::EditedSlot() const {
    ButtonSlot slot = FullPattern(L"wizard").Btn(1);
    slot.Exec = L"K";
    return slot;
}

void BrokenStore::EditEverything(MainSettings& dialog) const {
    const Pattern edits = FullPattern(L"by hand");
    for (int button = 1; button <= buttons; ++button) {
        dialog.SetSlot(button, edits.Btn(button));
    }
    dialog.SetOnScreen({1, L"Verdana", 2, kEditedColor});
}

int BrokenStore::Calls(bool ofFiles) const {
    return static_cast<int>(ofFiles ? files.Operations().size() : registry.Operations().size());
}

void BrokenStore::Arm(Fault fault, bool ofFiles, int number) {
    CallFaults& faults = ofFiles ? static_cast<CallFaults&>(files) : registry;
    switch (fault) {
    case Fault::Once:
        faults.failingOperation = number;
        break;
    case Fault::FromThen:
        faults.failingFrom = number;
        break;
    case Fault::Death:
        faults.killingOperation = number;
        break;
    }
}

void BrokenStore::Disarm() {
    registry.ForgetFaults();
    files.ForgetFaults();
}

void BrokenStore::TakeContentsOf(const BrokenStore& other) {
    registry.TakeValuesOf(other.registry);
    files.TakeLinesOf(other.files);
    windows.ForgetEvents();
    ForgetOperations();
}

void BrokenStore::Replay(const BrokenStore& recorded, bool ofFiles, int number) {
    const auto index = static_cast<std::size_t>(number) - 1;
    if (ofFiles) {
        const FakeProfileFiles::Operation& operation = recorded.files.Operations().at(index);
        if (operation.access == FakeProfileFiles::Access::Write) {
            files.SetString(operation.section, operation.key, operation.value, operation.file);
        } else if (operation.access == FakeProfileFiles::Access::Delete) {
            files.DeleteSection(operation.section, operation.file);
        }
        return;
    }
    const FakeRegistry::Operation& operation = recorded.registry.Operations().at(index);
    if (operation.access == FakeRegistry::Access::Write) {
        registry.Set(operation.hive, operation.path, operation.name, operation.value);
    } else if (operation.access == FakeRegistry::Access::Delete) {
        registry.DeleteKey(operation.hive, operation.path);
    }
}

void BrokenStore::ReplayAll(const BrokenStore& recorded, bool ofFiles, int butFor) {
    for (int number = 1; number <= recorded.Calls(ofFiles); ++number) {
        if (number != butFor) {
            Replay(recorded, ofFiles, number);
        }
    }
}

Pattern BrokenStore::Stored(int pattern) const {
    return PatternStore(const_cast<RegIniFunc&>(store), buttons).LoadPattern(pattern, Pattern{});
}

bool BrokenStore::HasSection(int pattern) const {
    return !store.IniGetString(PatternSection(pattern), L"UserName", L"", kOwnFile).empty();
}

int BrokenStore::Number(const wchar_t* key) const {
    return std::stoi(store.IniGetString(kProgramSection, key, L"0", kOwnFile));
}
