#include "WizardUse.h"

namespace {

struct PickedFrom : NamedCase {
    Source source;
};

class WizardSingle : public WizardUse, public testing::WithParamInterface<PickedFrom> {};

TEST_P(WizardSingle, StoresWhatWasPickedInTheChosenButton) {
    StartLauncher();
    Open();
    Check(IDC_optMFButton0 + 3);
    Next(IDC_fraSelectLaunchMethod);
    GoToPick(GetParam().source);
    const Offer offer = OfferOf(GetParam().source);
    Pick(offer);
    Next(IDC_fraFinish);
    TheLauncher().RequireNoEntries();
    Finish();
    ExpectAlive();
    EXPECT_EQ(NameBox(4).Text(), offer.stored.name);
    ExpectToldOnce(With(4, offer.stored));
    ExpectStore(With(4, offer.stored));
}

INSTANTIATE_TEST_SUITE_P(, WizardSingle,
                         testing::Values(PickedFrom{{"FromTheStartMenu"}, Source::StartMenu},
                                         PickedFrom{{"FromMediaCenter"}, Source::MediaCenter},
                                         PickedFrom{{"FromIeFavorites"}, Source::IeFavorites},
                                         PickedFrom{{"FromAllFiles"}, Source::AllFiles},
                                         PickedFrom{{"FromShortcutKeys"}, Source::ShortcutKey}),
                         NameOfCase{});

class WizardPrograms : public WizardUse {
protected:
    static std::wstring Name() { return Local(L"Études", L"勉強"); }

    void OpenAtMethod() {
        Open();
        Next(IDC_fraSelectLaunchMethod);
    }
    int TopInFrame(int part, int frame) const { return Part(part).Rect().top - Part(frame).Rect().top; }
};

TEST_F(WizardPrograms, TwoInSequence) {
    StartLauncher();
    OpenAtMethod();
    GoToSeveral(1, Name());
    EXPECT_TRUE(Part(IDC_cmdFinish).Visible());
    EXPECT_FALSE(Part(IDC_cmdFinish).Enabled());
    AddFile(1, 1);
    AddFile(2, 2);
    Press(IDC_cmdFinish, IDC_fraFinish);
    Finish();
    ExpectToldOnce(With(1, Several(Name(), L"S", 2)));
    ExpectStore(With(1, Several(Name(), L"S", 2)));
}

TEST_F(WizardPrograms, TwoAtOnceOfTwoSources) {
    OpenAtMethod();
    GoToSeveral(2, Name());
    AddFile(1, 1);
    Check(IDC_optSelectMenu0 + static_cast<int>(Source::IeFavorites));
    AwaitNext(false);
    const Offer news = OfferOf(Source::IeFavorites);
    Pick(news);
    Part(IDC_cmdNext).Press();
    AwaitPrograms({MenuFile(1), L"News"});
    Press(IDC_cmdFinish, IDC_fraFinish);
    Finish();
    StoredButton expected = Several(Name(), L"P", 2);
    expected.programs[1] = news.stored.programs[0];
    expected.titles[1] = news.stored.titles[0];
    ExpectStore(With(1, expected));
}

TEST_F(WizardPrograms, FiveInSequenceLeadToTheClosingPage) {
    OpenAtMethod();
    GoToSeveral(1, Name());
    for (int number = 1; number <= kMenuFiles; ++number) {
        AddFile(number, number);
    }
    Finish();
    ExpectStore(With(1, Several(Name(), L"S", 5)));
}

TEST_F(WizardPrograms, FiveAtOnceWithTheSameOneAgain) {
    OpenAtMethod();
    GoToSeveral(2, Name());
    for (int number = 1; number < kMenuFiles; ++number) {
        AddFile(number, number);
    }
    Part(IDC_cmdNext).Press();
    Finish();
    StoredButton expected = Several(Name(), L"P", 5);
    expected.programs[4] = expected.programs[3];
    ExpectStore(With(1, expected));
}

TEST_F(WizardPrograms, WhatIsPickedButNotAddedIsNotStored) {
    OpenAtMethod();
    GoToSeveral(1, Name());
    AddFile(1, 1);
    PickFile(2);
    Press(IDC_cmdFinish, IDC_fraFinish);
    Finish();
    ExpectStore(With(1, Several(Name(), L"S", 1)));
}

TEST_F(WizardPrograms, SeveralAreNotOfferedTheLists) {
    OpenAtMethod();
    GoToSeveral(1, Name());
    EXPECT_TRUE(Part(IDC_optSelectMenu0).Visible());
    EXPECT_FALSE(Part(IDC_optSelectMenu1).Visible());
    EXPECT_TRUE(Part(IDC_optSelectMenu2).Visible());
    EXPECT_TRUE(Part(IDC_optSelectMenu3).Visible());
    EXPECT_FALSE(Part(IDC_optSelectMenu4).Visible());
    // 240 + 360 n twips below the frame's top.
    EXPECT_EQ(TopInFrame(IDC_optSelectMenu0, IDC_fraSomePrograms), 16);
    EXPECT_EQ(TopInFrame(IDC_optSelectMenu2, IDC_fraSomePrograms), 16 + 24);
    EXPECT_EQ(TopInFrame(IDC_optSelectMenu3, IDC_fraSomePrograms), 16 + 2 * 24);
}

TEST_F(WizardPrograms, TheSingleProgramsSourcesAreStackedInTheirOrder) {
    OpenAtMethod();
    Next(IDC_fraSelectMenu);
    for (int i = 0; i < 5; ++i) { // 2520 + 360 n twips
        EXPECT_EQ(TopInFrame(IDC_optSelectMenuForSingle0 + i, IDC_fraSelectMenu), 168 + i * 24);
    }
}

TEST_F(WizardPrograms, BackTakesProgramsAwayAndLeadsToTheFirstPage) {
    OpenAtMethod();
    GoToSeveral(1, Name());
    AddFile(1, 1);
    AddFile(2, 2);
    Press(IDC_cmdFinish, IDC_fraFinish);
    Back(IDC_fraSomePrograms);
    AwaitPrograms({MenuFile(1), MenuFile(2)});
    EXPECT_EQ(Part(IDC_cmdNext).Text(), Text(kNextText));
    Back(IDC_fraSomePrograms);
    AwaitPrograms({MenuFile(1)});
    Back(IDC_fraSomePrograms);
    AwaitPrograms({});
    EXPECT_FALSE(Part(IDC_cmdFinish).Enabled());
    Back(IDC_fraButtonName);
    EXPECT_FALSE(Part(IDC_cmdFinish).Visible());
    EXPECT_EQ(Part(IDC_txtButtonName).Text(), Name());
    Back(IDC_fraSelectLaunchMethod);
    Back(IDC_fraSelectButton);
    EXPECT_FALSE(Part(IDC_cmdBack).Enabled());
}

TEST_F(WizardPrograms, BackFromTheClosingPageTakesTheFifthAway) {
    OpenAtMethod();
    GoToSeveral(1, Name());
    for (int number = 1; number <= kMenuFiles; ++number) {
        AddFile(number, number);
    }
    AwaitPage(IDC_fraFinish);
    Back(IDC_fraSomePrograms);
    AwaitPrograms({MenuFile(1), MenuFile(2), MenuFile(3), MenuFile(4)});
    AddFile(1, 5);
    Finish();
    StoredButton expected = Several(Name(), L"S", 5);
    expected.programs[4] = expected.programs[0];
    ExpectStore(With(1, expected));
}

TEST_F(WizardPrograms, AnotherProgramAfterBackReplacesTheFirst) {
    OpenAtMethod();
    GoToPick(Source::StartMenu);
    PickFile(1);
    Next(IDC_fraFinish);
    Back(IDC_fraSelectProgramForSingle);
    EXPECT_TRUE(Part(IDC_cmdNext).Enabled());
    Back(IDC_fraSelectMenu);
    Check(IDC_optSelectMenuForSingle0 + static_cast<int>(Source::ShortcutKey));
    Next(IDC_fraSelectProgramForSingle);
    Pick(OfferOf(Source::ShortcutKey));
    Next(IDC_fraFinish);
    Finish();
    ExpectStore(With(1, OfferOf(Source::ShortcutKey).stored));
}

TEST_F(WizardPrograms, AFolderOfTheFavouritesCannotBePicked) {
    OpenAtMethod();
    GoToPick(Source::IeFavorites);
    Pick(OfferOf(Source::IeFavorites));
    const UiDriver::TreeView favorites = TreeIn(Wizard(), IDC_tvTreeView1);
    favorites.ClickNode(FavoritesNode(FolderName()));
    AwaitNext(false);
}

TEST_F(WizardPrograms, MyComputerCannotBePicked) {
    OpenAtMethod();
    GoToPick(Source::AllFiles);
    Pick(OfferOf(Source::AllFiles));
    const UiDriver::TreeView files = TreeIn(Wizard(), IDC_tvTreeView2);
    files.ClickNode({Text(kMyComputerText)});
    AwaitNext(false);
    files.ClickNode({Text(kMyComputerText), L"c:"});
    AwaitNext(true);
}

TEST_F(WizardPrograms, WithoutAStartMenuOfTheUserItOffersTheAllUsersEntries) {
    NameUserMenu(std::nullopt);
    OpenAtMethod();
    GoToPick(Source::StartMenu);
    Menu().WaitForChildren({Text(kStartMenuText)}, {CommonFile()});
    Menu().ClickNode(MenuNode(CommonFile()));
    AwaitNext(true);
    Next(IDC_fraFinish);
    Finish();
    ExpectStore(With(1, {L"Common", L"M", 1, {AllUsersMenu() + L'\\' + CommonFile()}, {}}));
}

TEST_F(WizardPrograms, WhatATreeSelectsByItselfIsNoChoice) {
    const auto expectRootUnchosen = [this] {
        UiDriver::WaitUntil([&] { return Menu().Selected() == Path{Text(kStartMenuText)}; },
                            L"the tree to select its root");
        EXPECT_TRUE(
            UiDriver::HoldsFor([&] { return !Part(IDC_cmdNext).Enabled(); }, UiDriver::Milliseconds(200)));
    };
    OpenAtMethod();
    Wizard().BringToFrontForGood();
    GoToPick(Source::StartMenu);
    expectRootUnchosen();
    Back(IDC_fraSelectMenu);
    Next(IDC_fraSelectProgramForSingle);
    expectRootUnchosen();
    Menu().ClickNode({Text(kStartMenuText)});
    AwaitNext(true);
    Back(IDC_fraSelectMenu);
    Next(IDC_fraSelectProgramForSingle);
    AwaitNext(true);
}

TEST_F(WizardPrograms, WhatATreeSelectsByItselfIsNoChoice_WhenAnotherSourceWasShown) {
    OpenAtMethod();
    Wizard().BringToFrontForGood();
    GoToSeveral(1, Name());
    UiDriver::WaitUntil([&] { return Menu().Selected() == Path{Text(kStartMenuText)}; },
                        L"the tree to select its root");
    for (const Source source : {Source::AllFiles, Source::StartMenu}) {
        Check(IDC_optSelectMenu0 + static_cast<int>(source));
        EXPECT_TRUE(
            UiDriver::HoldsFor([&] { return !Part(IDC_cmdNext).Enabled(); }, UiDriver::Milliseconds(200)));
    }
}

TEST_F(WizardPrograms, AFolderThatClosesOverTheChoiceIsTheChoice) {
    OpenAtMethod();
    GoToPick(Source::StartMenu);
    const Path folder = MenuNode(FolderName());
    Reveal(Menu(), {folder[0], folder[1], L"inner.exe"});
    Menu().ClickNode({folder[0], folder[1], L"inner.exe"});
    AwaitNext(true);
    Menu().ClickMark(folder);
    UiDriver::WaitUntil([&] { return Menu().Selected() == folder; }, L"the folder to be selected");
    Next(IDC_fraFinish);
    Finish();
    ExpectStore(With(1, {FolderName(), L"M", 1, {MenuPath(FolderName())}, {}}));
}

TEST_F(WizardPrograms, WithoutANameThereIsNoNext) {
    OpenAtMethod();
    Check(IDC_optSelectLaunchMethod1);
    Next(IDC_fraButtonName);
    EXPECT_FALSE(Part(IDC_cmdNext).Enabled());
    Part(IDC_txtButtonName).TypeOver(L"x");
    AwaitNext(true);
    UiDriver::Keyboard::Press(VK_BACK);
    AwaitNext(false);
}

} // namespace
