#pragma once

#include "platform/KeyCode.h"

#include <string>

enum class HotKeyAnswer {
    Registered,
    Taken,  ///< another program has the key, or this one by another number
    Refused ///< the system knows no such key
};

/// Keys that the system reports to this program, whatever window is in front.
class HotKeys {
public:
    virtual ~HotKeys() = default;

    /// RegisterHotKey. `id` (1...1000) names the key from then on.
    virtual HotKeyAnswer Register(int id, const KeyCode& key) = 0;
    virtual void Unregister(int id) = 0;

    /// Whether the key is down now.
    [[nodiscard]] virtual bool IsDown(std::uint8_t key) const = 0;

    /// What is printed on a key, as the keyboard's driver says; empty when it does not know.
    [[nodiscard]] virtual std::wstring NameOf(const KeyCode& key) const = 0;
};
