#pragma once

#include <cstdint>

/// A key with the modifiers that are held while it is pressed. Keys are virtual keys as Windows numbers them.
struct KeyCode {
    std::uint8_t key = 0; ///< 0 is no key
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
    bool extended = false; ///< the one of two like keys that lies outside the number block

    bool operator==(const KeyCode&) const = default;
};
