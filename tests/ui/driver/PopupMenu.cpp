#include "PopupMenu.h"

#include "Keyboard.h"
#include "Message.h"
#include "Mouse.h"

#include <algorithm>

namespace UiDriver {
namespace {

constexpr wchar_t kMenuClass[] = L"#32768";
constexpr int kBorder = 3;
constexpr Milliseconds kRefusal{200};

} // namespace

std::vector<Window> PopupMenu::OpenMenus(DWORD processId) {
    return FindWindows({processId, kMenuClass, std::nullopt});
}

PopupMenu PopupMenu::Wait(const Process& process, Milliseconds timeout) {
    // A sub-menu lies over the menu it belongs to.
    const auto look = [&]() -> std::optional<Window> {
        if (!process.Running()) {
            Fail(L"the process ended while waiting for a pop-up menu");
        }
        const std::vector<Window> open = OpenMenus(process.Id());
        return open.empty() ? std::nullopt : std::optional(open.front());
    };
    const Window window =
        WaitForValue(look, L"a pop-up menu of process " + std::to_wstring(process.Id()), timeout);
    window.WaitUntilAnswers();
    return PopupMenu(window, process.Id());
}

bool PopupMenu::IsOpen(const Process& process) {
    return !OpenMenus(process.Id()).empty();
}

void PopupMenu::RequireNone(const Process& process, Milliseconds duration) {
    if (!HoldsFor([&] { return !IsOpen(process); }, duration)) {
        Fail(L"an unexpected pop-up menu is open");
    }
}

void PopupMenu::MoveDownTo(int item) const {
    for (int step = 0; step <= item; ++step) {
        Keyboard::Press(VK_DOWN);
    }
}

void PopupMenu::WaitUntilClosed() const {
    // The system keeps the window of a menu and shows it again for the next one.
    WaitUntil([this] { return !window_.Exists() || !IsWindowVisible(window_.Hwnd()); },
              L"the pop-up menu to close");
}

PopupMenu PopupMenu::WaitForInner() const {
    const auto look = [this]() -> std::optional<Window> {
        const std::vector<Window> open = OpenMenus(processId_);
        const bool opened = !open.empty() && open.front().Hwnd() != window_.Hwnd();
        return opened ? std::optional(open.front()) : std::nullopt;
    };
    const Window inner = WaitForValue(look, L"the sub-menu to open");
    inner.WaitUntilAnswers();
    return PopupMenu(inner, processId_);
}

void PopupMenu::ChooseByKeys(int item) const {
    MoveDownTo(item);
    Keyboard::Press(VK_RETURN);
    WaitUntilClosed();
}

PopupMenu PopupMenu::OpenByKeys(int item) const {
    MoveDownTo(item);
    Keyboard::Press(VK_RIGHT);
    return WaitForInner();
}

POINT PopupMenu::RowCentre(int row, std::string_view rows) const {
    if (row < 0 || row >= static_cast<int>(rows.size()) || rows[static_cast<std::size_t>(row)] == '-') {
        Fail(L"the pop-up menu has no item in row " + std::to_wstring(row));
    }
    const RECT rect = window_.Rect();
    const auto linesIn = [](std::string_view part) {
        return static_cast<int>(std::count(part.begin(), part.end(), '-'));
    };
    const int lineHeight = GetSystemMetrics(SM_CYMENUSIZE) / 2;
    const int lines = linesIn(rows);
    const int items = static_cast<int>(rows.size()) - lines;
    const int itemsHeight = rect.bottom - rect.top - 2 * kBorder - lines * lineHeight;
    const int linesAbove = linesIn(rows.substr(0, static_cast<std::size_t>(row)));
    const int itemsAbove = row - linesAbove;
    return {(rect.left + rect.right) / 2,
            rect.top + kBorder + linesAbove * lineHeight + (2 * itemsAbove + 1) * itemsHeight / (2 * items)};
}

void PopupMenu::ChooseByMouse(int row, std::string_view rows) const {
    Mouse::Click(RowCentre(row, rows));
    WaitUntilClosed();
}

PopupMenu PopupMenu::OpenByMouse(int row, std::string_view rows) const {
    Mouse::Click(RowCentre(row, rows));
    return WaitForInner();
}

void PopupMenu::RequireDisabled(int row, std::string_view rows) const {
    Mouse::Click(RowCentre(row, rows));
    if (!HoldsFor([this] { return window_.Exists() && IsWindowVisible(window_.Hwnd()); }, kRefusal)) {
        Fail(L"row " + std::to_wstring(row) + L" of the pop-up menu could be chosen");
    }
}

void PopupMenu::Close() const {
    Keyboard::Press(VK_ESCAPE);
    WaitUntilClosed();
}

} // namespace UiDriver
