#include "BrowserTree.h"

#include "browse/StartMenuFolders.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const wchar_t* kUser = L"C:\\Users\\hanako\\Start Menu";
constexpr const wchar_t* kAll = L"C:\\Users\\All Users\\Start Menu";
constexpr WindowId kTreeWindow = 4711;

std::wstring InUser(const std::wstring& path) {
    return kUser + (L'\\' + path);
}
std::wstring InAll(const std::wstring& path) {
    return kAll + (L'\\' + path);
}

class StartMenu : public testing::Test, public BrowserTree {
public:
    StartMenu() {
        shell.specialFolders[kFolderAllUsersStartMenu] = kAll;
        disk.AddFolder(kUser);
        disk.AddFolder(kAll);
    }

    void Show() { tree.SetStartMenu(kUser, L"Start Menu"); }
    NodeId Opened(const std::wstring& text) {
        const NodeId node = nodes.WithText(text);
        EXPECT_NE(node, 0U) << testing::PrintToString(text);
        EXPECT_TRUE(tree.ExpandStartMenu(node));
        return node;
    }
};

TEST_F(StartMenu, ShowsBothFoldersEntries_SortedTogether_FoldersFirst) {
    disk.AddFile(InUser(L"c.lnk"));
    disk.AddFile(InUser(L"a.lnk"));
    disk.AddFolder(InUser(L"Tools"));
    disk.AddFile(InAll(L"b.lnk"));
    disk.AddFolder(InAll(L"Accessories"));
    Show();
    EXPECT_THAT(nodes.Keys(Root()), ElementsAre(InAll(L"Accessories"), InUser(L"Tools"), InUser(L"a.lnk"),
                                                InAll(L"b.lnk"), InUser(L"c.lnk")));
}

TEST_F(StartMenu, TheOrderIsTheListBoxsOwn) {
    order.backwards = true;
    disk.AddFile(InUser(L"a.lnk"));
    disk.AddFile(InUser(L"c.lnk"));
    disk.AddFile(InAll(L"b.lnk"));
    Show();
    EXPECT_THAT(RootTexts(), ElementsAre(L"c.lnk", L"b.lnk", L"a.lnk"));
}

TEST_F(StartMenu, AFolderInBothAppearsOnce) {
    disk.AddFolder(InUser(L"Programs"));
    disk.AddFolder(InAll(L"Programs"));
    Show();
    EXPECT_THAT(RootTexts(), ElementsAre(L"Programs"));
    EXPECT_TRUE(HasPlaceholder(nodes.WithText(L"Programs")));
}

TEST_F(StartMenu, NamesThatDifferInCaseAloneAppearOnce) {
    disk.AddFolder(InUser(L"Programs"));
    disk.AddFolder(InAll(L"PROGRAMS"));
    disk.AddFile(InUser(L"Mail.lnk"));
    disk.AddFile(InAll(L"MAIL.LNK"));
    Show();
    EXPECT_THAT(nodes.Keys(Root()), ElementsAre(InUser(L"Programs"), InUser(L"Mail.lnk")));
}

TEST_F(StartMenu, AFileInBothAppearsOnce) {
    disk.AddFile(InUser(L"Mail.lnk"));
    disk.AddFile(InAll(L"Mail.lnk"));
    Show();
    EXPECT_THAT(RootTexts(), ElementsAre(L"Mail.lnk"));
    EXPECT_THAT(nodes.Children(nodes.WithText(L"Mail.lnk")), IsEmpty());
}

TEST_F(StartMenu, AFolderAndAFileOfOneNameBothAppear) {
    disk.AddFolder(InUser(L"Games"));
    disk.AddFile(InAll(L"Games"));
    Show();
    EXPECT_THAT(nodes.Keys(Root()), ElementsAre(InUser(L"Games"), InAll(L"Games")));
}

TEST_F(StartMenu, AFolderInBothOpensToTheContentsOfBoth_AtEveryDepth) {
    const std::vector<std::wstring> levels{L"One", L"Two", L"Three", L"Four"};
    std::wstring path;
    for (const std::wstring& level : levels) {
        path += (path.empty() ? L"" : L"\\") + level;
        disk.AddFile(InUser(path + L"\\user.lnk"));
        disk.AddFile(InAll(path + L"\\all.lnk"));
    }
    Show();
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const NodeId folder = Opened(levels[i]);
        std::vector<std::wstring> expected{L"all.lnk", L"user.lnk"};
        if (i + 1 < levels.size()) {
            expected.insert(expected.begin(), levels[i + 1]);
        }
        EXPECT_EQ(nodes.Texts(folder), expected);
    }
}

TEST_F(StartMenu, AFolderUnderTheAllUsersKeyOpensToTheContentsOfBoth) {
    disk.AddFile(InAll(L"Games\\Chess\\all.lnk"));
    Show();
    ASSERT_EQ(nodes.Key(nodes.WithText(L"Games")), InAll(L"Games"));
    disk.AddFile(InUser(L"Games\\user.lnk"));
    disk.AddFile(InUser(L"Games\\Chess\\user.lnk"));
    EXPECT_THAT(nodes.Texts(Opened(L"Games")), ElementsAre(L"Chess", L"user.lnk"));
    EXPECT_THAT(nodes.Texts(Opened(L"Chess")), ElementsAre(L"all.lnk", L"user.lnk"));
}

TEST_F(StartMenu, AFolderInOneAloneOpensToItsContents) {
    disk.AddFile(InUser(L"Mine\\user.lnk"));
    disk.AddFile(InAll(L"Everyones\\all.lnk"));
    Show();
    EXPECT_THAT(nodes.Keys(Opened(L"Mine")), ElementsAre(InUser(L"Mine\\user.lnk")));
    EXPECT_THAT(nodes.Keys(Opened(L"Everyones")), ElementsAre(InAll(L"Everyones\\all.lnk")));
}

TEST_F(StartMenu, OpeningASecondTimeAddsNothing) {
    disk.AddFile(InUser(L"Games\\user.lnk"));
    Show();
    (void)Opened(L"Games");
    disk.AddFile(InAll(L"Games\\all.lnk"));
    EXPECT_THAT(nodes.Texts(Opened(L"Games")), ElementsAre(L"user.lnk"));
}

TEST_F(StartMenu, HiddenEntriesAndRecycleBinsOfEitherAreNeverShown) {
    disk.AddFile(InUser(L"desktop.ini"), "", kAttributeArchive | kAttributeHidden);
    disk.AddFile(InAll(L"desktop.ini"), "", kAttributeArchive | kAttributeHidden);
    disk.AddFolder(InUser(L"Recycled"));
    disk.AddFolder(InAll(L"RECYCLED"));
    Show();
    EXPECT_THAT(RootTexts(), IsEmpty());
}

TEST_F(StartMenu, AHiddenEntryOfOneDoesNotHideTheOthers) {
    disk.AddFile(InUser(L"Mail.lnk"), "", kAttributeArchive | kAttributeHidden);
    disk.AddFile(InAll(L"Mail.lnk"));
    Show();
    EXPECT_THAT(nodes.Keys(Root()), ElementsAre(InAll(L"Mail.lnk")));
}

TEST_F(StartMenu, BothRootsMayEndInABackslash) {
    disk.AddFile(InUser(L"Games\\user.lnk"));
    disk.AddFile(InAll(L"Games\\all.lnk"));
    shell.specialFolders[kFolderAllUsersStartMenu] = std::wstring(kAll) + L'\\';
    tree.SetStartMenu(std::wstring(kUser) + L'\\', L"");
    EXPECT_EQ(nodes.Key(Root()), kUser);
    EXPECT_EQ(nodes.Text(Root()), kUser);
    EXPECT_EQ(nodes.IconPath(Root()), std::wstring(kUser) + L'\\');
    EXPECT_THAT(nodes.Keys(Opened(L"Games")),
                ElementsAre(InAll(L"Games\\all.lnk"), InUser(L"Games\\user.lnk")));
}

TEST_F(StartMenu, AsksForTheAllUsersFolder_AsTheTreesWindow) {
    Show();
    EXPECT_EQ(shell.specialFolderOwner, kTreeWindow);
    EXPECT_EQ(kFolderAllUsersStartMenu, 22);
}

TEST_F(StartMenu, ShowsTheOther_WhenOneCannotBeRead) {
    disk.AddFile(InUser(L"user.lnk"));
    disk.AddFile(InAll(L"all.lnk"));
    disk.MakeUnreadable(kAll);
    Show();
    EXPECT_THAT(RootTexts(), ElementsAre(L"user.lnk"));

    FakeFileSystem other;
    other.AddFile(InAll(L"all.lnk"));
    other.MakeUnreadable(kUser);
    CTreeView second({other, shell, icons, events}, L"");
    second.TreeViewControl(nodes);
    second.PictureBoxControl(picture);
    second.ImageListControl(images);
    second.ListBoxControl(order);
    second.SetStartMenu(kUser, L"");
    EXPECT_THAT(RootTexts(), ElementsAre(L"all.lnk"));
}

TEST_F(StartMenu, OneFolderForBothIsReadOnce) {
    shell.specialFolders[kFolderAllUsersStartMenu] = L"c:\\users\\HANAKO\\start menu";
    disk.AddFile(InUser(L"Mail.lnk"));
    Show();
    EXPECT_THAT(RootTexts(), ElementsAre(L"Mail.lnk"));
    EXPECT_EQ(disk.searches.size(), 1U);
}

TEST_F(StartMenu, UnknownAllUsersFolder_IsFoundByTheUsersName) {
    shell.specialFolders.clear();
    disk.AddFile(InUser(L"Games\\user.lnk"));
    disk.AddFile(InAll(L"Games\\all.lnk"));
    disk.AddFile(InAll(L"all.lnk"));
    shell.userName = L"HANAKO";
    Show();
    EXPECT_THAT(RootTexts(), ElementsAre(L"Games", L"all.lnk"));
    EXPECT_THAT(nodes.Texts(Opened(L"Games")), ElementsAre(L"all.lnk", L"user.lnk"));
}

TEST_F(StartMenu, UnknownAllUsersFolderAndUser_ShowTheUsersEntriesAlone) {
    shell.specialFolders.clear();
    shell.userName.clear();
    disk.AddFile(InUser(L"user.lnk"));
    disk.AddFile(InAll(L"all.lnk"));
    Show();
    EXPECT_THAT(RootTexts(), ElementsAre(L"user.lnk"));
}

TEST_F(StartMenu, TheUsersNameMayBeAFolderInTheMenu) {
    disk.AddFile(InUser(L"hanako\\Games\\hanako\\user.lnk"));
    disk.AddFile(InAll(L"hanako\\Games\\hanako\\all.lnk"));
    Show();
    EXPECT_THAT(nodes.Texts(Opened(L"hanako")), ElementsAre(L"Games"));
    const NodeId inner = nodes.Child(Opened(L"Games"));
    EXPECT_TRUE(tree.ExpandStartMenu(inner));
    EXPECT_THAT(nodes.Texts(inner), ElementsAre(L"all.lnk", L"user.lnk"));
}

TEST_F(StartMenu, TheUsersNameMayBeAFolderInTheMenu_WhenTheAllUsersFolderIsUnknown) {
    shell.specialFolders.clear();
    disk.AddFile(InUser(L"hanako\\Games\\hanako\\user.lnk"));
    disk.AddFile(InAll(L"hanako\\Games\\hanako\\all.lnk"));
    Show();
    EXPECT_THAT(nodes.Texts(Opened(L"hanako")), ElementsAre(L"Games"));
    const NodeId inner = nodes.Child(Opened(L"Games"));
    EXPECT_TRUE(tree.ExpandStartMenu(inner));
    EXPECT_THAT(nodes.Texts(inner), ElementsAre(L"all.lnk", L"user.lnk"));
}

TEST_F(StartMenu, TheUsersNameMayBeAFolderAboveTheProfile) {
    const std::wstring user = L"D:\\hanako\\Profiles\\hanako\\Start Menu";
    const std::wstring all = L"D:\\hanako\\Profiles\\All Users\\Start Menu";
    shell.specialFolders.clear();
    disk.AddFile(user + L"\\Games\\user.lnk");
    disk.AddFile(all + L"\\Games\\all.lnk");
    tree.SetStartMenu(user, L"");
    EXPECT_THAT(RootTexts(), ElementsAre(L"Games"));
    EXPECT_THAT(nodes.Texts(Opened(L"Games")), ElementsAre(L"all.lnk", L"user.lnk"));
}

TEST_F(StartMenu, LinksThatLoopAreOpenedOneLevelAtATime) {
    disk.AddLink(InUser(L"loop"), kUser);
    disk.AddLink(InAll(L"loop"), kAll);
    Show();
    NodeId node = nodes.WithText(L"loop");
    for (int level = 0; level < 10; ++level) {
        ASSERT_TRUE(tree.ExpandStartMenu(node));
        ASSERT_THAT(nodes.Texts(node), ElementsAre(L"loop"));
        node = nodes.Child(node);
    }
    EXPECT_EQ(disk.searches.size(), 22U);
}

TEST_F(StartMenu, AnEmptyFolderOpensToNothing) {
    disk.AddFolder(InUser(L"Empty"));
    disk.AddFolder(InAll(L"Empty"));
    Show();
    ASSERT_TRUE(HasPlaceholder(nodes.WithText(L"Empty")));
    EXPECT_THAT(nodes.Children(Opened(L"Empty")), IsEmpty());
}

TEST_F(StartMenu, InternetShortcutsKeepTheirExtension) {
    disk.AddFile(InUser(L"News.url"));
    Show();
    EXPECT_THAT(RootTexts(), ElementsAre(L"News.url"));
}

TEST_F(StartMenu, TheFirstEntryIsMadeVisible) {
    disk.AddFile(InUser(L"b.lnk"));
    disk.AddFile(InAll(L"a.lnk"));
    Show();
    EXPECT_THAT(nodes.MadeVisible(), ElementsAre(InAll(L"a.lnk")));
}

TEST_F(StartMenu, WithoutAFolderOfTheUserItShowsTheAllUsersEntries_AtEveryDepth) {
    disk.AddFile(InAll(L"Games\\Chess\\all.lnk"));
    disk.AddFile(InAll(L"all.lnk"));
    disk.AddFile(L"C:\\autoexec.bat");
    for (const wchar_t* none : {L"", L"\\"}) {
        tree.SetStartMenu(none, L"Start Menu");
        EXPECT_EQ(nodes.Text(Root()), L"Start Menu");
        EXPECT_EQ(nodes.Key(Root()), kAll);
        EXPECT_THAT(nodes.Keys(Root()), ElementsAre(InAll(L"Games"), InAll(L"all.lnk")));
        EXPECT_THAT(nodes.Texts(Opened(L"Games")), ElementsAre(L"Chess"));
        EXPECT_THAT(nodes.Keys(Opened(L"Chess")), ElementsAre(InAll(L"Games\\Chess\\all.lnk")));
    }
}

TEST_F(StartMenu, WithoutAnyFolderItIsARootAlone) {
    shell.specialFolders.clear();
    disk.AddFile(L"C:\\autoexec.bat");
    tree.SetStartMenu(L"", L"Start Menu");
    EXPECT_EQ(nodes.Text(Root()), L"Start Menu");
    EXPECT_THAT(RootTexts(), IsEmpty());
}

class StartMenuCounterpart : public testing::Test {
public:
    FakeFileSystem disk;
    StartMenuFolders folders{kUser, kAll, L"hanako"};
};

TEST_F(StartMenuCounterpart, IsFoundByTheRoots_InBothDirections) {
    EXPECT_EQ(folders.Counterpart(disk, kUser), kAll);
    EXPECT_EQ(folders.Counterpart(disk, kAll), kUser);
    EXPECT_EQ(folders.Counterpart(disk, InUser(L"Games\\Chess")), InAll(L"Games\\Chess"));
    EXPECT_EQ(folders.Counterpart(disk, InAll(L"Games\\Chess")), InUser(L"Games\\Chess"));
}

TEST_F(StartMenuCounterpart, IsFoundWithoutRegardToCase) {
    EXPECT_EQ(folders.Counterpart(disk, L"c:\\USERS\\Hanako\\start menu\\Games"), InAll(L"Games"));
    EXPECT_EQ(folders.Counterpart(disk, L"c:\\USERS\\all users\\start menu\\Games"), InUser(L"Games"));
}

TEST_F(StartMenuCounterpart, IsFoundByTheUsersName_OutsideBothRoots) {
    disk.AddFolder(L"C:\\Users\\All Users\\Start Menu 2\\Games");
    EXPECT_EQ(folders.Counterpart(disk, L"C:\\Users\\hanako\\Start Menu 2\\Games"),
              L"C:\\Users\\All Users\\Start Menu 2\\Games");
}

TEST_F(StartMenuCounterpart, IsFoundOnlyWhereTheUsersNameIsAWholeSegment) {
    disk.AddFolder(L"C:\\Users\\All Users2\\Menu");
    disk.AddFolder(L"C:\\Users\\All Users\\Menu");
    EXPECT_EQ(folders.Counterpart(disk, L"C:\\Users\\hanako2\\Menu"), L"");
}

TEST_F(StartMenuCounterpart, ReplacesTheSegmentThatLeadsToAFolder) {
    folders = {L"", L"", L"hanako"};
    disk.AddFolder(L"C:\\hanako\\All Users\\Menu\\hanako");
    EXPECT_EQ(folders.Counterpart(disk, L"C:\\hanako\\hanako\\Menu\\hanako"),
              L"C:\\hanako\\All Users\\Menu\\hanako");
}

TEST_F(StartMenuCounterpart, IsNone_WithoutRootsAndUser) {
    folders = {};
    disk.AddFolder(kAll);
    EXPECT_EQ(folders.Counterpart(disk, kUser), L"");
    EXPECT_EQ(folders.Counterpart(disk, L""), L"");
}

TEST_F(StartMenuCounterpart, IsNone_WhenTheUsersRootIsUnknown) {
    folders.user.clear();
    EXPECT_EQ(folders.Counterpart(disk, InAll(L"Games")), L"");
    EXPECT_EQ(folders.Counterpart(disk, kAll), L"");
}

} // namespace
