#pragma once

#include <optional>
#include <string>

namespace UiDriver {

/// An ini file, read and written by the system's ANSI profile functions. Texts are bytes of the ANSI code
/// page.
class ProfileFile {
public:
    explicit ProfileFile(std::wstring path) : path_(std::move(path)) {}

    [[nodiscard]] const std::wstring& Path() const { return path_; }

    /// nullopt when the key is missing.
    [[nodiscard]] std::optional<std::string> Get(const std::string& section, const std::string& key) const;
    void Set(const std::string& section, const std::string& key, const std::string& value) const;
    void Erase(const std::string& section, const std::string& key) const;
    void EraseSection(const std::string& section) const;

    [[nodiscard]] bool Exists() const;

    /// The whole file, empty when there is none.
    [[nodiscard]] std::string Bytes() const;
    void SetBytes(const std::string& bytes) const;
    void Remove() const;

private:
    [[nodiscard]] std::string AnsiPath() const;

    std::wstring path_;
};

} // namespace UiDriver
