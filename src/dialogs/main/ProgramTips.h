#pragma once

#include "settings/Pattern.h"
#include "settings/RegIniFunc.h"
#include "ui/ToolTip.h"

#include <windows.h>

#include <map>
#include <memory>

struct Platform;

/// Tips that name what a button starts. A name may have to be asked from a server that doesn't answer, so
/// another thread does it.
class ProgramTips {
public:
    /// Where an answer is told: a message to the form.
    ProgramTips(const Platform& platform, const RegIniFunc& store, UINT answerMessage);
    ~ProgramTips();
    ProgramTips(const ProgramTips&) = delete;
    ProgramTips& operator=(const ProgramTips&) = delete;

    struct Look {
        HFONT font;
        UINT dpi;
    };

    /// The pointer is over the picture of a button with these settings.
    void Enter(HWND form, HWND picture, const ButtonSlot& slot, Look look);
    void Leave(HWND picture);
    /// The form's font goes.
    void Forget();
    /// The message has come.
    void OnAnswer();
    void Relay(const MSG& message) { tip_.Relay(message); }

private:
    struct Question;

    const Platform& platform_;
    const RegIniFunc& store_;
    UINT answerMessage_;
    ToolTip tip_;
    std::map<HWND, std::shared_ptr<Question>> questions_; ///< the last one about each picture
    HWND form_ = nullptr;
    HWND entered_ = nullptr;
    Look look_{};
};
