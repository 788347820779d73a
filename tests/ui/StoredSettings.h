#pragma once

#include "driver/Driver.h"

#include <array>
#include <iosfwd>
#include <string>

/// A button's settings with the texts as they stand in the store: a program is "command" or
/// "command|parameters".
struct StoredButton {
    std::wstring name{};
    std::wstring method{};
    DWORD count = 0;
    std::array<std::wstring, 5> programs{};
    std::array<std::wstring, 5> titles{};

    friend bool operator==(const StoredButton&, const StoredButton&) = default;
};

struct StoredPattern {
    std::wstring name{};
    std::array<StoredButton, 8> buttons{};

    /// Button 1...8.
    StoredButton& Button(int number) { return buttons.at(static_cast<std::size_t>(number) - 1); }
    const StoredButton& Button(int number) const { return buttons.at(static_cast<std::size_t>(number) - 1); }

    friend bool operator==(const StoredPattern&, const StoredPattern&) = default;
};

struct StoredOnScreen {
    DWORD on = 1;
    std::wstring face{};
    DWORD size = 3;
    DWORD color = 0;

    friend bool operator==(const StoredOnScreen&, const StoredOnScreen&) = default;
};

std::ostream& operator<<(std::ostream& out, const StoredPattern& pattern);
std::ostream& operator<<(std::ostream& out, const StoredOnScreen& settings);

/// Text as the program stores it: an empty one is a lone NUL with a NUL behind it.
void WriteText(const UiDriver::RegistryKey& key, const std::wstring& name, const std::wstring& text);

/// `set` is a key ".../Set" + number. Reading fails when a value is missing or of the wrong type.
void WritePattern(const UiDriver::RegistryKey& set, const StoredPattern& pattern);
StoredPattern ReadPattern(const UiDriver::RegistryKey& set);
void WriteOnScreen(const UiDriver::RegistryKey& onScreen, const StoredOnScreen& settings);
StoredOnScreen ReadOnScreen(const UiDriver::RegistryKey& onScreen);

/// The same as a section of an ini file, where an empty program is written as a blank.
std::string IniSection(int number, const StoredPattern& pattern);
std::string IniSection(const StoredOnScreen& settings);
StoredPattern ReadPattern(const UiDriver::ProfileFile& file, int number);
StoredOnScreen ReadOnScreen(const UiDriver::ProfileFile& file);

/// What the launcher read of the current pattern.
StoredPattern SeenPattern(const UiDriver::LauncherEntry& entry);
StoredOnScreen SeenOnScreen(const UiDriver::LauncherEntry& entry);
