// The least that a launcher can be: a hidden window that starts one program in its WM_HOTKEY.
//
//   BareLauncher.exe [PROGRAM]

#include <windows.h>

#include <shellapi.h>

namespace {

const wchar_t* program = L"";

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_HOTKEY) {
        SHELLEXECUTEINFOW start{};
        start.cbSize = sizeof start;
        start.fMask = SEE_MASK_FLAG_NO_UI;
        start.lpFile = program;
        start.nShow = SW_SHOWNORMAL;
        ShellExecuteExW(&start);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, wchar_t* line, int /*show*/) {
    program = line;
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = L"BareLauncher";
    RegisterClassW(&windowClass);
    const HWND window = CreateWindowExW(WS_EX_TOOLWINDOW, L"BareLauncher", L"", WS_POPUP, 0, 0, 0, 0, nullptr,
                                        nullptr, instance, nullptr);
    RegisterHotKey(window, 1, 0, VK_LAUNCH_APP2);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    return 0;
}
