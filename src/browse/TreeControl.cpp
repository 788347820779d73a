#include "browse/TreeControl.h"

#include "browse/CTreeView.h"

#include <array>
#include <bit>
#include <utility>

namespace {

constexpr UINT kOpenNode = WM_APP + 1;
constexpr UINT kIconsCame = WM_APP + 2;
constexpr UINT kRunLater = WM_APP + 3;
constexpr int kNoImage = -2; // I_IMAGENONE

HTREEITEM ItemOf(NodeId node) {
    return std::bit_cast<HTREEITEM>(node);
}

} // namespace

TreeControl::TreeControl(HWND tree, const ShellIcons& icons)
    : tree_(tree), messages_([this](UINT message) { OnMessage(message); }),
      loader_(icons, messages_.Handle(), kIconsCame) {}

void TreeControl::OnMessage(UINT message) {
    switch (message) {
    case kOpenNode:
        OpenFirst();
        break;
    case kRunLater:
        if (const auto action = std::exchange(later_, nullptr); action) {
            action();
        }
        OpenNext();
        break;
    case kIconsCame:
        ShowIcons();
        break;
    default:
        break;
    }
}

void TreeControl::OpenFirst() {
    // While a folder is being read the others wait; OpenNext comes afterwards.
    if (toOpen_.empty() || (view_ != nullptr && view_->IsExpanding())) {
        return;
    }
    const NodeId node = toOpen_.front();
    toOpen_.pop_front();
    if (Node* data = NodeOf(node); data != nullptr) {
        data->queued = false;
    }
    if (fill_ && fill_(node)) {
        SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, std::bit_cast<LPARAM>(ItemOf(node)));
    }
    OpenNext();
}

void TreeControl::OpenNext() {
    if (!toOpen_.empty()) {
        messages_.Post(kOpenNode);
    }
}

void TreeControl::Show(bool shown) {
    shown_ = shown;
    ShowWindow(tree_, shown ? SW_SHOW : SW_HIDE);
}

void TreeControl::RunLater(std::function<void()> action) {
    later_ = std::move(action);
    messages_.Post(kRunLater);
}

void TreeControl::SetIconSize(int pixels) {
    if (std::exchange(iconSize_, pixels) == pixels) {
        return;
    }
    loader_.Clear();
    const ImageList former = images_.Create(pixels); // until the control has the new one
    SendMessageW(tree_, TVM_SETIMAGELIST, TVSIL_NORMAL, std::bit_cast<LPARAM>(images_.Handle()));
    for (const NodeId node : std::exchange(asked_, {})) {
        AskAgain(node);
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
    later_ = nullptr;
    loader_.Clear();
    asked_.clear();
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

NodeId TreeControl::RootOf(NodeId node) const {
    for (NodeId parent = Next(TVGN_PARENT, node); parent != 0; parent = Next(TVGN_PARENT, node)) {
        node = parent;
    }
    return node;
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

TreeControl::Node* TreeControl::NodeOf(NodeId node) {
    const auto index = IndexOf(node);
    return index ? &data_[*index] : nullptr;
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

void TreeControl::Open(NodeId node) {
    // Later: filling the node works off events, and the control must not be in the middle of one.
    Node* data = NodeOf(node);
    if (data == nullptr || std::exchange(data->queued, true)) {
        return;
    }
    toOpen_.push_back(node);
    OpenNext();
}

void TreeControl::Redraw(bool on) {
    undrawn_ += on ? -1 : 1;
    if (undrawn_ == (on ? 0 : 1)) {
        SendMessageW(tree_, WM_SETREDRAW, on ? TRUE : FALSE, 0);
    }
    if (undrawn_ != 0) {
        return;
    }
    if (shown_) {
        RedrawWindow(tree_, nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
    } else {
        ShowWindow(tree_, SW_HIDE); // drawing and being visible are one for some controls
    }
}

void TreeControl::GiveImage(TVITEMW& item) {
    const auto node = std::bit_cast<NodeId>(item.hItem);
    item.iImage = kNoImage;
    item.iSelectedImage = kNoImage;
    const auto index = static_cast<std::size_t>(item.lParam);
    if (index >= data_.size() || std::exchange(data_[index].asked, true)) {
        return;
    }
    asked_.push_back(node);
    const Node& data = data_[index];
    const NodeId dropped =
        loader_.Ask(node, data.iconPath.empty() ? data.key : data.iconPath, view_->IconFlags());
    if (Node* former = NodeOf(dropped); former != nullptr) {
        former->asked = false; // asks again when it is drawn again
        InvalidateRect(tree_, nullptr, FALSE);
    }
}

void TreeControl::SetImages(NodeId node, int image) {
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = ItemOf(node);
    item.iImage = image;
    item.iSelectedImage = image;
    SendMessageW(tree_, TVM_SETITEMW, 0, std::bit_cast<LPARAM>(&item));
}

void TreeControl::AskAgain(NodeId node) {
    if (Node* data = NodeOf(node); data != nullptr) {
        data->asked = false;
        SetImages(node, I_IMAGECALLBACK);
    }
}

void TreeControl::ShowIcons() {
    for (const IconLoader::Answer& answer : loader_.TakeAnswers()) {
        const int image = view_->ImageOf(answer.info);
        SetImages(answer.node, image < 0 ? kNoImage : image);
    }
}
