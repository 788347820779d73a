#include "platform/windows/WindowsProgramStarter.h"

#include "platform/windows/Com.h"
#include "platform/windows/DesktopShell.h"

#include <shellapi.h>

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace {

constexpr ULONGLONG kLongestWaitMs = 20'000;

/// Messages of the system end with a line break.
std::wstring ReasonOf(DWORD error) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                                            FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
                                        nullptr, error, 0, std::bit_cast<wchar_t*>(&text), 0, nullptr);
    const Owned<wchar_t*, LocalFree> owned(text);
    std::wstring reason(text == nullptr ? L"" : text, length);
    reason.erase(reason.find_last_not_of(L" \r\n") + 1);
    if (reason.empty()) {
        std::array<wchar_t, 16> number{};
        wsprintfW(number.data(), L"%lu", error);
        reason = number.data();
    }
    return reason;
}

DWORD ProcessOf(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process;
}

/// Not a child, a menu or a tip.
bool IsMainWindow(HWND window) {
    return IsWindowVisible(window) != FALSE && GetAncestor(window, GA_ROOT) == window &&
           GetWindow(window, GW_OWNER) == nullptr &&
           (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_NOACTIVATE) == 0;
}

/// The system gives the foreground to whoever had the last input, or to whom that one passes it on. The key that
/// began a sequence is long gone when its next program starts; input of our own that means nothing makes us the
/// last one again.
void TakeForegroundRight() {
    INPUT nothing{};
    nothing.type = INPUT_MOUSE;
    SendInput(1, &nothing, sizeof nothing);
}

void BringToFront(HWND window) {
    if (ProcessOf(GetForegroundWindow()) != ProcessOf(window)) {
        TakeForegroundRight();
        SetForegroundWindow(window);
    }
}

struct WindowSearch {
    DWORD process = 0;
    HWND found = nullptr; ///< the topmost
};

BOOL CALLBACK LookAtWindow(HWND window, LPARAM lParam) noexcept {
    auto& search = *std::bit_cast<WindowSearch*>(lParam);
    if (ProcessOf(window) != search.process || !IsMainWindow(window)) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

HWND MainWindowOf(DWORD process) {
    WindowSearch search{process, nullptr};
    EnumWindows(LookAtWindow, std::bit_cast<LPARAM>(&search));
    return search.found;
}

} // namespace

int ShowCommand(const StartRequest& request) {
    if (request.minimized) {
        return SW_SHOWMINNOACTIVE;
    }
    return request.maximized ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
}

WindowsProgramStarter* WindowsProgramStarter::one_ = nullptr;

WindowsProgramStarter::WindowsProgramStarter() {
    one_ = this;
}

WindowsProgramStarter::~WindowsProgramStarter() {
    one_ = nullptr;
}

std::optional<std::wstring> WindowsProgramStarter::Start(const StartRequest& request, int ticket) {
    const HWND front = GetForegroundWindow();
    TakeForegroundRight();
    AllowSetForegroundWindow(ASFW_ANY);
    if (HasMoreRightsThanDesktop()) {
        const bool isPath = request.file.find(L'\\') != std::wstring::npos;
        if (isPath && GetFileAttributesW(request.file.c_str()) == INVALID_FILE_ATTRIBUTES) {
            return ReasonOf(GetLastError());
        }
        if (!StartByDesktop(request)) {
            return ReasonOf(ERROR_ACCESS_DENIED);
        }
        Attend(ticket, nullptr, front);
        return std::nullopt;
    }
    SHELLEXECUTEINFOW start{};
    start.cbSize = sizeof start;
    start.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_UNICODE | (ticket != 0 ? SEE_MASK_NOCLOSEPROCESS : 0U);
    start.lpFile = request.file.c_str();
    start.lpParameters = request.parameters.empty() ? nullptr : request.parameters.c_str();
    start.lpDirectory = request.directory.empty() ? nullptr : request.directory.c_str();
    start.nShow = ShowCommand(request);
    if (ShellExecuteExW(&start) == FALSE) {
        return ReasonOf(GetLastError());
    }
    Attend(ticket, KernelHandle(start.hProcess), front);
    return std::nullopt;
}

void WindowsProgramStarter::Attend(int ticket, KernelHandle process, HWND formerFront) {
    if (ticket == 0) {
        return;
    }
    Watch& watch = watches_.emplace_back();
    watch.ticket = ticket;
    watch.serial = ++lastSerial_;
    watch.processId = process ? GetProcessId(process.get()) : 0;
    watch.process = std::move(process);
    watch.deadline = GetTickCount64() + kLongestWaitMs;
    // Of what the shell started in a way of its own, nothing is known but that it comes to the front.
    const DWORD first = watch.process ? EVENT_OBJECT_CREATE : EVENT_SYSTEM_FOREGROUND;
    const DWORD last = watch.process ? EVENT_OBJECT_SHOW : EVENT_SYSTEM_FOREGROUND;
    watch.hook.reset(
        SetWinEventHook(first, last, nullptr, OnEvent, watch.processId, 0, WINEVENT_OUTOFCONTEXT));
    // It may have been faster than the hook.
    const HWND front = GetForegroundWindow();
    watch.newest = watch.process ? MainWindowOf(watch.processId) : front != formerFront ? front : nullptr;
    if (watch.newest != nullptr) {
        Ask(watch);
    }
}

void WindowsProgramStarter::Forget(int ticket) {
    std::erase_if(watches_, [&](const Watch& watch) { return watch.ticket == ticket; });
}

void CALLBACK WindowsProgramStarter::OnEvent(HWINEVENTHOOK /*hook*/, DWORD /*event*/, HWND window,
                                             LONG object, LONG /*child*/, DWORD /*thread*/,
                                             DWORD /*time*/) noexcept {
    if (one_ != nullptr && object == OBJID_WINDOW) {
        one_->OnWindow(window);
    }
}

void WindowsProgramStarter::OnWindow(HWND window) {
    const DWORD process = ProcessOf(window);
    if (process == GetCurrentProcessId() || GetAncestor(window, GA_ROOT) != window) {
        return;
    }
    for (Watch& watch : watches_) {
        if (watch.process && watch.processId != process) {
            continue;
        }
        watch.newest = window;
        if (watch.asked == nullptr) {
            watch.answers = 0;
            Ask(watch);
        }
    }
}

void WindowsProgramStarter::Ask(Watch& watch) {
    const bool sent = SendMessageCallbackW(watch.newest, WM_NULL, 0, 0, OnAnswer, watch.serial) != FALSE;
    watch.asked = sent ? watch.newest : nullptr; // gone already: another one may come
}

void CALLBACK WindowsProgramStarter::OnAnswer(HWND /*window*/, UINT /*message*/, ULONG_PTR serial,
                                              LRESULT /*answer*/) noexcept {
    if (one_ != nullptr) {
        one_->OnAnswered(serial);
    }
}

void WindowsProgramStarter::OnAnswered(ULONG_PTR serial) {
    Watch* const watch = WatchOf(serial);
    if (watch == nullptr) {
        return; // nobody waits for it any more
    }
    if (!watch->process || WaitForInputIdle(watch->process.get(), 0) == 0) {
        Finish(serial);
        return;
    }
    // The first answer comes a moment before the program has nothing more to do; one of a window that was made
    // early may come long before, but then there are others to come.
    constexpr int kEnoughAnswers = 2;
    if (watch->newest != watch->asked) {
        watch->answers = 0;
        Ask(*watch);
    } else if (++watch->answers < kEnoughAnswers) {
        Ask(*watch);
    } else {
        watch->asked = nullptr;
    }
}

WindowsProgramStarter::Watch* WindowsProgramStarter::WatchOf(ULONG_PTR serial) {
    const auto found = std::ranges::find(watches_, serial, &Watch::serial);
    return found == watches_.end() ? nullptr : &*found;
}

void WindowsProgramStarter::Finish(ULONG_PTR serial) {
    const Watch* const watch = WatchOf(serial);
    if (watch == nullptr) {
        return;
    }
    const int ticket = watch->ticket;
    const HWND window = watch->process ? MainWindowOf(watch->processId) : watch->newest;
    std::erase_if(watches_, [&](const Watch& each) { return each.serial == serial; });
    if (window != nullptr && IsWindow(window) != FALSE) {
        BringToFront(window);
    }
    if (onReady) {
        onReady(ticket);
    }
}

DWORD WindowsProgramStarter::TimeLeft() const {
    if (watches_.empty()) {
        return INFINITE;
    }
    const ULONGLONG first = std::ranges::min_element(watches_, {}, &Watch::deadline)->deadline;
    const ULONGLONG now = GetTickCount64();
    return static_cast<DWORD>(first > now ? first - now : 0);
}

void WindowsProgramStarter::WaitForMessage() {
    std::vector<HANDLE> processes;
    std::vector<ULONG_PTR> serials;
    for (const Watch& watch : watches_) {
        if (watch.process) {
            processes.push_back(watch.process.get());
            serials.push_back(watch.serial);
        }
    }
    const auto count = static_cast<DWORD>(processes.size());
    const DWORD result =
        MsgWaitForMultipleObjectsEx(count, processes.data(), TimeLeft(), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    if (result < WAIT_OBJECT_0 + count) {
        Finish(serials[result - WAIT_OBJECT_0]);
    }
    const ULONGLONG now = GetTickCount64();
    std::vector<ULONG_PTR> late;
    for (const Watch& watch : watches_) {
        if (watch.deadline <= now) {
            late.push_back(watch.serial);
        }
    }
    std::ranges::for_each(late, [this](ULONG_PTR serial) { Finish(serial); });
    if (result == WAIT_FAILED) {
        WaitMessage(); // not round and round
    }
}
