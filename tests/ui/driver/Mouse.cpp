#include "Mouse.h"

#include "Wait.h"

#include <cstdlib>
#include <string>

namespace UiDriver::Mouse {
namespace {

constexpr Milliseconds kBetweenDownAndUp{30};
constexpr Milliseconds kBetweenMoves{30};
constexpr Milliseconds kAfterClick{60};

struct LastClick {
    POINT point{};
    ULONGLONG time = 0;
};

LastClick g_lastClick;

void Inject(DWORD flags, LONG x = 0, LONG y = 0, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    if (SendInput(1, &input, sizeof input) != 1) {
        FailLastError(L"injecting mouse input");
    }
}

LONG ToAbsolute(LONG pixel, int origin, int extent) {
    // The middle of the pixel, so that rounding back cannot land on its neighbour.
    return static_cast<LONG>(((static_cast<long long>(pixel) - origin) * 65536 + 32768) / extent);
}

void AvoidDoubleClick(POINT point) {
    const bool close = std::abs(point.x - g_lastClick.point.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                       std::abs(point.y - g_lastClick.point.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
    const ULONGLONG elapsed = GetTickCount64() - g_lastClick.time;
    const ULONGLONG needed = GetDoubleClickTime() + 50ULL;
    if (close && elapsed < needed) {
        Pause(Milliseconds(needed - elapsed));
    }
}

void RememberClick(POINT point) {
    g_lastClick = {point, GetTickCount64()};
}

} // namespace

void MoveTo(POINT point) {
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN);
    const int top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    const int width = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const int height = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    if (point.x < left || point.y < top || point.x >= left + width || point.y >= top + height) {
        Fail(L"the point " + std::to_wstring(point.x) + L", " + std::to_wstring(point.y) +
             L" is off the screen");
    }
    Inject(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK,
           ToAbsolute(point.x, left, width), ToAbsolute(point.y, top, height));
    const auto arrived = [point] {
        POINT now{};
        return GetCursorPos(&now) && now.x == point.x && now.y == point.y;
    };
    WaitUntil(arrived, L"the mouse to reach " + std::to_wstring(point.x) + L", " + std::to_wstring(point.y));
}

void Down(MouseButton button) {
    Inject(button == MouseButton::Left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
    Pause(kBetweenDownAndUp);
}

void Up(MouseButton button) {
    Inject(button == MouseButton::Left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
    Pause(kAfterClick);
}

void Turn(int notches) {
    Inject(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(notches * WHEEL_DELTA));
    Pause(kAfterClick);
}

void Click(POINT point, MouseButton button) {
    AvoidDoubleClick(point);
    MoveTo(point);
    Down(button);
    Up(button);
    RememberClick(point);
}

void DoubleClick(POINT point) {
    AvoidDoubleClick(point);
    MoveTo(point);
    Down();
    Inject(MOUSEEVENTF_LEFTUP);
    Pause(kBetweenDownAndUp);
    Down();
    Up();
    RememberClick(point);
}

void Glide(POINT from, POINT to, int steps) {
    for (int step = 1; step <= steps; ++step) {
        MoveTo({from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps});
        Pause(kBetweenMoves);
    }
}

void Drag(POINT from, POINT to, int steps) {
    AvoidDoubleClick(from);
    MoveTo(from);
    Down();
    Glide(from, to, steps);
    Up();
    RememberClick(to);
}

} // namespace UiDriver::Mouse
