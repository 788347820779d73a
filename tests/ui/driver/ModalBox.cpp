#include "ModalBox.h"

#include "Message.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace UiDriver {
namespace {

constexpr wchar_t kDialogClass[] = L"#32770";

// A box may close while it is looked at: none of these fails on a window that is gone.

bool IsStatic(HWND hwnd) {
    return SameClass(ClassNameOf(hwnd), L"Static");
}

bool IsIcon(HWND hwnd) {
    return IsStatic(hwnd) && (GetWindowLongW(hwnd, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
}

bool IsText(HWND hwnd) {
    return IsStatic(hwnd) && !IsIcon(hwnd);
}

bool IsButton(HWND hwnd) {
    return SameClass(ClassNameOf(hwnd), L"Button") && IsWindowVisible(hwnd);
}

/// A message box holds nothing but texts and push buttons; every other system dialog holds more.
bool IsMessageBox(HWND hwnd) {
    const std::vector<HWND> inside = WindowsInside(hwnd);
    const auto isPart = [](HWND part) { return IsStatic(part) || SameClass(ClassNameOf(part), L"Button"); };
    return std::all_of(inside.begin(), inside.end(), isPart) &&
           std::any_of(inside.begin(), inside.end(), IsText) &&
           std::any_of(inside.begin(), inside.end(), IsButton);
}

std::optional<Window> FindBox(const Process& process) {
    for (const Window& window : FindWindows({process.Id(), kDialogClass, std::nullopt})) {
        if (IsMessageBox(window.Hwnd())) {
            return window;
        }
    }
    return std::nullopt;
}

std::optional<Control> FindInside(const Window& window, const std::function<bool(HWND)>& isWanted) {
    const std::vector<HWND> inside = WindowsInside(window.Hwnd());
    const auto found = std::find_if(inside.begin(), inside.end(), isWanted);
    return found == inside.end() ? std::nullopt : std::optional(Control(*found));
}

std::optional<Control> FindButton(const Window& window, int button) {
    const auto isWanted = [button](HWND hwnd) { return IsButton(hwnd) && GetDlgCtrlID(hwnd) == button; };
    std::optional<Control> found = FindInside(window, isWanted);
    if (!found && button == IDOK) {
        // The single button of a box that only informs is OK, but Windows gives it the id of Cancel.
        const std::vector<HWND> inside = WindowsInside(window.Hwnd());
        if (std::count_if(inside.begin(), inside.end(), IsButton) == 1) {
            found = FindButton(window, IDCANCEL);
        }
    }
    return found;
}

} // namespace

ModalBox ModalBox::Wait(const Process& process, Milliseconds timeout) {
    const std::wstring awaited = L"a message box of process " + std::to_wstring(process.Id());
    const auto look = [&]() -> std::optional<Window> {
        if (!process.Running()) {
            Fail(L"the process ended while waiting for " + awaited);
        }
        return FindBox(process);
    };
    const Window window = WaitForValue(look, awaited, timeout);
    window.WaitUntilAnswers();
    return ModalBox(window);
}

bool ModalBox::IsOpen(const Process& process) {
    return FindBox(process).has_value();
}

void ModalBox::RequireNone(const Process& process, Milliseconds duration) {
    if (!HoldsFor([&] { return !IsOpen(process); }, duration)) {
        const ModalBox box = Wait(process);
        Fail(L"an unexpected message box is open: \"" + box.Title() + L"\": " + box.Text());
    }
}

std::wstring ModalBox::Title() const {
    return window_.Title();
}

std::wstring ModalBox::Text() const {
    const std::optional<Control> text = FindInside(window_, IsText);
    return text ? text->Text() : std::wstring();
}

BoxIcon ModalBox::Icon() const {
    const std::optional<Control> place =
        FindInside(window_, [](HWND hwnd) { return IsIcon(hwnd) && IsWindowVisible(hwnd); });
    if (!place) {
        return BoxIcon::None;
    }
    window_.BringToFront();
    return WaitForValue([&] { return RecogniseIcon(Picture::Capture(place->Hwnd())); },
                        L"the message box \"" + Title() + L"\" to show an icon of the system's");
}

bool ModalBox::Has(int button) const {
    return FindButton(window_, button).has_value();
}

int ModalBox::DefaultButton() const {
    const std::optional<Control> ok = FindButton(window_, IDOK);
    const std::optional<Control> button = FindInside(window_, [](HWND hwnd) {
        return IsButton(hwnd) && (GetWindowLongW(hwnd, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    });
    if (button) {
        return ok && ok->Hwnd() == button->Hwnd() ? IDOK : button->Id();
    }
    Fail(L"the message box \"" + Title() + L"\" has no default button");
}

void ModalBox::Press(int button) const {
    const std::optional<Control> control = FindButton(window_, button);
    if (!control) {
        Fail(L"the message box \"" + Title() + L"\" has no button " + std::to_wstring(button));
    }
    control->Press();
    window_.WaitUntilGone();
}

void ModalBox::Dismiss() const {
    window_.Close();
    window_.WaitUntilGone();
}

} // namespace UiDriver
