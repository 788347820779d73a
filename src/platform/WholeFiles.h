#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class FileWriting {
    Done,
    AlreadyThere, ///< and it was not to be replaced
    Failed        ///< what stands under the name is as it was
};

/// Files that are read and written as a whole. Names may be as long as Windows allows, in any characters.
class WholeFiles {
public:
    virtual ~WholeFiles() = default;

    /// Nothing when the file is missing, can't be read or is longer than `longest` bytes.
    [[nodiscard]] virtual std::optional<std::string> Read(const std::wstring& path,
                                                          std::size_t longest) const = 0;

    /// Writes beside the name, flushes, and renames: at every moment the name stands for what was there or for
    /// the new file as a whole.
    [[nodiscard]] virtual FileWriting Write(const std::wstring& path, std::string_view bytes,
                                            bool mayReplace) = 0;

    [[nodiscard]] virtual bool Exists(const std::wstring& path) const = 0;

    /// Names of the files in a folder, in no certain order; none when it can't be read.
    [[nodiscard]] virtual std::vector<std::wstring> Names(const std::wstring& folder) const = 0;

    /// With the folders above it. False when it is not there afterwards.
    [[nodiscard]] virtual bool MakeFolder(const std::wstring& folder) = 0;

    virtual bool Remove(const std::wstring& path) = 0;

    /// The user's local application data, without a "\" at its end. Empty when the system names none.
    [[nodiscard]] virtual std::wstring LocalApplicationData() const = 0;
};
