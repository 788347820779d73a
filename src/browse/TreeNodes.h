#pragma once

#include "platform/ShellIcons.h"
#include "platform/TopLevelWindows.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// Names a node of a tree; 0 is none (HTREEITEM).
using NodeId = std::uintptr_t;

/// A tree control's nodes. A node has a key, which its user never sees, and a text.
class TreeNodes {
public:
    virtual ~TreeNodes() = default;

    /// The control's window, as owner of what the system may show.
    [[nodiscard]] virtual WindowId Window() const = 0;
    /// Adds bits to the window's style.
    virtual void AddStyle(std::uint32_t style) = 0;

    /// Adds a node as the first child of `parent`, or as the first root for 0: a control would walk along all
    /// its children to append one. The node's icon is that of `iconPath`, asked for when the node is first
    /// drawn; without one it is that of the key. 0 when the control refuses.
    virtual NodeId AddFirst(NodeId parent, const std::wstring& key, const std::wstring& text,
                            const std::wstring& iconPath = {}) = 0;
    /// The only child of a folder that was never opened: it gives the folder its expand mark.
    virtual NodeId AddPlaceholder(NodeId parent, const std::wstring& key, const std::wstring& text) = 0;
    /// Asks the node itself: a file may have the same name.
    [[nodiscard]] virtual bool IsPlaceholder(NodeId node) const = 0;
    virtual void Remove(NodeId node) = 0;
    virtual void RemoveAll() = 0;

    /// The first child; 0 when there is none.
    [[nodiscard]] virtual NodeId Child(NodeId node) const = 0;
    [[nodiscard]] virtual std::wstring Key(NodeId node) const = 0;
    [[nodiscard]] virtual std::wstring Text(NodeId node) const = 0;
    /// Nodes in the whole tree.
    [[nodiscard]] virtual std::size_t Count() const = 0;

    virtual void EnsureVisible(NodeId node) = 0;
    /// Off: what is added shows only when drawing is on again.
    virtual void Redraw(bool on) = 0;
};

/// The images of a tree's nodes, each with the icon number that it was made for. Numbered from 0.
class NodeImages {
public:
    virtual ~NodeImages() = default;

    /// The image with this icon number; -1 when there is none.
    [[nodiscard]] virtual int Find(std::int32_t iconNumber) const = 0;
    /// Adds what the picture box shows. -1 when that is impossible.
    virtual int Add(const PictureBox& picture, std::int32_t iconNumber) = 0;
    virtual void Clear() = 0;
};
