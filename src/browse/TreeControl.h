#pragma once

#include "browse/IconLoader.h"
#include "browse/IconPicture.h"
#include "browse/NodeImageList.h"
#include "browse/TreeNodes.h"
#include "ui/MessageWindow.h"

#include <windows.h>

#include <commctrl.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class CTreeView;

/// A SysTreeView32 as the nodes of a CTreeView. A node's icon is asked for when the node is first drawn, and
/// shown when the shell has answered.
class TreeControl final : public TreeNodes {
public:
    TreeControl(HWND tree, const ShellIcons& icons);

    /// As ShowWindow: a tree that is filled must not appear by itself.
    void Show(bool shown);
    /// What a screen reader calls the tree.
    void SetName(const std::wstring& name) { SetWindowTextW(tree_, name.c_str()); }

    /// Turns the shell's answers into images.
    void SetView(CTreeView& view) { view_ = &view; }
    /// Does something when the messages that wait now are worked off.
    void RunLater(std::function<void()> action);

    /// Fills a node that is to be opened; false keeps it closed.
    void SetFill(std::function<bool(NodeId)> fill) { fill_ = std::move(fill); }
    /// For square icons; all nodes ask again.
    void SetIconSize(int pixels);
    [[nodiscard]] NodeImageList& Images() { return images_; }

    /// TVN_GETDISPINFO.
    void GiveImage(TVITEMW& item);

    /// Selects the root, as the control does by itself when the keyboard comes to a filled tree.
    void SelectForKeyboard();

    /// The node's icon, as far as the shell has answered; null otherwise.
    [[nodiscard]] Icon IconOf(NodeId node) const;

    [[nodiscard]] NodeId Selected() const { return Next(TVGN_CARET, 0); }
    /// The node's topmost ancestor, or itself.
    [[nodiscard]] NodeId RootOf(NodeId node) const;

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
    void Open(NodeId node) override;
    void Redraw(bool on) override;

private:
    struct Node {
        std::wstring key;
        std::wstring iconPath; ///< empty: the key's
        bool placeholder = false;
        bool asked = false;  ///< for its icon
        bool queued = false; ///< in toOpen_
    };

    void OnMessage(UINT message);
    NodeId Insert(NodeId parent, Node data, const std::wstring& text);
    [[nodiscard]] NodeId Next(UINT which, NodeId node) const;
    [[nodiscard]] Node* NodeOf(NodeId node);
    [[nodiscard]] const Node* NodeOf(NodeId node) const;
    [[nodiscard]] std::optional<std::size_t> IndexOf(NodeId node) const;
    void SetImages(NodeId node, int image);
    void AskAgain(NodeId node);
    void OpenFirst();
    void OpenNext();
    void ShowIcons();

    HWND tree_;
    CTreeView* view_ = nullptr;
    NodeImageList images_;
    MessageWindow messages_;
    int iconSize_ = 0;
    IconLoader loader_;
    std::deque<Node> data_;     ///< the item's lParam is the index
    std::vector<NodeId> asked_; ///< whose icons were asked for
    std::function<bool(NodeId)> fill_;
    std::function<void()> later_;
    std::deque<NodeId> toOpen_;
    int undrawn_ = 0;
    bool shown_ = true;
};
