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

bool IsNumber(const EntryName& name) {
    return PlaceOf(name).isNumber;
}

/// The registry's keys of the layout, and the entry behind each of their values.
using KeyEntries = std::map<std::wstring, EntryName, LessIgnoreCase>;
const std::map<std::wstring, KeyEntries>& LayoutPlaces() {
    static const std::map<std::wstring, KeyEntries> kPlaces = [] {
        std::map<std::wstring, KeyEntries> places;
        for (const std::wstring& section : LayoutSections()) {
            for (const std::wstring& key : LayoutKeys(section)) {
                const EntryName name{section, key};
                const RegistryPlace place = PlaceOf(name);
                places[place.path][place.name] = name;
            }
        }
        return places;
    }();
    return kPlaces;
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
    for (const auto& [path, entries] : LayoutPlaces()) {
        for (NamedRegistryValue& found : registry_.Values(RegistryHive::CurrentUser, path)) {
            const auto entry = entries.find(found.name);
            if (entry == entries.end()) {
                continue;
            }
            settings[entry->second] = std::move(found.value);
            if (!found.exact) {
                inexact_.insert(entry->second);
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
    const auto& places = LayoutPlaces();
    std::for_each(places.rbegin(), places.rend(), [&](const auto& place) {
        if (place.first != kProductKey) {
            registry_.DeleteKeyIfEmpty(RegistryHive::CurrentUser, place.first);
        }
    });
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
    if (ValueOf(name, text) == value && Judge(name, text) == TextProblem::None) {
        return text;
    }
    return std::nullopt;
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
    if (text.find(L'\0') != std::wstring::npos) {
        return TextProblem::Nul;
    }
    if (!iniFile_.empty() && text.find_first_of(L"\r\n") != std::wstring::npos) {
        return TextProblem::LineEnd;
    }
    const std::string bytes = ansiText_.Encode(text);
    if (bytes.size() > LongestText()) {
        return TextProblem::TooLong;
    }
    return ansiText_.Decode(bytes) == text ? TextProblem::None : TextProblem::NotInCodePage;
}
