#include "WizardDialog.h"

#include <algorithm>
#include <iterator>

namespace {

using testing::ElementsAre;
using testing::Test;

using Source = ProgramSource;
constexpr std::array<Source, kProgramSourceCount> kAll{
    Source::StartMenu, Source::MediaCenter, Source::IeFavorites, Source::AllFiles, Source::ShortcutKey};

class WizardSources : public Test, public WizardDialog {
public:
    [[nodiscard]] std::vector<Source> ForSingle() const {
        std::vector<Source> offered;
        std::copy_if(kAll.begin(), kAll.end(), std::back_inserter(offered),
                     [this](Source source) { return flow->OffersForSingle(source); });
        return offered;
    }
    [[nodiscard]] std::vector<Source> ForSeveral() const {
        std::vector<Source> offered;
        std::copy_if(kAll.begin(), kAll.end(), std::back_inserter(offered),
                     [this](Source source) { return flow->OffersForSeveral(source); });
        return offered;
    }
};

// What is offered

TEST_F(WizardSources, AreAllOfferedForASingleProgram_WhereTheMakerOffersThem) {
    Open();
    EXPECT_THAT(ForSingle(), ElementsAre(Source::StartMenu, Source::MediaCenter, Source::IeFavorites,
                                         Source::AllFiles, Source::ShortcutKey));
}

TEST_F(WizardSources, OfSeveralProgramsAreTheTreesAlone) {
    Open();
    EXPECT_THAT(ForSeveral(), ElementsAre(Source::StartMenu, Source::IeFavorites, Source::AllFiles));
}

TEST_F(WizardSources, AreOfferedInEveryCombinationOfSwitches) {
    for (unsigned combination = 0; combination < 16; ++combination) {
        const bool startMenu = (combination & 1) != 0;
        const bool mediaCenter = (combination & 2) != 0;
        const bool favorites = (combination & 4) != 0;
        const bool shortcutKeys = (combination & 8) != 0;
        SCOPED_TRACE(combination);
        Offer(startMenu, mediaCenter, favorites, shortcutKeys);
        Open();
        std::vector<Source> single;
        std::vector<Source> several;
        const auto expect = [&](Source source, bool offered, bool alsoForSeveral) {
            if (offered) {
                single.push_back(source);
                if (alsoForSeveral) {
                    several.push_back(source);
                }
            }
        };
        expect(Source::StartMenu, startMenu, true);
        expect(Source::MediaCenter, mediaCenter, false);
        expect(Source::IeFavorites, favorites, true);
        expect(Source::AllFiles, true, true);
        expect(Source::ShortcutKey, shortcutKeys, false);
        EXPECT_EQ(ForSingle(), single);
        EXPECT_EQ(ForSeveral(), several);
        EXPECT_EQ(flow->CheckedForSeveral(), several.front());
        EXPECT_EQ(flow->CheckedForSingle(), several.front()) << "the same as for several";
    }
}

TEST_F(WizardSources, AreWithoutFavourites_WhenTheSystemNamesNoFolder) {
    for (const wchar_t* folder : {L"", L"\\"}) {
        shell.specialFolders[kFolderFavorites] = folder;
        sources.LoadIeFavorites();
        ASSERT_TRUE(sources.OffersIeFavorites());
        Open();
        EXPECT_FALSE(flow->OffersForSingle(Source::IeFavorites));
        EXPECT_FALSE(flow->OffersForSeveral(Source::IeFavorites));
    }
    shell.specialFolders.clear();
    sources.LoadIeFavorites();
    Open();
    EXPECT_FALSE(flow->OffersForSingle(Source::IeFavorites));
}

TEST_F(WizardSources, AreWithoutTheStartMenu_WhenItsPathIsMissing) {
    registry.Remove(RegistryHive::CurrentUser, kShellFolders, L"Start Menu");
    LoadSources();
    Open();
    EXPECT_FALSE(flow->OffersForSingle(Source::StartMenu));
    EXPECT_FALSE(flow->OffersForSeveral(Source::StartMenu));
}

TEST_F(WizardSources, AreWithoutMediaCenter_WhenItsFileIsMissing) {
    shell.programDirectory = L"C:\\Nowhere";
    LoadSources();
    Open();
    EXPECT_THAT(ForSingle(), ElementsAre(Source::StartMenu, Source::IeFavorites, Source::AllFiles));
}

// What is checked first

TEST_F(WizardSources, BeginWithTheStartMenu) {
    Open();
    EXPECT_EQ(flow->CheckedForSingle(), Source::StartMenu);
    EXPECT_EQ(flow->CheckedForSeveral(), Source::StartMenu);
}

TEST_F(WizardSources, BeginWithTheFavourites_WithoutAStartMenu) {
    Offer(false, true, true, true);
    Open();
    EXPECT_EQ(flow->CheckedForSingle(), Source::IeFavorites) << "Media Center is no source of several";
    EXPECT_EQ(flow->CheckedForSeveral(), Source::IeFavorites);
}

TEST_F(WizardSources, BeginWithAllFiles_WhenNothingElseIsLeft) {
    Offer(false, true, false, true);
    for (const bool several : {false, true}) {
        if (several) {
            GoToSeveral();
        } else {
            GoToMenu();
            flow->Next();
        }
        EXPECT_EQ(flow->ShownSource(), Source::AllFiles);
        EXPECT_FALSE(flow->NextEnabled()) << "nothing is selected";
    }
}

TEST_F(WizardSources, StayWhereTheUserLeftThem_EachPageForItself) {
    GoToSingle(Source::ShortcutKey);
    flow->Back();
    EXPECT_EQ(flow->CheckedForSingle(), Source::ShortcutKey);
    EXPECT_EQ(flow->CheckedForSeveral(), Source::StartMenu);
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
    EXPECT_EQ(flow->CheckedForSingle(), Source::ShortcutKey);
    flow->Next();
    EXPECT_EQ(flow->ShownSource(), Source::ShortcutKey);
    flow->Next();
    EXPECT_EQ(flow->Slot().AP(1), L"46");
}

// What makes Next enabled, when a source is shown

TEST_F(WizardSources, LeaveNextDisabled_WhereNothingIsSelected) {
    selected.clear();
    for (const Source source : kAll) {
        GoToSingle(source);
        EXPECT_EQ(flow->ShownSource(), source);
        EXPECT_FALSE(flow->NextEnabled());
    }
    for (const Source source : {Source::StartMenu, Source::IeFavorites, Source::AllFiles}) {
        GoToSeveral();
        flow->ChooseSource(source);
        EXPECT_EQ(flow->ShownSource(), source);
        EXPECT_FALSE(flow->NextEnabled());
    }
}

TEST_F(WizardSources, EnableNextAtOnce_WhereAProgramIsSelected) {
    selected[Source::StartMenu] = Node(kMail);
    selected[Source::IeFavorites] = Favorite(kNews);
    selected[Source::AllFiles] = File(L"C:\\Apps\\Paint.exe");
    const std::map<Source, std::wstring> commands{{Source::StartMenu, kMail},
                                                  {Source::MediaCenter, L"C:\\mc\\mc.exe /music"},
                                                  {Source::IeFavorites, L"iexplore.exe|http://news.example/"},
                                                  {Source::AllFiles, L"C:\\Apps\\Paint.exe"},
                                                  {Source::ShortcutKey, L"46"}};
    for (const auto& [source, command] : commands) {
        GoToSingle(source);
        EXPECT_TRUE(flow->NextEnabled());
        flow->Next();
        EXPECT_EQ(flow->Slot().AP(1), command);
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
        selected[Source::IeFavorites] = Favorite(path);
        GoToSingle(Source::IeFavorites);
        EXPECT_EQ(flow->NextEnabled(), enabled);
        selected.clear();
        GoToSingle(Source::IeFavorites);
        EXPECT_FALSE(flow->NextEnabled());
        Click(Favorite(path));
        EXPECT_EQ(flow->NextEnabled(), enabled);
        GoToSeveral();
        flow->ChooseSource(Source::IeFavorites);
        Click(Favorite(path));
        EXPECT_EQ(flow->NextEnabled(), enabled);
    }
}

TEST_F(WizardSources, KnowTheFavouritesByTheirRoot_WhateverItsCase) {
    GoToSingle(Source::IeFavorites);
    Click(Node(L"C:\\Favorites\\Travel", L"ie favorites"));
    EXPECT_FALSE(flow->NextEnabled());
    GoToSingle(Source::StartMenu);
    Click(Node(L"C:\\Menu\\Travel", L"Start Menu"));
    EXPECT_TRUE(flow->NextEnabled());
}

TEST_F(WizardSources, EnableNextForAnyNodeOfAllFiles_ButItsRoot) {
    PickedItem lower = MyComputer();
    lower.key = L"my computer";
    for (const PickedItem& root : {MyComputer(), lower}) {
        selected[Source::AllFiles] = root;
        GoToSingle(Source::AllFiles);
        EXPECT_FALSE(flow->NextEnabled());
        Click(File(L"C:"));
        EXPECT_TRUE(flow->NextEnabled());
        Click(root);
        EXPECT_FALSE(flow->NextEnabled());
        Click(File(L"C:\\Apps\\Tools.d"));
        EXPECT_TRUE(flow->NextEnabled());
    }
}

TEST_F(WizardSources, EnableNextForTheRootOfTheStartMenu) {
    GoToSeveral();
    Click({PickedItem::Kind::Tree, L"C:\\Menu", L"Start Menu", L"Start Menu"});
    EXPECT_TRUE(flow->NextEnabled());
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
    EXPECT_EQ(flow->Slot().AP(1), kMail);
}

TEST_F(WizardSources, LeaveNextAsItIs_WhenARowIsClicked) {
    GoToSingle(Source::ShortcutKey);
    ASSERT_TRUE(flow->NextEnabled());
    Click(Key(kPasteKey));
    EXPECT_TRUE(flow->NextEnabled());

    selected.clear();
    GoToSingle(Source::MediaCenter);
    ASSERT_FALSE(flow->NextEnabled());
    Click(MediaCenter(kFilms));
    EXPECT_FALSE(flow->NextEnabled());
}

TEST_F(WizardSources, AreNotAskedAgain_WhenTheUserGoesBackFromTheEnd) {
    GoToSingle(Source::AllFiles);
    Add(File(kMail));
    selected.clear();
    flow->Back();
    EXPECT_EQ(flow->ShownSource(), Source::AllFiles);
    EXPECT_TRUE(flow->NextEnabled());
    flow->Next();
    EXPECT_EQ(flow->Slot().AP(1), kMail);
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
    selected[Source::StartMenu] = Node(kMail);
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
