#pragma once

#include "platform/HotKeys.h"

#include <windows.h>

/// Hot keys that are reported to a window (WM_HOTKEY), so that they come in while a dialog is open, too.
class WindowsHotKeys final : public HotKeys {
public:
    explicit WindowsHotKeys(HWND window) : window_(window) {}

    HotKeyAnswer Register(int id, const KeyCode& key) override;
    void Unregister(int id) override;
    [[nodiscard]] bool IsDown(std::uint8_t key) const override;
    [[nodiscard]] std::wstring NameOf(const KeyCode& key) const override;

private:
    HWND window_;
};
