#pragma once

#include "StoredSettings.h"
#include "Texts.h"
#include "driver/Driver.h"
#include "resources/resource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

/// One case of a parametrised test; what derives from it adds what the case is about.
struct NamedCase {
    const char* name;

    friend std::ostream& operator<<(std::ostream& out, const NamedCase& each) { return out << each.name; }
};

/// Names the tests of a parametrised suite after their cases.
struct NameOfCase {
    template <class Case> std::string operator()(const testing::TestParamInfo<Case>& each) const {
        return each.param.name;
    }
};

/// The settings program on the store of a believable keyboard: two Fn keys, hover pictures, the maker's default
/// pattern, three patterns of the user's, of which the first is current. Programs that a test starts end with
/// it.
class UiTest : public testing::Test {
protected:
    static constexpr int kPatterns = 3;
    static constexpr int kShownButtons = 7; ///< 1...5 on the desktop page, 6 and 7 on the notebook page

    UiTest();

    UiDriver::RegistryKey Machine() const { return store_.Machine(); }
    UiDriver::RegistryKey User() const { return store_.User(); }
    UiDriver::ProfileFile Ini() const { return store_.Ini(); }
    UiDriver::RegistryKey Set(int number) const {
        return User().Sub(L"Setting\\Set" + std::to_wstring(number));
    }
    UiDriver::RegistryKey OnScreenKey() const { return User().Sub(L"OnScreen"); }
    UiDriver::RegistryKey AppKey(int pattern, int button) const {
        return Set(pattern).Sub(L"AppKey" + std::to_wstring(button));
    }
    std::wstring StoreDump() const { return store_.Dump(); }
    std::optional<DWORD> StoredCurrent() const { return User().Dword(L"CurrSetting"); }

    /// Writes the settings; the store is already seeded when a test begins.
    void Seed() const;

    /// What the store was seeded with.
    static StoredPattern Seeded(int number);
    static StoredPattern SeededDefault();
    static StoredOnScreen SeededOnScreen();
    static StoredOnScreen SeededDefaultOnScreen();

    /// The same settings in the ini file, selected as the back end; the registry keeps none of the user's.
    void SeedIniBackEnd() const;

    static std::wstring ProgramPath();
    static std::wstring LauncherPath();

    /// Starts the program and waits for its dialog.
    void Start(const std::wstring& arguments = L"/k");
    void StartFrom(const std::wstring& programPath, const std::wstring& arguments = L"/k");
    /// Kills the program if it still runs.
    void EndProgram();
    const UiDriver::Process& Program() const { return *program_; }
    const UiDriver::Window& Dialog() const { return *dialog_; }

    UiDriver::Control Item(int id) const { return Dialog().Control(id); }
    UiDriver::ComboBox Combo(int id) const { return Dialog().Combo(id); }
    UiDriver::TabControl Tabs() const { return Dialog().Tab(IDC_tabContainer); }

    /// Clicks the tab of page 0...2 (all three are shown) and waits until the page is there.
    void OpenPage(int page) const;

    /// Of button 1...8.
    UiDriver::Control NameBox(int button) const { return Item(IDC_txtButtonName0 + button - 1); }
    UiDriver::Control PictureOf(int button) const { return Item(IDC_picButton0 + button - 1); }

    /// The texts of the name boxes of buttons first...last.
    std::vector<std::wstring> ShownNames(int first, int last) const;
    static std::vector<std::wstring> NamesOf(const StoredPattern& pattern, int first, int last);

    /// Presses Apply and waits until the program is done with it.
    void Apply() const;

    /// Presses the button and waits for the question whether to save.
    UiDriver::ModalBox PressAndAwaitQuestion(int id) const;

    /// Waits until the program has ended, and expects exit code 0.
    void ExpectEnd() const;

    /// Expects the dialog to answer and to be the program's only window.
    void ExpectAlive() const;

    UiDriver::Launcher& StartLauncher(const std::wstring& options = {});
    UiDriver::Launcher& TheLauncher() { return *launcher_; }

private:
    UiDriver::Store store_;
    std::optional<UiDriver::Launcher> launcher_;
    std::optional<UiDriver::Process> program_;
    std::optional<UiDriver::Window> dialog_;
};
