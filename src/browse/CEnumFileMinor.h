#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class PendingEvents;

/// Lists one level of a folder: folders and files apart, in the file system's order. Hidden entries and
/// recycle bins are never listed.
class CEnumFileMinor {
public:
    /// Read-only, hidden, directory, archive, normal.
    static constexpr std::uint32_t kDefaultAttributes = 0xB3;

    CEnumFileMinor(const FileSystem& files, PendingEvents& events);

    /// Appends the entries of `path` to the lists. True only when `path` is no folder. A path that can't be
    /// read counts as a folder, and lists nothing.
    bool EnumDisk(const std::wstring& path);

    /// An entry counts only when it shares a bit with this mask.
    [[nodiscard]] std::uint32_t FileAttribute() const { return attributes_; }
    void FileAttribute(std::uint32_t attributes) { attributes_ = attributes; }
    /// Search pattern, "*.*" at first.
    void FindFilter(const std::wstring& filter) { filter_ = filter; }

    /// 0-based; empty outside the list.
    [[nodiscard]] std::wstring GetFileName(std::int32_t index) const;
    [[nodiscard]] std::int32_t GetFileCount() const { return static_cast<std::int32_t>(files_.size()); }
    [[nodiscard]] std::wstring GetDirName(std::int32_t index) const;
    [[nodiscard]] std::int32_t GetDirCount() const { return static_cast<std::int32_t>(folders_.size()); }
    /// Whether the folder has subfolders; looked up when first asked for. False outside the list.
    [[nodiscard]] bool GetSubDirCheck(std::int32_t index);

    /// All names at once; their list is empty afterwards.
    [[nodiscard]] std::vector<std::wstring> TakeDirNames();
    [[nodiscard]] std::vector<std::wstring> TakeFileNames();

    void Clear();

    /// Whether `path` holds a folder that is no recycle bin. Unlike in EnumDisk, hidden folders count.
    [[nodiscard]] bool CheckSubDirectory(const std::wstring& path);

private:
    struct Folder {
        std::wstring name;
        std::size_t parent; ///< in parents_
        std::optional<bool> hasSubfolders;
    };

    [[nodiscard]] std::wstring PatternIn(const std::wstring& path) const;
    [[nodiscard]] bool Counts(const FoundFile& entry) const;

    const FileSystem& system_;
    PendingEvents& events_;
    std::uint32_t attributes_ = kDefaultAttributes;
    std::wstring filter_ = L"*.*";
    std::vector<std::wstring> parents_; ///< without a trailing "\"
    std::vector<Folder> folders_;
    std::vector<std::wstring> files_;
};
