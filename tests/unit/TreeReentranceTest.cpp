#include "BrowserTree.h"

#include <functional>
#include <utility>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// More than is put into a tree between two looks at the waiting events.
constexpr int kManyFiles = 2000;

std::function<void()> Once(std::function<void()> event) {
    return [event = std::move(event), done = false]() mutable {
        if (!std::exchange(done, true)) {
            event();
        }
    };
}

/// Two folders in a tree, and a dialog that opens what it is told to.
class TreeReentrance : public testing::Test, public BrowserTree {
public:
    TreeReentrance() {
        disk.AddFile(L"C:\\top\\a\\a.txt");
        disk.AddFile(L"C:\\top\\b\\b.txt");
        disk.AddFile(L"C:\\top\\c\\c.txt");
        disk.AddFile(L"C:\\new\\new.txt");
        tree.DrawItem(L"C:\\top", L"");
        a = nodes.WithText(L"a");
        b = nodes.WithText(L"b");
        c = nodes.WithText(L"c");
        nodes.whenOpened = [this](NodeId node) { openings.push_back(tree.Expand(node)); };
    }

    NodeId a = 0;
    NodeId b = 0;
    NodeId c = 0;
    std::vector<bool> openings;
};

TEST_F(TreeReentrance, AFolderIsReadBesideTheUserInterface) {
    const int works = events.worksBeside;
    disk.Forget();
    std::size_t searchesBefore = 99;
    std::size_t searchesAfter = 99;
    events.whenProcessed = Once([&] { searchesBefore = disk.searches.size(); });
    events.afterWork = Once([&] { searchesAfter = disk.searches.size(); });
    EXPECT_TRUE(tree.Expand(a));
    EXPECT_EQ(events.worksBeside, works + 1);
    EXPECT_EQ(searchesBefore, 0U);
    EXPECT_EQ(searchesAfter, 1U);
    EXPECT_EQ(disk.searches.size(), 1U);
}

TEST_F(TreeReentrance, SaysThatItIsExpanding_WhileItReads) {
    bool duringReading = false;
    events.whenProcessed = [&] { duringReading = tree.IsExpanding(); };
    EXPECT_FALSE(tree.IsExpanding());
    tree.Expand(a);
    EXPECT_TRUE(duringReading);
    EXPECT_FALSE(tree.IsExpanding());
}

TEST_F(TreeReentrance, AnotherFolderWaits_AndOpensByItselfAfterwards) {
    bool answer = true;
    std::size_t childrenMeanwhile = 0;
    events.whenProcessed = Once([&] {
        answer = tree.Expand(b);
        childrenMeanwhile = nodes.Texts(b).size();
    });
    EXPECT_TRUE(tree.Expand(a));
    EXPECT_FALSE(answer);
    EXPECT_EQ(childrenMeanwhile, 1U) << "its placeholder";
    EXPECT_THAT(nodes.Opened(), ElementsAre(L"C:\\top\\b"));
    EXPECT_THAT(openings, ElementsAre(true));
    EXPECT_THAT(nodes.Texts(a), ElementsAre(L"a.txt"));
    EXPECT_THAT(nodes.Texts(b), ElementsAre(L"b.txt"));
}

TEST_F(TreeReentrance, FoldersThatWaitOpenInTheirTurn_OnceEach) {
    events.whenProcessed = Once([&] {
        (void)tree.Expand(c);
        (void)tree.Expand(b);
        (void)tree.Expand(c);
    });
    EXPECT_TRUE(tree.Expand(a));
    EXPECT_THAT(nodes.Opened(), ElementsAre(L"C:\\top\\c", L"C:\\top\\b"));
    EXPECT_THAT(nodes.Texts(b), ElementsAre(L"b.txt"));
    EXPECT_THAT(nodes.Texts(c), ElementsAre(L"c.txt"));
}

TEST_F(TreeReentrance, AFolderThatWaitsOpens_ThoughTheOneThatIsReadIsAskedForAgain) {
    events.whenProcessed = Once([&] {
        (void)tree.Expand(b);
        (void)tree.Expand(a);
    });
    EXPECT_TRUE(tree.Expand(a));
    EXPECT_THAT(nodes.Opened(), ElementsAre(L"C:\\top\\b"));
}

TEST_F(TreeReentrance, ClosingWhileOneOfTheWaitingFoldersOpens_ForgetsTheOthers) {
    nodes.whenOpened = [this](NodeId) { tree.Clear(); };
    events.whenProcessed = Once([&] {
        (void)tree.Expand(b);
        (void)tree.Expand(c);
    });
    (void)tree.Expand(a);
    EXPECT_THAT(nodes.Opened(), ElementsAre(L"C:\\top\\b"));
    EXPECT_EQ(nodes.Count(), 0U);
}

TEST_F(TreeReentrance, TheSameFolderIsFilledOnce_AndNotOpenedAgain) {
    bool answer = true;
    events.whenProcessed = Once([&] { answer = tree.Expand(a); });
    EXPECT_TRUE(tree.Expand(a));
    EXPECT_FALSE(answer);
    EXPECT_THAT(nodes.Texts(a), ElementsAre(L"a.txt"));
    EXPECT_THAT(nodes.Opened(), IsEmpty());
}

TEST_F(TreeReentrance, AFolderThatArrivesWhenTheReadingIsDone_WaitsToo) {
    bool answer = true;
    events.afterWork = Once([&] { answer = tree.Expand(b); });
    EXPECT_TRUE(tree.Expand(a));
    EXPECT_FALSE(answer);
    EXPECT_THAT(nodes.Texts(a), ElementsAre(L"a.txt"));
    EXPECT_THAT(nodes.Texts(b), ElementsAre(L"b.txt"));
}

TEST_F(TreeReentrance, ClosingWhileAFolderIsRead_LeavesTheTreeEmpty) {
    events.whenProcessed = Once([&] { tree.Clear(); });
    EXPECT_FALSE(tree.Expand(a));
    EXPECT_EQ(nodes.Count(), 0U);
    EXPECT_FALSE(tree.IsExpanding());
    EXPECT_TRUE(nodes.IsDrawn());
}

TEST_F(TreeReentrance, ClosingWhenTheReadingIsDone_LeavesTheTreeEmpty) {
    events.afterWork = Once([&] { tree.Clear(); });
    EXPECT_FALSE(tree.Expand(a));
    EXPECT_EQ(nodes.Count(), 0U);
    EXPECT_FALSE(tree.IsExpanding());
}

TEST_F(TreeReentrance, ClosingForgetsTheFolderThatWaits) {
    events.whenProcessed = Once([&] {
        (void)tree.Expand(b);
        tree.Clear();
    });
    EXPECT_FALSE(tree.Expand(a));
    EXPECT_THAT(nodes.Opened(), IsEmpty());
    EXPECT_EQ(nodes.Count(), 0U);
}

TEST_F(TreeReentrance, AReadingThatWasGivenUpAddsNothingWhenItEnds) {
    events.whenProcessed = Once([&] { tree.Clear(); });
    tree.Expand(a);
    tree.DrawItem(L"C:\\new", L"");
    const std::size_t count = nodes.Count();
    ASSERT_TRUE(events.RunGivenUpWork());
    EXPECT_EQ(nodes.Count(), count);
    EXPECT_THAT(RootTexts(), ElementsAre(L"new.txt"));
}

TEST_F(TreeReentrance, AReadingThatWasGivenUpMayOutlastTheTree) {
    std::weak_ptr<const NameOrder> kept;
    {
        FakeTree control;
        FakePictureBox box;
        FakeNodeImages list;
        CTreeView closing({disk, shell, icons, events}, L"");
        auto ownOrder = std::make_shared<FakeNameOrder>();
        kept = ownOrder;
        closing.TreeViewControl(control);
        closing.PictureBoxControl(box);
        closing.ImageListControl(list);
        closing.ListBoxControl(std::move(ownOrder));
        events.whenProcessed = Once([&] { closing.Clear(); });
        closing.DrawItem(L"C:\\top", L"");
    }
    EXPECT_FALSE(kept.expired());
    EXPECT_TRUE(events.RunGivenUpWork());
    EXPECT_TRUE(kept.expired());
}

TEST_F(TreeReentrance, AReadingThatWasGivenUpLeavesTheDialogsEventsAlone) {
    events.whenProcessed = Once([&] { tree.Clear(); });
    tree.Expand(a);
    disk.Forget();
    ASSERT_TRUE(events.RunGivenUpWork());
    EXPECT_EQ(events.processedTooLate, 0) << "the dialog may be gone, and its events with it";
}

TEST_F(TreeReentrance, ANewTreeReplacesTheOneThatIsRead_AndOpensAfterwards) {
    events.whenProcessed = Once([&] { tree.DrawItem(L"C:\\new", L""); });
    EXPECT_FALSE(tree.Expand(a));
    EXPECT_THAT(nodes.Opened(), ElementsAre(L"C:\\new"));
    EXPECT_THAT(nodes.Roots(), SizeIs(1));
    EXPECT_THAT(RootTexts(), ElementsAre(L"new.txt"));
}

TEST_F(TreeReentrance, ANewTreeOpensAfterwards_ThoughTheControlGivesItsRootTheFormerRootsId) {
    events.whenProcessed = Once([&] { tree.DrawItem(L"C:\\new", L""); });
    tree.DrawItem(L"C:\\top", L"");
    EXPECT_THAT(nodes.Opened(), ElementsAre(L"C:\\new"));
    EXPECT_THAT(RootTexts(), ElementsAre(L"new.txt"));
}

TEST_F(TreeReentrance, ANewTreeThatArrivesWhenTheReadingIsDone_OpensAfterwards) {
    events.afterWork = Once([&] { tree.SetIeFavorites(L"C:\\new", L""); });
    EXPECT_FALSE(tree.Expand(a));
    EXPECT_THAT(nodes.Opened(), ElementsAre(L"C:\\new"));
    EXPECT_THAT(RootTexts(), ElementsAre(L"new.txt"));
}

TEST_F(TreeReentrance, TheDrivesReplaceTheTreeThatIsRead) {
    FakeDrives drives;
    drives.Add(L"c:", L"c:\\", kDriveFixed);
    CSystemDrive system;
    system.DriveBoxControl(drives);
    events.whenProcessed = Once([&] { tree.SetMyComputer(system, L"My Computer"); });
    EXPECT_FALSE(tree.Expand(a));
    EXPECT_THAT(RootTexts(), ElementsAre(L"c:"));
    EXPECT_TRUE(HasPlaceholder(nodes.WithKey(L"c:")));
    EXPECT_TRUE(nodes.IsDrawn());
}

TEST_F(TreeReentrance, AnotherStartMenuDoesNotMixWithTheOneThatIsRead) {
    disk.AddFile(L"C:\\one\\1.lnk");
    disk.AddFile(L"C:\\two\\2.lnk");
    disk.AddFile(L"C:\\all\\all.lnk");
    shell.specialFolders[kFolderAllUsersStartMenu] = L"C:\\all";
    nodes.whenOpened = [this](NodeId node) { tree.ExpandStartMenu(node); };
    tree.DrawItem(L"C:\\top", L"");
    a = nodes.WithText(L"a");
    events.whenProcessed = Once([&] { tree.SetStartMenu(L"C:\\two", L""); });
    tree.ExpandStartMenu(a);
    EXPECT_THAT(RootTexts(), ElementsAre(L"2.lnk", L"all.lnk"));
}

TEST_F(TreeReentrance, AReadingThatCouldNotBeDoneIsTriedAgainNextTime) {
    events.refuses = true;
    EXPECT_FALSE(tree.Expand(a));
    EXPECT_TRUE(HasPlaceholder(a));
    EXPECT_FALSE(tree.IsExpanding());
    events.refuses = false;
    EXPECT_TRUE(tree.Expand(a));
    EXPECT_THAT(nodes.Texts(a), ElementsAre(L"a.txt"));
}

TEST_F(TreeReentrance, ARefusedTreeKeepsItsPlaceholder) {
    events.refuses = true;
    tree.DrawItem(L"C:\\new", L"");
    EXPECT_TRUE(HasPlaceholder(Root()));
    EXPECT_THAT(nodes.MadeVisible(), ElementsAre(L"C:\\top\\a")) << "the former tree's alone";
}

/// A folder of so many files that events are worked off while they go in.
class TreeReentranceWhileFilling : public TreeReentrance {
public:
    TreeReentranceWhileFilling() {
        disk.AddFile(L"C:\\big\\sub\\sub.txt");
        AddFiles(L"C:\\big", kManyFiles);
        disk.AddFolder(L"C:\\outer\\big");
        disk.AddLink(L"C:\\outer\\link", L"C:\\big");
        // The last one goes in first, and the first look at the events comes some hundred later.
        for (int i = 0; i < kManyFolders; ++i) {
            disk.AddFolder(L"C:\\outer\\deep\\f" + std::to_wstring(i));
        }
        disk.AddFile(L"C:\\outer\\deep\\sub\\sub.txt");
        tree.DrawItem(L"C:\\outer", L"");
        big = nodes.WithText(L"link");
    }
    /// Only once the level is going in.
    void WhileFilling(std::function<void()> event) {
        events.afterWork = Once([this, event = std::move(event)] { events.whenProcessed = Once(event); });
    }

    static constexpr int kManyFolders = 600;
    NodeId big = 0;
};

TEST_F(TreeReentranceWhileFilling, EventsAreWorkedOff_WithDrawingOff) {
    const int before = events.processed;
    bool drawn = true;
    WhileFilling([&] { drawn = nodes.IsDrawn(); });
    EXPECT_TRUE(tree.Expand(big));
    EXPECT_GE(events.processed, before + 2);
    EXPECT_FALSE(drawn);
    EXPECT_TRUE(nodes.IsDrawn());
    EXPECT_EQ(nodes.Texts(big).size(), kManyFiles + 1U);
}

TEST_F(TreeReentranceWhileFilling, ClosingEndsIt) {
    WhileFilling([&] { tree.Clear(); });
    EXPECT_FALSE(tree.Expand(big));
    EXPECT_EQ(nodes.Count(), 0U);
    EXPECT_TRUE(nodes.IsDrawn());
    EXPECT_FALSE(tree.IsExpanding());
}

TEST_F(TreeReentranceWhileFilling, ANewTreeReplacesIt_AndOpensAfterwards) {
    WhileFilling([&] { tree.DrawItem(L"C:\\new", L""); });
    EXPECT_FALSE(tree.Expand(big));
    EXPECT_THAT(nodes.Opened(), ElementsAre(L"C:\\new"));
    EXPECT_THAT(RootTexts(), ElementsAre(L"new.txt"));
    EXPECT_TRUE(nodes.IsDrawn());
}

TEST_F(TreeReentranceWhileFilling, ANewTreeIsScrolledToByNobodyElse) {
    const std::size_t before = nodes.MadeVisible().size();
    WhileFilling([&] { tree.DrawItem(L"C:\\new", L""); });
    tree.DrawItem(L"C:\\big", L"");
    EXPECT_EQ(nodes.MadeVisible().size(), before);
}

TEST_F(TreeReentranceWhileFilling, ClosingWhenAWaitingFolderOpens_LeavesTheTreeEmpty) {
    nodes.whenOpened = [this](NodeId) { tree.Clear(); };
    WhileFilling([&] { (void)tree.Expand(nodes.WithText(L"sub")); });
    const std::size_t before = nodes.MadeVisible().size();
    tree.DrawItem(L"C:\\outer\\deep", L"");
    EXPECT_THAT(nodes.Opened(), ElementsAre(L"C:\\outer\\deep\\sub"));
    EXPECT_EQ(nodes.Count(), 0U);
    EXPECT_EQ(nodes.MadeVisible().size(), before);
}

TEST_F(TreeReentranceWhileFilling, ASubfolderThatIsThereAlreadyWaits) {
    bool answer = true;
    const NodeId deep = nodes.WithText(L"deep");
    WhileFilling([&] { answer = tree.Expand(nodes.WithText(L"sub")); });
    EXPECT_TRUE(tree.Expand(deep));
    EXPECT_FALSE(answer);
    EXPECT_THAT(nodes.Opened(), ElementsAre(L"C:\\outer\\deep\\sub"));
    EXPECT_THAT(nodes.Texts(nodes.WithText(L"sub")), ElementsAre(L"sub.txt"));
    EXPECT_EQ(nodes.Texts(deep).size(), kManyFolders + 1U);
}

TEST_F(TreeReentranceWhileFilling, TheSameFolderAgainAddsNothing) {
    bool answer = false;
    WhileFilling([&] { answer = tree.Expand(big); });
    EXPECT_TRUE(tree.Expand(big));
    EXPECT_TRUE(answer) << "it is open already";
    EXPECT_EQ(nodes.Texts(big).size(), kManyFiles + 1U);
    EXPECT_THAT(nodes.Opened(), IsEmpty());
}

} // namespace
