#pragma once

#include "settings/Pattern.h"
#include "settings/RegIniFunc.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// What each stored value is called in the ini-style names and in the registry, and where it lives in memory.

struct StoredName {
    std::wstring_view iniName;
    std::wstring_view registryName;
};

/// Section "KORVOQLB": the product's own key.
inline constexpr std::array kProgramNames{
    StoredName{L"QLBKeyboard", L"QLBB"},
    StoredName{L"CurrUser", L"CurrSetting"},
    StoredName{L"NumUser", L"NumSetting"},
};

/// Section "ONSCREEN": the key "OnScreen".
inline constexpr std::array kOnScreenNames{
    StoredName{L"OnScreen", L"OnScreen"}, StoredName{L"FontName", L"FontFace"},
    StoredName{L"FontSize", L"size"},     StoredName{L"Color", L"Color"},
    StoredName{L"DelayTime", L"Time"},
};

enum class FieldKind {
    Text,
    Letter,  ///< text without blanks around it
    Count,   ///< 1...kMaxPrograms, anything else is 0; a number in the registry
    Program, ///< AP and Param of a ProgramEntry, a bar between them
};

/// The class says whether there is one for the Pattern, for each button, or for each program of a button.
using FieldMember = std::variant<std::wstring Pattern::*, std::wstring ButtonSlot::*,
                                 std::int16_t ButtonSlot::*, std::wstring ProgramEntry::*>;

struct PatternField {
    std::wstring_view iniName;
    std::wstring_view registryName;
    FieldKind kind = FieldKind::Text;
    FieldMember member;
    bool hasDefault = true; ///< among the maker's defaults

    [[nodiscard]] constexpr bool IsOfPattern() const {
        return std::holds_alternative<std::wstring Pattern::*>(member);
    }
    [[nodiscard]] constexpr bool IsOfProgram() const {
        return std::holds_alternative<std::wstring ProgramEntry::*>(member);
    }
    /// "UserName", "Btn3_Exec", "Btn3_AP4". Numbers that the field does not have count for nothing.
    [[nodiscard]] std::wstring IniKey(int button = 0, int program = 0) const;
};

/// Section "USER" + number: the key "Setting\Set" + number, and in it "AppKey" + number for each button. Read and
/// written in this order.
// clang-format off
inline constexpr std::array kPatternFields{
    PatternField{L"UserName", L"SetName",   FieldKind::Text,    &Pattern::UserName},
    PatternField{L"_Exec",    L"Execute",   FieldKind::Letter,  &ButtonSlot::Exec},
    PatternField{L"_NumAP",   L"NumAP",     FieldKind::Count,   &ButtonSlot::NumAP},
    PatternField{L"_Name",    L"DispTitle", FieldKind::Text,    &ButtonSlot::Name},
    PatternField{L"_AP",      L"AP",        FieldKind::Program, &ProgramEntry::AP},
    PatternField{L"_Title",   L"ProgName",  FieldKind::Text,    &ProgramEntry::Title, /*hasDefault=*/false},
};
// clang-format on

/// The row of a member that is stored.
[[nodiscard]] constexpr const PatternField& FieldOf(const FieldMember& member) {
    return *std::ranges::find(kPatternFields, member, &PatternField::member);
}

/// One of the texts that a Pattern is stored as.
struct PatternEntry {
    const PatternField* field = nullptr;
    int button = 0;   ///< 0: of the Pattern itself
    int program = 0;  ///< 0: of the button itself
    std::wstring key; ///< ini-style name

    /// As it is stored. Parameters are left out when they are blanks alone, or the command has a bar.
    [[nodiscard]] std::wstring TextOf(const Pattern& pattern) const;
    void SetText(Pattern& pattern, const std::wstring& stored) const;
};

/// All entries of a Pattern for that many buttons, in the order in which they are read and written.
[[nodiscard]] std::vector<PatternEntry> PatternEntries(int buttonCount);

/// Where an ini-style entry lives in the registry.
struct RegistryPlace {
    std::wstring path;
    std::wstring name;     ///< empty: the key's unnamed default value
    bool isNumber = false; ///< REG_DWORD instead of REG_SZ

    bool operator==(const RegistryPlace&) const = default;
};

/// The place below the key `root`; nothing for a section that the registry layout does not have.
[[nodiscard]] std::optional<RegistryPlace> TranslateIniName(const std::wstring& section,
                                                            const std::wstring& key,
                                                            const std::wstring& root = kProductKey);
