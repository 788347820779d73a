#pragma once

#include "BoxIcon.h"
#include "Process.h"
#include "Window.h"

#include <string>

namespace UiDriver {

/// A message box that a process has open.
class ModalBox {
public:
    /// The message box of `process`; fails when none opens in time.
    static ModalBox Wait(const Process& process, Milliseconds timeout = kDefaultTimeout);

    /// Whether `process` shows a message box now.
    static bool IsOpen(const Process& process);

    /// Fails when a message box is open or opens within `duration`.
    static void RequireNone(const Process& process, Milliseconds duration = Milliseconds(300));

    [[nodiscard]] std::wstring Title() const;
    [[nodiscard]] std::wstring Text() const;

    /// Found by comparing what it shows with the system's own icons.
    [[nodiscard]] BoxIcon Icon() const;

    /// `button` is IDOK, IDCANCEL, IDYES, IDNO ...
    [[nodiscard]] bool Has(int button) const;

    /// The button that the Enter key presses.
    [[nodiscard]] int DefaultButton() const;

    /// Presses a button and waits until the box is gone.
    void Press(int button) const;

    /// Closes it as its close box or the Esc key would.
    void Dismiss() const;

    [[nodiscard]] const Window& Form() const { return window_; }

private:
    explicit ModalBox(Window window) : window_(window) {}

    Window window_;
};

} // namespace UiDriver
