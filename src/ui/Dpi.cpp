#include "ui/Dpi.h"

#include "platform/windows/SystemLibrary.h"

int Scaled(int pixels, UINT dpi) {
    return MulDiv(pixels, static_cast<int>(dpi), kUnscaledDpi);
}

void DisableSystemScaling(HWND dialog) {
    // Windows has the call from 10 version 1703 on; older ones do not stretch.
    constexpr int kDisableAll = 1;
    static const auto setBehavior =
        SystemProcedure<BOOL WINAPI(HWND, int, int)>(L"user32.dll", "SetDialogDpiChangeBehavior");
    if (setBehavior != nullptr) {
        setBehavior(dialog, kDisableAll, kDisableAll);
    }
}
