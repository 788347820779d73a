#include "platform/windows/WindowsHotKeys.h"

#include <array>

HotKeyAnswer WindowsHotKeys::Register(int id, const KeyCode& key) {
    if (key.key == 0) {
        return HotKeyAnswer::Refused; // some systems take it
    }
    const UINT modifiers = MOD_NOREPEAT | (key.shift ? MOD_SHIFT : 0U) | (key.ctrl ? MOD_CONTROL : 0U) |
                           (key.alt ? MOD_ALT : 0U);
    if (RegisterHotKey(window_, id, modifiers, key.key) != FALSE) {
        return HotKeyAnswer::Registered;
    }
    return GetLastError() == ERROR_HOTKEY_ALREADY_REGISTERED ? HotKeyAnswer::Taken : HotKeyAnswer::Refused;
}

void WindowsHotKeys::Unregister(int id) {
    UnregisterHotKey(window_, id);
}

bool WindowsHotKeys::IsDown(std::uint8_t key) const {
    return GetAsyncKeyState(key) < 0;
}

std::wstring WindowsHotKeys::NameOf(const KeyCode& key) const {
    constexpr UINT kScanShift = 16;
    constexpr UINT kExtendedBit = 1U << 24U;
    const UINT scan = MapVirtualKeyW(key.key, MAPVK_VK_TO_VSC);
    std::array<wchar_t, 64> name{};
    const auto lParam = static_cast<LONG>(scan << kScanShift | (key.extended ? kExtendedBit : 0U));
    const int length = scan == 0 ? 0 : GetKeyNameTextW(lParam, name.data(), static_cast<int>(name.size()));
    return {name.data(), static_cast<std::size_t>(length > 0 ? length : 0)};
}
