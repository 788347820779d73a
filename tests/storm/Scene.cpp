#include "Scene.h"

#include "Journal.h"
#include "driver/Message.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

using UiDriver::Control;
using UiDriver::Process;
using UiDriver::Window;

namespace {

constexpr UINT kCountMs = 2000;
constexpr wchar_t kMenuClass[] = L"#32768";
constexpr wchar_t kSystemDialogClass[] = L"#32770";

bool IsDialog(const std::wstring& className) {
    return UiDriver::SameClass(className, UiDriver::kFormClass) ||
           UiDriver::SameClass(className, kSystemDialogClass);
}

void Add(std::vector<std::size_t>& appearance, HWND hwnd) {
    RECT rect{};
    GetWindowRect(hwnd, &rect);
    appearance.push_back(reinterpret_cast<std::size_t>(hwnd));
    appearance.push_back(IsWindowEnabled(hwnd) ? 1 : 0);
    appearance.push_back(static_cast<std::size_t>(MAKELONG(rect.left, rect.top)));
    appearance.push_back(static_cast<std::size_t>(MAKELONG(rect.right, rect.bottom)));
    if (UiDriver::SameClass(UiDriver::ClassNameOf(hwnd), WC_TREEVIEWW)) {
        DWORD_PTR count = 0;
        SendMessageTimeoutW(hwnd, TVM_GETCOUNT, 0, 0, SMTO_NORMAL, kCountMs, &count);
        appearance.push_back(count);
    }
}

/// 0 when the window has gone.
std::size_t Asked(HWND hwnd, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    DWORD_PTR result = 0;
    SendMessageTimeoutW(hwnd, message, wParam, lParam, SMTO_NORMAL, kCountMs, &result);
    return result;
}

std::wstring ShownText(HWND hwnd) {
    wchar_t text[256] = L"";
    Asked(hwnd, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return text;
}

std::size_t State(HWND hwnd, const std::wstring& className) {
    const auto is = [&](const wchar_t* name) { return UiDriver::SameClass(className, name); };
    if (is(WC_BUTTONW)) {
        return Asked(hwnd, BM_GETCHECK);
    }
    if (is(WC_COMBOBOXW)) {
        return Asked(hwnd, CB_GETCURSEL);
    }
    if (is(WC_LISTBOXW)) {
        return Asked(hwnd, LB_GETCURSEL);
    }
    if (is(WC_TABCONTROLW)) {
        return Asked(hwnd, TCM_GETCURSEL);
    }
    return is(WC_TREEVIEWW) ? Asked(hwnd, TVM_GETCOUNT) : 0;
}

std::string Shown(HWND hwnd) {
    const std::wstring className = UiDriver::ClassNameOf(hwnd);
    RECT rect{};
    GetWindowRect(hwnd, &rect);
    std::string text = UiDriver::ToUtf8(className + L' ' + ShownText(hwnd));
    const std::array<std::size_t, 7> numbers = {static_cast<std::size_t>(GetDlgCtrlID(hwnd)),
                                                static_cast<std::size_t>(IsWindowEnabled(hwnd)),
                                                State(hwnd, className),
                                                static_cast<std::size_t>(rect.left),
                                                static_cast<std::size_t>(rect.top),
                                                static_cast<std::size_t>(rect.right),
                                                static_cast<std::size_t>(rect.bottom)};
    for (const std::size_t number : numbers) {
        text += ' ' + std::to_string(number);
    }
    return text;
}

} // namespace

Scene Scene::Of(DWORD processId) {
    Scene scene;
    // From the front to the back.
    for (const Window& window : UiDriver::FindWindows({processId, {}, {}})) {
        const std::wstring className = UiDriver::ClassNameOf(window.Hwnd());
        if (!scene.menu && UiDriver::SameClass(className, kMenuClass)) {
            scene.menu = window;
        }
        if (IsDialog(className)) {
            scene.dialogs.push_back(window);
            if (IsWindowEnabled(window.Hwnd())) {
                scene.active.push_back(window);
                scene.activeIsForm = UiDriver::SameClass(className, UiDriver::kFormClass);
            }
        }
    }
    if (!scene.dialogs.empty()) {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        const DWORD thread = GetWindowThreadProcessId(scene.dialogs.front().Hwnd(), nullptr);
        scene.inMenuMode = GetGUIThreadInfo(thread, &info) && (info.flags & GUI_INMENUMODE) != 0;
    }
    return scene;
}

bool Scene::ShowsFiles() const {
    return std::any_of(dialogs.begin(), dialogs.end(), [](const Window& dialog) {
        const std::vector<HWND> inside = UiDriver::WindowsInside(dialog.Hwnd());
        return std::any_of(inside.begin(), inside.end(), [](HWND hwnd) {
            return UiDriver::SameClass(UiDriver::ClassNameOf(hwnd), L"SHELLDLL_DefView");
        });
    });
}

std::vector<std::size_t> Appearance(const Process& process) {
    std::vector<std::size_t> appearance;
    for (const Window& window : UiDriver::FindWindows({process.Id(), {}, {}})) {
        Add(appearance, window.Hwnd());
        for (const HWND hwnd : UiDriver::WindowsInside(window.Hwnd())) {
            if (IsWindowVisible(hwnd)) {
                Add(appearance, hwnd);
            }
        }
    }
    return appearance;
}

std::vector<Control> Reachable(const Window& form) {
    std::vector<Control> controls;
    for (const HWND hwnd : UiDriver::WindowsInside(form.Hwnd())) {
        if (!IsWindowVisible(hwnd) || !IsWindowEnabled(hwnd)) {
            continue;
        }
        const Control control(hwnd);
        if (WindowFromPoint(control.Centre()) == hwnd) {
            controls.push_back(control);
        }
    }
    return controls;
}

std::string NameOf(const Window& window) {
    wchar_t title[128] = L"";
    InternalGetWindowText(window.Hwnd(), title, static_cast<int>(std::size(title)));
    return UiDriver::ToUtf8(UiDriver::ClassNameOf(window.Hwnd()) + L" \"" + title + L'"');
}

std::string NameOf(const Control& control) {
    return UiDriver::ToUtf8(UiDriver::ClassNameOf(control.Hwnd()) + L' ' +
                            std::to_wstring(GetDlgCtrlID(control.Hwnd())));
}

std::string Description(const Scene& scene) {
    std::string text;
    for (const Window& dialog : scene.dialogs) {
        text += NameOf(dialog) + (IsWindowEnabled(dialog.Hwnd()) ? ", " : " (disabled), ");
    }
    return text + (scene.menu ? "a menu" : scene.inMenuMode ? "menu mode" : "no menu");
}

std::string Outcome(const Scene& scene) {
    std::string shown;
    for (const Window& dialog : scene.dialogs) {
        for (const HWND hwnd : UiDriver::WindowsInside(dialog.Hwnd())) {
            if (IsWindowVisible(hwnd)) {
                shown += Shown(hwnd) + '\n';
            }
        }
    }
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const bool asked =
        !scene.dialogs.empty() &&
        GetGUIThreadInfo(GetWindowThreadProcessId(scene.dialogs.front().Hwnd(), nullptr), &info);
    const std::string focus = asked && info.hwndFocus != nullptr ? NameOf(Control(info.hwndFocus)) : "none";
    return Description(scene) + ", focus " + focus + ", " + Hex(Hash(shown));
}
