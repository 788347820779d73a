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
class StartUp;

/// Pages of the main dialog, as "/t:" numbers them.
enum class MainPage { Desktop = 0, Notebook = 1, OnScreen = 2 };

/// The user's answer to the question whether to save.
enum class SaveAnswer { Yes, No, Cancel };
using AskToSave = std::function<SaveAnswer()>;

/// What the main dialog edits: a working copy of the current Pattern and of the on-screen settings, beside
/// the copies that were last loaded or saved. A write that the store refuses is ignored.
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

    /// Buttons (1...8) that the maker stores in the same place as this one. They are set alike, or the last of them
    /// would be stored over the others.
    [[nodiscard]] std::vector<int> ButtonsStoredWith(int button) const;

    /// Takes the text as it is.
    void SetButtonName(int button, const std::wstring& name);
    /// Whether a name box with this text shows the button's name. A name that is saved empty is stored as a blank; its
    /// box stays empty.
    [[nodiscard]] bool IsNameShown(int button, const std::wstring& boxText) const;
    /// The button's settings as another dialog leaves them, changed or not: its picture is chosen anew. Nothing is saved.
    void SetSlot(int button, const ButtonSlot& slot);
    void SetOnScreen(const OnScreenSettings& settings) { onScreen_ = settings; }

    /// Nothing is saved.
    void RestoreDefaults(MainPage page);

    [[nodiscard]] bool PatternChanged() const;
    [[nodiscard]] bool AnythingChanged() const;

    /// OK: writes "CurrUser" and "NumUser"; then, if anything has changed, asks and saves. False: the dialog stays.
    [[nodiscard]] bool Ok(const AskToSave& ask);

    /// Writes "CurrUser" and "NumUser", saves the Pattern and the on-screen settings and tells the launcher. Button
    /// names become what the ANSI code page can store of them.
    void Apply();

    /// Stores a button's settings at once, with all that was edited before, and tells the launcher. Nothing happens to
    /// a number that is no button's.
    void SaveButton(int button, const ButtonSlot& slot);
    /// The same for the wizard that runs alone: its button goes by the number of the place where it is stored, and the
    /// launcher may be asked for it. `stored` is called before the launcher is told, which may take a while.
    void SaveLoneButton(
        const StartUp& startUp, const ButtonSlot& slot, const std::function<void()>& stored = [] {});

    [[nodiscard]] const Pattern& Defaults() const { return defaults_; }

    /// Makes another Pattern of the list (1-based) current at once: "CurrUser" is written, the Pattern loaded, the
    /// launcher told. Asks first whether to save what has changed of the old one. `loaded` is called before the
    /// launcher is told, which may take a while.
    void SwitchPattern(
        int number, const AskToSave& ask, const std::function<void()>& loaded = [] {});

    /// Lets the pattern manager work on the stored Patterns, then reads the numbers and names again. Unsaved edits
    /// stay when the stored current Pattern still is the one they were made in. Otherwise that one is loaded: edits of
    /// one Pattern never go over another.
    void ManagePatterns(const std::function<void(PatternList&)>& manage);

private:
    void LoadPatternNames();
    void WriteCurrentNumber();
    void WritePatternNumbers();
    void LoadCurrentPattern();
    void ChoosePicture(int button);
    void StorePattern();
    void StoreOnScreen();
    void StoreButton(int button, const ButtonSlot& slot);
    void Save();

    RegIniFunc& store_;
    LauncherNotification& launcher_;
    const FaceMatcher& fonts_;

    MakerSwitches switches_;
    std::optional<PatternStore> patterns_; ///< from Load on
    int currentPattern_ = 1;
    std::vector<std::wstring> patternNames_;
    Pattern defaults_;
    Pattern working_;
    Pattern unchanged_;
    NumberedFrom1<ButtonPicture, kMaxButtons> pictures_;
    OnScreenSettings defaultOnScreen_;
    OnScreenSettings onScreen_;
    OnScreenSettings unchangedOnScreen_;
};
