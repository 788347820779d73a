#include "PatternManagerUse.h"

namespace {

using UiDriver::BoxIcon;
using UiDriver::ModalBox;
namespace Keyboard = UiDriver::Keyboard;

class PatternManagerAdd : public PatternManagerUse {
protected:
    static StoredPattern NewPattern(const std::wstring& name) { return Named(SeededDefault(), name); }

    static std::vector<StoredPattern> WithNew(const std::wstring& name) {
        std::vector<StoredPattern> patterns = SeededPatterns();
        patterns.push_back(NewPattern(name));
        return patterns;
    }
};

TEST_F(PatternManagerAdd, OffersTheDefaultName) {
    StartManager();
    const NameQuestion question = AskName(IDC_cmdAdd);
    EXPECT_EQ(question.Field().Text(), SeededDefault().name);
    question.AwaitSelectedText();
    EXPECT_EQ(question.Form().Owner(), Manager().Hwnd());
    EXPECT_FALSE(Manager().Enabled());
}

TEST_F(PatternManagerAdd, TheQuestionHasItsTexts) {
    StartManager();
    const NameQuestion question = AskName(IDC_cmdAdd);
    EXPECT_EQ(question.Form().Control(IDC_lblInputBox).Text(), Text(kEnterNameText));
    EXPECT_EQ(question.Form().Control(IDC_cmdOK).Text(), Text(kNameOkText));
    EXPECT_EQ(question.Form().Control(IDC_cmdCancel).Text(), Text(kNameCancelText));
}

TEST_F(PatternManagerAdd, EnterAcceptsTheOfferedName) {
    StartManager();
    AskName(IDC_cmdAdd).AwaitSelectedText();
    Keyboard::Press(VK_RETURN);
    ExpectList(NamesIn(WithNew(SeededDefault().name)), 3);
    ExpectStore(1, WithNew(SeededDefault().name));
}

TEST_F(PatternManagerAdd, StoresTheDefaultsUnderATypedName) {
    StartManager();
    const NameQuestion question = AskName(IDC_cmdAdd);
    question.AwaitSelectedText();
    Keyboard::Type(NewName());
    UiDriver::WaitUntil([&] { return question.Field().Text() == NewName(); }, L"the typed name");
    Keyboard::Press(VK_RETURN);
    question.Form().WaitUntilGone();
    ExpectList(NamesIn(WithNew(NewName())), 3);
    EXPECT_TRUE(Button(IDC_cmdDelete).Enabled());
    ExpectStore(1, WithNew(NewName()));
}

TEST_F(PatternManagerAdd, LeavesNothingOfAPatternThatHadTheNumberBefore) {
    WritePattern(Set(4), Seeded(1));
    StartManager();
    AskName(IDC_cmdAdd).Accept(NewName());
    ExpectList(NamesIn(WithNew(NewName())), 3);
    ExpectStore(1, WithNew(NewName()));
}

TEST_F(PatternManagerAdd, TheMainDialogOffersTheNewPatternAndKeepsItsOwn) {
    Start(L"/t:1");
    OpenPage(0);
    OpenManager();
    AskName(IDC_cmdAdd).Accept(NewName());
    ExpectList(NamesIn(WithNew(NewName())), 3);
    CloseManager();
    for (const int box : {IDC_cmbUserName0, IDC_cmbUserName1}) {
        EXPECT_EQ(Combo(box).Items(), NamesIn(WithNew(NewName())));
        EXPECT_EQ(Combo(box).Selected(), 0);
    }
    EXPECT_EQ(ShownNames(1, 5), NamesOf(Seeded(1), 1, 5));
    ExpectStore(1, WithNew(NewName()));
}

TEST_F(PatternManagerAdd, TheNewPatternCanBeChosenAtOnce) {
    StartManager();
    AskName(IDC_cmdAdd).Accept(NewName());
    ExpectList(NamesIn(WithNew(NewName())), 3);
    CloseManager();
    Combo(IDC_cmbUserName0).Choose(3);
    UiDriver::WaitUntil([&] { return ShownNames(1, 5) == NamesOf(SeededDefault(), 1, 5); },
                        L"the new pattern to be shown");
    ExpectStore(4, WithNew(NewName()));
}

class PatternManagerCopy : public PatternManagerUse {
protected:
    static std::vector<StoredPattern> WithCopyOf(int number, const std::wstring& name) {
        std::vector<StoredPattern> patterns = SeededPatterns();
        patterns.push_back(Named(Seeded(number), name));
        return patterns;
    }
};

TEST_F(PatternManagerCopy, OffersTheNameWithTheWordCopyBeforeIt) {
    StartManager();
    List().Choose(2);
    const NameQuestion question = AskName(IDC_cmdCopy);
    EXPECT_EQ(question.Field().Text(), Text(kCopyText) + L" " + Seeded(3).name);
    question.AwaitSelectedText();
}

TEST_F(PatternManagerCopy, TakesProgramsParametersAndTitlesAlong) {
    StartManager();
    AskName(IDC_cmdCopy).AwaitSelectedText();
    Keyboard::Press(VK_RETURN);
    const auto expected = WithCopyOf(1, Text(kCopyText) + L" " + Seeded(1).name);
    ExpectList(NamesIn(expected), 3);
    ExpectStore(1, expected);
}

TEST_F(PatternManagerCopy, OfAnotherPatternThanTheCurrentOneUnderATypedName) {
    StartManager();
    List().Choose(1);
    AskName(IDC_cmdCopy).Accept(NewName());
    ExpectList(NamesIn(WithCopyOf(2, NewName())), 3);
    ExpectStore(1, WithCopyOf(2, NewName()));
}

TEST_F(PatternManagerCopy, HasWhatIsStoredAndNotWhatIsStillUnsaved) {
    Start(L"/t:0");
    NameBox(2).SetText(NewName());
    OpenManager();
    AskName(IDC_cmdCopy).Accept(NewName());
    ExpectList(NamesIn(WithCopyOf(1, NewName())), 3);
    ExpectStore(1, WithCopyOf(1, NewName()));
}

class PatternManagerRename : public PatternManagerUse {
protected:
    static std::vector<StoredPattern> WithNewName(int number, const std::wstring& name) {
        std::vector<StoredPattern> patterns = SeededPatterns();
        patterns.at(static_cast<std::size_t>(number) - 1).name = name;
        return patterns;
    }

    void RenameCurrent() {
        Start(L"/t:1");
        OpenPage(0);
        OpenManager();
        AskName(IDC_cmdRename).Accept(NewName());
        ExpectList(NamesIn(WithNewName(1, NewName())), 0);
    }
};

TEST_F(PatternManagerRename, OffersThePresentName) {
    StartManager();
    List().Choose(1);
    const NameQuestion question = AskName(IDC_cmdRename);
    EXPECT_EQ(question.Field().Text(), Seeded(2).name);
    question.AwaitSelectedText();
}

TEST_F(PatternManagerRename, StoresTheNameAloneAndKeepsTheSelection) {
    StartManager();
    List().Choose(1);
    AskName(IDC_cmdRename).Accept(NewName());
    ExpectList(NamesIn(WithNewName(2, NewName())), 1);
    EXPECT_TRUE(Button(IDC_cmdDelete).Enabled());
    ExpectStore(1, WithNewName(2, NewName()));
}

TEST_F(PatternManagerRename, TheSameNameInAnotherCaseIsANewOne) {
    const std::wstring upper = Local(L"TRAVEL", L"ＴＲＩＰ");
    const std::wstring lower = Local(L"Travel", L"ｔｒｉｐ");
    WriteStore(1, WithNewName(3, lower));
    StartManager();
    List().Choose(2);
    AskName(IDC_cmdRename).Accept(upper);
    ExpectList(NamesIn(WithNewName(3, upper)), 2);
    ExpectStore(1, WithNewName(3, upper));
}

TEST_F(PatternManagerRename, OfTheCurrentPatternShowsOnBothPages) {
    RenameCurrent();
    CloseManager();
    for (const int box : {IDC_cmbUserName0, IDC_cmbUserName1}) {
        EXPECT_EQ(Combo(box).Items(), NamesIn(WithNewName(1, NewName())));
        EXPECT_EQ(Combo(box).SelectedText(), NewName());
    }
}

TEST_F(PatternManagerRename, OfTheCurrentPatternOutlivesTheNextSave) {
    RenameCurrent();
    CloseManager();
    Apply();
    ExpectStore(1, WithNewName(1, NewName()));
}

TEST_F(PatternManagerRename, OfTheCurrentPatternIsNoUnsavedChange) {
    RenameCurrent();
    CloseManager();
    Item(IDC_cmdOK).Press();
    ExpectEnd();
    ExpectStore(1, WithNewName(1, NewName()));
}

class PatternManagerNames : public PatternManagerUse {
protected:
    /// A character of one byte that is none of ASCII's.
    static std::wstring Narrow(std::size_t count) { return std::wstring(count, Local(L"é", L"ｱ").front()); }

    /// Characters of two bytes each; twice as many of one byte where the code page has no others.
    static std::wstring Wide(std::size_t count) {
        return Japanese() ? std::wstring(count, L'語') : Narrow(2 * count);
    }

    void ExpectRefused(const NameQuestion& question, const std::wstring& name, int reason) const {
        const std::vector<std::wstring> listed = List().Items();
        question.Field().SetText(name);
        question.PressOk();
        const ModalBox box = ModalBox::Wait(Program());
        EXPECT_EQ(box.Title(), Text(kInputErrorText));
        EXPECT_EQ(box.Text(), Text(reason));
        EXPECT_EQ(box.Icon(), BoxIcon::Stop);
        EXPECT_FALSE(question.Form().Enabled());
        box.Press(IDOK);
        question.AwaitSelectedText();
        EXPECT_TRUE(question.Form().Visible());
        EXPECT_TRUE(question.Form().Enabled());
        EXPECT_EQ(question.Field().Text(), name);
        EXPECT_EQ(List().Items(), listed);
    }

    void ExpectNewNameRefused(const std::wstring& name, int reason) {
        StartManager();
        ExpectRefused(AskName(IDC_cmdAdd), name, reason);
        ExpectStoreUntouched();
    }

    void ExpectAccepted(const std::wstring& name) {
        StartManager();
        AskName(IDC_cmdAdd).Accept(name);
        std::vector<StoredPattern> expected = SeededPatterns();
        expected.push_back(Named(SeededDefault(), name));
        ExpectList(NamesIn(expected), 3);
        ExpectStore(1, expected);
    }
};

TEST_F(PatternManagerNames, CannotBeEmpty) {
    ExpectNewNameRefused(L"", kNameEmptyText);
}

TEST_F(PatternManagerNames, CannotBeOneThatAnotherPatternHas) {
    ExpectNewNameRefused(Seeded(2).name, kNameUsedText);
}

TEST_F(PatternManagerNames, CannotBeTheNameOfThePatternThatIsCopied) {
    StartManager();
    ExpectRefused(AskName(IDC_cmdCopy), Seeded(1).name, kNameUsedText);
    ExpectStoreUntouched();
}

TEST_F(PatternManagerNames, CannotStayTheSameOnRename) {
    StartManager();
    ExpectRefused(AskName(IDC_cmdRename), Seeded(1).name, kNameUsedText);
    ExpectStoreUntouched();
}

TEST_F(PatternManagerNames, CannotHaveTwentyOneNarrowCharacters) {
    ExpectNewNameRefused(Narrow(21), kNameTooLongText);
}

TEST_F(PatternManagerNames, CannotHaveElevenWideCharacters) {
    ExpectNewNameRefused(Wide(11), kNameTooLongText);
}

TEST_F(PatternManagerNames, CannotHaveTenWideCharactersAndANarrowOne) {
    ExpectNewNameRefused(Wide(10) + L"a", kNameTooLongText);
}

TEST_F(PatternManagerNames, CannotBeSavedTooLongByEnterEither) {
    StartManager();
    const NameQuestion question = AskName(IDC_cmdAdd);
    question.Field().TypeOver(Narrow(21));
    UiDriver::WaitUntil([&] { return question.Field().Text() == Narrow(21); }, L"the typed name");
    Keyboard::Press(VK_RETURN);
    const ModalBox box = ModalBox::Wait(Program());
    EXPECT_EQ(box.Text(), Text(kNameTooLongText));
    box.Press(IDOK);
    question.AwaitSelectedText();
    ExpectStoreUntouched();
}

TEST_F(PatternManagerNames, AUsedNameThatIsTooLongIsReportedAsUsed) {
    std::vector<StoredPattern> patterns = SeededPatterns();
    patterns[0].name = Narrow(25);
    WriteStore(1, patterns);
    StartManager();
    ExpectRefused(AskName(IDC_cmdRename), Narrow(25), kNameUsedText);
    ExpectStore(1, patterns);
}

TEST_F(PatternManagerNames, MayHaveTwentyNarrowCharacters) {
    ExpectAccepted(Narrow(20));
}

TEST_F(PatternManagerNames, MayHaveTenWideCharacters) {
    ExpectAccepted(Wide(10));
}

TEST_F(PatternManagerNames, MayBePutRightAfterARefusal) {
    StartManager();
    const NameQuestion question = AskName(IDC_cmdRename);
    ExpectRefused(question, L"", kNameEmptyText);
    ExpectRefused(question, Seeded(2).name, kNameUsedText);
    Keyboard::Type(NewName());
    UiDriver::WaitUntil([&] { return question.Field().Text() == NewName(); }, L"the typed name");
    Keyboard::Press(VK_RETURN);
    question.Form().WaitUntilGone();
    std::vector<StoredPattern> expected = SeededPatterns();
    expected[0].name = NewName();
    ExpectList(NamesIn(expected), 0);
    ExpectStore(1, expected);
}

TEST_F(PatternManagerNames, AreShownAsTheyAreStored) {
    StartManager();
    AskName(IDC_cmdRename).Accept(Local(L"日本", L"한국"));
    std::vector<StoredPattern> expected = SeededPatterns();
    expected[0].name = L"??";
    ExpectList(NamesIn(expected), 0);
    ExpectStore(1, expected);
}

struct WayOut : NamedCase {
    void (*leave)(const NameQuestion&);
};

class PatternManagerNameCancel : public PatternManagerUse, public testing::WithParamInterface<WayOut> {};

TEST_P(PatternManagerNameCancel, ChangesNothing) {
    StartManager();
    for (const int button : {IDC_cmdAdd, IDC_cmdCopy, IDC_cmdRename}) {
        const NameQuestion question = AskName(button);
        question.AwaitSelectedText();
        question.Field().SetText(NewName());
        GetParam().leave(question);
        question.Form().WaitUntilGone();
        ModalBox::RequireNone(Program());
        ExpectList(NamesIn(SeededPatterns()), 0);
        UiDriver::WaitUntil([&] { return Manager().Enabled() && Manager().Foreground(); },
                            L"the manager to be back in front");
    }
    ExpectStoreUntouched();
}

INSTANTIATE_TEST_SUITE_P(
    , PatternManagerNameCancel,
    testing::Values(WayOut{{"CancelButton"}, [](const NameQuestion& question) { question.Cancel(); }},
                    WayOut{{"Escape"}, [](const NameQuestion&) { Keyboard::Press(VK_ESCAPE); }},
                    WayOut{{"CloseBox"}, [](const NameQuestion& question) { question.Form().Close(); }}),
    NameOfCase{});

} // namespace
