#include "platform/windows/WindowsKeySender.h"

#include <windows.h>

namespace {

INPUT InputOf(const KeyStroke& stroke) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = stroke.key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(stroke.key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags =
        (stroke.down ? 0U : DWORD{KEYEVENTF_KEYUP}) | (stroke.extended ? DWORD{KEYEVENTF_EXTENDEDKEY} : 0U);
    return input;
}

} // namespace

std::vector<KeyStroke> WindowsKeySender::HeldModifiers() const {
    std::vector<KeyStroke> held;
    for (const KeyStroke& modifier :
         {KeyStroke{VK_LSHIFT}, KeyStroke{VK_RSHIFT}, KeyStroke{VK_LCONTROL},
          KeyStroke{VK_RCONTROL, true, true}, KeyStroke{VK_LMENU}, KeyStroke{VK_RMENU, true, true},
          KeyStroke{VK_LWIN, true, true}, KeyStroke{VK_RWIN, true, true}}) {
        if (GetAsyncKeyState(modifier.key) < 0) {
            held.push_back(modifier);
        }
    }
    return held;
}

bool WindowsKeySender::Send(const std::vector<KeyStroke>& strokes) {
    std::vector<INPUT> inputs;
    inputs.reserve(strokes.size());
    for (const KeyStroke& stroke : strokes) {
        inputs.push_back(InputOf(stroke));
    }
    return SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)) == inputs.size();
}
