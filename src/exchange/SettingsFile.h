#pragma once

#include "exchange/NameChoice.h"
#include "exchange/Settings.h"
#include "exchange/Words.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class StoredSettings;

/// What a settings file says, as the store can keep it.
struct SettingsFile {
    Settings settings;
    std::vector<Finding> errors; ///< the first ones; with any, nothing else here is to be used
    std::vector<Finding> notes;  ///< what was left out, and why
};

/// No file of settings is longer.
inline constexpr std::size_t kLongestSettingsFile = 16'000'000;

/// A .qlb file in UTF-8 or UTF-16, or a KORVOQLB.INI in the code page, UTF-8 or UTF-16. It is judged as a whole, for
/// this store.
[[nodiscard]] SettingsFile ReadSettingsFile(std::string_view bytes, const StoredSettings& store);

/// The .qlb file that ReadSettingsFile makes the same settings of.
[[nodiscard]] std::wstring SettingsFileText(const Settings& settings, const StoredSettings& store);
[[nodiscard]] std::string WriteSettingsFile(const Settings& settings, const StoredSettings& store);

/// The Patterns that a file or store has, by their sections' numbers: those up to "NumUser" where that is stored,
/// otherwise all. Empty names where none is stored.
[[nodiscard]] std::vector<Choice> PatternsOf(const Settings& settings, const StoredSettings& store);
