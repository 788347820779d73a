#include "settings/StoreLayout.h"

#include "Fuzz.h"
#include "FuzzStore.h"
#include "settings/Pattern.h"
#include "settings/StdModule.h"

namespace {

bool IsDecimal(std::wstring_view text) {
    if (text.starts_with(L'-')) {
        text.remove_prefix(1);
    }
    return !text.empty() && text.find_first_not_of(L"0123456789") == std::wstring_view::npos;
}

/// ...\SetN, or ...\SetN\AppKeyB with a single digit.
void CheckPatternPath(std::wstring_view path) {
    constexpr std::wstring_view kSet = L"\\Setting\\Set";
    constexpr std::wstring_view kKey = L"\\AppKey";
    Require(path.starts_with(kSet), "a Pattern elsewhere than with the Patterns");
    path.remove_prefix(kSet.size());
    const std::size_t end = std::min(path.find(L'\\'), path.size());
    Require(IsDecimal(path.substr(0, end)), "a Pattern without a number");
    path.remove_prefix(end);
    if (path.empty()) {
        return;
    }
    Require(path.starts_with(kKey), "something other than a button in a Pattern");
    path.remove_prefix(kKey.size());
    Require(path.size() == 1 && IsDecimal(path), "a button's number is not one digit");
}

/// By what the key contains, as the launcher takes it apart.
std::wstring NameOfPatternsValue(const std::wstring& key) {
    const std::wstring lowered = LoweredAscii(key);
    const auto has = [&](const wchar_t* part) { return lowered.find(part) != std::wstring::npos; };
    if (!has(L"btn")) {
        return key == L"UserName" ? L"SetName" : L"";
    }
    const std::wstring last = key.substr(key.size() - 1);
    const std::wstring program = IsDecimal(last) ? last : L"0";
    return has(L"_name")    ? L"DispTitle"
           : has(L"_exec")  ? L"Execute"
           : has(L"_numap") ? L"NumAP"
           : has(L"_ap")    ? L"AP" + program
           : has(L"_title") ? L"ProgName" + program
                            : L"";
}

void CheckPlace(const std::wstring& section, const std::wstring& key, const RegistryPlace& place) {
    const std::wstring product = kProductKey;
    Require(place.path.starts_with(product), "outside of the product's key");
    const std::wstring below = place.path.substr(product.size());
    if (section == L"KORVOQLB") {
        Require(below.empty() && place.isNumber, "the program's own numbers");
    } else if (section == L"ONSCREEN") {
        Require(below == L"\\OnScreen", "the screen elsewhere");
        Require(place.isNumber == (LoweredAscii(place.name) != L"fontface"), "numbers and the face");
        Require(place.name == L"FontFace" || place.name == L"size" || place.name == L"Time" ||
                    place.name == key,
                "a name of the screen");
    } else {
        CheckPatternPath(below);
        Require(place.name == NameOfPatternsValue(key), "another value of the Pattern");
        Require(place.isNumber == (place.name == L"NumAP"), "a number that is none, or the reverse");
    }
}

void CheckRoundTrip(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                    const AnsiText& ansiText) {
    FuzzStore settings(ansiText);
    const std::wstring file = FuzzStore::kOwnFile;
    const bool stored = settings.store.IniSetString(section, key, value, file);
    Require(settings.files.Operations().empty(), "the ini file is asked without being chosen");
    const auto writes = settings.registry.Writes();
    Require(writes.size() == (stored ? 1U : 0U), "written or not, against what was answered");
    const std::wstring read = settings.store.IniGetString(section, key, L"7", file);
    Require(settings.store.IniGetInt(section, key, 7, file) == LeadingNumber(read),
            "the number is not that of the text");
    const auto place = TranslateIniName(section, key);
    if (!stored) {
        Require(read == (place ? L"7" : L""), "something is read that was not written");
        return;
    }
    Require(writes[0].hive == RegistryHive::CurrentUser && writes[0].path == place->path &&
                writes[0].name == place->name,
            "written somewhere else");
    if (place->isNumber) {
        Require(read == std::to_wstring(NumberFromText(value).value()), "another number comes back");
    } else {
        const std::wstring kept = settings.store.AsStored(CutAtNul(value));
        Require(kept.starts_with(read), "another text comes back");
        Require(read == kept || ansiText.Encode(kept).size() > 2048, "a text is cut early");
    }
}

void CheckDeletion(const std::wstring& section) {
    FuzzStore settings(FuzzStore::CodePage(false));
    for (int number = 0; number <= kMaxPatterns + 1; ++number) {
        settings.registry.PutDword(RegistryHive::CurrentUser,
                                   FuzzStore::Path(L"Setting\\Set" + std::to_wstring(number) + L"\\AppKey1"),
                                   L"NumAP", number);
    }
    settings.registry.PutDword(RegistryHive::CurrentUser, kProductKey, L"NumSetting", 1);
    const FakeRegistry before = settings.registry;
    const bool deleted = settings.store.IniDeleteSection(section, FuzzStore::kOwnFile);
    const std::wstring lowered = LoweredAscii(section);
    const std::wstring digits = lowered.starts_with(L"user") ? lowered.substr(4) : L"";
    const auto number = IsDecimal(digits) ? NumberFromText(digits) : std::nullopt;
    const bool isPattern = number && *number >= 1 && digits[0] != L'0';
    Require(deleted == isPattern, "the wrong sections can be removed");
    FakeRegistry expected = before;
    if (isPattern) {
        expected.Remove(RegistryHive::CurrentUser, FuzzStore::Path(L"Setting\\Set" + digits + L"\\AppKey1"),
                        L"NumAP");
    }
    Require(settings.registry.SameValues(expected), "more or less than the section is removed");
}

} // namespace

/// Section, key and value, a line each.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::wstring section = Widened(input.Line());
    const std::wstring key = Widened(input.Line());
    const auto place = TranslateIniName(section, key);
    const bool known = section == L"KORVOQLB" || section == L"ONSCREEN" ||
                       LoweredAscii(section).find(L"user") != std::wstring::npos;
    Require(place.has_value() == known, "the wrong sections have a place");
    if (place) {
        CheckPlace(section, key, *place);
    }
    for (const bool japanese : {false, true}) {
        const AnsiText& ansiText = FuzzStore::CodePage(japanese);
        CheckRoundTrip(section, key, ansiText.Decode(input.Rest()), ansiText);
    }
    CheckDeletion(section);
    return 0;
}
