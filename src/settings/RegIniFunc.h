#pragma once

#include "platform/AnsiText.h"
#include "platform/ProfileFiles.h"
#include "platform/Registry.h"

#include <cstdint>
#include <string>
#include <string_view>

struct RegistryPlace;

/// The product's key, under HKEY_LOCAL_MACHINE (the maker's values, read only) and HKEY_CURRENT_USER.
inline constexpr const wchar_t* kProductKey = L"Software\\Korvo\\KORVOQLB";
/// The maker's switches of this program, under HKEY_LOCAL_MACHINE.
inline constexpr const wchar_t* kUtilityKey = L"Software\\Korvo\\KORVOQLB\\UTLSetting";
/// The maker's defaults, under HKEY_LOCAL_MACHINE.
inline constexpr const wchar_t* kDefaultKey = L"Software\\Korvo\\KORVOQLB\\Default";
/// What our own launcher keeps for itself, under HKEY_CURRENT_USER.
inline constexpr const wchar_t* kLauncherKey = L"Software\\Korvo\\KORVOQLB\\Launcher";

/// Section of the program's own numbers in the ini-style layer.
inline constexpr const wchar_t* kProgramSection = L"KORVOQLB";
inline constexpr const wchar_t* kOnScreenSection = L"ONSCREEN";
/// Section of Pattern `number`, from 1 on.
[[nodiscard]] std::wstring PatternSection(int number);

/// The settings store: a raw registry layer, and an ini-style layer that reaches either an ini file or the
/// same settings under HKEY_CURRENT_USER. The resident launcher reads the same layout. Nothing is cached.
class RegIniFunc {
public:
    /// `ownIniFile`: name of the program's own ini file (string id 3001).
    RegIniFunc(Registry& registry, ProfileFiles& profileFiles, const AnsiText& ansiText,
               std::wstring ownIniFile);

    /// HKLM "QLBINI": true sends the own ini file's calls to the file itself. Set once at start-up.
    bool IniFileExist = false;

    /// Up to four bytes of any type, as a signed number: fewer are its low bytes. `fallback` when the key or
    /// value is missing or the data is longer.
    [[nodiscard]] std::int32_t RegGetDword(RegistryHive hive, const std::wstring& path,
                                           const std::wstring& name, std::int32_t fallback = 0) const;
    /// The data as text up to its first NUL, at most 2048 ANSI bytes; longer text is cut between characters.
    /// `fallback` when the key or value is missing.
    [[nodiscard]] std::wstring RegGetString(RegistryHive hive, const std::wstring& path,
                                            const std::wstring& name,
                                            const std::wstring& fallback = {}) const;
    /// Text, or a number as decimal text: where the value has no number, the one that `fallback` is, or 0.
    [[nodiscard]] std::wstring RegGetText(RegistryHive hive, const RegistryPlace& place,
                                          const std::wstring& fallback = {}) const;
    /// REG_DWORD. False when the system refuses.
    bool RegSetDword(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                     std::int32_t value);
    /// REG_SZ in the ANSI code page, the terminating NUL counted in the length; empty text is two NUL bytes.
    bool RegSetString(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                      std::wstring_view value);

    /// Text of an ini-style entry. From an ini file at most 511 ANSI bytes. A number in the registry comes as
    /// decimal text.
    [[nodiscard]] std::wstring IniGetString(const std::wstring& section, const std::wstring& key,
                                            const std::wstring& fallback, const std::wstring& file) const;
    /// The leading number of the entry's text.
    [[nodiscard]] std::int32_t IniGetInt(const std::wstring& section, const std::wstring& key,
                                         std::int32_t fallback, const std::wstring& file) const;
    /// False when nothing was written: the system refused, the text of a number is no number, or the registry
    /// has no place for the section.
    bool IniSetString(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                      const std::wstring& file);

    /// Removes a section with all its entries; in the registry the key of a Pattern. False when the system
    /// refuses, or the section is not one Pattern's.
    bool IniDeleteSection(const std::wstring& section, const std::wstring& file);

    /// What comes back of a text that is stored: characters that the ANSI code page lacks are replaced.
    [[nodiscard]] std::wstring AsStored(const std::wstring& text) const;

    [[nodiscard]] const std::wstring& OwnIniFile() const { return ownIniFile_; }

    /// "CurrUser" of the own ini file when it is 1...10, else 1.
    [[nodiscard]] std::int32_t ReadCurrentPatternNumber() const;
    /// "NumUser" of the own ini file when it is 1...10, else 1.
    [[nodiscard]] std::int32_t ReadPatternCount() const;
    /// The number that "NumUser" of the own ini file begins with, whatever it is; 1 when it is missing.
    [[nodiscard]] std::int32_t StoredPatternCount() const;

private:
    [[nodiscard]] bool GoesToFile(const std::wstring& file) const;

    Registry& registry_;
    ProfileFiles& profileFiles_;
    const AnsiText& ansiText_;
    std::wstring ownIniFile_;
};
