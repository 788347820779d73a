#include "BrowserTree.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class TreeView : public testing::Test, public BrowserTree {
public:
    void ShowDrives() {
        CSystemDrive system;
        system.DriveBoxControl(drives);
        tree.SetMyComputer(system, L"My Computer");
    }

    FakeDrives drives;
};

TEST_F(TreeView, GivesTheControlTheStylesThatItNeeds) {
    EXPECT_EQ(nodes.Style(), 0xA0U);
}

// My Computer

TEST_F(TreeView, MyComputerHasTheExplorersIcon_AndItsTextAsKey) {
    ShowDrives();
    EXPECT_EQ(nodes.Key(Root()), L"My Computer");
    EXPECT_EQ(nodes.Text(Root()), L"My Computer");
    EXPECT_EQ(nodes.IconPath(Root()), L"C:\\WINDOWS\\explorer.exe");
}

TEST_F(TreeView, AsksTheEnvironmentForTheWindowsDirectory_WhenTheSystemDoesNotTell) {
    shell.windowsDirectory.clear();
    shell.environment[L"windir"] = L"D:\\WINNT";
    ShowDrives();
    EXPECT_EQ(nodes.IconPath(Root()), L"D:\\WINNT\\explorer.exe");
}

TEST_F(TreeView, ADriveIsShownWithItsLabelInBracketsWithoutABlank) {
    drives.Add(L"c: [DATA]", L"c:\\", kDriveFixed);
    drives.Add(L"d: [My Music]", L"d:\\", kDriveCdRom);
    ShowDrives();
    EXPECT_THAT(RootTexts(), ElementsAre(L"c:[DATA]", L"d:[My Music]"));
}

TEST_F(TreeView, ADriveWithoutALabelIsShownAlone) {
    drives.Add(L"a:", L"a:\\", kDriveRemovable);
    ShowDrives();
    EXPECT_THAT(RootTexts(), ElementsAre(L"a:"));
}

TEST_F(TreeView, ADrivesKeyIsTheDrive_AndItsIconThatOfItsRoot) {
    drives.Add(L"c: [DATA]", L"c:\\", kDriveFixed);
    ShowDrives();
    const NodeId drive = nodes.WithText(L"c:[DATA]");
    EXPECT_EQ(nodes.Key(drive), L"c:");
    EXPECT_EQ(nodes.IconPath(drive), L"c:\\");
    EXPECT_TRUE(HasPlaceholder(drive));
    EXPECT_THAT(nodes.Keys(drive), ElementsAre(std::wstring(L"c:[DATA]\\") + kPlaceholderText));
}

TEST_F(TreeView, NetworkDrivesAndRamDisksAreNotInMyComputer) {
    drives.Add(L"c:", L"c:\\", kDriveFixed);
    drives.Add(L"n: [SERVER]", L"n:\\", kDriveRemote);
    drives.Add(L"r: [RAM]", L"r:\\", FakeDrives::kRamDisk);
    ShowDrives();
    EXPECT_THAT(RootTexts(), ElementsAre(L"c:"));
}

TEST_F(TreeView, TheFirstDriveIsMadeVisible) {
    drives.Add(L"c: [DATA]", L"c:\\", kDriveFixed);
    drives.Add(L"d:", L"d:\\", kDriveFixed);
    ShowDrives();
    EXPECT_THAT(nodes.MadeVisible(), ElementsAre(L"c:"));
}

TEST_F(TreeView, MyComputerMayHaveNoDrives) {
    ShowDrives();
    EXPECT_THAT(RootTexts(), IsEmpty());
    EXPECT_THAT(nodes.MadeVisible(), IsEmpty());
    EXPECT_TRUE(tree.Expand(Root()));
    EXPECT_EQ(nodes.Count(), 1U);
}

TEST_F(TreeView, NoDriveIsReadBeforeItIsOpened) {
    disk.AddFile(L"c:\\a.txt");
    drives.Add(L"c:", L"c:\\", kDriveFixed);
    ShowDrives();
    EXPECT_THAT(disk.searches, IsEmpty());
    EXPECT_TRUE(tree.Expand(Root())) << "its children are drives already";
    EXPECT_THAT(RootTexts(), ElementsAre(L"c:"));
    EXPECT_THAT(disk.searches, IsEmpty());
}

TEST_F(TreeView, ADriveOpensToItsRoot) {
    disk.AddFolder(L"c:\\Windows");
    disk.AddFile(L"c:\\boot.ini");
    drives.Add(L"c: [DATA]", L"c:\\", kDriveFixed);
    ShowDrives();
    const NodeId drive = nodes.WithKey(L"c:");
    EXPECT_TRUE(tree.Expand(drive));
    EXPECT_THAT(nodes.Keys(drive), ElementsAre(L"c:\\Windows", L"c:\\boot.ini"));
}

TEST_F(TreeView, ADriveWithoutAMediumOpensToNothing) {
    drives.Add(L"d:", L"d:\\", kDriveCdRom);
    ShowDrives();
    const NodeId drive = nodes.WithKey(L"d:");
    EXPECT_TRUE(tree.Expand(drive));
    EXPECT_THAT(nodes.Children(drive), IsEmpty());
}

// Folders

TEST_F(TreeView, FoldersComeBeforeFiles_EachInTheListBoxsOrder) {
    disk.AddFile(L"C:\\top\\b.txt");
    disk.AddFolder(L"C:\\top\\zoo");
    disk.AddFile(L"C:\\top\\A.txt");
    disk.AddFolder(L"C:\\top\\Art");
    tree.DrawItem(L"C:\\top", L"");
    EXPECT_THAT(RootTexts(), ElementsAre(L"Art", L"zoo", L"A.txt", L"b.txt"));
}

TEST_F(TreeView, TheOrderIsTheListBoxsOwn) {
    order.backwards = true;
    for (const wchar_t* name : {L"b.txt", L"c.txt", L"a.txt"}) {
        disk.AddFile(std::wstring(L"C:\\top\\") + name);
        disk.AddFolder(std::wstring(L"C:\\top\\folder ") + name);
    }
    tree.DrawItem(L"C:\\top", L"");
    EXPECT_THAT(RootTexts(),
                ElementsAre(L"folder c.txt", L"folder b.txt", L"folder a.txt", L"c.txt", L"b.txt", L"a.txt"));
}

TEST_F(TreeView, AKeyIsTheFullPath_AndSoIsTheIcon) {
    disk.AddFolder(L"C:\\top\\sub");
    disk.AddFile(L"C:\\top\\a.txt");
    tree.DrawItem(L"C:\\top", L"Top");
    EXPECT_THAT(nodes.Keys(Root()), ElementsAre(L"C:\\top\\sub", L"C:\\top\\a.txt"));
    EXPECT_EQ(nodes.IconPath(nodes.WithText(L"sub")), L"C:\\top\\sub");
    EXPECT_EQ(nodes.IconPath(nodes.WithText(L"a.txt")), L"C:\\top\\a.txt");
}

TEST_F(TreeView, EveryFolderHasAPlaceholder_AndNoFile) {
    disk.AddFolder(L"C:\\top\\empty");
    disk.AddFolder(L"C:\\top\\full\\deep");
    disk.AddFile(L"C:\\top\\a.txt");
    tree.DrawItem(L"C:\\top", L"");
    const NodeId empty = nodes.WithText(L"empty");
    EXPECT_TRUE(HasPlaceholder(empty));
    EXPECT_TRUE(HasPlaceholder(nodes.WithText(L"full")));
    EXPECT_THAT(nodes.Children(nodes.WithText(L"a.txt")), IsEmpty());
    EXPECT_THAT(nodes.Keys(empty), ElementsAre(std::wstring(L"C:\\top\\empty\\") + kPlaceholderText));
    EXPECT_STREQ(kPlaceholderText, L"%$%$%$%$Dummy%$%$%$%$");
}

TEST_F(TreeView, AFileThatIsNamedLikeThePlaceholder_IsAFile) {
    disk.AddFile(std::wstring(L"C:\\top\\") + kPlaceholderText);
    tree.DrawItem(L"C:\\top", L"");
    EXPECT_FALSE(tree.IsUnopened(Root()));
    EXPECT_TRUE(tree.Expand(Root()));
    EXPECT_THAT(RootTexts(), ElementsAre(kPlaceholderText));
}

TEST_F(TreeView, HiddenEntriesAndRecycleBinsAreNeverShown) {
    disk.AddFolder(L"C:\\top\\RECYCLED");
    disk.AddFolder(L"C:\\top\\secret", kAttributeDirectory | kAttributeHidden);
    disk.AddFile(L"C:\\top\\secret.txt", "", kAttributeArchive | kAttributeHidden);
    disk.AddFile(L"C:\\top\\a.txt");
    tree.DrawItem(L"C:\\top", L"");
    EXPECT_THAT(RootTexts(), ElementsAre(L"a.txt"));
}

TEST_F(TreeView, AnEmptyFolderHasAMark_UntilItIsOpened) {
    disk.AddFolder(L"C:\\top\\empty");
    tree.DrawItem(L"C:\\top", L"");
    const NodeId empty = nodes.WithText(L"empty");
    ASSERT_TRUE(HasPlaceholder(empty));
    EXPECT_TRUE(tree.Expand(empty));
    EXPECT_THAT(nodes.Children(empty), IsEmpty());
    EXPECT_TRUE(tree.Expand(empty));
    EXPECT_THAT(nodes.Children(empty), IsEmpty());
}

TEST_F(TreeView, OpeningASecondTimeAddsNothing_AndReadsNothing) {
    disk.AddFile(L"C:\\top\\sub\\a.txt");
    tree.DrawItem(L"C:\\top", L"");
    const NodeId sub = nodes.WithText(L"sub");
    EXPECT_TRUE(tree.Expand(sub));
    disk.AddFile(L"C:\\top\\sub\\later.txt");
    disk.Forget();
    EXPECT_TRUE(tree.Expand(sub));
    EXPECT_THAT(nodes.Texts(sub), ElementsAre(L"a.txt"));
    EXPECT_THAT(disk.searches, IsEmpty());
}

TEST_F(TreeView, OpeningAFileDoesNothing) {
    disk.AddFile(L"C:\\top\\a.txt");
    tree.DrawItem(L"C:\\top", L"");
    disk.Forget();
    EXPECT_TRUE(tree.Expand(nodes.WithText(L"a.txt")));
    EXPECT_EQ(nodes.Count(), 2U);
    EXPECT_THAT(disk.searches, IsEmpty());
}

TEST_F(TreeView, AnUnreadableFolderOpensToNothing) {
    disk.AddFile(L"C:\\top\\locked\\a.txt");
    disk.MakeUnreadable(L"C:\\top\\locked");
    tree.DrawItem(L"C:\\top", L"");
    const NodeId locked = nodes.WithText(L"locked");
    EXPECT_TRUE(tree.Expand(locked));
    EXPECT_THAT(nodes.Children(locked), IsEmpty());
}

TEST_F(TreeView, AFolderThatIsGoneOpensToNothing) {
    tree.DrawItem(L"C:\\gone", L"");
    EXPECT_EQ(nodes.Key(Root()), L"C:\\gone");
    EXPECT_THAT(RootTexts(), IsEmpty());
    EXPECT_THAT(nodes.MadeVisible(), IsEmpty());
}

TEST_F(TreeView, LinksThatLoopAreOpenedOneLevelAtATime) {
    disk.AddLink(L"C:\\top\\loop", L"C:\\top");
    tree.DrawItem(L"C:\\top", L"");
    NodeId node = nodes.WithText(L"loop");
    for (int level = 0; level < 20; ++level) {
        ASSERT_TRUE(HasPlaceholder(node));
        ASSERT_TRUE(tree.Expand(node));
        ASSERT_THAT(nodes.Texts(node), ElementsAre(L"loop"));
        node = nodes.Child(node);
    }
    EXPECT_EQ(disk.searches.size(), 21U);
}

TEST_F(TreeView, ASubfolderIsNotLookedInto_BeforeItIsOpened) {
    disk.AddFile(L"C:\\top\\sub\\deep\\a.txt");
    tree.DrawItem(L"C:\\top", L"");
    EXPECT_THAT(disk.searches, ElementsAre(L"C:\\top\\*.*"));
}

TEST_F(TreeView, OneFoldersRootLosesItsTrailingBackslash_NotItsIcons) {
    disk.AddFile(L"C:\\top\\a.txt");
    tree.DrawItem(L"C:\\top\\", L"");
    EXPECT_EQ(nodes.Key(Root()), L"C:\\top");
    EXPECT_EQ(nodes.Text(Root()), L"C:\\top");
    EXPECT_EQ(nodes.IconPath(Root()), L"C:\\top\\");
    EXPECT_THAT(nodes.Keys(Root()), ElementsAre(L"C:\\top\\a.txt"));
}

TEST_F(TreeView, OneFoldersRootShowsItsText_WhenThereIsOne) {
    disk.AddFolder(L"C:\\top");
    tree.DrawItem(L"C:\\top", L"My Folder");
    EXPECT_EQ(nodes.Text(Root()), L"My Folder");
    EXPECT_EQ(nodes.Key(Root()), L"C:\\top");
}

TEST_F(TreeView, OneFoldersFirstEntryIsMadeVisible) {
    disk.AddFile(L"C:\\top\\b.txt");
    disk.AddFile(L"C:\\top\\a.txt");
    tree.DrawItem(L"C:\\top", L"");
    EXPECT_THAT(nodes.MadeVisible(), ElementsAre(L"C:\\top\\a.txt"));
}

TEST_F(TreeView, ANewTreeTakesTheFormerOnesPlace) {
    disk.AddFile(L"C:\\one\\1.txt");
    disk.AddFile(L"C:\\two\\2.txt");
    tree.DrawItem(L"C:\\one", L"");
    tree.DrawItem(L"C:\\two", L"");
    EXPECT_THAT(nodes.Roots(), SizeIs(1));
    EXPECT_THAT(nodes.Keys(Root()), ElementsAre(L"C:\\two\\2.txt"));
    drives.Add(L"c:", L"c:\\", kDriveFixed);
    ShowDrives();
    EXPECT_THAT(nodes.Roots(), SizeIs(1));
    EXPECT_THAT(RootTexts(), ElementsAre(L"c:"));
}

TEST_F(TreeView, ALevelGoesInWithDrawingOff_WhichComesBackOn) {
    disk.AddFolder(L"C:\\top\\sub\\deep");
    AddFiles(L"C:\\top\\sub", 20);
    tree.DrawItem(L"C:\\top", L"");
    const std::size_t before = nodes.AddedWhileDrawn();
    ASSERT_TRUE(tree.Expand(nodes.WithText(L"sub")));
    EXPECT_EQ(nodes.Texts(nodes.WithText(L"sub")).size(), 21U);
    EXPECT_EQ(nodes.AddedWhileDrawn(), before);
    EXPECT_TRUE(nodes.IsDrawn());
}

TEST_F(TreeView, AsksForNoIcon_WhileItFillsATree) {
    AddFiles(L"C:\\top", 20);
    tree.DrawItem(L"C:\\top", L"");
    EXPECT_EQ(nodes.Count(), 21U);
    EXPECT_THAT(icons.questions, IsEmpty());
}

TEST_F(TreeView, ClearingEmptiesTheTreeAndItsImages) {
    disk.AddFile(L"C:\\top\\a.txt");
    tree.DrawItem(L"C:\\top", L"");
    (void)tree.ImageOf(L"C:\\top\\a.txt");
    ASSERT_THAT(images.Pictures(), SizeIs(1));
    tree.Clear();
    EXPECT_EQ(nodes.Count(), 0U);
    EXPECT_THAT(images.Pictures(), IsEmpty());
}

TEST_F(TreeView, SurvivesAControlThatTakesNoMoreNodes) {
    disk.AddFolder(L"C:\\top\\sub\\deep");
    AddFiles(L"C:\\top", 5);
    drives.Add(L"c:", L"c:\\", kDriveFixed);
    for (std::size_t capacity = 0; capacity < 8; ++capacity) {
        SCOPED_TRACE(capacity);
        nodes.capacity = capacity;
        tree.DrawItem(L"C:\\top", L"");
        EXPECT_EQ(nodes.Roots().size(), std::min<std::size_t>(capacity, 1));
        EXPECT_TRUE(nodes.IsDrawn());
        ShowDrives();
        EXPECT_EQ(nodes.Count(), std::min<std::size_t>(capacity, 3));
    }
    nodes.capacity = 100;
    tree.DrawItem(L"C:\\top", L"");
    EXPECT_THAT(RootTexts(), SizeIs(6));
}

// Favourites

TEST_F(TreeView, FavouritesLoseUrlInAnyCase_InTheTextAlone) {
    for (const wchar_t* name : {L"News.URL", L"Mail.url", L"Shop.UrL"}) {
        disk.AddFile(std::wstring(L"C:\\Favorites\\") + name);
    }
    tree.SetIeFavorites(L"C:\\Favorites", L"Favorites");
    EXPECT_THAT(RootTexts(), ElementsAre(L"Mail", L"News", L"Shop"));
    EXPECT_THAT(nodes.Keys(Root()), ElementsAre(L"C:\\Favorites\\Mail.url", L"C:\\Favorites\\News.URL",
                                                L"C:\\Favorites\\Shop.UrL"));
}

TEST_F(TreeView, OtherFilesAmongFavouritesKeepTheirNames) {
    for (const wchar_t* name : {L"readme.txt", L"url", L"news.url.txt", L"curl"}) {
        disk.AddFile(std::wstring(L"C:\\Favorites\\") + name);
    }
    tree.SetIeFavorites(L"C:\\Favorites", L"");
    EXPECT_THAT(RootTexts(), ElementsAre(L"curl", L"news.url.txt", L"readme.txt", L"url"));
}

TEST_F(TreeView, AFolderAmongFavouritesKeepsItsName_EvenWithUrl) {
    disk.AddFile(L"C:\\Favorites\\Links.url\\News.url");
    tree.SetIeFavorites(L"C:\\Favorites", L"");
    const NodeId links = nodes.WithText(L"Links.url");
    ASSERT_NE(links, 0U);
    EXPECT_TRUE(tree.ExpandIeFavorites(links));
    EXPECT_THAT(nodes.Texts(links), ElementsAre(L"News"));
    EXPECT_THAT(nodes.Keys(links), ElementsAre(L"C:\\Favorites\\Links.url\\News.url"));
}

TEST_F(TreeView, FavouritesAreSortedByTheirFullNames) {
    disk.AddFile(L"C:\\Favorites\\a.url");
    disk.AddFile(L"C:\\Favorites\\a.txt");
    tree.SetIeFavorites(L"C:\\Favorites", L"");
    EXPECT_THAT(RootTexts(), ElementsAre(L"a.txt", L"a"));
}

TEST_F(TreeView, UrlIsShownInEveryOtherTree) {
    disk.AddFile(L"C:\\top\\sub\\News.url");
    tree.DrawItem(L"C:\\top", L"");
    const NodeId sub = nodes.WithText(L"sub");
    EXPECT_TRUE(tree.Expand(sub));
    EXPECT_THAT(nodes.Texts(sub), ElementsAre(L"News.url"));
}

TEST_F(TreeView, TheFavouritesRootIsReadAtOnce_AndItsFirstEntryMadeVisible) {
    disk.AddFile(L"C:\\Favorites\\News.url");
    tree.SetIeFavorites(L"C:\\Favorites\\", L"Favorites");
    EXPECT_EQ(nodes.Key(Root()), L"C:\\Favorites");
    EXPECT_EQ(nodes.Text(Root()), L"Favorites");
    EXPECT_THAT(nodes.MadeVisible(), ElementsAre(L"C:\\Favorites\\News.url"));
}

} // namespace
