#pragma once

#include <cstddef>
#include <string>

/// What a user picks: a node of a tree, or a row of a list.
struct PickedItem {
    enum class Kind { None, Tree, ShortcutKey, MediaCenter };

    Kind kind = Kind::None;
    std::wstring key{};      ///< of a node: the full path
    std::wstring text{};     ///< of a node
    std::wstring rootText{}; ///< of the node's tree
    std::size_t row = 0;     ///< of a list, 0-based
};

/// The command that opens an Internet address.
[[nodiscard]] inline std::wstring BrowserCommand(const std::wstring& address) {
    return L"iexplore.exe|" + address;
}

/// What a file or folder dropped from another program stands for: the tree item of its path.
[[nodiscard]] PickedItem PickedPath(const std::wstring& path);
