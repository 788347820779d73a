#pragma once

#include <cstdint>
#include <vector>

struct KeyStroke {
    std::uint8_t key = 0; ///< virtual key
    bool down = true;
    bool extended = false;

    bool operator==(const KeyStroke&) const = default;
};

/// The keyboard, as if someone else typed on it.
class KeySender {
public:
    virtual ~KeySender() = default;

    /// Those of Shift, Ctrl, Alt and Windows, left and right, that are down now, as strokes that press them.
    [[nodiscard]] virtual std::vector<KeyStroke> HeldModifiers() const = 0;

    /// SendInput: all strokes at once, so that nothing that is typed meanwhile comes between them. False when
    /// the system took none of them.
    virtual bool Send(const std::vector<KeyStroke>& strokes) = 0;
};
