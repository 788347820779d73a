#pragma once

#include <cstdint>
#include <string>

class FaceMatcher;
class RegIniFunc;

inline constexpr std::uint8_t kSmallestFontStep = 1;
inline constexpr std::uint8_t kStandardFontStep = 3;
inline constexpr std::uint8_t kLargestFontStep = 5;

/// How the resident launcher shows a button's name on the screen.
struct OnScreenSettings {
    std::uint8_t OnScreen = 1; ///< 1 shown, 0 not shown
    std::wstring FontName;
    std::uint8_t FontSize = kStandardFontStep; ///< step 1...5, string ids 3005...3009
    std::int32_t Color = 0;                    ///< 0x00BBGGRR

    bool operator==(const OnScreenSettings&) const = default;
};

/// All four fields equal, the face name exactly.
[[nodiscard]] bool OnScreenEqual(const OnScreenSettings& a, const OnScreenSettings& b);

/// The maker's colour: the DWORD's decimal digits read as a hexadecimal number (255 means 0x255); green
/// (65280) when they are none, as those of a negative number, or stand for more than 32 bits.
[[nodiscard]] std::int32_t ColorFromDecimalDigits(std::int32_t stored);

/// HKLM "Default\OnScreen". The face is one of `fonts` where it can be.
[[nodiscard]] OnScreenSettings LoadDefaultOnScreen(const RegIniFunc& store, const FaceMatcher& fonts);

/// Section "ONSCREEN"; what is missing or out of range comes from `defaults`.
[[nodiscard]] OnScreenSettings LoadOnScreen(const RegIniFunc& store, const FaceMatcher& fonts,
                                            const OnScreenSettings& defaults);

void SaveOnScreen(RegIniFunc& store, const OnScreenSettings& settings);
