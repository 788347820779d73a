#include "BrowseTreeRig.h"

#include <algorithm>
#include <bit>

BrowseTreeTest::BrowseTreeTest()
    : tree_(window_, picture_, order_, {files_, shell_, icons_, pump_}, L"Internet Shortcut", 16) {
    form_.whenIdle = [this] { return tree_.OnIdle(); };
    form_.whenNotified = [this](NMHDR& header) {
        return header.hwndFrom == window_ ? tree_.OnNotify(header) : 0;
    };
}

BrowseTreeTest::~BrowseTreeTest() {
    view_.Clear();
    form_.whenNotified = nullptr; // the window outlives the tree
}

NodeId BrowseTreeTest::Next(UINT which, NodeId node) const {
    return static_cast<NodeId>(SendMessageW(window_, TVM_GETNEXTITEM, which, static_cast<LPARAM>(node)));
}

std::vector<NodeId> BrowseTreeTest::Children(NodeId node) const {
    std::vector<NodeId> children;
    for (NodeId child = Next(TVGN_CHILD, node); child != 0; child = Next(TVGN_NEXT, child)) {
        children.push_back(child);
    }
    return children;
}

std::vector<std::wstring> BrowseTreeTest::Texts(NodeId node) const {
    std::vector<std::wstring> texts;
    for (const NodeId child : Children(node)) {
        texts.push_back(const_cast<BrowseTree&>(tree_).Control().Text(child));
    }
    return texts;
}

std::vector<std::wstring> BrowseTreeTest::Keys(NodeId node) const {
    std::vector<std::wstring> keys;
    for (const NodeId child : Children(node)) {
        keys.push_back(const_cast<BrowseTree&>(tree_).Control().Key(child));
    }
    return keys;
}

NodeId BrowseTreeTest::Named(NodeId parent, const std::wstring& text) const {
    for (const NodeId child : Children(parent)) {
        if (const_cast<BrowseTree&>(tree_).Control().Text(child) == text) {
            return child;
        }
    }
    return 0;
}

std::vector<std::wstring> BrowseTreeTest::Sorted(std::vector<std::wstring> names) const {
    std::stable_sort(names.begin(), names.end(), [this](const std::wstring& a, const std::wstring& b) {
        return order_.SortKey(a) < order_.SortKey(b);
    });
    return names;
}

bool BrowseTreeTest::IsExpanded(NodeId node) const {
    return (SendMessageW(window_, TVM_GETITEMSTATE, node, TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
}

bool BrowseTreeTest::HasMark(NodeId node) const {
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_CHILDREN;
    item.hItem = std::bit_cast<HTREEITEM>(node);
    return SendMessageW(window_, TVM_GETITEMW, 0, std::bit_cast<LPARAM>(&item)) != FALSE &&
           item.cChildren != 0;
}

int BrowseTreeTest::ImageOf(NodeId node) const {
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_IMAGE;
    item.hItem = std::bit_cast<HTREEITEM>(node);
    SendMessageW(window_, TVM_GETITEMW, 0, std::bit_cast<LPARAM>(&item));
    return item.iImage;
}

void BrowseTreeTest::PressToOpen(NodeId node) {
    SendMessageW(window_, TVM_SELECTITEM, TVGN_CARET, static_cast<LPARAM>(node));
    SendMessageW(window_, WM_KEYDOWN, VK_RIGHT, 0);
}

bool BrowseTreeTest::Open(NodeId node) {
    PressToOpen(node);
    return form_.PumpUntil([&] { return !view_.IsUnopened(node); });
}

void BrowseTreeTest::Close(NodeId node) {
    SendMessageW(window_, TVM_EXPAND, TVE_COLLAPSE, static_cast<LPARAM>(node));
}

void BrowseTreeTest::Draw() const {
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 1'000, 1'000);
    const HGDIOBJ former = SelectObject(memory, bitmap);
    SendMessageW(window_, WM_PRINTCLIENT, std::bit_cast<WPARAM>(memory), PRF_CLIENT);
    SelectObject(memory, former);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}
