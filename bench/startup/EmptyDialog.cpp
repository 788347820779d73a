// The least a dialog program with our manifest can do: what it takes to start is the floor for every other one.
// With "/controls" it has as many controls of the same kinds as the settings dialog shows first.

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <commctrl.h>

static void Fill(HWND hwnd) {
    for (int tab = 0; tab < 3; ++tab) {
        wchar_t caption[] = L"Button Settings";
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = caption;
        SendDlgItemMessageW(hwnd, 1040, TCM_INSERTITEMW, static_cast<WPARAM>(tab),
                            reinterpret_cast<LPARAM>(&item));
    }
    const wchar_t* const patterns[] = {L"Office", L"Home", L"Travel"};
    for (const wchar_t* pattern : patterns) {
        SendDlgItemMessageW(hwnd, 1001, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pattern));
    }
    SendDlgItemMessageW(hwnd, 1001, CB_SETCURSEL, 0, 0);
    for (int button = 0; button < 5; ++button) {
        SetDlgItemTextW(hwnd, 1020 + button, L"New Mail");
    }
}

static INT_PTR CALLBACK DialogProc(HWND hwnd, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_CLOSE) {
        EndDialog(hwnd, 0);
        return TRUE;
    }
    if (message == WM_INITDIALOG && lParam != 0) {
        Fill(hwnd);
    }
    return message == WM_INITDIALOG ? TRUE : FALSE;
}

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR commandLine, int) {
    // Without a call into the library the linker drops it, and the manifest's version of it is never loaded.
    InitCommonControls();
    const bool controls = lstrcmpW(commandLine, L"/controls") == 0;
    return DialogBoxParamW(instance, MAKEINTRESOURCEW(controls ? 101 : 100), nullptr, DialogProc, controls) ==
                   -1
               ? 1
               : 0;
}
