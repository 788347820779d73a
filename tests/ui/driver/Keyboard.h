#pragma once

#include "Win32.h"

#include <initializer_list>
#include <string_view>

namespace UiDriver::Keyboard {

/// The real keyboard: what is typed goes to whatever has the focus. Keys are virtual-key codes.
void Down(WORD key);
void Up(WORD key);
void Press(WORD key);

/// Presses `key` while all of `modifiers` are held: Press({VK_CONTROL}, 'A').
void Press(std::initializer_list<WORD> modifiers, WORD key);

/// Types characters whatever the keyboard layout.
void Type(std::wstring_view text);

/// The key that asks for the pop-up menu of what has the focus.
void PressContextMenuKey();

} // namespace UiDriver::Keyboard
