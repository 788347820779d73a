#pragma once

#include <chrono>
#include <functional>
#include <thread>

/// Longer than anything takes that is going to happen at all.
inline constexpr std::chrono::milliseconds kPatience{30'000};

/// What is not to happen is given this long to happen.
inline constexpr std::chrono::milliseconds kVigil{300};

/// Asks again and again until the condition holds. False when the time is over.
inline bool WaitUntil(const std::function<bool()>& condition,
                      std::chrono::milliseconds patience = kPatience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

/// False when the condition fails at any time of the vigil.
inline bool HoldsFor(const std::function<bool()>& condition, std::chrono::milliseconds vigil = kVigil) {
    return !WaitUntil([&] { return !condition(); }, vigil);
}
