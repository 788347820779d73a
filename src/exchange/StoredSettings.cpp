#include "exchange/StoredSettings.h"

#include "platform/AnsiText.h"
#include "platform/ProfileFiles.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

/// What the readers of either store take of a text.
constexpr std::size_t kLongestRegistryText = 2048;
constexpr std::size_t kLongestProfileText = 511;

RegistryPlace PlaceOf(const EntryName& name) {
    return *TranslateIniName(name.section, name.key); // every section of the layout has one
}

/// One key of the registry: where it is below the section's own, and the entry behind each of its values.
struct KeyLayout {
    std::wstring below;
    std::map<std::wstring, std::wstring, LessIgnoreCase> keys;
};
struct SectionLayout {
    std::vector<KeyLayout> registryKeys;
    std::set<std::wstring> numbers; ///< ini-style keys
};

/// The first entry of each section is in its own key.
std::wstring OwnPath(const std::wstring& section) {
    return PlaceOf({section, LayoutKeys(section).front()}).path;
}

SectionLayout LayoutOf(const std::wstring& section) {
    SectionLayout layout;
    const std::size_t own = OwnPath(section).size();
    for (const std::wstring& key : LayoutKeys(section)) {
        RegistryPlace place = PlaceOf({section, key});
        const std::wstring below = place.path.substr(own);
        auto found = std::ranges::find(layout.registryKeys, below, &KeyLayout::below);
        if (found == layout.registryKeys.end()) {
            found = layout.registryKeys.insert(found, KeyLayout{below, {}});
        }
        found->keys[std::move(place.name)] = key;
        if (place.isNumber) {
            layout.numbers.insert(key);
        }
    }
    return layout;
}

/// Pattern by Pattern the same.
const SectionLayout& SharedLayout(const std::wstring& section) {
    static const SectionLayout kProgram = LayoutOf(kProgramSection);
    static const SectionLayout kOnScreen = LayoutOf(kOnScreenSection);
    static const SectionLayout kPattern = LayoutOf(PatternSection(1));
    return section == kProgramSection ? kProgram : section == kOnScreenSection ? kOnScreen : kPattern;
}

bool IsNumber(const EntryName& name) {
    return SharedLayout(name.section).numbers.contains(name.key);
}

std::string_view UpToNul(std::string_view bytes) {
    return bytes.substr(0, bytes.find('\0'));
}

TextProblem JudgeNumber(const EntryName& name, const std::wstring& text) {
    const auto number = NumberFromText(text);
    if (PatternNumber(name.section) != 0) {
        return number && *number >= 0 && *number <= kMaxPrograms ? TextProblem::None
                                                                 : TextProblem::ProgramCount;
    }
    if (name.section == kProgramSection && (name.key == L"CurrUser" || name.key == L"NumUser")) {
        if (number && *number > kMaxPatterns && name.key == L"NumUser") {
            return TextProblem::TooManyPatterns;
        }
        return number && *number >= 1 && *number <= kMaxPatterns ? TextProblem::None
                                                                 : TextProblem::PatternNumber;
    }
    return number ? TextProblem::None : TextProblem::NoNumber;
}

} // namespace

StoredSettings::StoredSettings(Registry& registry, ProfileFiles& profileFiles, const AnsiText& ansiText,
                               std::wstring iniFile)
    : registry_(registry), profileFiles_(profileFiles), ansiText_(ansiText), iniFile_(std::move(iniFile)) {}

Settings StoredSettings::Read() const {
    inexact_.clear();
    return iniFile_.empty() ? ReadRegistry() : ReadIniFile();
}

Settings StoredSettings::ReadRegistry() const {
    Settings settings;
    for (const std::wstring& section : LayoutSections()) {
        const std::wstring own = OwnPath(section);
        for (const KeyLayout& layout : SharedLayout(section).registryKeys) {
            for (NamedRegistryValue& found :
                 registry_.Values(RegistryHive::CurrentUser, own + layout.below)) {
                const auto key = layout.keys.find(found.name);
                if (key == layout.keys.end()) {
                    continue;
                }
                if (!found.exact) {
                    inexact_.insert({section, key->second});
                }
                settings[{section, key->second}] = std::move(found.value);
            }
        }
    }
    return settings;
}

Settings StoredSettings::ReadIniFile() const {
    constexpr std::size_t kBuffer = kLongestProfileText + 1;
    // Nobody stores both, so what answers each question with the question is missing.
    const std::wstring kOneAnswer = L"\x01";
    const std::wstring kOther = L"\x02";
    Settings settings;
    for (const std::wstring& section : LayoutSections()) {
        for (const std::wstring& key : LayoutKeys(section)) {
            const std::wstring text = profileFiles_.GetString(section, key, kOneAnswer, iniFile_, kBuffer);
            if (text == kOneAnswer &&
                profileFiles_.GetString(section, key, kOther, iniFile_, kBuffer) == kOther) {
                continue;
            }
            settings[{section, key}] = ValueOf({section, key}, text);
        }
    }
    return settings;
}

bool StoredSettings::Write(const EntryName& name, const RegistryValue& value) {
    if (iniFile_.empty()) {
        const RegistryPlace place = PlaceOf(name);
        return registry_.Set(RegistryHive::CurrentUser, place.path, place.name, value);
    }
    std::wstring text = ReadingOf(name, value);
    // Read without blanks around it and without one pair of quotes.
    constexpr std::wstring_view kBlanks = L" \t";
    constexpr std::wstring_view kQuotes = L"\"'";
    const auto isOneOf = [](wchar_t c, std::wstring_view set) {
        return set.find(c) != std::wstring_view::npos;
    };
    if (!text.empty() &&
        (isOneOf(text.front(), kBlanks) || isOneOf(text.back(), kBlanks) ||
         (text.size() > 1 && text.front() == text.back() && isOneOf(text.front(), kQuotes)))) {
        text = L'"' + text + L'"';
    }
    return profileFiles_.SetString(name.section, name.key, text, iniFile_);
}

bool StoredSettings::Remove(const EntryName& name) {
    if (!iniFile_.empty()) {
        return profileFiles_.DeleteEntry(name.section, name.key, iniFile_);
    }
    const RegistryPlace place = PlaceOf(name);
    return registry_.DeleteValue(RegistryHive::CurrentUser, place.path, place.name);
}

void StoredSettings::RemoveEmptyKeys() {
    if (!iniFile_.empty()) {
        return;
    }
    // Backwards: the keys below come before the one that holds them.
    for (const std::wstring& section : LayoutSections()) {
        const std::wstring own = OwnPath(section);
        const auto& keys = SharedLayout(section).registryKeys;
        std::for_each(keys.rbegin(), keys.rend(), [&](const KeyLayout& layout) {
            if (section != kProgramSection) {
                registry_.DeleteKeyIfEmpty(RegistryHive::CurrentUser, own + layout.below);
            }
        });
    }
    registry_.DeleteKeyIfEmpty(RegistryHive::CurrentUser, kProductKey + std::wstring(L"\\Setting"));
}

RegistryValue StoredSettings::ValueOf(const EntryName& name, std::wstring_view text) const {
    if (iniFile_.empty() && IsNumber(name)) {
        const std::int32_t number = NumberFromText(text).value_or(0);
        std::string bytes(sizeof number, '\0');
        std::memcpy(bytes.data(), &number, sizeof number);
        return {kRegistryDword, std::move(bytes)};
    }
    std::string bytes = ansiText_.Encode(text.substr(0, text.find(L'\0')));
    if (bytes.empty()) {
        bytes.push_back('\0'); // as the store writes an empty text
    }
    bytes.push_back('\0');
    return {kRegistryString, std::move(bytes)};
}

std::wstring StoredSettings::ReadingOf(const EntryName& name, const RegistryValue& value) const {
    std::int32_t number = 0;
    const bool counts = value.type == kRegistryDword || (iniFile_.empty() && IsNumber(name));
    if (!counts) {
        return ansiText_.Decode(UpToNul(value.bytes));
    }
    if (value.bytes.size() <= sizeof number && !value.bytes.empty()) {
        std::memcpy(&number, value.bytes.data(), value.bytes.size());
    }
    return DecimalText(number);
}

std::optional<std::wstring> StoredSettings::TextOf(const EntryName& name, const RegistryValue& value) const {
    std::wstring text = ReadingOf(name, value);
    if (ValueOf(name, text) != value) {
        return std::nullopt;
    }
    // A text that is these bytes again is one that the code page keeps.
    const TextProblem problem =
        IsNumber(name) ? JudgeNumber(name, text) : JudgeText(text, value.bytes.size() - 1);
    return problem == TextProblem::None ? std::optional(std::move(text)) : std::nullopt;
}

RegistryValue StoredSettings::Adapted(const EntryName& name, const RegistryValue& value) const {
    return iniFile_.empty() ? value : ValueOf(name, ReadingOf(name, value));
}

std::size_t StoredSettings::LongestText() const {
    return iniFile_.empty() ? kLongestRegistryText : kLongestProfileText;
}

TextProblem StoredSettings::Judge(const EntryName& name, const std::wstring& text) const {
    if (IsNumber(name)) {
        return JudgeNumber(name, text);
    }
    const std::string bytes = ansiText_.Encode(text);
    const TextProblem problem = JudgeText(text, bytes.size());
    return problem == TextProblem::None && ansiText_.Decode(bytes) != text ? TextProblem::NotInCodePage
                                                                           : problem;
}

TextProblem StoredSettings::JudgeText(const std::wstring& text, std::size_t bytes) const {
    if (text.find(L'\0') != std::wstring::npos) {
        return TextProblem::Nul;
    }
    if (!iniFile_.empty() && text.find_first_of(L"\r\n") != std::wstring::npos) {
        return TextProblem::LineEnd;
    }
    return bytes > LongestText() ? TextProblem::TooLong : TextProblem::None;
}
