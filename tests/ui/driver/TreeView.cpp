#include "TreeView.h"

#include "Keyboard.h"
#include "Message.h"
#include "RemoteMemory.h"
#include "Wait.h"

#include <commctrl.h>

#include <algorithm>

namespace UiDriver {
namespace {

constexpr int kTextCapacity = 1024;
constexpr int kGapBeforeText = 2; ///< between a node's image and its text

LPARAM ParamOf(HTREEITEM item) {
    return reinterpret_cast<LPARAM>(item);
}

HTREEITEM ItemOf(LPARAM node) {
    return reinterpret_cast<HTREEITEM>(node); // NOLINT(performance-no-int-to-ptr): as the messages have it
}

/// Asks a tree for what its nodes are like, through memory in its process.
class NodeReader {
public:
    explicit NodeReader(HWND tree)
        : tree_(tree), memory_(tree, kTextOffset + kTextCapacity * sizeof(wchar_t)) {}

    /// nullopt when the program has just removed the node.
    [[nodiscard]] std::optional<std::wstring> Text(LPARAM node) const {
        TVITEMW item = Question(node, TVIF_TEXT);
        item.pszText = reinterpret_cast<wchar_t*>(memory_.Address() + kTextOffset);
        item.cchTextMax = kTextCapacity;
        if (!TryAsk(item)) {
            return std::nullopt;
        }
        wchar_t text[kTextCapacity] = L"";
        memory_.Read(kTextOffset, text, sizeof text);
        text[kTextCapacity - 1] = L'\0';
        return text;
    }

    [[nodiscard]] UINT State(LPARAM node) const {
        TVITEMW item = Question(node, TVIF_STATE);
        item.stateMask = TVIS_EXPANDED;
        return Ask(item).state;
    }

    [[nodiscard]] int Image(LPARAM node) const { return Ask(Question(node, TVIF_IMAGE)).iImage; }

private:
    static constexpr std::size_t kTextOffset = sizeof(TVITEMW);

    static TVITEMW Question(LPARAM node, UINT mask) {
        TVITEMW item{};
        item.mask = mask | TVIF_HANDLE;
        item.hItem = ItemOf(node);
        return item;
    }

    [[nodiscard]] bool TryAsk(const TVITEMW& question) const {
        memory_.Write(0, &question, sizeof question);
        return Send(tree_, TVM_GETITEMW, 0, memory_.Param()) != FALSE;
    }

    [[nodiscard]] TVITEMW Ask(const TVITEMW& question) const {
        if (!TryAsk(question)) {
            Fail(Describe(tree_) + L" no longer has a node that it had just now");
        }
        TVITEMW answer{};
        memory_.Read(0, &answer, sizeof answer);
        return answer;
    }

    HWND tree_;
    RemoteMemory memory_;
};

std::wstring Shown(const TreeView::Path& path) {
    std::wstring text;
    for (const std::wstring& part : path) {
        text.append(text.empty() ? L"\"" : L" > \"").append(part).append(L"\"");
    }
    return text;
}

} // namespace

TreeView::Handle TreeView::Next(WPARAM which, Handle node) const {
    return Send(Hwnd(), TVM_GETNEXTITEM, which, node);
}

std::vector<TreeView::Handle> TreeView::Children(Handle node) const {
    std::vector<Handle> children;
    Handle child = node == 0 ? Next(TVGN_ROOT, 0) : Next(TVGN_CHILD, node);
    while (child != 0) {
        children.push_back(child);
        child = Next(TVGN_NEXT, child);
    }
    return children;
}

std::optional<TreeView::Handle> TreeView::Find(const Path& path) const {
    const NodeReader reader(Hwnd());
    Handle node = 0;
    for (const std::wstring& text : path) {
        const std::vector<Handle> children = Children(node);
        const auto found = std::find_if(children.begin(), children.end(),
                                        [&](Handle child) { return reader.Text(child) == text; });
        if (found == children.end()) {
            return std::nullopt;
        }
        node = *found;
    }
    return node;
}

TreeView::Handle TreeView::Require(const Path& path) const {
    const std::optional<Handle> node = Find(path);
    if (!node) {
        Fail(Describe(Hwnd()) + L" has no node " + Shown(path));
    }
    return *node;
}

int TreeView::Count() const {
    return static_cast<int>(Send(Hwnd(), TVM_GETCOUNT));
}

bool TreeView::Has(const Path& node) const {
    return Find(node).has_value();
}

std::vector<std::wstring> TreeView::ChildTexts(const Path& node) const {
    const NodeReader reader(Hwnd());
    std::vector<std::wstring> texts;
    for (const Handle child : Children(Require(node))) {
        if (std::optional<std::wstring> text = reader.Text(child)) {
            texts.push_back(std::move(*text));
        }
    }
    return texts;
}

bool TreeView::HasMark(const Path& node) const {
    return Next(TVGN_CHILD, Require(node)) != 0;
}

bool TreeView::Expanded(const Path& node) const {
    return (NodeReader(Hwnd()).State(Require(node)) & TVIS_EXPANDED) != 0;
}

std::optional<int> TreeView::Image(const Path& node) const {
    const int image = NodeReader(Hwnd()).Image(Require(node));
    return image < 0 ? std::nullopt : std::optional(image);
}

std::optional<TreeView::Path> TreeView::Selected() const {
    Handle node = Next(TVGN_CARET, 0);
    if (node == 0) {
        return std::nullopt;
    }
    const NodeReader reader(Hwnd());
    Path path;
    for (; node != 0; node = Next(TVGN_PARENT, node)) {
        std::optional<std::wstring> text = reader.Text(node);
        if (!text) {
            return std::nullopt;
        }
        path.insert(path.begin(), std::move(*text));
    }
    return path;
}

RECT TreeView::RectIn(Handle node, const Path& path) const {
    const RemoteMemory memory(Hwnd(), sizeof(RECT));
    // The node goes in where the answer comes out.
    memory.Write(0, &node, sizeof node);
    if (!Send(Hwnd(), TVM_GETITEMRECT, TRUE, memory.Param())) {
        Fail(L"the node " + Shown(path) + L" lies in a closed one");
    }
    RECT rect{};
    memory.Read(0, &rect, sizeof rect);
    return rect;
}

bool TreeView::InView(const Path& node) const {
    RECT client{};
    GetClientRect(Hwnd(), &client);
    const RECT rect = RectIn(Require(node), node);
    return rect.left >= client.left && rect.top >= client.top && rect.right <= client.right &&
           rect.bottom <= client.bottom;
}

RECT TreeView::NodeRect(const Path& node) const {
    const Handle handle = Require(node);
    Send(Hwnd(), TVM_ENSUREVISIBLE, 0, handle);
    RECT rect = RectIn(handle, node);
    MapWindowPoints(Hwnd(), nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

RECT TreeView::ImageRect(const Path& node) const {
    const RECT text = NodeRect(node);
    const int size = GetSystemMetrics(SM_CXSMICON);
    const LONG right = text.left - kGapBeforeText;
    const LONG top = (text.top + text.bottom - size) / 2;
    return {right - size, top, right, top + size};
}

POINT TreeView::NodeCentre(const Path& node) const {
    const RECT rect = NodeRect(node);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

void TreeView::Expand(const Path& node) const {
    Send(Hwnd(), TVM_EXPAND, TVE_EXPAND, Require(node));
}

void TreeView::Collapse(const Path& node) const {
    Send(Hwnd(), TVM_EXPAND, TVE_COLLAPSE, Require(node));
}

void TreeView::Select(const Path& node) const {
    Send(Hwnd(), TVM_SELECTITEM, TVGN_CARET, Require(node));
}

void TreeView::ClickNode(const Path& node) const {
    const POINT point = NodeCentre(node);
    RequireReachable(point);
    Mouse::Click(point);
    WaitUntil([&] { return Selected() == node; }, L"the node " + Shown(node) + L" to be selected");
}

void TreeView::RightClickNode(const Path& node) const {
    const POINT point = NodeCentre(node);
    RequireReachable(point);
    Mouse::Click(point, MouseButton::Right);
}

void TreeView::DoubleClickNode(const Path& node) const {
    const POINT point = NodeCentre(node);
    RequireReachable(point);
    Mouse::DoubleClick(point);
}

POINT TreeView::MarkOf(Handle node, const Path& path) const {
    const RECT text = RectIn(node, path);
    const RemoteMemory memory(Hwnd(), sizeof(TVHITTESTINFO));
    LONG first = -1;
    LONG last = -1;
    const LONG y = (text.top + text.bottom) / 2;
    for (LONG x = text.left; x >= 0; --x) {
        TVHITTESTINFO hit{};
        hit.pt = {x, y};
        memory.Write(0, &hit, sizeof hit);
        Send(Hwnd(), TVM_HITTEST, 0, memory.Param());
        memory.Read(0, &hit, sizeof hit);
        if (ParamOf(hit.hItem) == node && (hit.flags & TVHT_ONITEMBUTTON) != 0) {
            last = std::max(last, x);
            first = x;
        } else if (last >= 0) {
            break;
        }
    }
    if (last < 0) {
        Fail(L"the node " + Shown(path) + L" has no mark");
    }
    POINT mark{(first + last) / 2, y};
    ClientToScreen(Hwnd(), &mark);
    return mark;
}

void TreeView::ClickMark(const Path& node) const {
    const Handle handle = Require(node);
    Send(Hwnd(), TVM_ENSUREVISIBLE, 0, handle);
    const POINT point = MarkOf(handle, node);
    RequireReachable(point);
    Mouse::Click(point);
}

void TreeView::PressOn(const Path& node, WORD key) const {
    Focus();
    Select(node);
    Keyboard::Press(key);
}

void TreeView::WaitForNode(const Path& node, Milliseconds timeout) const {
    WaitUntil([&] { return Has(node); }, L"the node " + Shown(node), timeout);
}

void TreeView::WaitForChildren(const Path& node, const std::vector<std::wstring>& texts,
                               Milliseconds timeout) const {
    WaitUntil([&] { return Has(node) && ChildTexts(node) == texts; },
              L"the node " + Shown(node) + L" to hold " + Shown(texts), timeout);
}

void TreeView::WaitUntilExpanded(const Path& node, Milliseconds timeout) const {
    WaitUntil([&] { return Expanded(node); }, L"the node " + Shown(node) + L" to be open", timeout);
}

void TreeView::WaitUntilCollapsed(const Path& node, Milliseconds timeout) const {
    WaitUntil([&] { return !Expanded(node); }, L"the node " + Shown(node) + L" to be closed", timeout);
}

} // namespace UiDriver
