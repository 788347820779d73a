#pragma once

#include "settings/Pattern.h"
#include "ui/ToolTip.h"

#include <windows.h>

class RegIniFunc;
struct Platform;

/// Tips that name what a button starts.
class ProgramTips {
public:
    ProgramTips(const Platform& platform, const RegIniFunc& store) : platform_(platform), store_(store) {}

    struct Look {
        HFONT font;
        UINT dpi;
    };

    /// The pointer is over the picture of a button with these settings.
    void Enter(HWND form, HWND picture, const ButtonSlot& slot, Look look);
    void Leave(HWND picture);
    /// The form's font goes.
    void Forget();
    void Relay(const MSG& message) { tip_.Relay(message); }

private:
    const Platform& platform_;
    const RegIniFunc& store_;
    ToolTip tip_;
    HWND entered_ = nullptr; ///< a picture
    ButtonSlot told_;        ///< its settings
};
