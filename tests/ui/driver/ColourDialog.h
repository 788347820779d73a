#pragma once

#include "Process.h"
#include "Window.h"

namespace UiDriver {

/// The system's colour chooser that a process has open.
class ColourDialog {
public:
    static ColourDialog Wait(const Process& process, Milliseconds timeout = kDefaultTimeout);
    static bool IsOpen(const Process& process);

    /// Types the colour into the fields for red, green and blue; opens that half of the dialog when it is
    /// shut.
    void Enter(COLORREF colour) const;

    /// The colour in those fields.
    [[nodiscard]] COLORREF Entered() const;

    /// Both wait until the dialog is gone.
    void Ok() const;
    void Cancel() const;

    [[nodiscard]] const Window& Form() const { return window_; }

private:
    explicit ColourDialog(Window window) : window_(window) {}

    void OpenCustomHalf() const;

    Window window_;
};

} // namespace UiDriver
