#include "BrowseTreeRig.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Icons of a tree's nodes, in a real control.
class TreeIconsTest : public BrowseTreeTest {
protected:
    static constexpr int kMany = 300; ///< more than the tree shows at once

    void ShowMany() {
        for (int i = 0; i < kMany; ++i) {
            folder_.AddFile(std::to_wstring(kMany + i) + L".txt", "");
        }
        view_.DrawItem(folder_.Path(), L"All");
    }
    /// Does all that can wait.
    void LetIconsCome() {
        while (tree_.OnIdle()) {
            form_.Pump();
        }
    }
    [[nodiscard]] std::vector<NodeId> RowsOnScreen() const {
        std::vector<NodeId> rows;
        auto node = static_cast<NodeId>(SendMessageW(window_, TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE, 0));
        for (; node != 0; node = static_cast<NodeId>(SendMessageW(window_, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE,
                                                                  static_cast<LPARAM>(node)))) {
            RECT row{};
            std::memcpy(&row, &node, sizeof node);
            RECT client{};
            GetClientRect(window_, &client);
            RECT seen{};
            if (SendMessageW(window_, TVM_GETITEMRECT, FALSE, std::bit_cast<LPARAM>(&row)) != FALSE &&
                IntersectRect(&seen, &row, &client) != FALSE) {
                rows.push_back(node);
            }
        }
        return rows;
    }
    [[nodiscard]] bool HaveIcons(const std::vector<NodeId>& nodes) const {
        return std::all_of(nodes.begin(), nodes.end(), [this](NodeId node) { return ImageOf(node) >= 0; });
    }
    [[nodiscard]] int Images() { return ImageList_GetImageCount(tree_.Control().Images().Handle()); }
};

TEST_F(TreeIconsTest, NeitherFillingNorDrawingAsks) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    form_.Pump();
    Draw();
    EXPECT_LT(ImageOf(Root()), 0);
    EXPECT_THAT(icons_.asked, IsEmpty());
}

TEST_F(TreeIconsTest, IconsComeOneAtATimeFromTheTopDown) {
    folder_.AddFolder(L"Tools");
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    EXPECT_TRUE(tree_.OnIdle());
    EXPECT_THAT(icons_.asked, ElementsAre(folder_.Path() + L'\\'));
    EXPECT_GE(ImageOf(Root()), 0);
    EXPECT_TRUE(tree_.OnIdle());
    EXPECT_TRUE(tree_.OnIdle());
    EXPECT_FALSE(tree_.OnIdle());
    EXPECT_THAT(icons_.asked,
                ElementsAre(folder_.Path() + L'\\', folder_.Path(L"Tools"), folder_.Path(L"a.txt")));
    EXPECT_TRUE(HaveIcons({Root(), Named(Root(), L"Tools"), Named(Root(), L"a.txt")}));
}

TEST_F(TreeIconsTest, OnlyRowsOnTheScreenAreAskedFor) {
    ShowMany();
    LetIconsCome();
    const auto rows = RowsOnScreen();
    ASSERT_LT(rows.size(), static_cast<std::size_t>(kMany));
    EXPECT_TRUE(HaveIcons(rows));
    EXPECT_GE(icons_.asked.size(), rows.size());
    EXPECT_LE(icons_.asked.size(), rows.size() + 1) << "one may be cut off at the edge";
    EXPECT_LT(ImageOf(Children(Root()).back()), 0);
}

TEST_F(TreeIconsTest, RowsThatAreScrolledToGetTheirs) {
    ShowMany();
    LetIconsCome();
    const std::size_t before = icons_.asked.size();
    tree_.Control().EnsureVisible(Children(Root()).back());
    LetIconsCome();
    const auto rows = RowsOnScreen();
    EXPECT_EQ(rows.back(), Children(Root()).back());
    EXPECT_TRUE(HaveIcons(rows));
    EXPECT_LE(icons_.asked.size(), before + rows.size() + 1) << "those in between were never on the screen";
}

TEST_F(TreeIconsTest, ATreeThatIsNotShownAsksForNone) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    tree_.Control().Show(false);
    EXPECT_FALSE(tree_.OnIdle());
    EXPECT_THAT(icons_.asked, IsEmpty());
    tree_.Control().Show(true);
    EXPECT_TRUE(tree_.OnIdle());
    EXPECT_THAT(icons_.asked, ElementsAre(folder_.Path() + L'\\'));
}

TEST_F(TreeIconsTest, AFolderThatWaitsOpensBeforeIconsCome) {
    folder_.AddFolder(L"Tools");
    folder_.AddFile(L"Tools\\a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    PressToOpen(Named(Root(), L"Tools"));
    EXPECT_TRUE(tree_.OnIdle());
    EXPECT_TRUE(IsExpanded(Named(Root(), L"Tools")));
    EXPECT_THAT(icons_.asked, IsEmpty());
}

TEST_F(TreeIconsTest, FilesOfOneTypeShareAnImageAndAFolderHasAnother) {
    folder_.AddFolder(L"Tools");
    folder_.AddFile(L"a.txt");
    folder_.AddFile(L"b.txt");
    view_.DrawItem(folder_.Path(), L"All");
    LetIconsCome();
    const NodeId tools = Named(Root(), L"Tools");
    const NodeId a = Named(Root(), L"a.txt");
    const NodeId b = Named(Root(), L"b.txt");
    ASSERT_TRUE(HaveIcons({tools, a, b, Root()}));
    EXPECT_EQ(ImageOf(a), ImageOf(b));
    EXPECT_NE(ImageOf(a), ImageOf(tools));
    EXPECT_LE(Images(), 3);
    EXPECT_EQ(view_.ImageOf(folder_.Path(L"a.txt")), ImageOf(a));
}

TEST_F(TreeIconsTest, AFileThatIsGoneHasAnIconAllTheSame) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    ASSERT_NE(DeleteFileW(folder_.Path(L"a.txt").c_str()), FALSE);
    LetIconsCome();
    EXPECT_GE(ImageOf(Named(Root(), L"a.txt")), 0);
}

TEST_F(TreeIconsTest, ANodeIsAskedForOnce) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    for (int i = 0; i < 5; ++i) {
        LetIconsCome();
        Draw();
    }
    EXPECT_EQ(std::count(icons_.asked.begin(), icons_.asked.end(), folder_.Path(L"a.txt")), 1);
}

TEST_F(TreeIconsTest, ANodeWithoutAnImageIsAskedForOnceToo) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    int asked = 0;
    const auto none = [&](const std::wstring&) {
        ++asked;
        return -1;
    };
    EXPECT_TRUE(tree_.Control().GiveNextImage(none));
    EXPECT_TRUE(tree_.Control().GiveNextImage(none));
    EXPECT_FALSE(tree_.Control().GiveNextImage(none));
    EXPECT_EQ(asked, 2);
    EXPECT_LT(ImageOf(Root()), 0);
}

TEST_F(TreeIconsTest, AnotherSizeAsksAgain) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    LetIconsCome();
    const std::vector<NodeId> nodes{Root(), Named(Root(), L"a.txt")};
    ASSERT_TRUE(HaveIcons(nodes));
    const std::size_t asked = icons_.asked.size();
    picture_.SetIconSize(32);
    tree_.Control().SetIconSize(32);
    EXPECT_EQ(Images(), 0);
    EXPECT_LT(ImageOf(Root()), 0);
    const auto list = static_cast<std::size_t>(SendMessageW(window_, TVM_GETIMAGELIST, TVSIL_NORMAL, 0));
    EXPECT_EQ(list, reinterpret_cast<std::size_t>(tree_.Control().Images().Handle()));
    int width = 0;
    int height = 0;
    ASSERT_NE(ImageList_GetIconSize(tree_.Control().Images().Handle(), &width, &height), FALSE);
    EXPECT_EQ(width, 32);
    EXPECT_EQ(height, 32);
    LetIconsCome();
    EXPECT_TRUE(HaveIcons(nodes));
    EXPECT_EQ(icons_.asked.size(), 2 * asked);
    EXPECT_GT(Images(), 0);
}

TEST_F(TreeIconsTest, ATreeMayBeEmptiedWhileTheShellAnswers) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    icons_.whenAsked = [this] { view_.Clear(); };
    EXPECT_TRUE(tree_.OnIdle());
    EXPECT_FALSE(tree_.OnIdle());
    EXPECT_EQ(tree_.Control().Count(), 0U);
    icons_.whenAsked = nullptr;
    view_.DrawItem(folder_.Path(), L"Again");
    EXPECT_EQ(Images(), 0);
    LetIconsCome();
    EXPECT_TRUE(HaveIcons({Root(), Named(Root(), L"a.txt")}));
}

TEST_F(TreeIconsTest, FillingAndClearingHoldsNoMoreObjects) {
    folder_.AddFile(L"a.txt");
    folder_.AddFolder(L"Tools");
    const auto fill = [this] {
        view_.DrawItem(folder_.Path(), L"All");
        LetIconsCome();
        ASSERT_TRUE(HaveIcons({Root(), Named(Root(), L"a.txt"), Named(Root(), L"Tools")}));
        view_.Clear();
    };
    for (int i = 0; i < 3; ++i) {
        fill();
    }
    const int before = GdiObjects();
    for (int i = 0; i < 20; ++i) {
        fill();
    }
    EXPECT_LT(GdiObjects(), before + 10);
}

} // namespace
