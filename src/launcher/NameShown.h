#pragma once

#include "platform/NameOnScreen.h"
#include "settings/OnScreenSettings.h"

#include <cstdint>
#include <optional>
#include <string>

class RegIniFunc;

/// "Time" of the on-screen settings, in seconds: 1...10, anything else is 2.
[[nodiscard]] int LoadShownSeconds(const RegIniFunc& store);

/// What is shown of a button's name, and for how long; nothing when that is off, or the name is blank.
[[nodiscard]] std::optional<ShownName> NameShown(const std::wstring& name, const OnScreenSettings& settings,
                                                 int seconds);

/// The outline (0x00BBGGRR) that sets a text of this colour off from any background: black or white.
[[nodiscard]] std::uint32_t OutlineColor(std::uint32_t color);

struct ScreenArea {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

struct NamePlace {
    int x = 0;
    int y = 0;

    bool operator==(const NamePlace&) const = default;
};

/// Where a name of this size stands: in the middle, low on the monitor, but above its last eighth.
[[nodiscard]] NamePlace PlaceOfName(const ScreenArea& monitor, int width, int height);
