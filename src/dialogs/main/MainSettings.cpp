#include "dialogs/main/MainSettings.h"

#include "app/CommandLine.h"
#include "app/LauncherNotification.h"
#include "dialogs/patterns/PatternList.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

MainSettings::MainSettings(RegIniFunc& store, LauncherNotification& launcher, const FaceMatcher& fonts)
    : store_(store), launcher_(launcher), fonts_(fonts) {}

void MainSettings::Load() {
    switches_ = LoadMakerSwitches(store_);
    currentPattern_ = store_.ReadCurrentPatternNumber();
    defaultOnScreen_ = LoadDefaultOnScreen(store_, fonts_);
    onScreen_ = LoadOnScreen(store_, fonts_, defaultOnScreen_);
    unchangedOnScreen_ = onScreen_;
    patterns_.emplace(store_, switches_.ButtonCount());
    defaults_ = patterns_->LoadDefaultPattern();

    LoadCurrentPattern();
    LoadPatternNames();
}

void MainSettings::LoadPatternNames() {
    const int count = store_.ReadPatternCount();
    patternNames_.clear();
    for (int number = 1; number <= count; ++number) {
        patternNames_.push_back(patterns_->LoadPatternName(number, defaults_));
    }
}

void MainSettings::ManagePatterns(const std::function<void(PatternList&)>& manage) {
    PatternList list(store_, *patterns_, defaults_, currentPattern_);
    manage(list);
    currentPattern_ = store_.ReadCurrentPatternNumber();
    LoadPatternNames();
    const std::wstring name = patterns_->LoadPatternName(currentPattern_, defaults_);
    if (list.IsShown(currentPattern_, name)) {
        working_.UserName = name;
    } else {
        LoadCurrentPattern();
    }
}

void MainSettings::LoadCurrentPattern() {
    working_ = patterns_->LoadPattern(currentPattern_, defaults_);
    unchanged_ = working_;
    for (int button = 1; button <= switches_.ButtonCount(); ++button) {
        ChoosePicture(button);
    }
}

void MainSettings::ChoosePicture(int button) {
    pictures_(button) = ButtonPictureIndex(working_, unchanged_, button);
}

std::vector<int> MainSettings::ButtonsStoredWith(int button) const {
    std::vector<int> buttons;
    for (int other = 1; other <= kMaxButtons; ++other) {
        if (patterns_->StorageSlot(other) == patterns_->StorageSlot(button)) {
            buttons.push_back(other);
        }
    }
    return buttons;
}

void MainSettings::SetButtonName(int button, const std::wstring& name) {
    for (const int alike : ButtonsStoredWith(button)) {
        working_.Btn(alike).Name = name;
    }
}

bool MainSettings::IsNameShown(int button, const std::wstring& boxText) const {
    const std::wstring& name = Slot(button).Name;
    return boxText == name || (boxText.empty() && name == L" ");
}

void MainSettings::SetSlot(int button, const ButtonSlot& slot) {
    for (const int alike : ButtonsStoredWith(button)) {
        working_.Btn(alike) = slot;
        ChoosePicture(alike);
    }
}

std::vector<int> MainSettings::ButtonsOf(MainPage page) const {
    std::vector<int> buttons;
    if (page == MainPage::Desktop) {
        for (int button = 1; button <= switches_.DesktopButtonCount(); ++button) {
            buttons.push_back(button);
        }
    } else if (page == MainPage::Notebook) {
        for (int button = kDesktopButtons + 1; button <= switches_.ButtonCount(); ++button) {
            buttons.push_back(button);
        }
    }
    return buttons;
}

void MainSettings::RestoreDefaults(MainPage page) {
    if (page == MainPage::OnScreen) {
        onScreen_ = defaultOnScreen_;
    }
    for (const int button : ButtonsOf(page)) {
        SetSlot(button, defaults_.Btn(button));
    }
}

bool MainSettings::PatternChanged() const {
    return !PatternsEqual(working_, unchanged_, switches_.ButtonCount());
}

bool MainSettings::AnythingChanged() const {
    return PatternChanged() || !OnScreenEqual(onScreen_, unchangedOnScreen_);
}

void MainSettings::WriteCurrentNumber() {
    store_.IniSetString(kProgramSection, L"CurrUser", DecimalText(currentPattern_), store_.OwnIniFile());
}

void MainSettings::WritePatternNumbers() {
    WriteCurrentNumber();
    const int stored = store_.StoredPatternCount();
    // A count above ten counts as 1 here, but the Patterns beyond are there, and the manager's to delete.
    const int count = stored > kMaxPatterns ? stored : static_cast<int>(patternNames_.size());
    store_.IniSetString(kProgramSection, L"NumUser", DecimalText(count), store_.OwnIniFile());
}

void MainSettings::StorePattern() {
    patterns_->SavePattern(currentPattern_, working_);
    for (int button = 1; button <= switches_.ButtonCount(); ++button) {
        std::wstring& name = working_.Btn(button).Name;
        name = store_.AsStored(name);
    }
    unchanged_ = working_;
}

void MainSettings::StoreOnScreen() {
    SaveOnScreen(store_, onScreen_);
    unchangedOnScreen_ = onScreen_;
}

void MainSettings::Save() {
    StorePattern();
    StoreOnScreen();
    launcher_.NotifyLauncher();
}

bool MainSettings::Ok(const AskToSave& ask) {
    WritePatternNumbers();
    const SaveAnswer answer = AnythingChanged() ? ask() : SaveAnswer::No;
    if (answer == SaveAnswer::Yes) {
        Save();
    }
    return answer != SaveAnswer::Cancel;
}

void MainSettings::Apply() {
    WritePatternNumbers();
    Save();
}

void MainSettings::SaveButton(int button, const ButtonSlot& slot) {
    if (button < 1 || button > kMaxButtons) {
        return;
    }
    StoreButton(button, slot);
    launcher_.NotifyLauncher();
}

void MainSettings::SaveLoneButton(const StartUp& startUp, const ButtonSlot& slot,
                                  const std::function<void()>& stored) {
    StoreButton(patterns_->StorageSlot(startUp.WizardButton + 1), slot);
    stored();
    launcher_.NotifyLauncher();
    launcher_.PostButtonToLauncher(startUp);
}

void MainSettings::StoreButton(int button, const ButtonSlot& slot) {
    SetSlot(button, slot);
    StorePattern();
    WritePatternNumbers();
    StoreOnScreen();
}

void MainSettings::SwitchPattern(int number, const AskToSave& ask, const std::function<void()>& loaded) {
    if (number < 1 || number > static_cast<int>(patternNames_.size()) || number == currentPattern_) {
        return;
    }
    const SaveAnswer answer = PatternChanged() ? ask() : SaveAnswer::No;
    if (answer == SaveAnswer::Cancel) {
        return;
    }
    if (answer == SaveAnswer::Yes) {
        patterns_->SavePattern(currentPattern_, working_);
    }
    currentPattern_ = number;
    WriteCurrentNumber();
    LoadCurrentPattern();
    loaded();
    launcher_.NotifyLauncher();
}
