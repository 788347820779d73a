#pragma once

#include "platform/KeySender.h"

class WindowsKeySender final : public KeySender {
public:
    [[nodiscard]] std::vector<KeyStroke> HeldModifiers() const override;
    bool Send(const std::vector<KeyStroke>& strokes) override;
};
