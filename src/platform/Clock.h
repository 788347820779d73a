#pragma once

/// A moment in the user's time zone.
struct LocalTime {
    int year = 0;
    int month = 0; ///< 1...12
    int day = 0;   ///< 1...31
    int hour = 0;
    int minute = 0;
    int second = 0;
};

class Clock {
public:
    virtual ~Clock() = default;

    [[nodiscard]] virtual LocalTime Now() const = 0;
};
