#pragma once

#include "browse/IconPicture.h"
#include "browse/NodeImageList.h"
#include "browse/TreeNodes.h"

#include <windows.h>

#include <commctrl.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A SysTreeView32 as the nodes of a CTreeView, with what it still has to do when no event waits: nodes to open,
/// and icons to ask for.
class TreeControl final : public TreeNodes {
public:
    explicit TreeControl(HWND tree) : tree_(tree) {}

    /// As ShowWindow: a tree that is filled must not appear by itself.
    void Show(bool shown);
    [[nodiscard]] bool IsShown() const { return shown_; }
    /// What a screen reader calls the tree.
    void SetName(const std::wstring& name) { SetWindowTextW(tree_, name.c_str()); }

    /// A node to be opened as soon as its folder is read.
    void OpenLater(NodeId node) { toOpen_.push_back(node); }
    /// The first of them, which is one no longer; 0 when there is none.
    [[nodiscard]] NodeId TakeNextToOpen();
    /// As a click on the node's mark does.
    void Expand(NodeId node) const;

    /// For square icons; all nodes have none again.
    void SetIconSize(int pixels);
    [[nodiscard]] NodeImageList& Images() { return images_; }
    /// Gives an image to the first row on the screen that was never asked for one. `imageOf`: the image of a path,
    /// negative for none. False when there is no such row.
    bool GiveNextImage(const std::function<int(const std::wstring&)>& imageOf);
    /// TVN_GETDISPINFO.
    void TellImage(TVITEMW& item) const;

    /// Selects the root, as the control does by itself when the keyboard comes to a filled tree.
    void SelectForKeyboard();

    /// The node's icon; null when it has none, or none yet.
    [[nodiscard]] Icon IconOf(NodeId node) const;

    [[nodiscard]] NodeId Selected() const { return Next(TVGN_CARET, 0); }
    [[nodiscard]] bool IsRoot(NodeId node) const { return Next(TVGN_PARENT, node) == 0; }

    [[nodiscard]] WindowId Window() const override { return reinterpret_cast<WindowId>(tree_); }
    void AddStyle(std::uint32_t style) override;
    NodeId AddFirst(NodeId parent, const std::wstring& key, const std::wstring& text,
                    const std::wstring& iconPath) override;
    NodeId AddPlaceholder(NodeId parent, const std::wstring& key, const std::wstring& text) override;
    [[nodiscard]] bool IsPlaceholder(NodeId node) const override;
    void Remove(NodeId node) override;
    void RemoveAll() override;
    [[nodiscard]] NodeId Child(NodeId node) const override { return Next(TVGN_CHILD, node); }
    [[nodiscard]] std::wstring Key(NodeId node) const override;
    [[nodiscard]] std::wstring Text(NodeId node) const override;
    [[nodiscard]] std::size_t Count() const override;
    void EnsureVisible(NodeId node) override;
    void Redraw(bool on) override;

private:
    struct Node {
        std::wstring key;
        std::wstring iconPath; ///< empty: the key's
        bool placeholder = false;
        int image = kNeverAsked;
    };
    static constexpr int kNoImage = -2; // I_IMAGENONE
    static constexpr int kNeverAsked = -1;

    NodeId Insert(NodeId parent, Node data, const std::wstring& text);
    [[nodiscard]] NodeId Next(UINT which, NodeId node) const;
    [[nodiscard]] const Node* NodeOf(NodeId node) const;
    [[nodiscard]] std::optional<std::size_t> IndexOf(NodeId node) const;
    [[nodiscard]] NodeId FirstWithoutImage() const;

    HWND tree_;
    NodeImageList images_;
    int iconSize_ = 0;
    std::deque<Node> data_; ///< the item's lParam is the index
    std::deque<NodeId> toOpen_;
    bool shown_ = true;
};
