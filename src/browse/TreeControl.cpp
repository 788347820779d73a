#include "browse/TreeControl.h"

#include <array>
#include <bit>
#include <cstring>
#include <utility>

namespace {

HTREEITEM ItemOf(NodeId node) {
    return std::bit_cast<HTREEITEM>(node);
}

} // namespace

void TreeControl::Show(bool shown) {
    shown_ = shown;
    ShowWindow(tree_, shown ? SW_SHOW : SW_HIDE);
}

NodeId TreeControl::TakeNextToOpen() {
    if (toOpen_.empty()) {
        return 0;
    }
    const NodeId node = toOpen_.front();
    toOpen_.pop_front();
    return node;
}

void TreeControl::Expand(NodeId node) const {
    SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, std::bit_cast<LPARAM>(ItemOf(node)));
}

void TreeControl::SetIconSize(int pixels) {
    if (std::exchange(iconSize_, pixels) == pixels) {
        return;
    }
    const ImageList former = images_.Create(pixels); // until the control has the new one
    SendMessageW(tree_, TVM_SETIMAGELIST, TVSIL_NORMAL, std::bit_cast<LPARAM>(images_.Handle()));
    for (Node& node : data_) {
        node.image = kNeverAsked;
    }
}

void TreeControl::AddStyle(std::uint32_t style) {
    const auto former = static_cast<DWORD>(GetWindowLongPtrW(tree_, GWL_STYLE));
    SetWindowLongPtrW(tree_, GWL_STYLE, static_cast<LONG_PTR>(former | style));
}

NodeId TreeControl::Insert(NodeId parent, Node data, const std::wstring& text) {
    std::wstring shown = text; // the control's structure is not const
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent == 0 ? TVI_ROOT : ItemOf(parent);
    insert.hInsertAfter = TVI_FIRST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insert.item.pszText = shown.data();
    insert.item.iImage = I_IMAGECALLBACK;
    insert.item.iSelectedImage = I_IMAGECALLBACK;
    insert.item.lParam = static_cast<LPARAM>(data_.size());
    data_.push_back(std::move(data));
    return static_cast<NodeId>(SendMessageW(tree_, TVM_INSERTITEMW, 0, std::bit_cast<LPARAM>(&insert)));
}

NodeId TreeControl::AddFirst(NodeId parent, const std::wstring& key, const std::wstring& text,
                             const std::wstring& iconPath) {
    return Insert(parent, {.key = key, .iconPath = iconPath}, text);
}

NodeId TreeControl::AddPlaceholder(NodeId parent, const std::wstring& key, const std::wstring& text) {
    return Insert(parent, {.key = key, .iconPath = {}, .placeholder = true}, text);
}

bool TreeControl::IsPlaceholder(NodeId node) const {
    const Node* data = NodeOf(node);
    return data != nullptr && data->placeholder;
}

void TreeControl::Remove(NodeId node) {
    if (node == 0) {
        return; // the control would take it for all nodes
    }
    SendMessageW(tree_, TVM_DELETEITEM, 0, std::bit_cast<LPARAM>(ItemOf(node)));
}

void TreeControl::RemoveAll() {
    toOpen_.clear();
    Redraw(false);
    // Else the control would select one node after the other while it deletes them.
    SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, 0);
    SendMessageW(tree_, TVM_DELETEITEM, 0, std::bit_cast<LPARAM>(TVI_ROOT));
    Redraw(true);
    data_.clear();
}

NodeId TreeControl::Next(UINT which, NodeId node) const {
    return static_cast<NodeId>(
        SendMessageW(tree_, TVM_GETNEXTITEM, which, std::bit_cast<LPARAM>(ItemOf(node))));
}

std::optional<std::size_t> TreeControl::IndexOf(NodeId node) const {
    TVITEMW item{};
    item.mask = TVIF_PARAM | TVIF_HANDLE;
    item.hItem = ItemOf(node);
    if (node == 0 || SendMessageW(tree_, TVM_GETITEMW, 0, std::bit_cast<LPARAM>(&item)) == FALSE) {
        return std::nullopt;
    }
    const auto index = static_cast<std::size_t>(item.lParam);
    return index < data_.size() ? std::optional(index) : std::nullopt;
}

const TreeControl::Node* TreeControl::NodeOf(NodeId node) const {
    const auto index = IndexOf(node);
    return index ? &data_[*index] : nullptr;
}

std::wstring TreeControl::Key(NodeId node) const {
    const Node* data = NodeOf(node);
    return data == nullptr ? std::wstring() : data->key;
}

std::wstring TreeControl::Text(NodeId node) const {
    std::array<wchar_t, std::size_t{2} * MAX_PATH> text{};
    TVITEMW item{};
    item.mask = TVIF_TEXT | TVIF_HANDLE;
    item.hItem = ItemOf(node);
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    if (node == 0 || SendMessageW(tree_, TVM_GETITEMW, 0, std::bit_cast<LPARAM>(&item)) == FALSE) {
        return {};
    }
    return item.pszText;
}

void TreeControl::SelectForKeyboard() {
    if (GetFocus() == tree_ && Selected() == 0) {
        SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, std::bit_cast<LPARAM>(ItemOf(Next(TVGN_ROOT, 0))));
    }
}

Icon TreeControl::IconOf(NodeId node) const {
    TVITEMW item{};
    item.mask = TVIF_IMAGE | TVIF_HANDLE;
    item.hItem = ItemOf(node);
    if (node == 0 || SendMessageW(tree_, TVM_GETITEMW, 0, std::bit_cast<LPARAM>(&item)) == FALSE ||
        item.iImage < 0) {
        return nullptr;
    }
    return Icon(ImageList_GetIcon(images_.Handle(), item.iImage, ILD_TRANSPARENT));
}

std::size_t TreeControl::Count() const {
    return static_cast<std::size_t>(SendMessageW(tree_, TVM_GETCOUNT, 0, 0));
}

void TreeControl::EnsureVisible(NodeId node) {
    SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, std::bit_cast<LPARAM>(ItemOf(node)));
}

void TreeControl::Redraw(bool on) {
    SendMessageW(tree_, WM_SETREDRAW, on ? TRUE : FALSE, 0);
    if (!on) {
        return;
    }
    if (shown_) {
        RedrawWindow(tree_, nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
    } else {
        ShowWindow(tree_, SW_HIDE); // drawing and being visible are one for some controls
    }
}

NodeId TreeControl::FirstWithoutImage() const {
    // What is cut off at the lower edge is on the screen too.
    LRESULT rows = SendMessageW(tree_, TVM_GETVISIBLECOUNT, 0, 0) + 1;
    for (NodeId node = Next(TVGN_FIRSTVISIBLE, 0); node != 0 && rows > 0; --rows) {
        if (const Node* data = NodeOf(node); data != nullptr && data->image == kNeverAsked) {
            return node;
        }
        node = Next(TVGN_NEXTVISIBLE, node);
    }
    return 0;
}

bool TreeControl::GiveNextImage(const std::function<int(const std::wstring&)>& imageOf) {
    const NodeId node = shown_ ? FirstWithoutImage() : 0;
    const auto index = IndexOf(node);
    if (!index) {
        return false;
    }
    data_[*index].image = kNoImage;
    const std::wstring path = data_[*index].iconPath.empty() ? data_[*index].key : data_[*index].iconPath;
    const int image = imageOf(path);
    // The shell may have worked off an event that emptied the tree, or that has all images asked for anew.
    if (image < 0 || *index >= data_.size() || data_[*index].image != kNoImage) {
        return true;
    }
    data_[*index].image = image;
    RECT row{};
    // The message takes the node in the place where it puts the rectangle.
    std::memcpy(&row, &node, sizeof node);
    if (SendMessageW(tree_, TVM_GETITEMRECT, FALSE, std::bit_cast<LPARAM>(&row)) != FALSE) {
        InvalidateRect(tree_, &row, FALSE);
    }
    return true;
}

void TreeControl::TellImage(TVITEMW& item) const {
    const auto index = static_cast<std::size_t>(item.lParam);
    const int image = index < data_.size() ? data_[index].image : kNoImage;
    item.iImage = image < 0 ? kNoImage : image;
    item.iSelectedImage = item.iImage;
}
