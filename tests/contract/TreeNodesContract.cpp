#include "HiddenForm.h"
#include "Rigs.h"
#include "browse/TreeControl.h"
#include "fakes/FakeTree.h"

#include <gtest/gtest.h>

#include <bit>

namespace {

class FakeRig {
    FakeTree tree_;

public:
    static constexpr const char* kName = "Fake";
    TreeNodes& tree = tree_;

    [[nodiscard]] std::uint32_t Style() const { return tree_.Style(); }
};

class WindowsRig {
    HiddenForm form_;
    HWND window_ = form_.Add(WC_TREEVIEWW, TVS_HASBUTTONS | TVS_LINESATROOT);

public:
    static constexpr const char* kName = "Windows";
    TreeControl control{window_};
    TreeNodes& tree = control;

    [[nodiscard]] std::uint32_t Style() const {
        return static_cast<std::uint32_t>(GetWindowLongPtrW(window_, GWL_STYLE));
    }
    [[nodiscard]] HWND Window() const { return window_; }
    [[nodiscard]] HiddenForm& Form() { return form_; }
};

template <class Rig> class TreeNodesContract : public testing::Test {
protected:
    Rig rig_;
    TreeNodes& tree_ = rig_.tree;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(TreeNodesContract, Rigs, RigName);

TYPED_TEST(TreeNodesContract, ANodeHasItsKeyAndItsText) {
    const NodeId root = this->tree_.AddFirst(0, L"C:\\表示", L"Größe");
    const NodeId child = this->tree_.AddFirst(root, L"C:\\表示\\a.url", L"表示");
    ASSERT_NE(root, 0U);
    ASSERT_NE(child, 0U);
    EXPECT_EQ(this->tree_.Key(root), L"C:\\表示");
    EXPECT_EQ(this->tree_.Text(root), L"Größe");
    EXPECT_EQ(this->tree_.Key(child), L"C:\\表示\\a.url");
    EXPECT_EQ(this->tree_.Text(child), L"表示");
    EXPECT_EQ(this->tree_.Count(), 2U);
}

TYPED_TEST(TreeNodesContract, KeysAndTextsMayBeEmptyOrAsLongAsAPath) {
    const std::wstring text(259, L't');
    const std::wstring key = L"C:" + std::wstring(5'000, L'k') + L'!';
    const NodeId longOnes = this->tree_.AddFirst(0, key, text);
    const NodeId emptyOnes = this->tree_.AddFirst(0, L"", L"");
    EXPECT_EQ(this->tree_.Key(longOnes), key);
    EXPECT_EQ(this->tree_.Text(longOnes), text);
    EXPECT_EQ(this->tree_.Key(emptyOnes), L"");
    EXPECT_EQ(this->tree_.Text(emptyOnes), L"");
}

TYPED_TEST(TreeNodesContract, TwoNodesMayHaveTheSameKey) {
    const NodeId one = this->tree_.AddFirst(0, L"key", L"one");
    const NodeId two = this->tree_.AddFirst(0, L"key", L"two");
    EXPECT_NE(one, two);
    EXPECT_EQ(this->tree_.Text(one), L"one");
    EXPECT_EQ(this->tree_.Text(two), L"two");
}

TYPED_TEST(TreeNodesContract, EachChildStandsInFrontOfThoseBefore) {
    const NodeId root = this->tree_.AddFirst(0, L"root", L"root");
    EXPECT_EQ(this->tree_.Child(root), 0U);
    const NodeId a = this->tree_.AddFirst(root, L"a", L"a");
    const NodeId z = this->tree_.AddFirst(root, L"z", L"z");
    EXPECT_EQ(this->tree_.Child(root), z);
    this->tree_.Remove(z);
    EXPECT_EQ(this->tree_.Child(root), a);
    EXPECT_EQ(this->tree_.Child(a), 0U);
}

TYPED_TEST(TreeNodesContract, APlaceholderIsKnownByItselfAndNotByItsText) {
    const NodeId folder = this->tree_.AddFirst(0, L"folder", L"folder");
    const NodeId placeholder = this->tree_.AddPlaceholder(folder, L"folder\\mark", L"mark");
    EXPECT_EQ(this->tree_.Child(folder), placeholder);
    EXPECT_EQ(this->tree_.Text(placeholder), L"mark");
    EXPECT_TRUE(this->tree_.IsPlaceholder(placeholder));
    this->tree_.Remove(placeholder);
    const NodeId file = this->tree_.AddFirst(folder, L"folder\\mark", L"mark");
    EXPECT_FALSE(this->tree_.IsPlaceholder(file));
    EXPECT_FALSE(this->tree_.IsPlaceholder(folder));
}

TYPED_TEST(TreeNodesContract, ANodeGoesWithAllBelowIt) {
    const NodeId root = this->tree_.AddFirst(0, L"root", L"root");
    const NodeId folder = this->tree_.AddFirst(root, L"folder", L"folder");
    this->tree_.AddFirst(this->tree_.AddFirst(folder, L"deep", L"deep"), L"deeper", L"deeper");
    const NodeId last = this->tree_.AddFirst(root, L"last", L"last");
    EXPECT_EQ(this->tree_.Count(), 5U);
    this->tree_.Remove(folder);
    EXPECT_EQ(this->tree_.Count(), 2U);
    EXPECT_EQ(this->tree_.Child(root), last);
    EXPECT_EQ(this->tree_.Key(last), L"last");
}

TYPED_TEST(TreeNodesContract, EmptiedItCanBeFilledAgain) {
    for (int round = 0; round < 3; ++round) {
        const NodeId root = this->tree_.AddFirst(0, L"root", L"root");
        this->tree_.AddFirst(root, L"child", L"child");
        EXPECT_EQ(this->tree_.Count(), 2U);
        EXPECT_EQ(this->tree_.Key(this->tree_.Child(root)), L"child");
        this->tree_.RemoveAll();
        EXPECT_EQ(this->tree_.Count(), 0U);
    }
    this->tree_.RemoveAll();
    EXPECT_EQ(this->tree_.Count(), 0U);
}

TYPED_TEST(TreeNodesContract, NodesMayBeAddedUndrawn) {
    this->tree_.Redraw(false);
    const NodeId root = this->tree_.AddFirst(0, L"root", L"root");
    this->tree_.AddFirst(root, L"child", L"child");
    this->tree_.Redraw(true);
    EXPECT_EQ(this->tree_.Count(), 2U);
}

TYPED_TEST(TreeNodesContract, StylesAreAdded) {
    const std::uint32_t before = this->rig_.Style();
    this->tree_.AddStyle(0x20);
    this->tree_.AddStyle(0x80);
    EXPECT_EQ(this->rig_.Style(), before | 0xA0);
}

class WindowsTreeNodes : public testing::Test {
protected:
    [[nodiscard]] bool IsExpanded(NodeId node) const {
        return (SendMessageW(rig_.Window(), TVM_GETITEMSTATE, node, TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
    }
    [[nodiscard]] NodeId Next(UINT which, NodeId node) const {
        return static_cast<NodeId>(
            SendMessageW(rig_.Window(), TVM_GETNEXTITEM, which, static_cast<LPARAM>(node)));
    }

    WindowsRig rig_;
    TreeControl& tree_ = rig_.control;
    TreeNodes& nodes_ = tree_;
};

TEST_F(WindowsTreeNodes, TheWindowIsTheControls) {
    EXPECT_EQ(tree_.Window(), std::bit_cast<WindowId>(rig_.Window()));
}

TEST_F(WindowsTreeNodes, MakingANodeVisibleOpensWhatIsAboveIt) {
    const NodeId root = nodes_.AddFirst(0, L"root", L"root");
    const NodeId child = nodes_.AddFirst(root, L"child", L"child");
    EXPECT_FALSE(IsExpanded(root));
    tree_.EnsureVisible(child);
    EXPECT_TRUE(IsExpanded(root));
}

TEST_F(WindowsTreeNodes, ASelectedNodeIsToldAndSoIsItsRoot) {
    EXPECT_EQ(tree_.Selected(), 0U);
    nodes_.AddFirst(0, L"other", L"other");
    const NodeId root = nodes_.AddFirst(0, L"root", L"root");
    const NodeId deep = nodes_.AddFirst(nodes_.AddFirst(root, L"child", L"child"), L"deep", L"deep");
    SendMessageW(rig_.Window(), TVM_SELECTITEM, TVGN_CARET, static_cast<LPARAM>(deep));
    EXPECT_EQ(tree_.Selected(), deep);
    EXPECT_FALSE(tree_.IsRoot(deep));
    EXPECT_TRUE(tree_.IsRoot(root));
    tree_.RemoveAll();
    EXPECT_EQ(tree_.Selected(), 0U);
}

TEST_F(WindowsTreeNodes, NoNodeHasNoKeyAndNoText) {
    nodes_.AddFirst(0, L"root", L"root");
    EXPECT_EQ(tree_.Key(0), L"");
    EXPECT_EQ(tree_.Text(0), L"");
}

TEST_F(WindowsTreeNodes, ThousandsOfNodesKeepTheirKeys) {
    const NodeId root = nodes_.AddFirst(0, L"root", L"root");
    constexpr int kNodes = 5'000;
    for (int i = 0; i < kNodes; ++i) {
        ASSERT_NE(nodes_.AddFirst(root, L"key " + std::to_wstring(i), std::to_wstring(i)), 0U);
    }
    EXPECT_EQ(tree_.Count(), kNodes + 1U);
    int i = kNodes;
    for (NodeId node = tree_.Child(root); node != 0; node = Next(TVGN_NEXT, node)) {
        --i;
        ASSERT_EQ(tree_.Key(node), L"key " + std::to_wstring(i));
        ASSERT_EQ(tree_.Text(node), std::to_wstring(i));
    }
    EXPECT_EQ(i, 0);
}

TEST_F(WindowsTreeNodes, NodesToBeOpenedWaitInTheirOrder) {
    const NodeId root = nodes_.AddFirst(0, L"root", L"root");
    const NodeId child = nodes_.AddFirst(root, L"child", L"child");
    EXPECT_EQ(tree_.TakeNextToOpen(), 0U);
    tree_.OpenLater(child);
    tree_.OpenLater(root);
    EXPECT_EQ(tree_.TakeNextToOpen(), child);
    EXPECT_EQ(tree_.TakeNextToOpen(), root);
    EXPECT_EQ(tree_.TakeNextToOpen(), 0U);
    tree_.Expand(root);
    EXPECT_TRUE(IsExpanded(root));
}

TEST_F(WindowsTreeNodes, ANodeThatGoesIsNotOpened) {
    tree_.OpenLater(nodes_.AddFirst(0, L"root", L"root"));
    tree_.RemoveAll();
    EXPECT_EQ(tree_.TakeNextToOpen(), 0U);
}

TEST_F(WindowsTreeNodes, AHiddenTreeStaysHiddenWhenItIsFilled) {
    tree_.Show(false);
    nodes_.Redraw(false);
    nodes_.AddFirst(0, L"root", L"root");
    nodes_.Redraw(true);
    EXPECT_EQ(GetWindowLongPtrW(rig_.Window(), GWL_STYLE) & WS_VISIBLE, 0);
    tree_.Show(true);
    nodes_.Redraw(false);
    nodes_.Redraw(true);
    EXPECT_NE(GetWindowLongPtrW(rig_.Window(), GWL_STYLE) & WS_VISIBLE, 0);
}

} // namespace
