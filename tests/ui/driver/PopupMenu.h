#pragma once

#include "Process.h"
#include "Window.h"

#include <optional>
#include <string_view>
#include <vector>

namespace UiDriver {

/// An open pop-up menu, or an open sub-menu of one. What its items say, and where they lie, cannot be asked from
/// another process.
class PopupMenu {
public:
    /// The innermost menu that is open.
    static PopupMenu Wait(const Process& process, Milliseconds timeout = kDefaultTimeout);
    static bool IsOpen(const Process& process);

    /// Fails when a menu opens within `duration`.
    static void RequireNone(const Process& process, Milliseconds duration);

    [[nodiscard]] const Window& Shown() const { return window_; }

    /// With the real keyboard, in a menu of which nothing is chosen yet. `item` counts from 0, without separator
    /// lines; it waits until the menu has closed.
    void ChooseByKeys(int item) const;
    /// The same for an item that opens a menu.
    [[nodiscard]] PopupMenu OpenByKeys(int item) const;

    /// With the real mouse. `rows` has a letter for each row of the menu, '-' for a separator line: "xx-x". The
    /// row counts from 0, with the lines.
    void ChooseByMouse(int row, std::string_view rows) const;
    [[nodiscard]] PopupMenu OpenByMouse(int row, std::string_view rows) const;

    /// Clicks the row, and fails when the menu does not stay open: the item is enabled.
    void RequireDisabled(int row, std::string_view rows) const;

    /// Escape, which closes this menu and leaves the one open that it belongs to.
    void Close() const;

private:
    explicit PopupMenu(Window window, DWORD processId) : window_(window), processId_(processId) {}

    static std::vector<Window> OpenMenus(DWORD processId);
    void MoveDownTo(int item) const;
    [[nodiscard]] PopupMenu WaitForInner() const;
    [[nodiscard]] POINT RowCentre(int row, std::string_view rows) const;
    void WaitUntilClosed() const;

    Window window_;
    DWORD processId_;
};

} // namespace UiDriver
