#include "Window.h"

#include "Message.h"

namespace UiDriver {
namespace {

constexpr Milliseconds kSettled{200};

bool LiesInCombo(HWND hwnd) {
    return SameClass(ClassNameOf(GetParent(hwnd)), L"ComboBox");
}

std::wstring TitleWithoutAsking(HWND hwnd) {
    // The window may belong to a thread that hangs: its own answer is not needed for this.
    wchar_t title[512] = L"";
    InternalGetWindowText(hwnd, title, static_cast<int>(std::size(title)));
    return title;
}

bool Matches(HWND hwnd, const WindowQuery& query) {
    if (query.processId) {
        DWORD processId = 0;
        GetWindowThreadProcessId(hwnd, &processId);
        if (processId != *query.processId) {
            return false;
        }
    }
    return (!query.onlyVisible || IsWindowVisible(hwnd)) &&
           (!query.className || SameClass(ClassNameOf(hwnd), *query.className)) &&
           (!query.title || TitleWithoutAsking(hwnd) == *query.title);
}

std::wstring DescribeQuery(const WindowQuery& query) {
    std::wstring text = query.onlyVisible ? L"a visible window" : L"a window";
    if (query.className) {
        text += L" of class \"" + *query.className + L"\"";
    }
    if (query.title) {
        text += L" titled \"" + *query.title + L"\"";
    }
    if (query.processId) {
        text += L" of process " + std::to_wstring(*query.processId);
    }
    return text;
}

struct Enumeration {
    const WindowQuery& query;
    std::vector<Window> found{};
};

BOOL CALLBACK CollectMatch(HWND hwnd, LPARAM param) {
    auto& enumeration = *reinterpret_cast<Enumeration*>(param);
    if (Matches(hwnd, enumeration.query)) {
        enumeration.found.emplace_back(hwnd);
    }
    return TRUE;
}

std::vector<Control> ControlsWithId(HWND form, int id) {
    std::vector<Control> matches;
    for (const HWND hwnd : WindowsInside(form)) {
        // The parts of a combo box have ids of the system's choosing.
        if (GetDlgCtrlID(hwnd) == id && !LiesInCombo(hwnd)) {
            matches.emplace_back(hwnd);
        }
    }
    return matches;
}

} // namespace

DWORD Window::ProcessId() const {
    RequireAlive(hwnd_);
    DWORD processId = 0;
    GetWindowThreadProcessId(hwnd_, &processId);
    return processId;
}

bool Window::Exists() const {
    return IsWindow(hwnd_) != FALSE;
}

std::wstring Window::Title() const {
    return TextOf(hwnd_);
}

std::wstring Window::ClassName() const {
    RequireAlive(hwnd_);
    return ClassNameOf(hwnd_);
}

bool Window::Visible() const {
    RequireAlive(hwnd_);
    return IsWindowVisible(hwnd_) != FALSE;
}

bool Window::Enabled() const {
    RequireAlive(hwnd_);
    return IsWindowEnabled(hwnd_) != FALSE;
}

bool Window::Minimised() const {
    RequireAlive(hwnd_);
    return IsIconic(hwnd_) != FALSE;
}

bool Window::Foreground() const {
    RequireAlive(hwnd_);
    return GetForegroundWindow() == hwnd_;
}

HWND Window::Owner() const {
    RequireAlive(hwnd_);
    return GetWindow(hwnd_, GW_OWNER);
}

RECT Window::Rect() const {
    return UiDriver::Control(hwnd_).Rect();
}

RECT Window::ClientRect() const {
    RequireAlive(hwnd_);
    RECT rect{};
    GetClientRect(hwnd_, &rect);
    MapWindowPoints(hwnd_, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

UiDriver::Control Window::Control(int id) const {
    RequireAlive(hwnd_);
    const std::vector<UiDriver::Control> matches = ControlsWithId(hwnd_, id);
    if (matches.size() != 1) {
        Fail(Describe(hwnd_) + L" has " + std::to_wstring(matches.size()) + L" controls with the id " +
             std::to_wstring(id) + L", not one");
    }
    return matches.front();
}

ComboBox Window::Combo(int id) const {
    return ComboBox(Control(id).Hwnd());
}

ListBox Window::List(int id) const {
    return ListBox(Control(id).Hwnd());
}

TabControl Window::Tab(int id) const {
    return TabControl(Control(id).Hwnd());
}

bool Window::HasControl(int id) const {
    return !ControlsWithId(hwnd_, id).empty();
}

std::vector<UiDriver::Control> Window::Controls() const {
    RequireAlive(hwnd_);
    std::vector<UiDriver::Control> controls;
    for (const HWND hwnd : WindowsInside(hwnd_)) {
        controls.emplace_back(hwnd);
    }
    return controls;
}

HWND Window::FocusedHwnd() const {
    RequireAlive(hwnd_);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (!GetGUIThreadInfo(GetWindowThreadProcessId(hwnd_, nullptr), &info)) {
        FailLastError(L"asking for the focus of " + Describe(hwnd_));
    }
    return info.hwndFocus;
}

void Window::BringToFront() const {
    BringForward(hwnd_);
}

void Window::BringToFrontForGood() const {
    const auto stays = [this] {
        const auto look = [this] {
            WaitUntilAnswers();
            return Foreground();
        };
        if (!Foreground()) {
            SetForegroundWindow(hwnd_);
        }
        return HoldsFor(look, kSettled);
    };
    WaitUntil(stays, Describe(hwnd_) + L" to stay in the foreground");
}

void Window::Minimise() const {
    RequireAlive(hwnd_);
    PostMessageW(hwnd_, WM_SYSCOMMAND, SC_MINIMIZE, 0);
    WaitUntil([this] { return Minimised(); }, Describe(hwnd_) + L" to be minimised");
}

void Window::Restore() const {
    RequireAlive(hwnd_);
    PostMessageW(hwnd_, WM_SYSCOMMAND, SC_RESTORE, 0);
    WaitUntil([this] { return !Minimised(); }, Describe(hwnd_) + L" to be restored");
}

void Window::Close() const {
    RequireAlive(hwnd_);
    PostMessageW(hwnd_, WM_SYSCOMMAND, SC_CLOSE, 0);
}

void Window::WaitUntilGone(Milliseconds timeout) const {
    const auto gone = [this] {
        return !Exists() || (!IsWindowVisible(hwnd_) && GetWindow(hwnd_, GW_CHILD) == nullptr);
    };
    WaitUntil(gone, Describe(hwnd_) + L" to go", timeout);
}

void Window::WaitUntilAnswers() const {
    Send(hwnd_, WM_NULL);
}

std::vector<Window> FindWindows(const WindowQuery& query) {
    Enumeration enumeration{query};
    EnumWindows(CollectMatch, reinterpret_cast<LPARAM>(&enumeration));
    return std::move(enumeration.found);
}

std::optional<Window> FindFirstWindow(const WindowQuery& query) {
    const std::vector<Window> found = FindWindows(query);
    return found.empty() ? std::nullopt : std::optional(found.front());
}

Window WaitForWindow(const WindowQuery& query, Milliseconds timeout) {
    return WaitForValue([&] { return FindFirstWindow(query); }, DescribeQuery(query), timeout);
}

void WaitForNoWindow(const WindowQuery& query, Milliseconds timeout) {
    WaitUntil([&] { return FindWindows(query).empty(); }, L"the end of " + DescribeQuery(query), timeout);
}

Window WaitForForm(const Process& process, const std::wstring& title, Milliseconds timeout) {
    const WindowQuery query{process.Id(), kFormClass, title};
    const auto look = [&]() -> std::optional<Window> {
        const bool ended = !process.Running();
        std::optional<Window> form = FindFirstWindow(query);
        if (ended && !form) {
            Fail(L"the process ended with exit code " + std::to_wstring(process.ExitCode().value_or(0)) +
                 L" without " + DescribeQuery(query));
        }
        return form;
    };
    return WaitForValue(look, DescribeQuery(query), timeout);
}

std::vector<Window> Forms(const Process& process) {
    return FindWindows({process.Id(), kFormClass, std::nullopt});
}

} // namespace UiDriver
