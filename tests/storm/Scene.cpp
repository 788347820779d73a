#include "Scene.h"

#include "driver/Message.h"

#include <commctrl.h>

#include <algorithm>

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

} // namespace

Scene Scene::Of(const Process& process) {
    Scene scene;
    // From the front to the back.
    for (const Window& window : UiDriver::FindWindows({process.Id(), {}, {}})) {
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
