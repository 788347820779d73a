#include "LauncherWindow.h"

#include "LogEntry.h"
#include "SettingsWitness.h"

namespace {

constexpr UINT kSettingsChanged = 1336;
constexpr UINT kButtonRequest = 1332;
/// Posted, a mark has been handled when all that was posted before it has, too.
constexpr UINT kMark = WM_APP;
constexpr UINT kAskForMark = WM_APP + 1;
constexpr wchar_t kLauncherClass[] = L"KORVOQLBCLASS";
constexpr wchar_t kVistacastClass[] = L"Korvo Vistacast MainWnd Class";

} // namespace

LauncherWindow::LauncherWindow(HINSTANCE instance, const Options& options, LogFile& log)
    : options_(options), log_(log) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    windowClass.lpszClassName = options.vistacast ? kVistacastClass : kLauncherClass;
    if (RegisterClassExW(&windowClass) == 0) {
        return;
    }
    const wchar_t* const title = options.vistacast ? L"Stand-in TV application" : L"Stand-in launcher";
    const DWORD style = WS_OVERLAPPEDWINDOW | (options.show ? DWORD{WS_VISIBLE} : 0);
    hwnd_ = CreateWindowExW(0, windowClass.lpszClassName, title, style, CW_USEDEFAULT, CW_USEDEFAULT, 480,
                            400, nullptr, nullptr, instance, this);
}

LRESULT CALLBACK LauncherWindow::WindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* const create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* const self = reinterpret_cast<LauncherWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    return self != nullptr ? self->Handle(hwnd, message, wParam, lParam)
                           : DefWindowProcW(hwnd, message, wParam, lParam);
}

LRESULT LauncherWindow::Handle(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        if (options_.show) {
            CreateView(hwnd);
        }
        return 0;
    case WM_SIZE:
        MoveWindow(view_, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
        return 0;
    case kSettingsChanged:
        Record(message, wParam);
        Sleep(options_.hang ? INFINITE : options_.slowMs);
        return 0;
    case kButtonRequest:
        Record(message, wParam);
        return 0;
    case kMark:
        mark_ = wParam;
        return 0;
    case kAskForMark:
        return static_cast<LRESULT>(mark_);
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

void LauncherWindow::CreateView(HWND hwnd) {
    view_ = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY,
                            0, 0, 0, 0, hwnd, nullptr, nullptr, nullptr);
    SendMessageW(view_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    // The edit control's own limit would soon be full.
    SendMessageW(view_, EM_SETLIMITTEXT, 0, 0);
}

void LauncherWindow::Record(UINT message, WPARAM wParam) {
    LogEntry entry;
    entry.Add(L"message", message);
    entry.Add(L"wParam", wParam);
    entry.Add(L"how", InSendMessage() ? L"sent" : L"posted");
    entry.Add(L"window", options_.vistacast ? L"vistacast" : L"launcher");
    if (message == kSettingsChanged) {
        AddSettings(entry);
    }
    log_.Append(entry.Text());
    ShowText(entry.Text());
}

void LauncherWindow::ShowText(const std::wstring& text) {
    if (view_ == nullptr) {
        return;
    }
    std::wstring lines;
    for (const wchar_t unit : text) {
        lines += unit == L'\n' ? std::wstring(L"\r\n") : std::wstring(1, unit);
    }
    const auto end = static_cast<WPARAM>(GetWindowTextLengthW(view_));
    SendMessageW(view_, EM_SETSEL, end, static_cast<LPARAM>(end));
    SendMessageW(view_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(lines.c_str()));
}
