#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// The system's private profile ("ini") files. A file name without a directory means the Windows directory.
class ProfileFiles {
public:
    virtual ~ProfileFiles() = default;

    /// GetPrivateProfileStringA with a buffer of `bufferBytes` ANSI bytes, the terminating NUL included.
    /// Longer text is cut. `fallback` when the file, section or key is missing.
    [[nodiscard]] virtual std::wstring GetString(const std::wstring& section, const std::wstring& key,
                                                 const std::wstring& fallback, const std::wstring& file,
                                                 std::size_t bufferBytes) const = 0;

    /// GetPrivateProfileIntA.
    [[nodiscard]] virtual std::int32_t GetInt(const std::wstring& section, const std::wstring& key,
                                              std::int32_t fallback, const std::wstring& file) const = 0;

    /// WritePrivateProfileStringA. False when the file can't be written.
    virtual bool SetString(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                           const std::wstring& file) = 0;

    /// WritePrivateProfileStringA without a text: removes the entry. False when the file can't be written.
    virtual bool DeleteEntry(const std::wstring& section, const std::wstring& key,
                             const std::wstring& file) = 0;

    /// WritePrivateProfileStringA without a key: removes the section. False when the file can't be written.
    virtual bool DeleteSection(const std::wstring& section, const std::wstring& file) = 0;
};
