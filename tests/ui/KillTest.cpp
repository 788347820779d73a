#include "AnsiBytes.h"
#include "KillUse.h"
#include "PatternManagerUse.h"
#include "WizardUse.h"

#include <algorithm>
#include <cstdlib>

namespace {

using UiDriver::Control;

constexpr int kAllButtons = 8;

/// The name of a button when the program is used again.
std::wstring NameAgain() {
    return Local(L"Again", L"再び");
}

/// The last value of each button goes: an older program's store had none. Saving a Pattern then changes its last
/// value too, so that one can tell how far it came.
void DropLastTitles(const UiDriver::RegistryKey& user, const UiDriver::ProfileFile& ini, bool iniFile,
                    int patterns) {
    for (int pattern = 1; pattern <= patterns; ++pattern) {
        for (int button = 1; button <= kAllButtons; ++button) {
            const std::string number = std::to_string(button);
            if (iniFile) {
                ini.Erase("USER" + std::to_string(pattern), "Btn" + number + "_Title5");
            } else {
                user.Sub(L"Setting\\Set" + std::to_wstring(pattern) + L"\\AppKey" + std::to_wstring(button))
                    .Erase(L"ProgName5");
            }
        }
    }
}

// QLB_KILLS and QLB_SEED in the environment make these longer, or other ones.

class KilledDialog : public PatternManagerUse {
protected:
    void SeedFor(bool iniFile, int current) const {
        UiDriver::Store::Wipe();
        Seed();
        Machine().SetDword(L"NTNumAPBtn", 3);
        if (iniFile) {
            SeedIniBackEnd();
            Ini().Set("KORVOQLB", "CurrUser", std::to_string(current));
        } else {
            User().SetDword(L"CurrSetting", static_cast<DWORD>(current));
        }
        DropLastTitles(User(), Ini(), iniFile, kPatterns);
    }

    /// Everything that is on the pages becomes the maker's.
    Control BeginSave() {
        Start(L"/t:0");
        for (int page = 0; page <= 2; ++page) {
            OpenPage(page);
            Item(IDC_cmdDefault0 + page).Press();
            Dialog().WaitUntilAnswers();
        }
        return Item(IDC_cmdApply);
    }
    Control BeginOnScreen() {
        Start(L"/t:2");
        Item(IDC_cmdDefault0 + 2).Press();
        Dialog().WaitUntilAnswers();
        return Item(IDC_cmdApply);
    }
    Control BeginSwitch() {
        Start(L"/t:0");
        Item(IDC_cmdDefault0).Press();
        Dialog().WaitUntilAnswers();
        Combo(IDC_cmbUserName0).Choose(1);
        return UiDriver::ModalBox::Wait(Program()).Form().Control(IDYES);
    }
    Control BeginNaming(int button, int index) {
        StartManager();
        List().Choose(index);
        const NameQuestion question = AskName(button);
        question.Field().SetText(NewName());
        return question.Form().Control(IDC_cmdOK);
    }
    Control BeginDelete() {
        StartManager();
        return AskDelete(0).Form().Control(IDOK);
    }

    DWORD StoredNumber(bool iniFile, const char* iniKey, const wchar_t* name) const {
        const std::optional<std::string> line = Ini().Get("KORVOQLB", iniKey);
        const DWORD inFile = std::strtoul(line.value_or("").c_str(), nullptr, 10);
        return iniFile ? std::max<DWORD>(inFile, 1) : User().Dword(name).value_or(0);
    }

    void UseAgain(bool iniFile) {
        Start();
        const DWORD count = StoredNumber(iniFile, "NumUser", L"NumSetting");
        const DWORD current = StoredNumber(iniFile, "CurrUser", L"CurrSetting");
        EXPECT_EQ(Combo(IDC_cmbUserName0).Count(), static_cast<int>(count));
        EXPECT_EQ(Combo(IDC_cmbUserName0).Selected(), static_cast<int>(current) - 1);
        NameBox(2).SetText(NameAgain());
        Apply();
        ExpectAlive();
        if (iniFile) {
            EXPECT_EQ(Ini().Get("USER" + std::to_string(current), "Btn2_Name"), ToAnsi(NameAgain()));
        } else {
            EXPECT_EQ(AppKey(static_cast<int>(current), 2).String(L"DispTitle"), NameAgain());
        }
        EndProgram();
    }
};

TEST_F(KilledDialog, LeavesEveryValueOldOrNew) {
    using Writes = KilledWrites;
    const auto saving = [](int pattern) { return WritesOfPattern(pattern, kAllButtons); };
    const Writes kApply = Writes{kWriteOfCurrent, kWriteOfCount} + saving(kPatterns) + WritesOfScreen();
    const Writes kAppend = Writes{kWriteOfCount} + saving(kPatterns + 1);
    // The last pattern is current, so that a deletion lowers its number.
    Killer killer({[this](bool iniFile) { SeedFor(iniFile, kPatterns); },
                   [this]() -> const UiDriver::Process& { return Program(); },
                   [this](bool iniFile) { UseAgain(iniFile); }},
                  {{"save", [this] { return BeginSave(); }, kApply},
                   {"switch", [this] { return BeginSwitch(); }, saving(kPatterns) + Writes{kWriteOfCurrent}},
                   {"add", [this] { return BeginNaming(IDC_cmdAdd, 0); }, kAppend},
                   {"delete", [this] { return BeginDelete(); },
                    Writes{{"USER3", ""}, kWriteOfCurrent, kWriteOfCount} + saving(1) + saving(2)},
                   {"copy", [this] { return BeginNaming(IDC_cmdCopy, 1); }, kAppend},
                   {"rename", [this] { return BeginNaming(IDC_cmdRename, 1); }, saving(2)},
                   {"on-screen", [this] { return BeginOnScreen(); }, kApply}});
    killer.Kill();
}

class KilledWizard : public WizardUse {
protected:
    void SeedFor(bool iniFile) const {
        UiDriver::Store::Wipe();
        Seed();
        if (iniFile) {
            SeedIniBackEnd();
        }
        DropLastTitles(User(), Ini(), iniFile, kPatterns);
    }
    Control Walk() const {
        Wizard().BringToFrontForGood(); // the mouse is used
        GoToPick(Source::ShortcutKey);
        Pick(OfferOf(Source::ShortcutKey));
        Next(IDC_fraFinish);
        return Part(IDC_cmdNext);
    }
    void UseAgain() {
        Start();
        NameBox(2).SetText(NameAgain());
        Apply();
        ExpectAlive();
        EndProgram();
    }
    void KillIn(const char* name, const std::function<Control()>& begin) {
        const KilledWrites writes = WritesOfPattern(1, kShownButtons) +
                                    KilledWrites{kWriteOfCurrent, kWriteOfCount} + WritesOfScreen();
        Killer killer({[this](bool iniFile) { SeedFor(iniFile); },
                       [this]() -> const UiDriver::Process& { return Running(); },
                       [this](bool /*iniFile*/) { UseAgain(); }},
                      {{name, begin, writes}});
        killer.Kill();
    }
};

TEST_F(KilledWizard, LeavesEveryValueOldOrNew_FromTheDialog) {
    KillIn("wizard", [this] {
        Open();
        Next(IDC_fraSelectLaunchMethod);
        return Walk();
    });
}

TEST_F(KilledWizard, LeavesEveryValueOldOrNew_Alone) {
    KillIn("lone wizard", [this] {
        StartAlone(L"/w:2");
        return Walk();
    });
}

} // namespace
