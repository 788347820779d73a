#include "ui/Theme.h"

#include "platform/windows/SystemLibrary.h"

#include <uxtheme.h>

// Looked up in the system's directory by name: linked, uxtheme.dll would be taken from beside the program
// first.

void UseTabBackground(HWND page) {
    static const auto enable =
        SystemProcedure<decltype(EnableThemeDialogTexture)>(L"uxtheme.dll", "EnableThemeDialogTexture");
    if (enable != nullptr) {
        enable(page, ETDT_ENABLETAB);
    }
}

void PaintParentTheme(HWND child, HDC hdc) {
    static const auto paint =
        SystemProcedure<decltype(DrawThemeParentBackground)>(L"uxtheme.dll", "DrawThemeParentBackground");
    if (paint != nullptr) {
        paint(child, hdc, nullptr);
    }
}
