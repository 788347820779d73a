#pragma once

#include "Win32.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace UiDriver {

/// What a registry value holds, byte for byte.
struct RawValue {
    DWORD type = REG_NONE;
    std::vector<std::uint8_t> bytes{};

    friend bool operator==(const RawValue&, const RawValue&) = default;
};

/// A key by its path. It is opened for each access, so it need not exist; writing creates it.
/// A getter answers nullopt when the value is missing and fails when it is of another type.
class RegistryKey {
public:
    /// `view`: 0, or KEY_WOW64_... for one half of the registry on 64-bit Windows.
    RegistryKey(HKEY root, std::wstring path, REGSAM view = 0)
        : root_(root), path_(std::move(path)), view_(view) {}

    [[nodiscard]] RegistryKey Sub(const std::wstring& name) const {
        return {root_, path_ + L'\\' + name, view_};
    }

    [[nodiscard]] bool Exists() const;

    void SetDword(const std::wstring& name, DWORD value) const;
    void SetString(const std::wstring& name, const std::wstring& value) const;

    /// Bytes in the ANSI code page, as RegSetValueExA takes them; a NUL is added.
    void SetAnsi(const std::string& name, const std::string& value) const;

    /// `bytes` are stored as they are: UTF-16 for the text types.
    void SetRaw(const std::wstring& name, const RawValue& value) const;

    [[nodiscard]] std::optional<DWORD> Dword(const std::wstring& name) const;

    /// Up to the first NUL.
    [[nodiscard]] std::optional<std::wstring> String(const std::wstring& name) const;

    /// As RegQueryValueExA gives it, up to the first NUL.
    [[nodiscard]] std::optional<std::string> Ansi(const std::string& name) const;

    [[nodiscard]] std::optional<RawValue> Raw(const std::wstring& name) const;

    void Erase(const std::wstring& name) const;

    /// Removes the key and all below it; it need not exist.
    void EraseTree() const;

    /// Puts all that is in the key and below it into the other one.
    void CopyTo(const RegistryKey& target) const;

    /// The key and all below it as text, sorted: "[path]" lines, then `name=type:bytes in hex "text"` lines.
    /// Two dumps are equal when nothing changed.
    [[nodiscard]] std::wstring Dump() const;

private:
    HKEY root_;
    std::wstring path_;
    REGSAM view_;
};

} // namespace UiDriver
