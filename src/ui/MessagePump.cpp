#include "ui/MessagePump.h"

#include "ui/Form.h"

#include <utility>

namespace {

constexpr ULONGLONG kBlinkMs = 150;
/// Messages may come as fast as they are worked off.
constexpr ULONGLONG kLongestProcessMs = 50;

} // namespace

MessagePump::SlowWork::SlowWork(MessagePump& pump) : pump_(pump) {
    pump_.slowSince_ = GetTickCount64();
}

MessagePump::SlowWork::~SlowWork() {
    pump_.slowSince_ = 0;
    if (std::exchange(pump_.hourglass_, false)) {
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    }
}

bool MessagePump::Process() {
    const ULONGLONG start = GetTickCount64();
    if (slowSince_ != 0 && !hourglass_ && start - slowSince_ >= kBlinkMs) {
        hourglass_ = true;
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    }
    MSG message{};
    while (GetTickCount64() - start < kLongestProcessMs &&
           PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam)); // for the loops below this one
            return false;
        }
        form_.Answer(message);
    }
    return true;
}
