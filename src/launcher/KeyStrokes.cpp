#include "launcher/KeyStrokes.h"

#include <algorithm>

namespace {

constexpr std::uint8_t kShift = 0x10;
constexpr std::uint8_t kCtrl = 0x11;
constexpr std::uint8_t kAlt = 0x12;
constexpr std::uint8_t kLeftWindows = 0x5B;
constexpr std::uint8_t kRightWindows = 0x5C;
constexpr std::uint8_t kLeftAlt = 0xA4;
constexpr std::uint8_t kRightAlt = 0xA5;
constexpr std::uint8_t kMeaningless = 0xE8; ///< that Windows gives no key

bool OpensMenuAlone(const KeyStroke& stroke) {
    return stroke.key == kLeftWindows || stroke.key == kRightWindows || stroke.key == kLeftAlt ||
           stroke.key == kRightAlt;
}

} // namespace

std::vector<KeyStroke> StrokesFor(const KeyCode& key, const std::vector<KeyStroke>& held) {
    std::vector<KeyStroke> strokes;
    const auto add = [&](std::uint8_t code, bool down, bool extended = false) {
        strokes.push_back({code, down, extended});
    };
    const auto press = [&](std::uint8_t code, bool extended = false) {
        add(code, true, extended);
        add(code, false, extended);
    };
    const bool mask = std::ranges::any_of(held, OpensMenuAlone);
    if (mask) {
        press(kMeaningless);
    }
    for (const KeyStroke& modifier : held) {
        add(modifier.key, false, modifier.extended);
    }

    std::vector<std::uint8_t> own;
    for (const auto& [wanted, code] : {std::pair(key.ctrl, kCtrl), {key.shift, kShift}, {key.alt, kAlt}}) {
        if (wanted) {
            own.push_back(code);
        }
    }
    for (const std::uint8_t code : own) {
        add(code, true);
    }
    press(key.key, key.extended);
    std::ranges::reverse(own);
    for (const std::uint8_t code : own) {
        add(code, false);
    }

    for (const KeyStroke& modifier : held) {
        add(modifier.key, true, modifier.extended);
    }
    if (mask) {
        press(kMeaningless);
    }
    return strokes;
}
