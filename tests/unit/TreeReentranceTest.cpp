#include "BrowserTree.h"
#include "browse/CEnumFileMinor.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace {

using testing::ElementsAre;
using testing::SizeIs;

/// A folder of so many entries that events are worked off while it is read, sorted and put in; and what happens
/// at one of these moments.
class TreeReentrance : public testing::Test, public BrowserTree {
public:
    static constexpr int kFiles = 900;
    static constexpr int kFolders = 600;

    TreeReentrance() {
        for (int i = 0; i < kFolders; ++i) {
            disk.AddFolder(L"C:\\top\\big\\folder" + std::to_wstring(i));
        }
        AddFiles(L"C:\\top\\big", kFiles);
        disk.AddFile(L"C:\\top\\other\\other.txt");
        disk.AddFile(L"C:\\new\\new.txt");
    }

    void Build() {
        tree.DrawItem(L"C:\\top", L"");
        big = nodes.WithText(L"big");
        other = nodes.WithText(L"other");
        disk.Forget();
    }

    /// Opens the big folder once for each look at the events, with `event` happening there.
    void AtEachMoment(const std::function<void()>& event, const std::function<void(bool opened)>& check) {
        Build();
        const int undisturbed = events.processed;
        ASSERT_TRUE(tree.Expand(big));
        const int moments = events.processed - undisturbed;
        for (int moment = 1; moment <= moments; ++moment) {
            SCOPED_TRACE("moment " + std::to_string(moment));
            events.wanted = true;
            Build();
            const int before = events.processed;
            bool happened = false;
            events.whenProcessed = [&] {
                if (events.processed == before + moment) {
                    happened = true;
                    event();
                }
            };
            const bool opened = tree.Expand(big);
            events.whenProcessed = nullptr;
            ASSERT_TRUE(happened);
            EXPECT_TRUE(nodes.IsDrawn());
            check(opened);
        }
    }
    [[nodiscard]] bool IsBigComplete() const { return nodes.Children(big).size() == kFiles + kFolders; }

    NodeId big = 0;
    NodeId other = 0;
};

TEST_F(TreeReentrance, EventsAreWorkedOffEverySoManyEntries) {
    Build();
    std::size_t read = 0;
    std::size_t nodesThere = nodes.Count();
    std::size_t mostRead = 0;
    std::size_t mostAdded = 0;
    int looks = 0;
    const auto look = [&] {
        mostRead = std::max(mostRead, disk.reportedEntries - std::exchange(read, disk.reportedEntries));
        mostAdded = std::max(mostAdded, nodes.Count() + 1 - std::exchange(nodesThere, nodes.Count()));
        ++looks;
    };
    events.whenProcessed = look;
    EXPECT_TRUE(tree.Expand(big));
    look();
    EXPECT_TRUE(IsBigComplete());
    EXPECT_LE(mostRead, CEnumFileMinor::kEntriesAtOnce);
    EXPECT_LE(mostAdded, 2 * CEnumFileMinor::kEntriesAtOnce + 1) << "a folder comes with its placeholder";
    EXPECT_GE(looks, 3 * (kFiles + kFolders) / static_cast<int>(CEnumFileMinor::kEntriesAtOnce))
        << "while it is read, while it is sorted, and while it is put in";
}

TEST_F(TreeReentrance, TheMarkStaysUntilTheFolderIsRead_AndDrawingIsOnMeanwhile) {
    Build();
    bool undrawn = false;
    bool unopened = true;
    events.whenProcessed = [&] {
        const bool reading = nodes.Count() == 1 + 2 * 2;
        undrawn |= reading && !nodes.IsDrawn();
        unopened &= !reading || tree.IsUnopened(big);
    };
    EXPECT_TRUE(tree.Expand(big));
    EXPECT_FALSE(undrawn);
    EXPECT_TRUE(unopened);
}

TEST_F(TreeReentrance, AnotherFolderDoesNotOpenMeanwhile) {
    AtEachMoment([&] { EXPECT_FALSE(tree.Expand(other)); },
                 [&](bool opened) {
                     EXPECT_TRUE(opened);
                     EXPECT_TRUE(IsBigComplete());
                     EXPECT_TRUE(HasPlaceholder(other));
                     EXPECT_TRUE(tree.Expand(other));
                     EXPECT_THAT(nodes.Texts(other), ElementsAre(L"other.txt"));
                 });
}

TEST_F(TreeReentrance, TheSameFolderIsFilledOnce) {
    AtEachMoment([&] { (void)tree.Expand(big); },
                 [&](bool opened) {
                     EXPECT_TRUE(opened);
                     EXPECT_TRUE(IsBigComplete());
                     EXPECT_THAT(disk.searches, ElementsAre(L"C:\\top\\big\\*.*"));
                 });
}

TEST_F(TreeReentrance, ClosingLeavesTheTreeEmpty) {
    std::size_t reported = 0;
    AtEachMoment(
        [&] {
            tree.Clear();
            reported = disk.reportedEntries;
        },
        [&](bool opened) {
            EXPECT_FALSE(opened);
            EXPECT_EQ(nodes.Count(), 0U);
            EXPECT_LE(disk.reportedEntries, reported + 1) << "the rest of the folder is not read";
        });
}

TEST_F(TreeReentrance, ANewTreeTakesThePlace_AndNothingElseGetsIn) {
    std::size_t scrolled = 0;
    AtEachMoment(
        [&] {
            tree.DrawItem(L"C:\\new", L"");
            scrolled = nodes.MadeVisible().size();
        },
        [&](bool opened) {
            EXPECT_FALSE(opened);
            EXPECT_THAT(nodes.Roots(), SizeIs(1));
            EXPECT_THAT(RootTexts(), ElementsAre(L"new.txt"));
            EXPECT_EQ(nodes.MadeVisible().size(), scrolled);
        });
}

TEST_F(TreeReentrance, ANewTreeMayItselfBeReplaced) {
    tree.DrawItem(L"C:\\top\\big", L"");
    events.whenProcessed = [&] { tree.DrawItem(L"C:\\new", L""); };
    tree.DrawItem(L"C:\\top\\big", L"");
    EXPECT_THAT(RootTexts(), ElementsAre(L"new.txt"));
    EXPECT_THAT(nodes.MadeVisible().back(), L"C:\\new\\new.txt");
}

TEST_F(TreeReentrance, TheDrivesMayTakeThePlace) {
    FakeDrives drives;
    drives.Add(L"c:", L"c:\\", kDriveFixed);
    CSystemDrive system;
    system.DriveBoxControl(drives);
    AtEachMoment([&] { tree.SetMyComputer(system, L"My Computer"); },
                 [&](bool opened) {
                     EXPECT_FALSE(opened);
                     EXPECT_THAT(RootTexts(), ElementsAre(L"c:"));
                     EXPECT_TRUE(HasPlaceholder(nodes.WithKey(L"c:")));
                 });
}

TEST_F(TreeReentrance, AFolderStaysAsItIs_WhenTheProgramEnds) {
    AtEachMoment([&] { events.wanted = false; },
                 [&](bool opened) {
                     EXPECT_FALSE(opened);
                     events.wanted = true;
                     EXPECT_TRUE(tree.Expand(other)) << "nothing is being read any more";
                 });
}

TEST_F(TreeReentrance, AnotherStartMenuDoesNotMixWithTheOneThatIsRead) {
    disk.AddFile(L"C:\\two\\2.lnk");
    disk.AddFile(L"C:\\all\\all.lnk");
    shell.specialFolders[kFolderAllUsersStartMenu] = L"C:\\all";
    Build();
    events.whenProcessed = [&] { tree.SetStartMenu(L"C:\\two", L""); };
    EXPECT_FALSE(tree.ExpandStartMenu(big));
    EXPECT_THAT(RootTexts(), ElementsAre(L"2.lnk", L"all.lnk"));
}

} // namespace
