#include "common/LongestSilence.h"

#include "common/Statistics.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace {

/// Not at once: the one who is asked needs the processor too.
constexpr DWORD kBetweenQuestionsMs = 1;
constexpr UINT kPatienceMs = 60'000;

void Answer(MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

} // namespace

double LongestSilence(HWND window, const std::function<void()>& work, const std::function<bool()>& done,
                      const std::function<bool()>& idle) {
    std::atomic<bool> over = false;
    std::atomic<bool> ended = false;
    double longest = 0;
    std::thread asking([&] {
        while (!over) {
            const double asked = NowMilliseconds();
            DWORD_PTR result = 0;
            SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &result);
            longest = std::max(longest, NowMilliseconds() - asked);
            Sleep(kBetweenQuestionsMs);
        }
        ended = true;
    });
    work();
    MSG message{};
    while (!ended) {
        if (!over && done()) {
            over = true; // the last question is answered below
        }
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            Answer(message);
        } else if (!idle()) {
            MsgWaitForMultipleObjectsEx(0, nullptr, kBetweenQuestionsMs, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        }
    }
    asking.join();
    return longest;
}
