#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// File attributes as Windows numbers them (FILE_ATTRIBUTE_...).
inline constexpr std::uint32_t kAttributeReadOnly = 0x01;
inline constexpr std::uint32_t kAttributeHidden = 0x02;
inline constexpr std::uint32_t kAttributeDirectory = 0x10;
inline constexpr std::uint32_t kAttributeArchive = 0x20;
inline constexpr std::uint32_t kAttributeNormal = 0x80;
/// What a path that can't be read has: all bits, the directory's too.
inline constexpr std::uint32_t kAttributesUnknown = 0xFFFFFFFF;

struct FoundFile {
    std::wstring name; ///< without its folder
    std::uint32_t attributes = 0;
};

/// Files and folders on disk.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// GetFileAttributesA; kAttributesUnknown when the call fails.
    [[nodiscard]] virtual std::uint32_t Attributes(const std::wstring& path) const = 0;

    /// FindFirstFileA and FindNextFileA: every entry that matches, "." and ".." too, in the file system's order,
    /// until `take` answers false. False when the search can't start.
    [[nodiscard]] virtual bool Find(const std::wstring& pattern,
                                    const std::function<bool(const FoundFile&)>& take) const = 0;

    /// Hands over the file's bytes block by block until `take` answers false. False when the file can't be
    /// opened, or a read fails; what was read before has been handed over.
    [[nodiscard]] virtual bool Read(const std::wstring& path,
                                    const std::function<bool(std::string_view)>& take) const = 0;
};

/// The directory bit of the path's attributes. A path that can't be read counts as a folder.
[[nodiscard]] inline bool IsFolder(const FileSystem& files, const std::wstring& path) {
    return (files.Attributes(path) & kAttributeDirectory) != 0;
}
