#include "Keyboard.h"

#include "Wait.h"

#include <vector>

namespace UiDriver::Keyboard {
namespace {

constexpr Milliseconds kBetweenDownAndUp{20};
constexpr Milliseconds kAfterKey{30};

bool IsExtended(WORD key) {
    switch (key) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_INSERT:
    case VK_DELETE:
    case VK_APPS:
    case VK_LWIN:
    case VK_RWIN:
    case VK_RCONTROL:
    case VK_RMENU:
        return true;
    default:
        return false;
    }
}

bool TryInject(WORD key, WORD scan, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    return SendInput(1, &input, sizeof input) == 1;
}

bool TryInjectKey(WORD key, DWORD flags) {
    const auto scan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    return TryInject(key, scan, flags | (IsExtended(key) ? DWORD{KEYEVENTF_EXTENDEDKEY} : 0));
}

void Require(bool injected) {
    if (!injected) {
        FailLastError(L"injecting keyboard input");
    }
}

/// Keys held down, let go again even when the test fails half-way.
class HeldKeys {
public:
    explicit HeldKeys(std::initializer_list<WORD> keys) {
        for (const WORD key : keys) {
            Down(key);
            keys_.insert(keys_.begin(), key);
        }
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys() {
        for (const WORD key : keys_) {
            TryInjectKey(key, KEYEVENTF_KEYUP);
        }
    }

private:
    // The last one pressed comes first.
    std::vector<WORD> keys_;
};

} // namespace

void Down(WORD key) {
    Require(TryInjectKey(key, 0));
    Pause(kBetweenDownAndUp);
}

void Up(WORD key) {
    Require(TryInjectKey(key, KEYEVENTF_KEYUP));
    Pause(kAfterKey);
}

void Press(WORD key) {
    Down(key);
    Up(key);
}

void Press(std::initializer_list<WORD> modifiers, WORD key) {
    const HeldKeys held(modifiers);
    Press(key);
}

void Type(std::wstring_view text) {
    for (const wchar_t unit : text) {
        const auto code = static_cast<WORD>(unit);
        Require(TryInject(0, code, KEYEVENTF_UNICODE));
        Require(TryInject(0, code, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP));
    }
    Pause(kAfterKey);
}

void PressContextMenuKey() {
    Press(VK_APPS);
}

} // namespace UiDriver::Keyboard
