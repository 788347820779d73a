#pragma once

#include "platform/Clock.h"

/// Stands until the test sets it.
class FakeClock final : public Clock {
public:
    LocalTime now{2026, 11, 22, 3, 15, 2};

    [[nodiscard]] LocalTime Now() const override { return now; }
};
