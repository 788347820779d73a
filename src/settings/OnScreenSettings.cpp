#include "settings/OnScreenSettings.h"

#include "settings/FaceMatcher.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

#include <limits>

namespace {

constexpr const wchar_t* kSection = L"ONSCREEN";
constexpr std::int32_t kGreen = 0xFF00;
constexpr std::int64_t kHexBase = 16;

std::uint8_t StepOr(const std::wstring& text, std::int32_t min, std::int32_t max, std::uint8_t fallback) {
    return static_cast<std::uint8_t>(NumberInRangeOr(text, min, max, fallback));
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
    const std::wstring path = std::wstring(kProductKey) + L"\\Default\\OnScreen";
    const auto number = [&](const wchar_t* name) {
        return store.RegGetDword(RegistryHive::LocalMachine, path, name);
    };
    const bool ini = store.IniFileExist;
    OnScreenSettings settings;
    settings.OnScreen = StepOr(DecimalText(number(L"OnScreen")), 0, 1, 1);
    settings.FontName = fonts.MatchInstalledFont(
        store.RegGetString(RegistryHive::LocalMachine, path, ini ? L"FontName" : L"FontFace"));
    settings.FontSize = StepOr(DecimalText(number(ini ? L"FontSize" : L"Size")), kSmallestFontStep,
                               kLargestFontStep, kStandardFontStep);
    settings.Color = ColorFromDecimalDigits(number(L"Color"));
    return settings;
}

OnScreenSettings LoadOnScreen(const RegIniFunc& store, const FaceMatcher& fonts,
                              const OnScreenSettings& defaults) {
    const auto read = [&](const wchar_t* key, const std::wstring& fallback) {
        return store.IniGetString(kSection, key, fallback, store.OwnIniFile());
    };
    const auto readNumber = [&](const wchar_t* key, std::int32_t fallback) {
        return read(key, DecimalText(fallback));
    };
    OnScreenSettings settings;
    settings.OnScreen = StepOr(readNumber(L"OnScreen", defaults.OnScreen), 0, 1, defaults.OnScreen);
    settings.FontName = fonts.MatchInstalledFont(read(L"FontName", defaults.FontName));
    settings.FontSize = StepOr(readNumber(L"FontSize", defaults.FontSize), kSmallestFontStep,
                               kLargestFontStep, defaults.FontSize);
    settings.Color = NumberFromText(readNumber(L"Color", defaults.Color)).value_or(defaults.Color);
    return settings;
}

void SaveOnScreen(RegIniFunc& store, const OnScreenSettings& settings) {
    const auto write = [&](const wchar_t* key, const std::wstring& text) {
        // A refused write is the user's own permission problem; the Windows dialogs of this kind stay silent.
        store.IniSetString(kSection, key, text, store.OwnIniFile());
    };
    write(L"OnScreen", DecimalText(settings.OnScreen));
    write(L"FontName", settings.FontName);
    write(L"FontSize", DecimalText(settings.FontSize));
    write(L"Color", DecimalText(settings.Color));
}
