#include "Watch.h"

#include "Scene.h"
#include "driver/Message.h"

#include <algorithm>

using namespace std::chrono_literals;
using UiDriver::Window;

namespace {

constexpr std::chrono::milliseconds kBetweenLooks = 50ms;

} // namespace

Watch::Watch(DWORD processId, const Limits& limits)
    : processId_(processId), limits_(limits), thread_([this](const std::stop_token& stop) {
          while (!stop.stop_requested()) {
              {
                  const std::lock_guard lock(mutex_);
                  LookAround();
              }
              UiDriver::Pause(kBetweenLooks);
          }
      }) {}

Watch::~Watch() = default;

bool Watch::Look() {
    const std::lock_guard lock(mutex_);
    LookAround();
    if (!fault_.empty()) {
        UiDriver::Fail(fault_);
    }
    return !doubtSince_;
}

Watch::Clock::duration Watch::LongestAnswer() const {
    const std::lock_guard lock(mutex_);
    return longestAnswer_;
}

Watch::Clock::duration Watch::LongestDoubt() const {
    const std::lock_guard lock(mutex_);
    return longestDoubt_;
}

void Watch::LookAround() {
    if (!fault_.empty()) {
        return;
    }
    for (const Window& window : UiDriver::FindWindows({processId_, {}, {}})) {
        Ask(window.Hwnd());
    }
    CountDialogs();
}

void Watch::Ask(HWND window) {
    const Clock::time_point start = Clock::now();
    DWORD_PTR result = 0;
    const bool answered = SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL,
                                              static_cast<UINT>(limits_.answer.count()), &result) != 0;
    const bool timedOut = !answered && GetLastError() == ERROR_TIMEOUT;
    const Clock::duration time = Clock::now() - start;
    longestAnswer_ = std::max(longestAnswer_, time);
    if (timedOut && IsWindow(window)) { // else it has closed meanwhile
        fault_ = L"the program does not answer in time: " + UiDriver::Describe(window);
    }
}

void Watch::CountDialogs() {
    // The windows have just answered, so this is no moment within the handling of a message.
    const Scene scene = Scene::Of(processId_);
    if (scene.active.size() < 2) {
        doubtSince_.reset();
        return;
    }
    const Clock::time_point now = Clock::now();
    doubtSince_ = doubtSince_.value_or(now);
    longestDoubt_ = std::max(longestDoubt_, now - *doubtSince_);
    if (now - *doubtSince_ >= limits_.doubt) {
        fault_ = L"more than one dialog is enabled: " + UiDriver::FromUtf8(Description(scene));
    }
}
