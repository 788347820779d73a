#include "PatternManagerUse.h"

#include <sstream>

namespace {

using UiDriver::BoxIcon;
using UiDriver::ModalBox;
namespace Keyboard = UiDriver::Keyboard;

class PatternManagerDelete : public PatternManagerUse {};

TEST_F(PatternManagerDelete, AsksFirst) {
    StartManager();
    const ModalBox box = AskDelete(1);
    EXPECT_EQ(box.Title(), Text(kDeleteText));
    EXPECT_EQ(box.Text(), Seeded(2).name + L" " + Text(kWillBeDeletedText));
    EXPECT_EQ(box.Icon(), BoxIcon::Question);
    EXPECT_TRUE(box.Has(IDOK));
    EXPECT_TRUE(box.Has(IDCANCEL));
    EXPECT_EQ(box.DefaultButton(), IDOK);
    ExpectStoreUntouched();
}

TEST_F(PatternManagerDelete, CancelChangesNothing) {
    StartManager();
    AskDelete(1).Press(IDCANCEL);
    ExpectList(NamesIn(SeededPatterns()), 1);
    EXPECT_TRUE(Button(IDC_cmdDelete).Enabled());
    ExpectStoreUntouched();
}

TEST_F(PatternManagerDelete, EscapeOnTheQuestionChangesNothing) {
    StartManager();
    AskDelete(1).Dismiss();
    ExpectList(NamesIn(SeededPatterns()), 1);
    ExpectStoreUntouched();
}

TEST_F(PatternManagerDelete, OfOneAfterTheCurrentOneKeepsTheCurrentNumber) {
    StartManager();
    AskDelete(1).Press(IDOK);
    ExpectList(NamesIn({Seeded(1), Seeded(3)}), 1);
    EXPECT_TRUE(Button(IDC_cmdDelete).Enabled());
    ExpectStore(1, {Seeded(1), Seeded(3)});
}

TEST_F(PatternManagerDelete, OfOneBeforeTheCurrentOneLowersTheCurrentNumber) {
    WriteStore(3, SeededPatterns());
    StartManager();
    AskDelete(0).Press(IDOK);
    ExpectList(NamesIn({Seeded(2), Seeded(3)}), 0);
    EXPECT_TRUE(Button(IDC_cmdDelete).Enabled());
    ExpectStore(2, {Seeded(2), Seeded(3)});
}

TEST_F(PatternManagerDelete, JustBeforeTheCurrentOneSelectsItAndStopsThere) {
    WriteStore(2, SeededPatterns());
    StartManager();
    AskDelete(0).Press(IDOK);
    ExpectList(NamesIn({Seeded(2), Seeded(3)}), 0);
    EXPECT_FALSE(Button(IDC_cmdDelete).Enabled());
    AwaitFocus(IDC_lstUserList);
    ExpectStore(1, {Seeded(2), Seeded(3)});
}

TEST_F(PatternManagerDelete, OfTheLastOneSelectsTheNewLast) {
    StartManager();
    AskDelete(2).Press(IDOK);
    ExpectList(NamesIn({Seeded(1), Seeded(2)}), 1);
    ExpectStore(1, {Seeded(1), Seeded(2)});
}

TEST_F(PatternManagerDelete, OfAllOthersLeavesTheCurrentOne) {
    StartManager();
    AskDelete(2).Press(IDOK);
    ExpectList(NamesIn({Seeded(1), Seeded(2)}), 1);
    AskDelete(1).Press(IDOK);
    ExpectList(NamesIn({Seeded(1)}), 0);
    EXPECT_FALSE(Button(IDC_cmdDelete).Enabled());
    AwaitFocus(IDC_lstUserList);
    ExpectStore(1, {Seeded(1)});
}

TEST_F(PatternManagerDelete, TheMainDialogShowsTheSamePatternUnderItsNewNumber) {
    WriteStore(3, SeededPatterns());
    Start(L"/t:1");
    OpenPage(0);
    OpenManager();
    AskDelete(0).Press(IDOK);
    ExpectList(NamesIn({Seeded(2), Seeded(3)}), 0);
    CloseManager();
    for (const int box : {IDC_cmbUserName0, IDC_cmbUserName1}) {
        EXPECT_EQ(Combo(box).Items(), NamesIn({Seeded(2), Seeded(3)}));
        EXPECT_EQ(Combo(box).Selected(), 1);
    }
    EXPECT_EQ(ShownNames(1, 5), NamesOf(Seeded(3), 1, 5));
    Item(IDC_cmdOK).Press();
    ExpectEnd();
    ExpectStore(2, {Seeded(2), Seeded(3)});
}

TEST_F(PatternManagerDelete, TheDeleteKeyInTheListAsksToo) {
    StartManager();
    List().Focus();
    Keyboard::Press(VK_DOWN);
    AwaitDelete(true);
    Keyboard::Press(VK_DELETE);
    const ModalBox box = ModalBox::Wait(Program());
    EXPECT_EQ(box.Text(), Seeded(2).name + L" " + Text(kWillBeDeletedText));
    box.Press(IDOK);
    ExpectList(NamesIn({Seeded(1), Seeded(3)}), 1);
    ExpectStore(1, {Seeded(1), Seeded(3)});
}

TEST_F(PatternManagerDelete, TheDeleteKeyCannotDeleteTheCurrentPattern) {
    StartManager();
    List().Focus();
    Keyboard::Press(VK_DELETE);
    ModalBox::RequireNone(Program());
    ExpectList(NamesIn(SeededPatterns()), 0);
    ExpectStoreUntouched();
}

TEST_F(PatternManagerDelete, AnotherProgramCannotDeleteTheCurrentPatternEither) {
    StartManager();
    SendCommand(IDC_cmdDelete);
    ModalBox::RequireNone(Program());
    ExpectList(NamesIn(SeededPatterns()), 0);
    ExpectStoreUntouched();
}

class PatternManagerFull : public PatternManagerUse {
protected:
    PatternManagerFull() { WriteStore(1, ManyPatterns(10)); }
};

TEST_F(PatternManagerFull, CannotTakeAnEleventhPattern) {
    StartManager();
    ExpectList(NamesIn(ManyPatterns(10)), 0);
    EXPECT_FALSE(Button(IDC_cmdAdd).Enabled());
    EXPECT_FALSE(Button(IDC_cmdCopy).Enabled());
    EXPECT_TRUE(Button(IDC_cmdRename).Enabled());
    List().Choose(5);
    AwaitDelete(true);
    EXPECT_FALSE(Button(IDC_cmdAdd).Enabled());
    EXPECT_FALSE(Button(IDC_cmdCopy).Enabled());
}

TEST_F(PatternManagerFull, CannotTakeAnEleventhPatternFromAnotherProgramEither) {
    StartManager();
    SendCommand(IDC_cmdAdd);
    SendCommand(IDC_cmdCopy);
    ExpectList(NamesIn(ManyPatterns(10)), 0);
    EXPECT_EQ(UiDriver::Forms(Program()).size(), 2U);
    ExpectStore(1, ManyPatterns(10));
}

TEST_F(PatternManagerFull, ADeleteMakesRoom) {
    StartManager();
    AskDelete(4).Press(IDOK);
    std::vector<StoredPattern> expected = ManyPatterns(10);
    expected.erase(expected.begin() + 4);
    ExpectList(NamesIn(expected), 4);
    EXPECT_TRUE(Button(IDC_cmdAdd).Enabled());
    EXPECT_TRUE(Button(IDC_cmdCopy).Enabled());
    ExpectStore(1, expected);
}

TEST_F(PatternManagerFull, TheTenthPatternEndsAddingAndTheFocusMovesOn) {
    WriteStore(1, ManyPatterns(9));
    StartManager();
    Button(IDC_cmdAdd).Focus();
    AskName(IDC_cmdAdd).Accept(NewName());
    std::vector<StoredPattern> expected = ManyPatterns(9);
    expected.push_back(Named(SeededDefault(), NewName()));
    ExpectList(NamesIn(expected), 9);
    EXPECT_FALSE(Button(IDC_cmdAdd).Enabled());
    EXPECT_FALSE(Button(IDC_cmdCopy).Enabled());
    AwaitFocus(IDC_lstUserList);
    ExpectStore(1, expected);
}

class PatternManagerIniFile : public PatternManagerUse {
protected:
    PatternManagerIniFile() {
        SeedIniBackEnd();
        const UiDriver::RegistryKey defaults = Machine().Sub(L"Default\\USER1");
        defaults.SetString(L"UserName", SeededDefault().name);
        defaults.SetString(L"Btn1_Name", Local(L"Début", L"開始"));
        defaults.SetString(L"Btn1_Exec", L"S");
        defaults.SetString(L"Btn1_NumAP", L"2");
        defaults.SetString(L"Btn1_AP1", L"C:\\first.exe");
        defaults.SetString(L"Btn1_AP2", L"C:\\second.exe|/x");
        rest_ = Machine().Dump();
    }

    /// What that gives; a button without a name is stored with a blank, which the file doesn't keep.
    static StoredPattern IniDefault() {
        StoredPattern pattern;
        pattern.Button(1) = {Local(L"Début", L"開始"), L"S", 2, {L"C:\\first.exe", L"C:\\second.exe|/x"}, {}};
        return pattern;
    }

    void ExpectFile(const std::string& current, const std::vector<StoredPattern>& patterns) const {
        EXPECT_EQ(Ini().Get("KORVOQLB", "CurrUser"), current);
        EXPECT_EQ(Ini().Get("KORVOQLB", "NumUser"), std::to_string(patterns.size()));
        const int count = static_cast<int>(patterns.size());
        for (int number = 1; number <= count; ++number) {
            EXPECT_EQ(ReadPattern(Ini(), number), patterns.at(static_cast<std::size_t>(number) - 1));
        }
        EXPECT_THAT(PatternSections(), testing::SizeIs(patterns.size()));
        EXPECT_EQ(ReadOnScreen(Ini()), SeededOnScreen());
        EXPECT_EQ(Machine().Dump(), rest_);
        EXPECT_FALSE(User().Exists());
    }

private:
    std::vector<std::string> PatternSections() const {
        std::vector<std::string> sections;
        std::istringstream lines(Ini().Bytes());
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("[USER") || line.starts_with("[User")) {
                sections.push_back(line);
            }
        }
        return sections;
    }

    std::wstring rest_;
};

TEST_F(PatternManagerIniFile, TakesANewPattern) {
    StartManager();
    AskName(IDC_cmdAdd).Accept(NewName());
    std::vector<StoredPattern> expected = SeededPatterns();
    expected.push_back(Named(IniDefault(), NewName()));
    ExpectList(NamesIn(expected), 3);
    ExpectFile("1", expected);
}

TEST_F(PatternManagerIniFile, TakesACopy) {
    StartManager();
    AskName(IDC_cmdCopy).Accept(NewName());
    std::vector<StoredPattern> expected = SeededPatterns();
    expected.push_back(Named(Seeded(1), NewName()));
    ExpectList(NamesIn(expected), 3);
    ExpectFile("1", expected);
}

TEST_F(PatternManagerIniFile, TakesANewName) {
    StartManager();
    AskName(IDC_cmdRename).Accept(NewName());
    std::vector<StoredPattern> expected = SeededPatterns();
    expected[0].name = NewName();
    ExpectList(NamesIn(expected), 0);
    ExpectFile("1", expected);
}

TEST_F(PatternManagerIniFile, LosesTheLastSectionWhenAPatternGoes) {
    Ini().Set("KORVOQLB", "CurrUser", "3");
    StartManager();
    AskDelete(0).Press(IDOK);
    ExpectList(NamesIn({Seeded(2), Seeded(3)}), 0);
    ExpectFile("2", {Seeded(2), Seeded(3)});
}

} // namespace
