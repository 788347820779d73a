#pragma once

#include "driver/Driver.h"

#include <chrono>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>

/// Looks all the time, and whenever it is told to, whether a program answers and has no more than one dialog that
/// takes input.
class Watch {
public:
    using Clock = std::chrono::steady_clock;

    struct Limits {
        std::chrono::milliseconds answer; ///< a window may take so long for one
        /// A dialog's owner is enabled before the dialog goes, and for that moment there are two.
        std::chrono::milliseconds doubt;
    };
    /// On a machine that has nothing else to do.
    static constexpr Limits kLimits{std::chrono::seconds(2), std::chrono::milliseconds(300)};

    explicit Watch(DWORD processId, const Limits& limits = kLimits);
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch();

    /// False while a second dialog is enabled. Fails when that has lasted too long, or when a window has not
    /// answered in time, at this look or before.
    bool Look();

    [[nodiscard]] Clock::duration LongestAnswer() const;
    /// Of two dialogs that were enabled at once.
    [[nodiscard]] Clock::duration LongestDoubt() const;

private:
    void LookAround();
    void Ask(HWND window);
    void CountDialogs();

    const DWORD processId_;
    const Limits limits_;
    mutable std::mutex mutex_;
    Clock::duration longestAnswer_{};
    Clock::duration longestDoubt_{};
    std::optional<Clock::time_point> doubtSince_;
    std::wstring fault_;
    std::jthread thread_; // goes first
};
