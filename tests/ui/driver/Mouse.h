#pragma once

#include "Win32.h"

namespace UiDriver {

enum class MouseButton { Left, Right };

/// The real mouse: the system itself finds the window under it. All points are screen pixels.
namespace Mouse {

void MoveTo(POINT point);
void Down(MouseButton button = MouseButton::Left);
void Up(MouseButton button = MouseButton::Left);

/// Turns the wheel: towards the user with a negative number of notches.
void Turn(int notches);

/// Never makes a double click with the click before it.
void Click(POINT point, MouseButton button = MouseButton::Left);
void DoubleClick(POINT point);

inline constexpr int kMovesOfDrag = 10;

/// Down, a path of `steps` small moves, up: slow enough for a drag to be noticed.
void Drag(POINT from, POINT to, int steps = kMovesOfDrag);

/// The path of Drag without the buttons, for a drag that the test wants to look at half-way.
void Glide(POINT from, POINT to, int steps = kMovesOfDrag);

} // namespace Mouse
} // namespace UiDriver
