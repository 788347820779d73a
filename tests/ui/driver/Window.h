#pragma once

#include "ComboBox.h"
#include "Control.h"
#include "ListBox.h"
#include "Process.h"
#include "TabControl.h"
#include "Wait.h"

#include <optional>
#include <string>
#include <vector>

namespace UiDriver {

/// The class of all forms of the program under test.
inline constexpr wchar_t kFormClass[] = L"QLBUtlForm";

/// A top-level window of another process. It does not own the window; asking about one that is gone fails.
class Window {
public:
    explicit Window(HWND hwnd) : hwnd_(hwnd) {}

    [[nodiscard]] HWND Hwnd() const { return hwnd_; }
    [[nodiscard]] DWORD ProcessId() const;
    [[nodiscard]] bool Exists() const;
    [[nodiscard]] std::wstring Title() const;
    [[nodiscard]] std::wstring ClassName() const;
    [[nodiscard]] bool Visible() const;
    [[nodiscard]] bool Enabled() const;
    [[nodiscard]] bool Minimised() const;
    [[nodiscard]] bool Foreground() const;

    /// The window it was opened on, or nullptr.
    [[nodiscard]] HWND Owner() const;

    /// In screen pixels.
    [[nodiscard]] RECT Rect() const;

    /// The client area in screen pixels.
    [[nodiscard]] RECT ClientRect() const;

    /// The control with this id, however deep it lies; fails when there is none or more than one.
    [[nodiscard]] UiDriver::Control Control(int id) const;
    [[nodiscard]] ComboBox Combo(int id) const;
    [[nodiscard]] ListBox List(int id) const;
    [[nodiscard]] TabControl Tab(int id) const;

    /// Whether there is a control with this id now; a window that is gone has none.
    [[nodiscard]] bool HasControl(int id) const;

    /// All windows inside, in the order of the system's enumeration.
    [[nodiscard]] std::vector<UiDriver::Control> Controls() const;

    /// What has the keyboard focus in the window's thread.
    [[nodiscard]] HWND FocusedHwnd() const;

    void BringToFront() const;

    /// Waits until the window has been in front for a while: for tests in which another window then has to come
    /// forward, or that hold Ctrl, Alt or Shift. The window manager gives a window that was just opened the focus
    /// a little later once more, and Wine then lets go of all keys that the display's own keyboard does not hold.
    void BringToFrontForGood() const;
    void Minimise() const;
    void Restore() const;

    /// The close box: asks and does not wait.
    void Close() const;
    /// Of a form, an empty frame may stay that nobody sees.
    void WaitUntilGone(Milliseconds timeout = kDefaultTimeout) const;

    /// Waits until the window's thread has handled what was sent to it before.
    void WaitUntilAnswers() const;

private:
    HWND hwnd_;
};

/// What a top-level window must be like; what is left out may be anything.
struct WindowQuery {
    std::optional<DWORD> processId{};
    std::optional<std::wstring> className{};
    std::optional<std::wstring> title{};
    bool onlyVisible = true;
};

std::vector<Window> FindWindows(const WindowQuery& query);
std::optional<Window> FindFirstWindow(const WindowQuery& query);
Window WaitForWindow(const WindowQuery& query, Milliseconds timeout = kDefaultTimeout);
void WaitForNoWindow(const WindowQuery& query, Milliseconds timeout = kDefaultTimeout);

/// The visible form of `process` with this title; fails at once when the process ends without showing it.
Window WaitForForm(const Process& process, const std::wstring& title, Milliseconds timeout = kDefaultTimeout);

/// The visible forms of `process`.
std::vector<Window> Forms(const Process& process);

} // namespace UiDriver
