#pragma once

#include "platform/NameOnScreen.h"
#include "platform/windows/Handles.h"

#include <windows.h>

using OwnedWindow = Owned<HWND, DestroyWindow>;

/// A layered window that is there only while it shows something, and with it the one timer.
class OnScreenWindow final : public NameOnScreen {
public:
    void Show(const ShownName& name) override;

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    OwnedWindow window_;
};
