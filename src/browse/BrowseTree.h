#pragma once

#include "browse/CTreeView.h"
#include "browse/IconPicture.h"
#include "browse/TreeControl.h"
#include "ui/MessagePump.h"

#include <memory>
#include <string>

class CSystemDrive;

/// One tree of a form: the control, what fills it, and what the control tells the form.
class BrowseTree {
public:
    /// `picture`: the form's box for drawing icons. `iconSize` in pixels.
    BrowseTree(HWND tree, IconPicture& picture, std::shared_ptr<const NameOrder> order,
               const BrowseServices& services, MessagePump& pump, const std::wstring& internetShortcutType,
               int iconSize);

    void SetStartMenu(const std::wstring& path, const std::wstring& text);
    void SetIeFavorites(const std::wstring& path, const std::wstring& text);
    void SetMyComputer(const CSystemDrive& drives, const std::wstring& rootText);

    [[nodiscard]] TreeControl& Control() { return control_; }
    [[nodiscard]] CTreeView& View() { return view_; }
    void SetIconSize(int pixels);

    /// A notification of this tree's control. The result is what the control wants to know.
    LRESULT OnNotify(NMHDR& header);

private:
    using Expand = bool (CTreeView::*)(NodeId);

    TreeControl control_;
    CTreeView view_;
    MessagePump& pump_;
    Expand expand_ = &CTreeView::Expand;
};
