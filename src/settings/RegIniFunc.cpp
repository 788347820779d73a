#include "settings/RegIniFunc.h"

#include "settings/Pattern.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

#include <cstring>
#include <utility>

namespace {

constexpr std::size_t kLongestRegistryText = 2048;
constexpr std::size_t kLongestProfileText = 511; ///< a buffer of 512 with its NUL
/// More than is kept, so that the character at the cut is seen whole.
constexpr std::size_t kSpareBytes = 8;

/// Cut between characters: half of a double-byte character would read as another one.
std::wstring CutToBytes(const AnsiText& ansiText, std::wstring text, std::size_t maxBytes) {
    while (ansiText.Encode(text).size() > maxBytes) {
        const bool half = text.back() >= 0xDC00 && text.back() <= 0xDFFF;
        text.pop_back();
        if (half && !text.empty()) {
            text.pop_back(); // the other half of the pair
        }
    }
    return text;
}

} // namespace

std::wstring PatternSection(int number) {
    return L"USER" + DecimalText(number);
}

RegIniFunc::RegIniFunc(Registry& registry, ProfileFiles& profileFiles, const AnsiText& ansiText,
                       std::wstring ownIniFile)
    : registry_(registry), profileFiles_(profileFiles), ansiText_(ansiText),
      ownIniFile_(std::move(ownIniFile)) {}

std::int32_t RegIniFunc::RegGetDword(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                                     std::int32_t fallback) const {
    const auto value = registry_.Query(hive, path, name);
    std::int32_t number = 0;
    if (!value || value->bytes.size() > sizeof number) {
        return fallback;
    }
    std::memcpy(&number, value->bytes.data(), value->bytes.size());
    return number;
}

std::wstring RegIniFunc::RegGetString(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                                      const std::wstring& fallback) const {
    const auto value = registry_.Query(hive, path, name);
    if (!value) {
        return fallback;
    }
    const std::string_view bytes = value->bytes;
    const std::string_view text = bytes.substr(0, bytes.find('\0'));
    return CutToBytes(ansiText_, ansiText_.Decode(text.substr(0, kLongestRegistryText + kSpareBytes)),
                      kLongestRegistryText);
}

std::wstring RegIniFunc::RegGetText(RegistryHive hive, const RegistryPlace& place,
                                    const std::wstring& fallback) const {
    if (!place.isNumber) {
        return RegGetString(hive, place.path, place.name, fallback);
    }
    return DecimalText(RegGetDword(hive, place.path, place.name, NumberFromText(fallback).value_or(0)));
}

bool RegIniFunc::RegSetDword(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                             std::int32_t value) {
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return registry_.Set(hive, path, name, {kRegistryDword, std::move(bytes)});
}

bool RegIniFunc::RegSetString(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                              std::wstring_view value) {
    std::string bytes = ansiText_.Encode(value.substr(0, value.find(L'\0')));
    if (bytes.empty()) {
        bytes.push_back('\0');
    }
    bytes.push_back('\0');
    return registry_.Set(hive, path, name, {kRegistryString, std::move(bytes)});
}

bool RegIniFunc::GoesToFile(const std::wstring& file) const {
    return file != ownIniFile_ || IniFileExist;
}

std::wstring RegIniFunc::IniGetString(const std::wstring& section, const std::wstring& key,
                                      const std::wstring& fallback, const std::wstring& file) const {
    if (GoesToFile(file)) {
        const std::wstring text =
            profileFiles_.GetString(section, key, fallback, file, kLongestProfileText + kSpareBytes);
        return CutToBytes(ansiText_, CutAtNul(text), kLongestProfileText);
    }
    const auto place = TranslateIniName(section, key);
    return place ? RegGetText(RegistryHive::CurrentUser, *place, fallback) : std::wstring();
}

std::int32_t RegIniFunc::IniGetInt(const std::wstring& section, const std::wstring& key,
                                   std::int32_t fallback, const std::wstring& file) const {
    if (GoesToFile(file)) {
        return profileFiles_.GetInt(section, key, fallback, file);
    }
    return LeadingNumber(IniGetString(section, key, DecimalText(fallback), file));
}

bool RegIniFunc::IniSetString(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                              const std::wstring& file) {
    if (GoesToFile(file)) {
        return profileFiles_.SetString(section, key, value, file);
    }
    const auto place = TranslateIniName(section, key);
    if (!place) {
        return false;
    }
    if (!place->isNumber) {
        return RegSetString(RegistryHive::CurrentUser, place->path, place->name, value);
    }
    const auto number = NumberFromText(value);
    return number && RegSetDword(RegistryHive::CurrentUser, place->path, place->name, *number);
}

bool RegIniFunc::IniDeleteSection(const std::wstring& section, const std::wstring& file) {
    if (GoesToFile(file)) {
        return profileFiles_.DeleteSection(section, file);
    }
    // Only a Pattern has a key of its own; the other sections share theirs with what is not ours to remove.
    constexpr std::size_t kNumberPos = 4;
    const std::int32_t number = section.size() > kNumberPos ? LeadingNumber(section.substr(kNumberPos)) : 0;
    if (number < 1 || !EqualsIgnoreCase(section, PatternSection(number))) {
        return false;
    }
    return registry_.DeleteKey(RegistryHive::CurrentUser, TranslateIniName(section, L"UserName")->path);
}

std::wstring RegIniFunc::AsStored(const std::wstring& text) const {
    return ansiText_.Decode(ansiText_.Encode(text));
}

std::int32_t RegIniFunc::ReadCurrentPatternNumber() const {
    return NumberInRangeOr(IniGetString(kProgramSection, L"CurrUser", L"1", ownIniFile_), 1, kMaxPatterns, 1);
}

std::int32_t RegIniFunc::ReadPatternCount() const {
    return NumberInRangeOr(IniGetString(kProgramSection, L"NumUser", L"1", ownIniFile_), 1, kMaxPatterns, 1);
}

std::int32_t RegIniFunc::StoredPatternCount() const {
    return LeadingNumber(IniGetString(kProgramSection, L"NumUser", L"1", ownIniFile_));
}
