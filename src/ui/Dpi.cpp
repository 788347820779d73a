#include "ui/Dpi.h"

#include <bit>

int Scaled(int pixels, UINT dpi) {
    return MulDiv(pixels, static_cast<int>(dpi), kUnscaledDpi);
}

void DisableSystemScaling(HWND dialog) {
    // Windows has the call from 10 version 1703 on; older ones do not stretch.
    using SetBehavior = BOOL(WINAPI*)(HWND, int, int);
    constexpr int kDisableAll = 1;
    const HMODULE user32 = GetModuleHandleW(L"user32.dll");
    const auto setBehavior = user32 == nullptr
                                 ? nullptr
                                 : std::bit_cast<SetBehavior>(GetProcAddress(user32, "SetDialogDpiChangeBehavior"));
    if (setBehavior != nullptr) {
        setBehavior(dialog, kDisableAll, kDisableAll);
    }
}
