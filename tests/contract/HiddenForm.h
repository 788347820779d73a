#pragma once

#include "Waiting.h"
#include "ui/ModalForm.h"

#include <functional>

/// A form with controls of a test's own, and a loop that answers their messages without showing it.
class HiddenForm final : public ModalForm {
public:
    std::function<LRESULT(NMHDR&)> whenNotified;
    std::function<void(UINT)> whenPosted; ///< messages from WM_APP on
    std::function<bool()> whenIdle;

    HiddenForm();

    HWND Add(const wchar_t* windowClass, DWORD style);
    void Post(UINT message = WM_APP) const { PostMessageW(Window(), message, 0, 0); }

    using Form::End;

    /// Answers messages, and does what can wait, until the condition holds. False when the time is over.
    bool PumpUntil(const std::function<bool()>& condition);
    /// Answers the messages that wait.
    void Pump();

protected:
    void OnCreate() override {}
    SIZE OnLayout() override { return {400, 300}; }
    void OnCommand(int /*id*/, int /*notification*/) override {}
    bool OnIdle() override { return whenIdle && whenIdle(); }
    LRESULT OnNotify(NMHDR& header) override { return whenNotified ? whenNotified(header) : 0; }
    bool OnPrivateMessage(UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) override {
        if (whenPosted) {
            whenPosted(message);
        }
        return true;
    }

private:
    int lastId_ = 9'000;
};

/// Objects of GDI that this process holds.
[[nodiscard]] int GdiObjects();
