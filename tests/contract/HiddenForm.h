#pragma once

#include "Waiting.h"
#include "ui/Form.h"

#include <functional>

/// A form that is never shown, with controls of a test's own, and the loop that answers their messages.
class HiddenForm final : public Form {
public:
    std::function<LRESULT(NMHDR&)> whenNotified;
    std::function<void(UINT)> whenPosted; ///< messages from WM_APP on

    HiddenForm();

    HWND Add(const wchar_t* windowClass, DWORD style);
    void Post(UINT message = WM_APP) const { PostMessageW(Window(), message, 0, 0); }

    /// Answers messages until the condition holds. False when the time is over.
    bool PumpUntil(const std::function<bool()>& condition);
    /// Answers the messages that wait.
    void Pump();

protected:
    void OnCreate() override {}
    SIZE OnLayout() override { return {400, 300}; }
    void OnCommand(int /*id*/, int /*notification*/) override {}
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
