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
    void Enable(std::size_t index, bool enabled) const { EnableWindow(windows_.at(index), enabled); }

private:
    void Pump() {
        MSG message{};
        while (!hangs_ && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
    }

    std::vector<HWND> windows_;
    std::atomic<bool> hangs_{false};
    std::jthread thread_; // goes first
};

void LookFor(Watch& watch, Watch::Clock::duration time) {
    for (const auto end = Watch::Clock::now() + time; Watch::Clock::now() < end; UiDriver::Pause(20ms)) {
        watch.Look();
    }
}

TEST(Watch, FindsNothingWhenASecondDialogSoonGoes) {
    const Dialogs dialogs(2);
    Watch watch(GetCurrentProcessId());
    EXPECT_FALSE(watch.Look());
    dialogs.Enable(0, false);
    EXPECT_TRUE(watch.Look());
    EXPECT_NO_THROW(LookFor(watch, 500ms));
}

TEST(Watch, FindsASecondDialogThatStays) {
    const Dialogs dialogs(2);
    Watch watch(GetCurrentProcessId());
    EXPECT_THROW(LookFor(watch, 2s), std::runtime_error);
    EXPECT_GE(watch.LongestDoubt(), 300ms);
}

TEST(Watch, FindsAProgramThatDoesNotAnswerInTime) {
    Dialogs dialogs(1);
    Watch watch(GetCurrentProcessId());
    watch.Look();
    dialogs.Hang(true);
    std::jthread waker([&] {
        UiDriver::Pause(700ms);
        dialogs.Hang(false);
    });
    EXPECT_NO_THROW(LookFor(watch, 800ms));
    EXPECT_GE(watch.LongestAnswer(), 400ms);

    waker.join();
    dialogs.Hang(true);
    EXPECT_THROW(LookFor(watch, 10s), std::runtime_error);
    EXPECT_GE(watch.LongestAnswer(), 1900ms);
    dialogs.Hang(false);
}

} // namespace
