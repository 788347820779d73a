#pragma once

#include "browse/CTreeView.h"
#include "browse/IconPicture.h"
#include "browse/TreeControl.h"

#include <string>

class CSystemDrive;

/// One tree of a form: the control, what fills it, and what the control tells the form.
class BrowseTree {
public:
    /// `picture`: the form's box for drawing icons. `iconSize` in pixels.
    BrowseTree(HWND tree, IconPicture& picture, const NameOrder& order, const BrowseServices& services,
               const std::wstring& internetShortcutType, int iconSize);

    void SetStartMenu(const std::wstring& path, const std::wstring& text);
    void SetIeFavorites(const std::wstring& path, const std::wstring& text);
    void SetMyComputer(const CSystemDrive& drives, const std::wstring& rootText);

    [[nodiscard]] TreeControl& Control() { return control_; }
    [[nodiscard]] CTreeView& View() { return view_; }

    /// Does one step of what can wait until no event does: opens a node, or else gets an icon. False when there was
    /// nothing to do.
    bool OnIdle();
    /// A notification of this tree's control. The result is what the control wants to know.
    LRESULT OnNotify(NMHDR& header);

private:
    using Expand = bool (CTreeView::*)(NodeId);

    TreeControl control_;
    CTreeView view_;
    Expand expand_ = &CTreeView::Expand;
};
