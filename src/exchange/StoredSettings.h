#pragma once

#include "exchange/Settings.h"

#include <set>
#include <string>
#include <string_view>

class AnsiText;
class ProfileFiles;
class Registry;
struct RegistryPlace;

/// Why a text can't be an entry.
enum class TextProblem {
    None,
    NoNumber,
    ProgramCount,    ///< of a button: no number from 0 to kMaxPrograms
    PatternNumber,   ///< no number from 1 to kMaxPatterns
    TooManyPatterns, ///< a count above kMaxPatterns
    TooLong,
    NotInCodePage,
    LineEnd, ///< in an ini file
    Nul
};

/// The current user's settings, in the registry or in the ini file: read as a whole, written value by value. What
/// the ini-style names can't name is neither read nor touched.
class StoredSettings {
public:
    /// `iniFile`: the program's own ini file where the maker selected it; empty for the registry.
    StoredSettings(Registry& registry, ProfileFiles& profileFiles, const AnsiText& ansiText,
                   std::wstring iniFile);

    [[nodiscard]] Settings Read() const;
    /// What was last read differs from what is stored: the code page lacks characters of these texts.
    [[nodiscard]] const std::set<EntryName>& Inexact() const { return inexact_; }

    /// False when the system refuses.
    bool Write(const EntryName& name, const RegistryValue& value);
    bool Remove(const EntryName& name);
    /// Keys of the registry in which nothing is left.
    void RemoveEmptyKeys();

    /// The value that stands for the text.
    [[nodiscard]] RegistryValue ValueOf(const EntryName& name, std::wstring_view text) const;
    /// The text that stands for exactly this value, and that Judge has nothing against. Nothing when there is
    /// none, as for bytes that the code page does not know.
    [[nodiscard]] std::optional<std::wstring> TextOf(const EntryName& name, const RegistryValue& value) const;
    /// What the value means to whoever reads the store: text, or a number in decimal digits.
    [[nodiscard]] std::wstring ReadingOf(const EntryName& name, const RegistryValue& value) const;
    /// A value of any kind, from a store of either kind, as this store can keep it.
    [[nodiscard]] RegistryValue Adapted(const EntryName& name, const RegistryValue& value) const;

    [[nodiscard]] TextProblem Judge(const EntryName& name, const std::wstring& text) const;

    /// Bytes that a text may have.
    [[nodiscard]] std::size_t LongestText() const;
    [[nodiscard]] bool IsIniFile() const { return !iniFile_.empty(); }
    [[nodiscard]] const AnsiText& CodePage() const { return ansiText_; }

private:
    [[nodiscard]] TextProblem JudgeText(const std::wstring& text, std::size_t bytes) const;
    [[nodiscard]] Settings ReadRegistry() const;
    [[nodiscard]] Settings ReadIniFile() const;

    Registry& registry_;
    ProfileFiles& profileFiles_;
    const AnsiText& ansiText_;
    std::wstring iniFile_;
    mutable std::set<EntryName> inexact_;
};
