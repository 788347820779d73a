#include "ui/ModalForm.h"

void ModalForm::ShowWhile(const std::function<void()>& work) {
    if (Window() == nullptr) {
        return; // could not be created: nothing was answered
    }
    if (Owner() == nullptr) {
        ShowOver(nullptr, work);
    } else {
        Owner()->RunOver([&](HWND owner) { ShowOver(owner, work); });
    }
}

void ModalForm::ShowOver(HWND owner, const std::function<void()>& work) {
    const HWND focus = OnShow();
    const bool ownerWasEnabled = owner != nullptr && EnableWindow(owner, FALSE) == FALSE;
    if (focus == nullptr) {
        FocusFirst(Window());
    } else {
        Focus(focus);
    }
    ShowWindow(Window(), SW_SHOW);
    if (owner == nullptr) {
        SetForegroundWindow(Window()); // nothing of ours was in front before
    }
    work();
    End();
    // The owner first: otherwise another program's window would become active.
    if (ownerWasEnabled) {
        EnableWindow(owner, TRUE);
    }
    if (Window() == nullptr) {
        return;
    }
    if (owner != nullptr && GetActiveWindow() == Window()) {
        SetActiveWindow(owner);
    }
    ShowWindow(Window(), SW_HIDE);
}
