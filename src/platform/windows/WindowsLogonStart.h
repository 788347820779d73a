#pragma once

#include "platform/LogonStart.h"

/// A value of the user's key "Run". A task would not start on battery.
class WindowsLogonStart final : public LogonStart {
public:
    [[nodiscard]] bool IsOn() const override;
    bool Set(bool on) override;
};
