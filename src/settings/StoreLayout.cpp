#include "settings/StoreLayout.h"

#include "settings/StdModule.h"

#include <span>
#include <tuple>
#include <utility>

namespace {

constexpr std::wstring_view kButton = L"Btn";

/// The text that any field but a count is.
template <class AnyPattern> auto& TextMember(AnyPattern& pattern, const PatternEntry& entry) {
    const FieldMember& member = entry.field->member;
    if (const auto* const ofPattern = std::get_if<std::wstring Pattern::*>(&member)) {
        return pattern.**ofPattern;
    }
    auto& slot = pattern.Btn(entry.button);
    if (const auto* const ofButton = std::get_if<std::wstring ButtonSlot::*>(&member)) {
        return slot.**ofButton;
    }
    return slot.Program(entry.program).*std::get<std::wstring ProgramEntry::*>(member);
}

template <class AnyPattern> auto& CountMember(AnyPattern& pattern, const PatternEntry& entry) {
    return pattern.Btn(entry.button).*std::get<std::int16_t ButtonSlot::*>(entry.field->member);
}

std::wstring RegistryName(std::span<const StoredName> names, const std::wstring& key) {
    const auto found = std::ranges::find(names, key, &StoredName::iniName);
    return found == names.end() ? key : std::wstring(found->registryName);
}

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Button and program numbers are one character each in the ini-style names.
wchar_t DigitAt(const std::wstring& key, std::size_t pos) {
    return pos < key.size() && IsDigit(key[pos]) ? key[pos] : L'0';
}

/// To the letter, whatever the numbers.
bool IsNamed(const PatternField& field, std::wstring_view key) {
    const std::size_t front = field.IsOfPattern() ? 0 : kButton.size() + 1;
    const std::size_t back = field.IsOfProgram() ? 1 : 0;
    return key.size() == front + field.iniName.size() + back &&
           key.substr(front, field.iniName.size()) == field.iniName &&
           (front == 0 || (key.starts_with(kButton) && IsDigit(key[kButton.size()]))) &&
           (back == 0 || IsDigit(key.back()));
}

/// A key that is in no row belongs to the first of these fields whose name it contains.
const PatternField* FieldNamed(const std::wstring& key) {
    const auto row =
        std::ranges::find_if(kPatternFields, [&](const PatternField& field) { return IsNamed(field, key); });
    if (row != kPatternFields.end()) {
        return &*row;
    }
    for (const FieldMember& member :
         std::initializer_list<FieldMember>{&ButtonSlot::Name, &ButtonSlot::Exec, &ButtonSlot::NumAP,
                                            &ProgramEntry::AP, &ProgramEntry::Title}) {
        if (ContainsIgnoreCase(key, kButton) && ContainsIgnoreCase(key, FieldOf(member).iniName)) {
            return &FieldOf(member);
        }
    }
    return nullptr;
}

RegistryPlace PatternPlace(std::wstring patternPath, const std::wstring& key) {
    RegistryPlace place;
    place.path = std::move(patternPath);
    const PatternField* const field = FieldNamed(key);
    if (field == nullptr ? ContainsIgnoreCase(key, kButton) : !field->IsOfPattern()) {
        place.path.append(L"\\AppKey").append(1, DigitAt(key, kButton.size()));
    }
    if (field != nullptr) {
        place.name = field->registryName;
        place.name.append(field->IsOfProgram() ? 1 : 0, DigitAt(key, key.size() - 1));
        place.isNumber = field->kind == FieldKind::Count;
    }
    return place;
}

} // namespace

std::wstring PatternField::IniKey(int button, int program) const {
    std::wstring key;
    if (!IsOfPattern()) {
        key.append(kButton).append(DecimalText(button));
    }
    key += iniName;
    if (IsOfProgram()) {
        key += DecimalText(program);
    }
    return key;
}

std::wstring PatternEntry::TextOf(const Pattern& pattern) const {
    if (field->kind == FieldKind::Count) {
        return DecimalText(CountMember(pattern, *this));
    }
    std::wstring text = TextMember(pattern, *this);
    if (field->kind == FieldKind::Program) {
        const std::wstring& parameters = pattern.Btn(button).Program(program).Param;
        if (!TrimBlanks(parameters).empty() && text.find(L'|') == std::wstring::npos) {
            text.append(1, L'|').append(parameters);
        }
    }
    return text;
}

void PatternEntry::SetText(Pattern& pattern, const std::wstring& stored) const {
    switch (field->kind) {
    case FieldKind::Text:
        TextMember(pattern, *this) = stored;
        break;
    case FieldKind::Letter:
        TextMember(pattern, *this) = TrimBlanks(stored);
        break;
    case FieldKind::Count:
        CountMember(pattern, *this) = static_cast<std::int16_t>(NumberInRangeOr(stored, 1, kMaxPrograms, 0));
        break;
    case FieldKind::Program:
        ProgramEntry& entry = pattern.Btn(button).Program(program);
        std::tie(entry.AP, entry.Param) = SplitAtBar(stored);
        break;
    }
}

std::vector<PatternEntry> PatternEntries(int buttonCount) {
    std::vector<PatternEntry> entries;
    for (int button = 0; button <= buttonCount; ++button) {
        for (const PatternField& field : kPatternFields) {
            if (field.IsOfPattern() != (button == 0)) {
                continue;
            }
            const int first = field.IsOfProgram() ? 1 : 0;
            for (int program = first; program <= first * kMaxPrograms; ++program) {
                entries.push_back({&field, button, program, field.IniKey(button, program)});
            }
        }
    }
    return entries;
}

std::optional<RegistryPlace> TranslateIniName(const std::wstring& section, const std::wstring& key,
                                              const std::wstring& root) {
    if (section == kProgramSection) {
        return RegistryPlace{root, RegistryName(kProgramNames, key), true};
    }
    if (section == kOnScreenSection) {
        std::wstring name = RegistryName(kOnScreenNames, key);
        const bool isNumber = !EqualsIgnoreCase(name, L"FontFace");
        return RegistryPlace{root + L"\\OnScreen", std::move(name), isNumber};
    }
    if (ContainsIgnoreCase(section, L"USER")) {
        constexpr std::size_t kNumberPos = 4;
        const std::int32_t number =
            section.size() > kNumberPos ? LeadingNumber(section.substr(kNumberPos)) : 0;
        return PatternPlace(root + L"\\Setting\\Set" + DecimalText(number), key);
    }
    return std::nullopt;
}
