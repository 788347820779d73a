#include "Watch.h"
#include "driver/Win32.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr wchar_t kDialogClass[] = L"#32770";

/// Windows of the test's own, on a thread that answers only while it is allowed to.
class Dialogs {
public:
    explicit Dialogs(int count) {
        std::promise<void> made;
        std::future<void> done = made.get_future();
        thread_ = std::jthread([this, count, made = std::move(made)](const std::stop_token& stop) mutable {
            for (int i = 0; i < count; ++i) {
                windows_.push_back(CreateWindowExW(0, kDialogClass, L"", WS_POPUP | WS_VISIBLE, 20, 20, 100,
                                                   50, nullptr, nullptr, nullptr, nullptr));
            }
            made.set_value();
            while (!stop.stop_requested()) {
                Pump();
                UiDriver::Pause(5ms);
            }
            for (const HWND window : windows_) {
                DestroyWindow(window);
            }
        });
        done.wait();
    }

    void Hang(bool hangs) { hangs_ = hangs; }
    /// Until a message that was sent has waited that long.
    void HangFor(std::chrono::milliseconds time) {
        hangsFor_ = static_cast<int>(time.count());
        hangs_ = true;
    }
    void Enable(std::size_t index, bool enabled) const { EnableWindow(windows_.at(index), enabled); }

private:
    void Pump() {
        if (hangs_ && hangsFor_ != 0 && HIWORD(GetQueueStatus(QS_SENDMESSAGE)) != 0) {
            UiDriver::Pause(std::chrono::milliseconds(hangsFor_.exchange(0)));
            hangs_ = false;
        }
        MSG message{};
        while (!hangs_ && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
    }

    std::vector<HWND> windows_;
    std::atomic<int> hangsFor_{0}; ///< milliseconds; 0: until it is told otherwise
    std::atomic<bool> hangs_{false};
    std::jthread thread_; // goes first
};

constexpr Watch::Limits kGenerous{30s, 30s};

bool FindsAFault(Watch& watch) {
    const auto end = Watch::Clock::now() + 30s;
    try {
        while (Watch::Clock::now() < end) {
            watch.Look();
        }
    } catch (const std::runtime_error&) {
        return true;
    }
    return false;
}

TEST(Watch, FindsNothingWhenASecondDialogSoonGoes) {
    const Dialogs dialogs(2);
    Watch watch(GetCurrentProcessId(), kGenerous);
    EXPECT_FALSE(watch.Look());
    dialogs.Enable(0, false);
    EXPECT_TRUE(watch.Look());
}

TEST(Watch, FindsASecondDialogThatStays) {
    const Dialogs dialogs(2);
    Watch watch(GetCurrentProcessId(), {30s, 300ms});
    EXPECT_TRUE(FindsAFault(watch));
    EXPECT_GE(watch.LongestDoubt(), 300ms);
}

TEST(Watch, FindsNothingInAProgramThatIsSlow) {
    Dialogs dialogs(1);
    Watch watch(GetCurrentProcessId(), kGenerous);
    dialogs.HangFor(200ms);
    watch.Look();
    EXPECT_GE(watch.LongestAnswer(), 150ms);
}

TEST(Watch, FindsAProgramThatDoesNotAnswerInTime) {
    Dialogs dialogs(1);
    Watch watch(GetCurrentProcessId(), {1s, 30s});
    dialogs.Hang(true);
    EXPECT_TRUE(FindsAFault(watch));
    EXPECT_GE(watch.LongestAnswer(), 950ms);
    dialogs.Hang(false);
}

} // namespace
