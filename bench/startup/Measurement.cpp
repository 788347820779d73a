#include "Measurement.h"

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <algorithm>

namespace {

constexpr DWORD kTimeoutMs = 20000;
constexpr DWORD kBetweenStartsMs = 100;

class Stopwatch {
public:
    Stopwatch() { QueryPerformanceCounter(&start_); }
    [[nodiscard]] double Milliseconds() const {
        LARGE_INTEGER now{};
        LARGE_INTEGER frequency{};
        QueryPerformanceCounter(&now);
        QueryPerformanceFrequency(&frequency);
        return static_cast<double>(now.QuadPart - start_.QuadPart) * 1000.0 /
               static_cast<double>(frequency.QuadPart);
    }

private:
    LARGE_INTEGER start_{};
};

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
    [[nodiscard]] DWORD Id() const { return process_.dwProcessId; }

private:
    PROCESS_INFORMATION process_{};
    bool started_ = false;
};

struct WindowSearch {
    DWORD processId = 0;
    const std::wstring& title;
    HWND found = nullptr;
};

BOOL CALLBACK LookAtWindow(HWND hwnd, LPARAM param) {
    auto& search = *reinterpret_cast<WindowSearch*>(param);
    DWORD processId = 0;
    GetWindowThreadProcessId(hwnd, &processId);
    if (processId != search.processId || !IsWindowVisible(hwnd)) {
        return TRUE;
    }
    wchar_t title[512] = L"";
    InternalGetWindowText(hwnd, title, 512);
    if (!search.title.empty() && search.title != title) {
        return TRUE;
    }
    search.found = hwnd;
    return FALSE;
}

HWND WaitForVisibleWindow(const StartedProcess& process, const std::wstring& title) {
    const Stopwatch watch;
    WindowSearch search{process.Id(), title};
    while (search.found == nullptr && process.Running() && watch.Milliseconds() < kTimeoutMs) {
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
    const Stopwatch watch;
    const StartedProcess process(subject);
    if (!process.Started()) {
        subject.failure = L"cannot be started: " + subject.exePath;
        return;
    }
    const HWND hwnd = WaitForVisibleWindow(process, subject.title);
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
    subject.milliseconds.push_back(watch.Milliseconds());

    PostMessageW(hwnd, WM_CLOSE, 0, 0);
    if (!process.WaitForExit()) {
        subject.failure = L"does not close";
    }
    // What one program leaves to clear up must not slow the next one's start.
    Sleep(kBetweenStartsMs);
}

std::optional<double> Median(std::vector<double> values) {
    if (values.empty()) {
        return std::nullopt;
    }
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}
