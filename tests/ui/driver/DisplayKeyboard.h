#pragma once

#include "Window.h"

#include <string>

/// The display's own keyboard. What is typed on it goes where the window manager has put the display's focus, which
/// can be nowhere; injected input reaches the active window all the same.
namespace UiDriver::DisplayKeyboard {

/// One key after the other, in the display's words: "alt+w", "BackSpace Return".
void Press(const std::string& keys);

[[nodiscard]] bool IsWith(const Window& window);
void AwaitWith(const Window& window);

} // namespace UiDriver::DisplayKeyboard
