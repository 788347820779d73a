#include "ui/MessagePump.h"

#include "platform/windows/KernelHandle.h"
#include "platform/windows/Worker.h"
#include "ui/Form.h"

#include <memory>
#include <utility>

namespace {

constexpr DWORD kBlinkMs = 150;
/// Messages may come as fast as they are worked off.
constexpr ULONGLONG kLongestProcessMs = 50;

} // namespace

MessagePump::SlowWork::SlowWork(MessagePump& pump) : pump_(pump) {
    if (pump_.slowWorks_++ == 0) {
        pump_.slowSince_ = GetTickCount64();
    }
}

MessagePump::SlowWork::~SlowWork() {
    if (--pump_.slowWorks_ == 0 && std::exchange(pump_.hourglass_, false)) {
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    }
}

MessagePump::MessagePump(Form& form) : form_(form), thread_(GetCurrentThreadId()) {}

DWORD MessagePump::UntilSlow() const {
    if (slowWorks_ == 0 || hourglass_) {
        return INFINITE;
    }
    const ULONGLONG passed = GetTickCount64() - slowSince_;
    return passed >= kBlinkMs ? 0 : static_cast<DWORD>(kBlinkMs - passed);
}

void MessagePump::ShowHourglassWhenSlow() {
    if (UntilSlow() == 0) {
        hourglass_ = true;
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    }
}

void MessagePump::Process() {
    if (GetCurrentThreadId() != thread_ || quit_) {
        return;
    }
    ShowHourglassWhenSlow();
    const ULONGLONG start = GetTickCount64();
    MSG message{};
    while (GetTickCount64() - start < kLongestProcessMs &&
           PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            quit_ = true;
            PostQuitMessage(static_cast<int>(message.wParam)); // for the loops below this one
            return;
        }
        if (!form_.HandleDialogMessage(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

bool MessagePump::RunBeside(std::function<void()> work, const std::function<bool()>& goOn) {
    const auto done = std::make_shared<KernelHandle>(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const auto sharedWork = std::make_shared<std::function<void()>>(std::move(work));
    if (!*done || !StartWorker([sharedWork, done] {
            (*sharedWork)();
            SetEvent(done->get());
        })) {
        (*sharedWork)();
        return true;
    }
    HANDLE event = done->get();
    while (goOn() && !quit_) {
        switch (MsgWaitForMultipleObjectsEx(1, &event, UntilSlow(), QS_ALLINPUT, MWMO_INPUTAVAILABLE)) {
        case WAIT_OBJECT_0:
            return true;
        case WAIT_OBJECT_0 + 1:
            Process();
            break;
        case WAIT_TIMEOUT:
            ShowHourglassWhenSlow();
            break;
        default:
            return WaitForSingleObject(event, INFINITE) == WAIT_OBJECT_0;
        }
    }
    return false;
}
