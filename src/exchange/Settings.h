#pragma once

#include "platform/Registry.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// An entry of the store by its ini-style names.
struct EntryName {
    std::wstring section;
    std::wstring key;

    bool operator==(const EntryName&) const = default;
    bool operator<(const EntryName& other) const {
        return section != other.section ? section < other.section : key < other.key;
    }
};

/// One user's settings as they are stored. What the store does not have is not in it.
using Settings = std::map<EntryName, RegistryValue>;

/// The sections of the layout: of the program, of the on-screen display, and of each Pattern that there can be.
[[nodiscard]] const std::vector<std::wstring>& LayoutSections();

/// The keys of such a section, in the layout's order.
[[nodiscard]] const std::vector<std::wstring>& LayoutKeys(const std::wstring& section);

/// The section as the layout writes it; upper and lower case are the same. Nothing for others.
[[nodiscard]] std::optional<std::wstring> KnownSection(std::wstring_view section);
[[nodiscard]] std::optional<std::wstring> KnownKey(const std::wstring& knownSection, std::wstring_view key);

/// 1...kMaxPatterns for "USER1" ...; 0 for the other sections.
[[nodiscard]] int PatternNumber(const std::wstring& section);

void EraseSection(Settings& settings, const std::wstring& section);
