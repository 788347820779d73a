#include "browse/BrowseTree.h"

#include <bit>

BrowseTree::BrowseTree(HWND tree, IconPicture& picture, const NameOrder& order,
                       const BrowseServices& services, const std::wstring& internetShortcutType, int iconSize)
    : control_(tree), view_(services, internetShortcutType) {
    control_.SetIconSize(iconSize);
    view_.TreeViewControl(control_);
    view_.PictureBoxControl(picture);
    view_.ImageListControl(control_.Images());
    view_.ListBoxControl(order);
}

void BrowseTree::SetStartMenu(const std::wstring& path, const std::wstring& text) {
    expand_ = &CTreeView::ExpandStartMenu;
    view_.SetStartMenu(path, text);
    control_.SelectForKeyboard();
}

void BrowseTree::SetIeFavorites(const std::wstring& path, const std::wstring& text) {
    expand_ = &CTreeView::ExpandIeFavorites;
    view_.SetIeFavorites(path, text);
    control_.SelectForKeyboard();
}

void BrowseTree::SetMyComputer(const CSystemDrive& drives, const std::wstring& rootText) {
    expand_ = &CTreeView::Expand;
    view_.SetMyComputer(drives, rootText);
    control_.SelectForKeyboard();
}

bool BrowseTree::OnIdle() {
    if (const NodeId node = control_.TakeNextToOpen(); node != 0) {
        if ((view_.*expand_)(node)) {
            control_.Expand(node);
        }
        return true;
    }
    return control_.GiveNextImage([this](const std::wstring& path) { return view_.ImageOf(path); });
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
        // Later: reading works off events, and the control must not be in the middle of one.
        control_.OpenLater(node);
        return TRUE;
    }
    case TVN_GETDISPINFOW:
        control_.TellImage(std::bit_cast<NMTVDISPINFOW*>(&header)->item);
        return 0;
    default:
        return 0;
    }
}
