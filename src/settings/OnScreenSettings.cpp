#include "settings/OnScreenSettings.h"

#include "settings/FaceMatcher.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

#include <limits>

namespace {

constexpr std::int32_t kGreen = 0xFF00;
constexpr std::int64_t kHexBase = 16;

/// `read(key, fallback)`: the text of an entry, or `fallback` where it is missing.
template <class Read>
OnScreenSettings ReadEntries(Read read, const FaceMatcher& fonts, const OnScreenSettings& defaults) {
    const auto step = [&](const wchar_t* key, std::int32_t min, std::int32_t max, std::uint8_t fallback) {
        return static_cast<std::uint8_t>(
            NumberInRangeOr(read(key, DecimalText(fallback)), min, max, fallback));
    };
    OnScreenSettings settings;
    settings.OnScreen = step(L"OnScreen", 0, 1, defaults.OnScreen);
    settings.FontName = fonts.MatchInstalledFont(read(L"FontName", defaults.FontName));
    settings.FontSize = step(L"FontSize", kSmallestFontStep, kLargestFontStep, defaults.FontSize);
    settings.Color = NumberFromText(read(L"Color", DecimalText(defaults.Color))).value_or(defaults.Color);
    return settings;
}

} // namespace

bool OnScreenEqual(const OnScreenSettings& a, const OnScreenSettings& b) {
    return a == b;
}

std::int32_t ColorFromDecimalDigits(std::int32_t stored) {
    if (stored < 0) {
        return kGreen;
    }
    std::int64_t color = 0;
    for (const wchar_t digit : DecimalText(stored)) {
        color = color * kHexBase + (digit - L'0');
    }
    constexpr std::int64_t kAllBits = std::numeric_limits<std::uint32_t>::max();
    return color > kAllBits ? kGreen : static_cast<std::int32_t>(static_cast<std::uint32_t>(color));
}

OnScreenSettings LoadDefaultOnScreen(const RegIniFunc& store, const FaceMatcher& fonts) {
    const auto read = [&](const wchar_t* key, const std::wstring& /*fallback*/) {
        RegistryPlace place = *TranslateIniName(kOnScreenSection, key, kDefaultKey);
        if (store.IniFileExist) {
            place.name = key;
        }
        return store.RegGetText(RegistryHive::LocalMachine, place);
    };
    OnScreenSettings settings = ReadEntries(read, fonts, OnScreenSettings{});
    settings.Color = ColorFromDecimalDigits(settings.Color);
    return settings;
}

OnScreenSettings LoadOnScreen(const RegIniFunc& store, const FaceMatcher& fonts,
                              const OnScreenSettings& defaults) {
    const auto read = [&](const wchar_t* key, const std::wstring& fallback) {
        return store.IniGetString(kOnScreenSection, key, fallback, store.OwnIniFile());
    };
    return ReadEntries(read, fonts, defaults);
}

void SaveOnScreen(RegIniFunc& store, const OnScreenSettings& settings) {
    const auto write = [&](const wchar_t* key, const std::wstring& text) {
        // A refused write is the user's own permission problem; the Windows dialogs of this kind stay silent.
        store.IniSetString(kOnScreenSection, key, text, store.OwnIniFile());
    };
    write(L"OnScreen", DecimalText(settings.OnScreen));
    write(L"FontName", settings.FontName);
    write(L"FontSize", DecimalText(settings.FontSize));
    write(L"Color", DecimalText(settings.Color));
}
