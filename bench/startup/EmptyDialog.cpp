// The least a dialog program with our manifest can do: what it takes to start is the floor for every other one.

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <commctrl.h>

static INT_PTR CALLBACK DialogProc(HWND hwnd, UINT message, WPARAM, LPARAM) {
    if (message == WM_CLOSE) {
        EndDialog(hwnd, 0);
        return TRUE;
    }
    return message == WM_INITDIALOG ? TRUE : FALSE;
}

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
    // Without a call into the library the linker drops it, and the manifest's version of it is never loaded.
    InitCommonControls();
    return DialogBoxParamW(instance, MAKEINTRESOURCEW(100), nullptr, DialogProc, 0) == -1 ? 1 : 0;
}
