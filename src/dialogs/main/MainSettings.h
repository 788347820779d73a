#pragma once

#include "settings/MakerSwitches.h"
#include "settings/OnScreenSettings.h"
#include "settings/Pattern.h"
#include "settings/PatternStore.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class FaceMatcher;
class LauncherNotification;
class PatternList;
class RegIniFunc;

/// Pages of the main dialog, as "/t:" numbers them.
enum class MainPage { Desktop = 0, Notebook = 1, OnScreen = 2 };

/// What the main dialog edits: a working copy of the current Pattern and of the on-screen settings, beside
/// the copies that were last loaded or saved. Only saving, switching and WritePatternNumbers touch the store;
/// around the pattern manager, what it refused is written again.
class MainSettings {
public:
    MainSettings(RegIniFunc& store, LauncherNotification& launcher, const FaceMatcher& fonts);

    /// Reads the maker's switches and all settings.
    void Load();

    [[nodiscard]] const MakerSwitches& Switches() const { return switches_; }
    [[nodiscard]] const Pattern& Working() const { return working_; }
    [[nodiscard]] const ButtonSlot& Slot(int button) const { return working_.Btn(button); }
    [[nodiscard]] const OnScreenSettings& OnScreen() const { return onScreen_; }
    /// 1-based; the launcher's, even when it is beyond the number of names.
    [[nodiscard]] int CurrentPattern() const { return currentPattern_; }
    [[nodiscard]] const std::vector<std::wstring>& PatternNames() const { return patternNames_; }

    /// Numbers (1...8) of the buttons that a button page shows; none for the on-screen page.
    [[nodiscard]] std::vector<int> ButtonsOf(MainPage page) const;

    /// The picture that was chosen for the button when its settings last came from somewhere else.
    [[nodiscard]] ButtonPicture PictureOf(int button) const { return pictures_(button); }

    /// Takes the text as it is.
    void SetButtonName(int button, const std::wstring& name) { working_.Btn(button).Name = name; }
    /// The button's settings as another dialog has edited them. Nothing is saved.
    void SetSlot(int button, const ButtonSlot& slot);
    void SetOnScreen(const OnScreenSettings& settings) { onScreen_ = settings; }

    /// Nothing is saved.
    void RestoreDefaults(MainPage page);

    [[nodiscard]] bool PatternChanged() const;
    [[nodiscard]] bool AnythingChanged() const;

    /// Writes "CurrUser" and "NumUser".
    void WritePatternNumbers();

    /// Saves the Pattern and the on-screen settings and tells the launcher. Button names become what the ANSI
    /// code page can store of them.
    void Save();

    /// Stores a button's settings at once, with all that was edited before, and tells the launcher.
    void SaveButton(int button, const ButtonSlot& slot);

    /// The number (1...8) under which a button is stored.
    [[nodiscard]] int StorageSlot(int button) const { return patterns_->StorageSlot(button); }
    [[nodiscard]] const Pattern& Defaults() const { return defaults_; }

    /// Makes another Pattern (1-based) current at once: "CurrUser" is written, the Pattern loaded, the
    /// launcher told. `saveOld` saves the working Pattern first; otherwise its changes are gone. `loaded` is
    /// called before the launcher is told, which may take a while.
    void SwitchPattern(
        int number, bool saveOld, const std::function<void()>& loaded = [] {});

    /// The list for the pattern manager, still to be loaded. The current number is written again if the store refused
    /// it: the manager believes the store.
    [[nodiscard]] PatternList PatternsToManage();

    /// Reads what the pattern manager may have changed: the numbers, the names, and the working Pattern's
    /// name. Unsaved edits stay. But the whole Pattern is read when the store refused a part of what the manager
    /// did, and the current number has come to mean another one, over which the edits would be saved. True then.
    bool ReloadPatternList(PatternList& managed);

private:
    void LoadPatternNames();
    void WriteCurrentNumber();
    /// Whether the manager changed nothing of the current Pattern, or left nothing in its place.
    [[nodiscard]] bool IsAsBefore(const PatternList& managed, int formerNumber) const;
    void LoadCurrentPattern();
    void ChoosePicture(int button);
    void StorePattern();
    void StoreOnScreen();

    RegIniFunc& store_;
    LauncherNotification& launcher_;
    const FaceMatcher& fonts_;

    MakerSwitches switches_;
    std::optional<PatternStore> patterns_; ///< from Load on
    int currentPattern_ = 1;
    bool currentRefused_ = false; ///< the store has another number
    std::vector<std::wstring> patternNames_;
    Pattern defaults_;
    Pattern working_;
    Pattern unchanged_;
    NumberedFrom1<ButtonPicture, kMaxButtons> pictures_;
    OnScreenSettings defaultOnScreen_;
    OnScreenSettings onScreen_;
    OnScreenSettings unchangedOnScreen_;
};
