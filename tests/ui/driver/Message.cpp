#include "Message.h"

#include "Wait.h"

#include <cstdint>

namespace UiDriver {
namespace {

BOOL CALLBACK Collect(HWND hwnd, LPARAM param) {
    reinterpret_cast<std::vector<HWND>*>(param)->push_back(hwnd);
    return TRUE;
}

} // namespace

LRESULT Send(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    RequireAlive(hwnd);
    DWORD_PTR result = 0;
    if (SendMessageTimeoutW(hwnd, message, wParam, lParam, SMTO_NORMAL,
                            static_cast<UINT>(kDefaultTimeout.count()), &result) == 0) {
        FailLastError(L"sending message " + std::to_wstring(message) + L" to " + Describe(hwnd));
    }
    return static_cast<LRESULT>(result);
}

void SendWithoutWaiting(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    RequireAlive(hwnd);
    if (!SendNotifyMessageW(hwnd, message, wParam, lParam)) {
        FailLastError(L"sending message " + std::to_wstring(message) + L" to " + Describe(hwnd));
    }
}

void BringForward(HWND hwnd) {
    RequireAlive(hwnd);
    // The window manager may have the last word about a window that was just opened.
    const auto inFront = [hwnd] {
        if (GetForegroundWindow() != hwnd) {
            SetForegroundWindow(hwnd);
        }
        return GetForegroundWindow() == hwnd;
    };
    WaitUntil(inFront, Describe(hwnd) + L" to come to the foreground");
}

std::wstring Describe(HWND hwnd) {
    wchar_t title[128] = L"";
    InternalGetWindowText(hwnd, title, static_cast<int>(std::size(title)));
    return L"window " + std::to_wstring(reinterpret_cast<std::uintptr_t>(hwnd)) + L" (class \"" +
           ClassNameOf(hwnd) + L"\", title \"" + title + L"\", id " + std::to_wstring(GetDlgCtrlID(hwnd)) +
           L")";
}

std::wstring ClassNameOf(HWND hwnd) {
    wchar_t name[257] = L"";
    const int length = GetClassNameW(hwnd, name, static_cast<int>(std::size(name)));
    return std::wstring(name, static_cast<std::size_t>(length));
}

std::wstring TextOf(HWND hwnd) {
    const auto length = static_cast<std::size_t>(Send(hwnd, WM_GETTEXTLENGTH));
    std::wstring text(length + 1, L'\0');
    const LRESULT copied = Send(hwnd, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

bool SameClass(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::vector<HWND> WindowsInside(HWND hwnd) {
    std::vector<HWND> windows;
    if (IsWindow(hwnd)) {
        EnumChildWindows(hwnd, Collect, reinterpret_cast<LPARAM>(&windows));
    }
    return windows;
}

void RequireAlive(HWND hwnd) {
    if (!IsWindow(hwnd)) {
        Fail(L"the window " + std::to_wstring(reinterpret_cast<std::uintptr_t>(hwnd)) + L" no longer exists");
    }
}

} // namespace UiDriver
