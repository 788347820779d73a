#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <string>
#include <vector>

class PendingEvents;

/// Lists one level of a folder: folders and files apart, in the file system's order. Hidden entries and
/// recycle bins are never listed.
class CEnumFileMinor {
public:
    /// Read-only, hidden, directory, archive, normal.
    static constexpr std::uint32_t kDefaultAttributes = 0xB3;
    /// Entries between two looks at the pending events.
    static constexpr std::size_t kEntriesAtOnce = 256;

    CEnumFileMinor(const FileSystem& files, PendingEvents& events);

    /// Appends the entries of `path` to the lists, until a pending event makes them unwanted. True only when
    /// `path` is no folder. A path that can't be read counts as a folder, and lists nothing.
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
    /// Whether the folder has subfolders. Looked up now: a tree, which never asks, would wait for nothing. False
    /// outside the list.
    [[nodiscard]] bool GetSubDirCheck(std::int32_t index) const;

    void Clear();

    /// Reserved: has no effect, and answers 0.
    [[nodiscard]] static std::int32_t SearchDiskInfo(std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                                                     std::int32_t) {
        return 0;
    }

    /// Whether `path` holds a folder that is no recycle bin. Unlike in EnumDisk, hidden folders count.
    [[nodiscard]] bool CheckSubDirectory(const std::wstring& path) const;

private:
    [[nodiscard]] std::wstring PatternIn(const std::wstring& path) const;
    [[nodiscard]] bool Counts(const FoundFile& entry) const;

    const FileSystem& system_;
    PendingEvents& events_;
    std::uint32_t attributes_ = kDefaultAttributes;
    std::wstring filter_ = L"*.*";
    std::vector<std::wstring> folders_; ///< whole paths
    std::vector<std::wstring> files_;
};
