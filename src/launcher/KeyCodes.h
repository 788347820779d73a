#pragma once

#include "platform/KeyCode.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

class HotKeys;
class StringTable;

/// The number that stands for a key in the store: virtual key, plus 256 Shift, 512 Ctrl, 1024 Alt, 2048 extended.
/// Other bits mean nothing.
[[nodiscard]] KeyCode KeyFromNumber(std::int32_t number);
[[nodiscard]] std::int32_t NumberOfKey(const KeyCode& key);

/// A key of its own that keyboards have for starting something.
struct LaunchKey {
    std::uint8_t key = 0;
    int text = 0; ///< offset of its name
};
inline constexpr int kLaunchKeys = 7;
[[nodiscard]] const std::array<LaunchKey, kLaunchKeys>& LaunchKeys();

/// "Ctrl + Alt + 1", "Mail".
[[nodiscard]] std::wstring KeyText(const KeyCode& key, const StringTable& texts, const HotKeys& keys);

/// Whether a key may be taken away from all other programs: not one that is needed for typing.
[[nodiscard]] bool CanBeHotKey(const KeyCode& key);

/// The system tells no difference between like keys inside and outside the number block.
[[nodiscard]] bool SameHotKey(const KeyCode& a, const KeyCode& b);
