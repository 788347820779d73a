#include "WizardDialog.h"

#include <map>

namespace {

using testing::Test;

using Source = ProgramSource;

class WizardSources : public Test, public WizardDialog {};

// What is checked first

TEST_F(WizardSources, BeginWithTheStartMenu) {
    for (const bool others : {false, true}) {
        Offer(others, others, others);
        Open();
        EXPECT_EQ(flow->SourceForSingle(), Source::StartMenu);
        EXPECT_EQ(flow->SourceForSeveral(), Source::StartMenu);
    }
}

TEST_F(WizardSources, StayWhereTheUserLeftThem_EachPageForItself) {
    GoToSingle(Source::ShortcutKey);
    flow->Back();
    EXPECT_EQ(flow->SourceForSingle(), Source::ShortcutKey);
    EXPECT_EQ(flow->SourceForSeveral(), Source::StartMenu);
    flow->Back();
    flow->ChooseLaunchMethod(1);
    flow->Next();
    flow->SetButtonName(L"Morning");
    flow->Next();
    EXPECT_EQ(flow->ShownSource(), Source::StartMenu);
    flow->ChooseSource(Source::AllFiles);
    EXPECT_EQ(flow->ShownSource(), Source::AllFiles);
    flow->Back();
    flow->Next();
    EXPECT_EQ(flow->ShownSource(), Source::AllFiles);
    flow->Back();
    flow->Back();
    flow->ChooseLaunchMethod(0);
    flow->Next();
    EXPECT_EQ(flow->SourceForSingle(), Source::ShortcutKey);
    flow->Next();
    EXPECT_EQ(flow->ShownSource(), Source::ShortcutKey);
    flow->Next();
    EXPECT_EQ(flow->Slot().Program(1).AP, L"46");
}

// What makes Next enabled, when a source is shown

TEST_F(WizardSources, LeaveNextDisabled_WhereTheUserHasSelectedNothing) {
    for (const Source source : {Source::StartMenu, Source::IeFavorites, Source::AllFiles}) {
        GoToSingle(source);
        for (int times = 0; times < 2; ++times) {
            EXPECT_EQ(flow->ShownSource(), source);
            EXPECT_FALSE(flow->NextEnabled());
            flow->Back();
            flow->Next();
        }
        GoToSeveral();
        flow->ChooseSource(source);
        EXPECT_EQ(flow->ShownSource(), source);
        EXPECT_FALSE(flow->NextEnabled());
    }
}

TEST_F(WizardSources, EnableNextAtOnce_ForTheFirstRowOfAList) {
    for (const auto& [source, command] : std::map<Source, std::wstring>{
             {Source::MediaCenter, L"C:\\mc\\mc.exe /music"}, {Source::ShortcutKey, L"46"}}) {
        GoToSingle(source);
        EXPECT_TRUE(flow->NextEnabled());
        flow->Next();
        EXPECT_EQ(flow->Slot().Program(1).AP, command);
    }
}

TEST_F(WizardSources, KeepWhatTheUserSelected_EachForItself) {
    const std::map<Source, std::pair<PickedItem, std::wstring>> picks{
        {Source::StartMenu, {Node(kMail), kMail}},
        {Source::MediaCenter, {MediaCenter(kFilms), L"C:\\mc\\mc.exe /films"}},
        {Source::IeFavorites, {Favorite(kNews), L"iexplore.exe|http://news.example/"}},
        {Source::AllFiles, {File(L"C:\\Apps\\Paint.exe"), L"C:\\Apps\\Paint.exe"}},
        {Source::ShortcutKey, {Key(kPasteKey), L"47"}}};
    GoToMenu();
    const auto show = [this](Source source) {
        flow->ChooseSourceForSingle(source);
        flow->Next();
    };
    for (const auto& [source, pick] : picks) {
        show(source);
        Click(pick.first);
        EXPECT_TRUE(flow->NextEnabled());
        flow->Back();
    }
    for (const auto& [source, pick] : picks) {
        show(source);
        EXPECT_TRUE(flow->NextEnabled());
        flow->Next();
        EXPECT_EQ(flow->Slot().Program(1).AP, pick.second);
        flow->Back();
        flow->Back();
    }
}

TEST_F(WizardSources, EnableNextForAnInternetShortcutAlone_AmongTheFavourites) {
    for (const auto& [path, enabled] : std::map<std::wstring, bool>{{L"C:\\Favorites\\News.url", true},
                                                                    {L"C:\\Favorites\\MAPS.URL", true},
                                                                    {L"C:\\Favorites\\Travel", false},
                                                                    {L"C:\\Favorites\\desktop.ini", false},
                                                                    {L"C:\\Favorites", false},
                                                                    {L"url", false}}) {
        SCOPED_TRACE(testing::PrintToString(path));
        GoToSingle(Source::IeFavorites);
        Click(Favorite(path));
        EXPECT_EQ(flow->NextEnabled(), enabled);
        flow->Back();
        flow->Next();
        EXPECT_EQ(flow->NextEnabled(), enabled);
        GoToSeveral();
        flow->ChooseSource(Source::IeFavorites);
        Click(Favorite(path));
        EXPECT_EQ(flow->NextEnabled(), enabled);
    }
}

TEST_F(WizardSources, EnableNextForAnyNodeOfAllFiles_ButItsRoot) {
    GoToSingle(Source::AllFiles);
    for (const wchar_t* path : {L"C:", L"C:\\Apps\\Tools.d", L"My Computer"}) {
        Click(File(path));
        EXPECT_TRUE(flow->NextEnabled());
        Click(MyComputer());
        EXPECT_FALSE(flow->NextEnabled());
        flow->Back();
        flow->Next();
        EXPECT_FALSE(flow->NextEnabled());
    }
}

TEST_F(WizardSources, EnableNextForTheRootOfTheStartMenu) {
    GoToSeveral();
    PickedItem root = Node(L"C:\\Menu");
    root.root = true;
    Click(root);
    EXPECT_TRUE(flow->NextEnabled());
}

TEST_F(WizardSources, LeaveNextDisabled_WhenTheSelectionIsGone) {
    GoToSeveral();
    Click(Node(kMail));
    flow->Click(std::nullopt);
    EXPECT_FALSE(flow->NextEnabled());
}

TEST_F(WizardSources, DecideAnew_WhenAnotherIsShown) {
    GoToSeveral();
    Click(Node(kMail));
    EXPECT_TRUE(flow->NextEnabled());
    flow->ChooseSource(Source::IeFavorites);
    EXPECT_FALSE(flow->NextEnabled());
    flow->ChooseSource(Source::StartMenu);
    EXPECT_TRUE(flow->NextEnabled());
    flow->Next();
    EXPECT_EQ(flow->Slot().Program(1).AP, kMail);
}

// Whether a Media Center item was picked last

TEST_F(WizardSources, TellThatAMediaCenterItemWasPicked_UntilSomethingElseIs) {
    GoToSingle(Source::MediaCenter);
    EXPECT_TRUE(Globals().MediaCenterPicked);
    flow->Back();
    flow->ChooseSourceForSingle(Source::ShortcutKey);
    EXPECT_TRUE(Globals().MediaCenterPicked) << "nothing else was picked yet";
    flow->Next();
    EXPECT_FALSE(Globals().MediaCenterPicked);
    flow->Back();
    flow->ChooseSourceForSingle(Source::MediaCenter);
    flow->Next();
    EXPECT_TRUE(Globals().MediaCenterPicked);
    flow->Back();
    flow->ChooseSourceForSingle(Source::AllFiles);
    flow->Next();
    Click(File(kMail));
    EXPECT_FALSE(Globals().MediaCenterPicked);
    flow->Back();
    flow->ChooseSourceForSingle(Source::MediaCenter);
    flow->Next();
    EXPECT_TRUE(Globals().MediaCenterPicked);
    flow->Back();
    flow->ChooseSourceForSingle(Source::AllFiles);
    flow->Next();
    EXPECT_FALSE(Globals().MediaCenterPicked) << "the file is still selected";
}

TEST_F(WizardSources, TellOfNoMediaCenterItem_BeforeOneIsPicked) {
    GoToMenu();
    flow->ChooseSourceForSingle(Source::MediaCenter);
    EXPECT_FALSE(Globals().MediaCenterPicked);
    flow->ChooseSourceForSingle(Source::StartMenu);
    flow->Next();
    EXPECT_FALSE(Globals().MediaCenterPicked);
    Click(Node(L"C:\\Apps\\Paint.exe"));
    flow->Next();
    EXPECT_FALSE(Globals().MediaCenterPicked);
}

} // namespace
