#include "BrowseUse.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class BrowseStartMenu : public BrowseUse {};

TEST_F(BrowseStartMenu, JoinsTheUsersAndTheAllUsersFolder) {
    MakeFolder(UserMenu() + L"\\Programs");
    MakeFolder(AllUsersMenu() + L"\\PROGRAMS");
    MakeFolder(UserMenu() + L"\\Mine");
    MakeFolder(AllUsersMenu() + L"\\Ours");
    MakeFile(UserMenu() + L"\\Both.txt");
    MakeFile(AllUsersMenu() + L"\\Both.txt");
    MakeFile(AllUsersMenu() + L"\\All.txt");
    MakeFile(UserMenu() + L"\\User.txt");
    Start();
    EXPECT_THAT(StartMenu().ChildTexts({}), ElementsAre(Text(kStartMenuText)));
    EXPECT_THAT(StartMenu().ChildTexts(InMenu()),
                ElementsAre(L"Mine", L"Ours", L"Programs", L"All.txt", L"Both.txt", L"User.txt"));
}

TEST_F(BrowseStartMenu, AFolderThatBothHaveOpensToTheContentsOfBothAtEveryDepth) {
    MakeFile(UserMenu() + L"\\Both\\Deeper\\Deepest\\user.txt");
    MakeFile(AllUsersMenu() + L"\\Both\\Deeper\\Deepest\\all.txt");
    MakeFile(AllUsersMenu() + L"\\Both\\Deeper\\ours.txt");
    MakeFile(UserMenu() + L"\\Both\\mine.txt");
    Start();
    EXPECT_THAT(ContentsOf(StartMenu(), InMenu({L"Both"})), ElementsAre(L"Deeper", L"mine.txt"));
    EXPECT_THAT(ContentsOf(StartMenu(), InMenu({L"Both", L"Deeper"})), ElementsAre(L"Deepest", L"ours.txt"));
    EXPECT_THAT(ContentsOf(StartMenu(), InMenu({L"Both", L"Deeper", L"Deepest"})),
                ElementsAre(L"all.txt", L"user.txt"));
}

TEST_F(BrowseStartMenu, KeysSayInWhichOfTheTwoAnEntryLies) {
    MakeFile(UserMenu() + L"\\Both\\mine.txt");
    MakeFile(AllUsersMenu() + L"\\Both\\ours.txt");
    Start();
    Open(StartMenu(), InMenu({L"Both"}));
    ExpectKey(StartMenu(), InMenu(), UserMenu());
    ExpectKey(StartMenu(), InMenu({L"Both", L"mine.txt"}), UserMenu() + L"\\Both\\mine.txt");
    ExpectKey(StartMenu(), InMenu({L"Both", L"ours.txt"}), AllUsersMenu() + L"\\Both\\ours.txt");
}

TEST_F(BrowseStartMenu, AFolderOfAllUsersGetsTheUsersEntriesThatComeBeforeItIsOpened) {
    MakeFile(AllUsersMenu() + L"\\Ours\\all.txt");
    Start();
    ExpectKey(StartMenu(), InMenu({L"Ours"}), AllUsersMenu() + L"\\Ours");
    MakeFile(UserMenu() + L"\\Ours\\user.txt");
    EXPECT_THAT(ContentsOf(StartMenu(), InMenu({L"Ours"})), ElementsAre(L"all.txt", L"user.txt"));
}

TEST_F(BrowseStartMenu, SortsFoldersAndThenFilesIgnoringCaseAsTheUsersLanguageDoes) {
    const Names sorted = Japanese() ? Names{L"alpha", L"Beta", L"gamma", L"かな", L"漢字"}
                                    : Names{L"alpha", L"Beta", L"Étage", L"gamma", L"über"};
    for (const std::size_t i : {4U, 1U, 3U, 0U, 2U}) {
        MakeFolder(UserMenu() + L"\\z-" + sorted[i]);
        MakeFile(UserMenu() + L"\\" + sorted[i]);
    }
    Start();
    Names expected;
    for (const std::wstring& name : sorted) {
        expected.push_back(L"z-" + name);
    }
    expected.insert(expected.end(), sorted.begin(), sorted.end());
    EXPECT_THAT(StartMenu().ChildTexts(InMenu()), ElementsAreArray(expected));
}

TEST_F(BrowseStartMenu, LeavesOutHiddenEntriesAndRecycledFolders) {
    MakeFile(UserMenu() + L"\\Folder\\RECYCLED");
    MakeFolder(UserMenu() + L"\\Recycled");
    MakeFolder(AllUsersMenu() + L"\\RECYCLED");
    MakeFile(UserMenu() + L"\\hidden.txt");
    Hide(UserMenu() + L"\\hidden.txt");
    MakeFolder(AllUsersMenu() + L"\\Hidden folder");
    Hide(AllUsersMenu() + L"\\Hidden folder");
    MakeFile(UserMenu() + L"\\shown.txt");
    Start();
    EXPECT_THAT(StartMenu().ChildTexts(InMenu()), ElementsAre(L"Folder", L"shown.txt"));
    EXPECT_THAT(ContentsOf(StartMenu(), InMenu({L"Folder"})), ElementsAre(L"RECYCLED"));
}

TEST_F(BrowseStartMenu, AnEmptyFolderHasAMarkUntilItIsOpened) {
    MakeFolder(UserMenu() + L"\\Empty");
    Start();
    EXPECT_TRUE(StartMenu().HasMark(InMenu({L"Empty"})));
    StartMenu().ClickMark(InMenu({L"Empty"}));
    UiDriver::WaitUntil([&] { return !StartMenu().HasMark(InMenu({L"Empty"})); }, L"the mark to go");
    EXPECT_THAT(StartMenu().ChildTexts(InMenu({L"Empty"})), IsEmpty());
}

TEST_F(BrowseStartMenu, AFolderThatIsOpenedAgainShowsWhatItShowedBefore) {
    MakeFile(UserMenu() + L"\\Folder\\Inner\\file.txt");
    MakeFile(UserMenu() + L"\\Folder\\first.txt");
    Start();
    const Path folder = InMenu({L"Folder"});
    StartMenu().ClickMark(folder);
    StartMenu().WaitForChildren(folder, {L"Inner", L"first.txt"});
    StartMenu().WaitUntilExpanded(folder);
    MakeFile(UserMenu() + L"\\Folder\\later.txt");
    StartMenu().ClickMark(folder);
    StartMenu().WaitUntilCollapsed(folder);
    StartMenu().PressOn(folder, VK_RIGHT);
    StartMenu().WaitUntilExpanded(folder);
    StartMenu().Expand(folder);
    Form().WaitUntilAnswers();
    EXPECT_THAT(StartMenu().ChildTexts(folder), ElementsAre(L"Inner", L"first.txt"));
    EXPECT_EQ(StartMenu().Count(), 5)
        << "root, folder, the two in it, and what gives the inner folder its mark";
}

TEST_F(BrowseStartMenu, ADoubleClickOpensAFolder) {
    MakeFile(UserMenu() + L"\\Folder\\file.txt");
    Start();
    StartMenu().DoubleClickNode(InMenu({L"Folder"}));
    AwaitFilled(StartMenu(), InMenu({L"Folder"}));
    EXPECT_THAT(StartMenu().ChildTexts(InMenu({L"Folder"})), ElementsAre(L"file.txt"));
    EXPECT_EQ(StartMenu().Selected(), InMenu({L"Folder"}));
}

TEST_F(BrowseStartMenu, IsAnEmptyFolderWhenThereIsNone) {
    ASSERT_TRUE(RemoveDirectoryW(UserMenu().c_str()));
    ASSERT_TRUE(RemoveDirectoryW(AllUsersMenu().c_str()));
    Start();
    EXPECT_EQ(StartMenu().Count(), 1);
    EXPECT_FALSE(StartMenu().HasMark(InMenu()));
}

} // namespace
