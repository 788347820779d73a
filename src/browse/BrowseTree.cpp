#include "browse/BrowseTree.h"

#include <bit>
#include <utility>

BrowseTree::BrowseTree(HWND tree, IconPicture& picture, std::shared_ptr<const NameOrder> order,
                       const BrowseServices& services, MessagePump& pump,
                       const std::wstring& internetShortcutType, int iconSize)
    : control_(tree, services.icons), view_(services, internetShortcutType), pump_(pump) {
    control_.SetView(view_);
    control_.SetIconSize(iconSize);
    control_.SetFill([this](NodeId node) {
        const MessagePump::SlowWork slow(pump_);
        return (view_.*expand_)(node);
    });
    view_.TreeViewControl(control_);
    view_.PictureBoxControl(picture);
    view_.ImageListControl(control_.Images());
    view_.ListBoxControl(std::move(order));
}

void BrowseTree::SetStartMenu(const std::wstring& path, const std::wstring& text) {
    expand_ = &CTreeView::ExpandStartMenu;
    const MessagePump::SlowWork slow(pump_);
    view_.SetStartMenu(path, text);
    control_.SelectForKeyboard();
}

void BrowseTree::SetIeFavorites(const std::wstring& path, const std::wstring& text) {
    expand_ = &CTreeView::ExpandIeFavorites;
    const MessagePump::SlowWork slow(pump_);
    view_.SetIeFavorites(path, text);
    control_.SelectForKeyboard();
}

void BrowseTree::SetMyComputer(const CSystemDrive& drives, const std::wstring& rootText) {
    expand_ = &CTreeView::Expand;
    const MessagePump::SlowWork slow(pump_);
    view_.SetMyComputer(drives, rootText);
    control_.SelectForKeyboard();
}

void BrowseTree::SetIconSize(int pixels) {
    control_.SetIconSize(pixels);
}

LRESULT BrowseTree::OnNotify(NMHDR& header) {
    switch (header.code) {
    case TVN_ITEMEXPANDINGW: {
        const auto& expanding = *std::bit_cast<const NMTREEVIEWW*>(&header);
        if ((expanding.action & TVE_EXPAND) == 0) {
            return FALSE;
        }
        const auto node = std::bit_cast<NodeId>(expanding.itemNew.hItem);
        if (!view_.IsUnopened(node)) {
            return FALSE;
        }
        control_.Open(node);
        return TRUE; // stays closed until it is filled
    }
    case TVN_GETDISPINFOW:
        control_.GiveImage(std::bit_cast<NMTVDISPINFOW*>(&header)->item);
        return 0;
    default:
        return 0;
    }
}
