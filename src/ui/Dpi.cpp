#include "ui/Dpi.h"

#include "platform/windows/SystemLibrary.h"

int Scaled(int pixels, UINT dpi) {
    return MulDiv(pixels, static_cast<int>(dpi), kUnscaledDpi);
}

void DisableSystemScaling(HWND dialog) {
    // Windows has the call from 10 version 1703 on; older ones do not stretch.
    static const auto setBehavior =
        SystemProcedure<decltype(SetDialogDpiChangeBehavior)>(L"user32.dll", "SetDialogDpiChangeBehavior");
    if (setBehavior != nullptr) {
        setBehavior(dialog, DDC_DISABLE_ALL, DDC_DISABLE_ALL);
    }
}
