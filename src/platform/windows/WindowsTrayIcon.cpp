#include "platform/windows/WindowsTrayIcon.h"

#include <commctrl.h>

#include <algorithm>

namespace {

/// As much of a text as an array of the system's has room for.
template <std::size_t Size> void CopyText(wchar_t (&room)[Size], const std::wstring& text) {
    const std::size_t length = std::min(text.size(), Size - 1);
    text.copy(room, length);
    room[length] = L'\0';
}

} // namespace

WindowsTrayIcon::WindowsTrayIcon(HWND window, UINT message, int icon) {
    HICON loaded = nullptr;
    if (SUCCEEDED(LoadIconMetric(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(icon), LIM_SMALL, &loaded))) {
        icon_.reset(loaded);
    }
    data_.cbSize = sizeof data_;
    data_.hWnd = window;
    data_.uID = 1;
    data_.uCallbackMessage = message;
    data_.hIcon = icon_.get();
    data_.uVersion = NOTIFYICON_VERSION_4;
    Add();
}

WindowsTrayIcon::~WindowsTrayIcon() {
    Shell_NotifyIconW(NIM_DELETE, &data_);
}

bool WindowsTrayIcon::Add() {
    data_.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP | NIF_SHOWTIP;
    return Shell_NotifyIconW(NIM_ADD, &data_) != FALSE && Shell_NotifyIconW(NIM_SETVERSION, &data_) != FALSE;
}

void WindowsTrayIcon::PutBack() {
    // Refused where the icon is still there: then nothing is to be done.
    Add();
}

void WindowsTrayIcon::Change(UINT what) {
    data_.uFlags = what | NIF_SHOWTIP;
    if (Shell_NotifyIconW(NIM_MODIFY, &data_) == FALSE && Add()) { // the taskbar came late, and told nobody
        data_.uFlags = what | NIF_SHOWTIP;
        Shell_NotifyIconW(NIM_MODIFY, &data_);
    }
}

void WindowsTrayIcon::SetTip(const std::wstring& tip) {
    CopyText(data_.szTip, tip);
    Change(NIF_TIP);
}

void WindowsTrayIcon::Notify(const std::wstring& title, const std::wstring& text) {
    CopyText(data_.szInfoTitle, title);
    CopyText(data_.szInfo, text);
    data_.dwInfoFlags = NIIF_NONE;
    Change(NIF_INFO);
    // Once: the next change must not say it again.
    data_.szInfo[0] = L'\0';
}
