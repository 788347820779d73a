#pragma once

#include "platform/Clock.h"

class WindowsClock final : public Clock {
public:
    [[nodiscard]] LocalTime Now() const override;
};
