#include "Measurement.h"

#include "common/Statistics.h"

#include <windows.h>

namespace {

constexpr DWORD kTimeoutMs = 20000;
constexpr DWORD kBetweenStartsMs = 100;

class StartedProcess {
public:
    explicit StartedProcess(const Subject& subject) {
        std::wstring commandLine = L'"' + subject.exePath + L"\" " + subject.arguments;
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        started_ = CreateProcessW(subject.exePath.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0,
                                  nullptr, nullptr, &startup, &process_) != FALSE;
    }
    StartedProcess(const StartedProcess&) = delete;
    StartedProcess& operator=(const StartedProcess&) = delete;
    ~StartedProcess() {
        if (!started_) {
            return;
        }
        if (WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT) {
            TerminateProcess(process_.hProcess, 1);
        }
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }

    [[nodiscard]] bool Started() const { return started_; }
    [[nodiscard]] bool Running() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT; }
    [[nodiscard]] bool WaitForExit() const {
        return WaitForSingleObject(process_.hProcess, kTimeoutMs) == WAIT_OBJECT_0;
    }
    [[nodiscard]] bool WaitForIdle() const { return WaitForInputIdle(process_.hProcess, kTimeoutMs) == 0; }
    [[nodiscard]] HANDLE Handle() const { return process_.hProcess; }
    [[nodiscard]] DWORD Id() const { return process_.dwProcessId; }

private:
    PROCESS_INFORMATION process_{};
    bool started_ = false;
};

struct WindowSearch {
    DWORD processId = 0;
    HWND found = nullptr;
};

BOOL CALLBACK LookAtWindow(HWND hwnd, LPARAM param) {
    auto& search = *reinterpret_cast<WindowSearch*>(param);
    DWORD processId = 0;
    GetWindowThreadProcessId(hwnd, &processId);
    if (processId != search.processId || !IsWindowVisible(hwnd)) {
        return TRUE;
    }
    search.found = hwnd;
    return FALSE;
}

HWND WaitForVisibleWindow(const StartedProcess& process) {
    const double start = NowMilliseconds();
    WindowSearch search{process.Id()};
    while (search.found == nullptr && process.Running() && NowMilliseconds() - start < kTimeoutMs) {
        EnumWindows(LookAtWindow, reinterpret_cast<LPARAM>(&search));
        if (search.found == nullptr) {
            Sleep(1);
        }
    }
    return search.found;
}

} // namespace

void MeasureOnce(Subject& subject) {
    if (!subject.failure.empty()) {
        return;
    }
    const double start = NowMilliseconds();
    const StartedProcess process(subject);
    if (!process.Started()) {
        subject.failure = L"cannot be started: " + subject.exePath;
        return;
    }
    const HWND hwnd = WaitForVisibleWindow(process);
    if (hwnd == nullptr) {
        subject.failure = L"showed no window";
        return;
    }
    DWORD_PTR answer = 0;
    if (!process.WaitForIdle() ||
        SendMessageTimeoutW(hwnd, WM_NULL, 0, 0, SMTO_NORMAL, kTimeoutMs, &answer) == 0) {
        subject.failure = L"does not answer";
        return;
    }
    subject.milliseconds.push_back(NowMilliseconds() - start);
    subject.peakMegabytes.push_back(PeakWorkingSet(process.Handle()));

    PostMessageW(hwnd, WM_CLOSE, 0, 0);
    if (!process.WaitForExit()) {
        subject.failure = L"does not close";
    }
    // What one program leaves to clear up must not slow the next one's start.
    Sleep(kBetweenStartsMs);
}
