#pragma once

#include "dialogs/register/ProgramSources.h"
#include "settings/Pattern.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

class FileSystem;

/// What a user picks from a source: a node of a tree, or a row of a list.
struct PickedItem {
    ProgramSource source;
    std::wstring command;       ///< a node's key, which is its full path; of a row, what it starts
    std::wstring name;          ///< a node's text; a key's name, a Media Center item's title
    std::wstring displayName{}; ///< of a Media Center item: what its button is called
    bool root = false;          ///< of a tree
};

/// What the rules for picked items ask about things outside.
struct PickedItemServices {
    const ProgramSources& sources;
    const FileSystem& files;
    /// The address in an Internet shortcut file.
    std::function<std::wstring(const std::wstring& file)> addressOf;
};

/// A list's row, 0-based. Nothing for one that another program put into the list.
[[nodiscard]] std::optional<PickedItem> PickedRow(const ProgramSources& sources, ProgramSource list,
                                                  std::size_t row);
/// What a file or folder dropped from another program stands for: the same in the tree of all files.
[[nodiscard]] PickedItem PickedPath(const std::wstring& path);

/// An Internet shortcut among the favourites.
[[nodiscard]] bool IsFavorite(const PickedItem& item);
/// False for a tree's node that only leads to programs: the root of all files, and whatever is no Internet
/// shortcut among the favourites.
[[nodiscard]] bool IsProgram(const PickedItem& item);
/// As a button keeps it. Asks for a favourite's address.
[[nodiscard]] ProgramEntry ProgramOf(const PickedItem& item, const PickedItemServices& services);
/// What a button's program is called: a file without its extension. Asks the file system.
[[nodiscard]] std::wstring NameOf(const PickedItem& item, const FileSystem& files);
