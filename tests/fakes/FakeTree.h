#pragma once

#include "browse/TreeNodes.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <set>
#include <vector>

/// A tree control in memory. Emptied, it uses its node ids again from the first on, as the real one may. What a
/// control would answer with an access violation fails the test.
class FakeTree final : public TreeNodes {
public:
    std::size_t capacity = std::numeric_limits<std::size_t>::max(); ///< nodes; the next one is refused

    [[nodiscard]] WindowId Window() const override { return 4711; }
    void AddStyle(std::uint32_t style) override { style_ |= style; }

    NodeId AddFirst(NodeId parent, const std::wstring& key, const std::wstring& text,
                    const std::wstring& iconPath) override {
        if (parent != 0 && !Exists(parent)) {
            ADD_FAILURE() << "a node is added below one that does not exist";
            return 0;
        }
        if (nodes_.size() >= capacity) {
            return 0;
        }
        const NodeId id = nextId_++;
        nodes_[id] = {key, text, iconPath.empty() ? key : iconPath, {}};
        std::vector<NodeId>& siblings = parent == 0 ? roots_ : nodes_[parent].children;
        siblings.insert(siblings.begin(), id);
        addedWhileDrawn_ += drawn_ ? 1U : 0U;
        return id;
    }
    NodeId AddPlaceholder(NodeId parent, const std::wstring& key, const std::wstring& text) override {
        const NodeId id = AddFirst(parent, key, text, {});
        placeholders_.insert(id);
        return id;
    }
    [[nodiscard]] bool IsPlaceholder(NodeId node) const override {
        return Require(node) && placeholders_.contains(node);
    }
    void Remove(NodeId node) override {
        if (!Require(node)) {
            return;
        }
        for (const NodeId child : Children(node)) {
            Remove(child);
        }
        std::erase(roots_, node);
        for (auto& [id, other] : nodes_) {
            std::erase(other.children, node);
        }
        nodes_.erase(node);
        placeholders_.erase(node);
    }
    void RemoveAll() override {
        nodes_.clear();
        placeholders_.clear();
        roots_.clear();
        nextId_ = 1;
    }

    [[nodiscard]] NodeId Child(NodeId node) const override {
        return Require(node) && !nodes_.at(node).children.empty() ? nodes_.at(node).children.front() : 0;
    }
    [[nodiscard]] std::wstring Key(NodeId node) const override {
        return Require(node) ? nodes_.at(node).key : std::wstring();
    }
    [[nodiscard]] std::wstring Text(NodeId node) const override {
        return Require(node) ? nodes_.at(node).text : std::wstring();
    }
    [[nodiscard]] std::size_t Count() const override { return nodes_.size(); }

    void EnsureVisible(NodeId node) override {
        if (Require(node)) {
            madeVisible_.push_back(Key(node));
        }
    }
    void Redraw(bool on) override { drawn_ = on; }

    [[nodiscard]] std::uint32_t Style() const { return style_; }
    [[nodiscard]] bool Exists(NodeId node) const { return nodes_.contains(node); }
    [[nodiscard]] bool IsDrawn() const { return drawn_; }
    /// Nodes that were added one by one before the user's eyes.
    [[nodiscard]] std::size_t AddedWhileDrawn() const { return addedWhileDrawn_; }
    /// Keys of the nodes that were scrolled to.
    [[nodiscard]] const std::vector<std::wstring>& MadeVisible() const { return madeVisible_; }

    [[nodiscard]] const std::vector<NodeId>& Roots() const { return roots_; }
    [[nodiscard]] std::vector<NodeId> Children(NodeId node) const {
        return Require(node) ? nodes_.at(node).children : std::vector<NodeId>();
    }
    /// What the node's icon is asked for.
    [[nodiscard]] std::wstring IconPath(NodeId node) const {
        return Require(node) ? nodes_.at(node).iconPath : std::wstring();
    }
    /// The first node with this text, in the order of adding; 0 when there is none.
    [[nodiscard]] NodeId WithText(const std::wstring& text) const {
        return First([&](const Node& node) { return node.text == text; });
    }
    [[nodiscard]] NodeId WithKey(const std::wstring& key) const {
        return First([&](const Node& node) { return node.key == key; });
    }
    [[nodiscard]] std::vector<std::wstring> Texts(NodeId parent) const {
        return Of(parent, [this](NodeId node) { return Text(node); });
    }
    [[nodiscard]] std::vector<std::wstring> Keys(NodeId parent) const {
        return Of(parent, [this](NodeId node) { return Key(node); });
    }

private:
    struct Node {
        std::wstring key;
        std::wstring text;
        std::wstring iconPath;
        std::vector<NodeId> children;
    };

    [[nodiscard]] bool Require(NodeId node) const {
        if (!Exists(node)) {
            ADD_FAILURE() << "there is no such node";
            return false;
        }
        return true;
    }
    template <class Condition> [[nodiscard]] NodeId First(const Condition& fits) const {
        for (const auto& [id, node] : nodes_) {
            if (fits(node)) {
                return id;
            }
        }
        return 0;
    }
    template <class Name>
    [[nodiscard]] std::vector<std::wstring> Of(NodeId parent, const Name& nameOf) const {
        std::vector<std::wstring> names;
        for (const NodeId child : Children(parent)) {
            names.push_back(nameOf(child));
        }
        return names;
    }

    std::map<NodeId, Node> nodes_;
    std::set<NodeId> placeholders_;
    std::vector<NodeId> roots_;
    NodeId nextId_ = 1;
    std::uint32_t style_ = 0;
    bool drawn_ = true;
    std::size_t addedWhileDrawn_ = 0;
    std::vector<std::wstring> madeVisible_;
};
