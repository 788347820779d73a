#include "launcher/NameShown.h"

#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <array>

namespace {

/// To be read from a chair, not from the page of a dialog.
constexpr std::array kStepPoints{24, 32, 44, 60, 80};

} // namespace

int LoadShownSeconds(const RegIniFunc& store) {
    constexpr int kLongest = 10;
    constexpr int kUsual = 2;
    return NumberInRangeOr(
        store.IniGetString(kOnScreenSection, L"DelayTime", DecimalText(kUsual), store.OwnIniFile()), 1,
        kLongest, kUsual);
}

std::optional<ShownName> NameShown(const std::wstring& name, const OnScreenSettings& settings, int seconds) {
    constexpr std::size_t kLongestText = 200; // more than a monitor has room for
    constexpr std::uint32_t kColorMask = 0x00FFFFFF;
    std::wstring text = TrimBlanks(name).substr(0, kLongestText);
    std::ranges::replace_if(
        text, [](wchar_t c) { return c < L' '; }, L' ');
    if (settings.OnScreen == 0 || text.empty()) {
        return std::nullopt;
    }
    ShownName shown;
    shown.text = std::move(text);
    shown.face = settings.FontName;
    const int step = std::clamp<int>(settings.FontSize, kSmallestFontStep, kLargestFontStep);
    shown.points = kStepPoints.at(static_cast<std::size_t>(step - kSmallestFontStep));
    shown.color = static_cast<std::uint32_t>(settings.Color) & kColorMask;
    shown.seconds = seconds;
    return shown;
}

std::uint32_t OutlineColor(std::uint32_t color) {
    constexpr std::uint32_t kWhite = 0x00FFFFFF;
    constexpr std::uint32_t kHalf = 128 * 1000;
    const std::uint32_t red = color & 0xFF;
    const std::uint32_t green = color >> 8U & 0xFF;
    const std::uint32_t blue = color >> 16U & 0xFF;
    // How bright the eye finds each.
    return red * 299 + green * 587 + blue * 114 < kHalf ? kWhite : 0;
}

NamePlace PlaceOfName(const ScreenArea& monitor, int width, int height) {
    constexpr int kFreeShare = 8;
    const int free = (monitor.bottom - monitor.top) / kFreeShare;
    return {monitor.left + (monitor.right - monitor.left - width) / 2,
            std::max(monitor.top, monitor.bottom - free - height)};
}
