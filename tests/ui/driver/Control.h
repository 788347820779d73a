#pragma once

#include "Mouse.h"
#include "Win32.h"

#include <string>

namespace UiDriver {

/// One window inside a form of another process. It does not own the window; asking about one that is gone
/// fails.
class Control {
public:
    explicit Control(HWND hwnd) : hwnd_(hwnd) {}

    [[nodiscard]] HWND Hwnd() const { return hwnd_; }
    [[nodiscard]] int Id() const;
    [[nodiscard]] std::wstring ClassName() const;
    [[nodiscard]] bool Exists() const;

    [[nodiscard]] std::wstring Text() const;

    /// Replaces the text at once, as a program would; an edit control tells its parent of the change.
    void SetText(const std::wstring& text) const;

    /// Selects what the edit control holds and types `text` over it on the real keyboard.
    void TypeOver(const std::wstring& text) const;

    [[nodiscard]] bool Enabled() const;

    /// Whether it and all windows it lies in are shown.
    [[nodiscard]] bool Visible() const;

    [[nodiscard]] LONG Style() const;

    /// In screen pixels.
    [[nodiscard]] RECT Rect() const;

    /// The middle of Rect.
    [[nodiscard]] POINT Centre() const;

    /// BST_CHECKED, BST_UNCHECKED or BST_INDETERMINATE of a check box or option button.
    [[nodiscard]] int CheckState() const;
    [[nodiscard]] bool Checked() const;

    /// Presses a button by message; it is done, or its modal window is open, before any later question to the
    /// program is answered.
    void Press() const;

    /// The real mouse in the middle; fails when another window covers that point.
    void Click(MouseButton button = MouseButton::Left) const;
    void DoubleClick() const;
    void Hover() const;

    /// A real drag from the middle to a point on the screen, or to the middle of another control.
    void DragTo(POINT target) const;
    void DragTo(const Control& target) const;

    /// Gives it the keyboard focus and waits until it has it.
    void Focus() const;
    [[nodiscard]] bool Focused() const;

    /// NULLREGION, SIMPLEREGION, COMPLEXREGION, or ERROR when the window has no region; `box` gets its
    /// bounds.
    int RegionBox(RECT& box) const;

    /// Whether a point, counted from the control's own top left corner, lies in the window's region.
    [[nodiscard]] bool RegionContains(POINT point) const;

protected:
    /// Tells the parent with WM_COMMAND what the control would tell it after the user acted.
    void Notify(WORD code) const;

    void BringRootToFront() const;

    /// Brings the form to the front, and fails unless a click at `point` would then reach this control.
    void RequireReachable(POINT point) const;

private:
    HWND hwnd_;
};

} // namespace UiDriver
