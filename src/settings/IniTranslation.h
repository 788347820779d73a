#pragma once

#include <optional>
#include <string>

/// Where an entry of the own ini file lives under HKEY_CURRENT_USER.
struct RegistryPlace {
    std::wstring path;
    std::wstring name;     ///< empty: the key's unnamed default value
    bool isNumber = false; ///< REG_DWORD instead of REG_SZ

    bool operator==(const RegistryPlace&) const = default;
};

/// Nothing for a section that the registry layout does not have.
[[nodiscard]] std::optional<RegistryPlace> TranslateIniName(const std::wstring& section,
                                                            const std::wstring& key);
