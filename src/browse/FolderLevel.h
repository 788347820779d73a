#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class FileSystem;
class NameOrder;
class PendingEvents;

struct LevelEntry {
    std::string sortKey;
    std::wstring name;
    std::size_t place = 0; ///< in FolderLevel::places
};

/// One level of a tree: what a folder holds, or two folders that are shown as one.
struct FolderLevel {
    std::vector<std::wstring> places; ///< the folders, without trailing "\"
    std::vector<LevelEntry> folders;  ///< sorted
    std::vector<LevelEntry> files;    ///< sorted

    [[nodiscard]] std::wstring PathOf(const LevelEntry& entry) const {
        return places[entry.place] + L'\\' + entry.name;
    }
};

/// A name that several places have appears once, from the first of them. Nothing when an event made the level
/// unwanted.
[[nodiscard]] std::optional<FolderLevel> ReadFolderLevel(const FileSystem& files, PendingEvents& events,
                                                         const NameOrder& order,
                                                         const std::vector<std::wstring>& places);
