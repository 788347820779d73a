#pragma once

#include "Control.h"
#include "Wait.h"

#include <optional>
#include <string>
#include <vector>

namespace UiDriver {

/// A tree view.
class TreeView : public Control {
public:
    using Control::Control;

    /// A node: its text and those of all nodes above it, from the root down. An empty path stands above the
    /// roots.
    using Path = std::vector<std::wstring>;

    /// Of all nodes, also in closed ones.
    [[nodiscard]] int Count() const;
    [[nodiscard]] bool Has(const Path& node) const;

    /// From top to bottom; those of a closed node too. Like all below, it fails when there is no such node.
    [[nodiscard]] std::vector<std::wstring> ChildTexts(const Path& node) const;

    /// Whether there is something below, which is when the tree shows the mark.
    [[nodiscard]] bool HasMark(const Path& node) const;
    [[nodiscard]] bool Expanded(const Path& node) const;

    /// Index in the tree's image list, or nullopt when the node has no image. A program that gives images out
    /// only when they are asked for takes this for such a question.
    [[nodiscard]] std::optional<int> Image(const Path& node) const;

    [[nodiscard]] std::optional<Path> Selected() const;

    /// Whether all of the node's text is in the part of the tree that is scrolled into view.
    [[nodiscard]] bool InView(const Path& node) const;

    /// The node's text, and the place of its image, in screen pixels, after scrolling it into view.
    [[nodiscard]] RECT NodeRect(const Path& node) const;
    [[nodiscard]] RECT ImageRect(const Path& node) const;
    [[nodiscard]] POINT NodeCentre(const Path& node) const;

    /// By message. The node may be open or closed only later: see the waits below.
    void Expand(const Path& node) const;
    void Collapse(const Path& node) const;
    void Select(const Path& node) const;

    /// With the real mouse. A click waits until the node is selected; the mark opens and closes.
    void ClickNode(const Path& node) const;
    void RightClickNode(const Path& node) const;
    void DoubleClickNode(const Path& node) const;
    void ClickMark(const Path& node) const;

    /// Selects the node and presses a real key on it: VK_RIGHT opens, VK_LEFT closes.
    void PressOn(const Path& node, WORD key) const;

    void WaitForNode(const Path& node, Milliseconds timeout = kDefaultTimeout) const;
    void WaitForChildren(const Path& node, const std::vector<std::wstring>& texts,
                         Milliseconds timeout = kDefaultTimeout) const;
    void WaitUntilExpanded(const Path& node, Milliseconds timeout = kDefaultTimeout) const;
    void WaitUntilCollapsed(const Path& node, Milliseconds timeout = kDefaultTimeout) const;

private:
    /// What the system's messages call a node; good for as long as it is in the tree.
    using Handle = LPARAM;

    [[nodiscard]] Handle Next(WPARAM which, Handle node) const;
    [[nodiscard]] std::vector<Handle> Children(Handle node) const;
    [[nodiscard]] std::optional<Handle> Find(const Path& path) const;
    [[nodiscard]] Handle Require(const Path& path) const;
    [[nodiscard]] POINT MarkOf(Handle node, const Path& path) const;
    [[nodiscard]] RECT RectIn(Handle node, const Path& path) const;
};

} // namespace UiDriver
