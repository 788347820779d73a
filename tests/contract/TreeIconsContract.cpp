#include "BrowseTreeRig.h"

#include <algorithm>

namespace {

using testing::Contains;
using testing::Each;
using testing::IsEmpty;

/// Icons of a tree's nodes, in a real control.
class TreeIconsTest : public BrowseTreeTest {
protected:
    bool IconsCome(const std::vector<NodeId>& nodes) {
        // Every one is looked at, because looking asks.
        return form_.PumpUntil([&] {
            return std::count_if(nodes.begin(), nodes.end(),
                                 [this](NodeId node) { return ImageOf(node) < 0; }) == 0;
        });
    }
    [[nodiscard]] int Images() { return ImageList_GetImageCount(tree_.Control().Images().Handle()); }
};

TEST_F(TreeIconsTest, NothingIsAskedBeforeItIsDrawn) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    form_.Pump();
    EXPECT_THAT(icons_.Asked(), IsEmpty());
    Draw();
    EXPECT_TRUE(IconsCome({Root(), Named(Root(), L"a.txt")}));
    EXPECT_THAT(icons_.Asked(), Contains(folder_.Path() + L'\\'));
    EXPECT_THAT(icons_.Asked(), Contains(folder_.Path(L"a.txt")));
}

TEST_F(TreeIconsTest, TheTreeIsDrawnBeforeTheShellAnswers) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    icons_.gate.Close();
    Draw();
    form_.Pump();
    EXPECT_LT(ImageOf(Root()), 0);
    EXPECT_LT(ImageOf(Named(Root(), L"a.txt")), 0);
    icons_.gate.Open();
    EXPECT_TRUE(IconsCome({Root(), Named(Root(), L"a.txt")}));
}

TEST_F(TreeIconsTest, FilesOfOneTypeShareAnImageAndAFolderHasAnother) {
    folder_.AddFolder(L"Tools");
    folder_.AddFile(L"a.txt");
    folder_.AddFile(L"b.txt");
    view_.DrawItem(folder_.Path(), L"All");
    Draw();
    const NodeId tools = Named(Root(), L"Tools");
    const NodeId a = Named(Root(), L"a.txt");
    const NodeId b = Named(Root(), L"b.txt");
    ASSERT_TRUE(IconsCome({tools, a, b, Root()}));
    EXPECT_EQ(ImageOf(a), ImageOf(b));
    EXPECT_NE(ImageOf(a), ImageOf(tools));
    EXPECT_LE(Images(), 3);
    EXPECT_EQ(view_.ImageOf(folder_.Path(L"a.txt")), ImageOf(a));
}

TEST_F(TreeIconsTest, AFileThatIsGoneHasAnIconAllTheSame) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    ASSERT_NE(DeleteFileW(folder_.Path(L"a.txt").c_str()), FALSE);
    Draw();
    EXPECT_TRUE(IconsCome({Named(Root(), L"a.txt")}));
}

TEST_F(TreeIconsTest, ANodeIsAskedForOnce) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    for (int i = 0; i < 5; ++i) {
        Draw();
        ASSERT_TRUE(IconsCome({Root(), Named(Root(), L"a.txt")}));
    }
    const auto asked = icons_.Asked();
    // Twice where the shell refuses the flags at first.
    EXPECT_LE(std::count(asked.begin(), asked.end(), folder_.Path(L"a.txt")), 2);
}

TEST_F(TreeIconsTest, AnotherSizeAsksAgain) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    Draw();
    ASSERT_TRUE(IconsCome({Root(), Named(Root(), L"a.txt")}));
    const std::size_t asked = icons_.Asked().size();
    picture_.SetIconSize(32);
    tree_.SetIconSize(32);
    EXPECT_EQ(Images(), 0);
    const auto list = static_cast<std::size_t>(SendMessageW(window_, TVM_GETIMAGELIST, TVSIL_NORMAL, 0));
    EXPECT_EQ(list, reinterpret_cast<std::size_t>(tree_.Control().Images().Handle()));
    int width = 0;
    int height = 0;
    ASSERT_NE(ImageList_GetIconSize(tree_.Control().Images().Handle(), &width, &height), FALSE);
    EXPECT_EQ(width, 32);
    EXPECT_EQ(height, 32);
    Draw();
    EXPECT_TRUE(IconsCome({Root(), Named(Root(), L"a.txt")}));
    EXPECT_GT(icons_.Asked().size(), asked);
    EXPECT_GT(Images(), 0);
}

TEST_F(TreeIconsTest, AnswersForATreeThatIsGoneAreDropped) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    icons_.gate.Close();
    Draw();
    ASSERT_TRUE(WaitUntil([this] { return icons_.gate.Waited() > 0; }));
    view_.DrawItem(folder_.Path(), L"Again");
    icons_.gate.Open();
    ASSERT_TRUE(form_.PumpUntil([] { return !WorkersRun(); }));
    form_.Pump();
    EXPECT_EQ(Images(), 0);
    Draw();
    EXPECT_TRUE(IconsCome({Root(), Named(Root(), L"a.txt")}));
}

TEST_F(TreeIconsTest, MoreNodesThanAreAskedForAtOnceAllGetTheirIcons) {
    for (int i = 0; i < 300; ++i) {
        folder_.AddFile(std::to_wstring(i) + L".txt", "");
    }
    view_.DrawItem(folder_.Path(), L"All");
    const auto nodes = Children(Root());
    ASSERT_EQ(nodes.size(), 300U);
    icons_.gate.Close();
    for (const NodeId node : nodes) {
        (void)ImageOf(node); // asks, as drawing does
    }
    icons_.gate.Open();
    EXPECT_TRUE(IconsCome(nodes));
    EXPECT_EQ(ImageOf(nodes.front()), ImageOf(nodes.back()));
}

TEST_F(TreeIconsTest, FillingAndClearingHoldsNoMoreObjects) {
    folder_.AddFile(L"a.txt");
    folder_.AddFolder(L"Tools");
    const auto fill = [this] {
        view_.DrawItem(folder_.Path(), L"All");
        Draw();
        ASSERT_TRUE(IconsCome({Root(), Named(Root(), L"a.txt"), Named(Root(), L"Tools")}));
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
