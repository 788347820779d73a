#include "BrokenStore.h"

#include "settings/StoreLayout.h"

BrokenStore::BrokenStore(bool iniFile) : buttons(kDialogButtons) {
    store.IniFileExist = iniFile;
}

BrokenStore::BrokenStore(bool iniFile, int current, int buttonCount) : buttons(buttonCount) {
    store.IniFileExist = iniFile;
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
    SaveOnScreen(store, StoredScreen());
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
    const wchar_t* const words[] = {L"One", L"Second", L"Three"};
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
            slot.Program(k).AP = own + L"-" + std::to_wstring(k) + L".exe";
            slot.Program(k).Param = L"/" + own;
            slot.Program(k).Title = own + L" " + std::to_wstring(k);
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
    const Pattern edits = FullPattern(kEdited);
    for (int button = 1; button <= buttons; ++button) {
        dialog.SetSlot(button, edits.Btn(button));
    }
    EditTheScreen(dialog);
}

int BrokenStore::Calls() const {
    return static_cast<int>(store.IniFileExist ? files.Operations().size() : registry.Operations().size());
}

int BrokenStore::CallsOfTheOther() const {
    return static_cast<int>(store.IniFileExist ? registry.Operations().size() : files.Operations().size());
}

void BrokenStore::Arm(Fault fault, int number) {
    CallFaults& faults = store.IniFileExist ? static_cast<CallFaults&>(files) : registry;
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

void BrokenStore::RefuseEach(const wchar_t* key) {
    files.refusedName = key;
    registry.refusedName = TranslateIniName(kProgramSection, key)->name;
}

void BrokenStore::RefuseWrites() {
    registry.refusesWrites = true;
    files.refusesWrites = true;
}

void BrokenStore::RefuseWritesFrom(int number) {
    registry.writesUntilDeath = number - 1;
    files.writesUntilDeath = number - 1;
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

std::set<std::wstring> BrokenStore::Differences(const BrokenStore& other) const {
    const std::vector<std::wstring> values = registry.Differences(other.registry);
    const std::vector<std::wstring> lines = files.Differences(other.files);
    std::set<std::wstring> places(values.begin(), values.end());
    places.insert(lines.begin(), lines.end());
    return places;
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

bool RecordedCalls::IsRead(int number) const {
    return ofFiles_ ? files_.at(Index(number)).access == FakeProfileFiles::Access::Read
                    : registry_.at(Index(number)).access == FakeRegistry::Access::Read;
}

std::wstring RecordedCalls::PlaceOf(int number) const {
    return ofFiles_ ? FakeProfileFiles::PlaceOf(files_.at(Index(number)))
                    : FakeRegistry::PlaceOf(registry_.at(Index(number)));
}

void RecordedCalls::Replay(int number, BrokenStore& to) const {
    if (IsRead(number)) {
        return;
    }
    if (ofFiles_) {
        const FakeProfileFiles::Operation& call = files_.at(Index(number));
        if (call.access == FakeProfileFiles::Access::Write) {
            to.files.SetString(call.section, call.key, call.value, call.file);
        } else {
            to.files.DeleteSection(call.section, call.file);
        }
        return;
    }
    const FakeRegistry::Operation& call = registry_.at(Index(number));
    if (call.access == FakeRegistry::Access::Write) {
        to.registry.Set(call.hive, call.path, call.name, call.value);
    } else {
        to.registry.DeleteKey(call.hive, call.path);
    }
}

void RecordedCalls::Undo(int number, BrokenStore& to, const BrokenStore& before) const {
    if (IsRead(number)) {
        return;
    }
    if (ofFiles_) {
        to.files.TakePlace(files_.at(Index(number)), before.files);
    } else {
        to.registry.TakePlace(registry_.at(Index(number)), before.registry);
    }
}
