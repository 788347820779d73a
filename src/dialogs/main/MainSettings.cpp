#include "dialogs/main/MainSettings.h"

#include "app/LauncherNotification.h"
#include "dialogs/patterns/PatternList.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

MainSettings::MainSettings(RegIniFunc& store, LauncherNotification& launcher, const FaceMatcher& fonts)
    : store_(store), launcher_(launcher), fonts_(fonts) {}

void MainSettings::Load() {
    switches_ = LoadMakerSwitches(store_);
    currentPattern_ = store_.ReadCurrentPatternNumber();
    currentRefused_ = false;
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

PatternList MainSettings::PatternsToManage() {
    if (currentRefused_) {
        WriteCurrentNumber();
    }
    return {store_, *patterns_, defaults_};
}

bool MainSettings::ReloadPatternList(PatternList& managed) {
    managed.WriteRefused();
    const int formerNumber = currentPattern_;
    const int place = managed.NumberOf(formerNumber);
    const bool refused = currentRefused_ || managed.HasRefused();
    currentRefused_ = (currentRefused_ || managed.IsCurrentRefused()) && managed.IsStored(place);
    // A number that the store refuses to this day is written with the next save.
    currentPattern_ = currentRefused_ ? place : store_.ReadCurrentPatternNumber();
    LoadPatternNames();
    if (!refused || (currentPattern_ == place && managed.IsFree(place)) ||
        IsAsBefore(managed, formerNumber)) {
        working_.UserName = patterns_->LoadPatternName(currentPattern_, defaults_);
        return false;
    }
    LoadCurrentPattern();
    return true;
}

bool MainSettings::IsAsBefore(const PatternList& managed, int formerNumber) const {
    if (currentPattern_ != formerNumber) {
        return false;
    }
    if (patterns_->LoadPatternName(currentPattern_, Pattern{}).empty()) {
        return true;
    }
    // As it was read, and not as it was last saved: what is stored reads a little different.
    return managed.AsRead(formerNumber) == patterns_->LoadPattern(currentPattern_, defaults_);
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

void MainSettings::SetSlot(int button, const ButtonSlot& slot) {
    working_.Btn(button) = slot;
    ChoosePicture(button);
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
        working_.Btn(button) = defaults_.Btn(button);
        ChoosePicture(button);
    }
}

bool MainSettings::PatternChanged() const {
    return !PatternsEqual(working_, unchanged_, switches_.ButtonCount());
}

bool MainSettings::AnythingChanged() const {
    return PatternChanged() || !OnScreenEqual(onScreen_, unchangedOnScreen_);
}

void MainSettings::WriteCurrentNumber() {
    currentRefused_ =
        !store_.IniSetString(kProgramSection, L"CurrUser", DecimalText(currentPattern_), store_.OwnIniFile());
}

void MainSettings::WritePatternNumbers() {
    WriteCurrentNumber();
    store_.IniSetString(kProgramSection, L"NumUser", DecimalText(patternNames_.size()), store_.OwnIniFile());
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

void MainSettings::SaveButton(int button, const ButtonSlot& slot) {
    // A button that is stored in the same place would write its former settings over these.
    const int place = StorageSlot(button);
    for (int other = 1; other <= switches_.ButtonCount(); ++other) {
        if (StorageSlot(other) == place) {
            SetSlot(other, slot);
        }
    }
    SetSlot(button, slot);
    StorePattern();
    WritePatternNumbers();
    StoreOnScreen();
    launcher_.NotifyLauncher();
}

void MainSettings::SwitchPattern(int number, bool saveOld, const std::function<void()>& loaded) {
    if (saveOld) {
        patterns_->SavePattern(currentPattern_, working_);
    }
    currentPattern_ = number;
    WriteCurrentNumber();
    LoadCurrentPattern();
    loaded();
    launcher_.NotifyLauncher();
}
