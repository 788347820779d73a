#include "HiddenForm.h"

#include <commctrl.h>

#include <cstddef>
#include <stdexcept>

HiddenForm::HiddenForm() : ModalForm(nullptr) {
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TREEVIEW_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    if (!CreateHidden(L"MS Shell Dlg")) {
        throw std::runtime_error("the form could not be created");
    }
}

HWND HiddenForm::Add(const wchar_t* windowClass, DWORD style) {
    const HWND control = AddControl(Window(), {++lastId_, windowClass, style, {0, 0, 200, 150}});
    if (control == nullptr) {
        throw std::runtime_error("the control could not be created");
    }
    return control;
}

void HiddenForm::Pump() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        Answer(message);
    }
}

bool HiddenForm::PumpUntil(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < end) {
        Pump();
        if (condition()) {
            return true;
        }
        if (!OnIdle()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    return false;
}

namespace {

/// Where Wine's GetGuiResources tells nothing: the table in which the system keeps a process's objects.
int GdiTableEntries() {
    constexpr std::size_t kTableInPeb = sizeof(void*) == 8 ? 0xF8 : 0x94;
    constexpr std::size_t kEntries = 65'536;
    struct Entry {
        ULONGLONG object;
        ULONG owner;
        USHORT unique;
        BYTE type;
        BYTE flags;
        ULONGLONG user;
    };
    const char* peb = nullptr;
#ifdef _WIN64
    asm("movq %%gs:0x60, %0" : "=r"(peb));
#else
    asm("movl %%fs:0x30, %0" : "=r"(peb));
#endif
    const Entry* table = *reinterpret_cast<const Entry* const*>(peb + kTableInPeb);
    int used = 0;
    for (std::size_t i = 0; i < kEntries; ++i) {
        used += table[i].type != 0 ? 1 : 0;
    }
    return used;
}

} // namespace

int GdiObjects() {
    const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    return counted != 0 ? static_cast<int>(counted) : GdiTableEntries();
}
