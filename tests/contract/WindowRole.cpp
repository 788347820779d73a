#include "WindowRole.h"

#include "OtherProgram.h"

#include <bit>

namespace {

struct Player {
    Shared<WindowReport> report;
    Signal answer;
    bool slow = false;
};

/// The role is played once in its process.
Player* player = nullptr;

void Note(const WindowMessage& message) {
    WindowReport& report = *player->report.operator->();
    const std::uint32_t index = report.received;
    if (index < report.messages.size()) {
        report.messages[index] = message;
        ++report.received;
    }
    if (player->slow && !player->answer.Wait(kPatience)) {
        return;
    }
    ++report.answered;
}

LRESULT CALLBACK OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    // From WM_USER on, messages mean what the window's program wants them to.
    if (message >= WM_USER && message < WM_APP) {
        Note({message, wParam, lParam});
        return 0;
    }
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

HWND Create(const std::wstring& className, const std::wstring& title, DWORD style, HWND owner) {
    constexpr int kWidth = 300, kHeight = 200;
    return CreateWindowExW(0, className.c_str(), title.c_str(), style, CW_USEDEFAULT, CW_USEDEFAULT, kWidth,
                           kHeight, owner, nullptr, GetModuleHandleW(nullptr), nullptr);
}

void Pump() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
}

} // namespace

int PlayWindow(const std::vector<std::wstring>& arguments) {
    const std::wstring& name = arguments.at(0);
    const std::wstring& className = arguments.at(1);
    const std::wstring& how = arguments.at(3);
    Player thePlayer{Shared<WindowReport>(name), Signal(name + L".Answer"), how == kSlowWindow};
    player = &thePlayer;

    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OnMessage;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className.c_str();
    RegisterClassW(&windowClass);
    const HWND hwnd = Create(className, arguments.at(2), WS_OVERLAPPEDWINDOW, nullptr);
    if (hwnd == nullptr) {
        return 1;
    }
    if (how == kShownWindow || how == kMinimisedWindow || how == kWindowWithDialog) {
        ShowWindow(hwnd, SW_SHOWNORMAL);
    }
    if (how == kMinimisedWindow) {
        ShowWindow(hwnd, SW_MINIMIZE);
    }
    if (how == kWindowWithDialog) {
        const HWND dialog = Create(className, L"Dialog", WS_POPUP | WS_CAPTION | WS_VISIBLE, hwnd);
        EnableWindow(hwnd, FALSE);
        thePlayer.report->dialog = std::bit_cast<std::uintptr_t>(dialog);
    }
    thePlayer.report->window = std::bit_cast<std::uintptr_t>(hwnd);
    if (how == kHungWindow) {
        Sleep(INFINITE);
    }
    Pump();
    return 0;
}
