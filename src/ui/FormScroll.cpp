#include "ui/FormScroll.h"

#include "ui/Dpi.h"

#include <algorithm>

namespace {

constexpr int kLinePixels = 16; // at 100 %
constexpr int kWheelLines = 3;

SCROLLINFO InfoOf(HWND form, int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(form, bar, &info); // nothing but zeros without scroll bars
    return info;
}

int LastPosition(const SCROLLINFO& info) {
    const int page = static_cast<int>(info.nPage);
    return page == 0 ? 0 : std::max(0, info.nMax + 1 - page);
}

void SetBar(HWND form, int bar, int content, int page) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = content - 1;
    info.nPage = static_cast<UINT>(page);
    SetScrollInfo(form, bar, &info, TRUE); // hides the bar when the page holds all
}

/// How far to go to see all from `begin` to `end`, or its beginning when a page is too short for it.
int Missing(int begin, int end, int page) {
    return std::min(begin, std::max(0, end - page));
}

int PositionAfter(const SCROLLINFO& info, WORD request, int line) {
    const int page = static_cast<int>(info.nPage);
    switch (request) {
    case SB_LINEUP:
        return info.nPos - line;
    case SB_LINEDOWN:
        return info.nPos + line;
    case SB_PAGEUP:
        return info.nPos - page;
    case SB_PAGEDOWN:
        return info.nPos + page;
    case SB_TOP:
        return 0;
    case SB_BOTTOM:
        return info.nMax;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        return info.nTrackPos;
    default:
        return info.nPos;
    }
}

} // namespace

SIZE FitForm(HWND form, SIZE content, SIZE room, UINT dpi) {
    RECT frame{};
    AdjustWindowRectExForDpi(&frame, static_cast<DWORD>(GetWindowLongPtrW(form, GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongPtrW(form, GWL_EXSTYLE)), dpi);
    const SIZE border{frame.right - frame.left, frame.bottom - frame.top};
    const SIZE most{room.cx - border.cx, room.cy - border.cy};
    const int barWidth = GetSystemMetricsForDpi(SM_CXVSCROLL, dpi);
    const int barHeight = GetSystemMetricsForDpi(SM_CYHSCROLL, dpi);
    // One bar takes room that may make the other one necessary.
    const bool tooHigh = content.cy > most.cy;
    const bool tooWide = content.cx + (tooHigh ? barWidth : 0) > most.cx;
    const SIZE bars{tooHigh || (tooWide && content.cy + barHeight > most.cy) ? barWidth : 0,
                    tooWide ? barHeight : 0};
    const SIZE client{std::min(content.cx + bars.cx, most.cx), std::min(content.cy + bars.cy, most.cy)};
    SetBar(form, SB_HORZ, content.cx, client.cx - bars.cx);
    SetBar(form, SB_VERT, content.cy, client.cy - bars.cy);
    return {client.cx + border.cx, client.cy + border.cy};
}

POINT ScrollPosition(HWND form) {
    return {InfoOf(form, SB_HORZ).nPos, InfoOf(form, SB_VERT).nPos};
}

void ScrollTo(HWND form, POINT position) {
    const auto move = [form](int bar, LONG wanted) {
        SCROLLINFO info = InfoOf(form, bar);
        const int before = info.nPos;
        info.fMask = SIF_POS;
        info.nPos = std::clamp(static_cast<int>(wanted), 0, LastPosition(info));
        if (info.nPos != before) {
            SetScrollInfo(form, bar, &info, TRUE);
        }
        return before - info.nPos;
    };
    const int right = move(SB_HORZ, position.x);
    const int down = move(SB_VERT, position.y);
    if (right != 0 || down != 0) {
        ScrollWindowEx(form, right, down, nullptr, nullptr, nullptr, nullptr,
                       SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
        UpdateWindow(form);
    }
}

void ScrollIntoView(HWND form, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&place), 2);
    const int margin = Scaled(kLinePixels, GetDpiForWindow(form));
    InflateRect(&place, margin, margin);
    RECT client{};
    GetClientRect(form, &client);
    place.right = std::min(place.right, place.left + client.right / 2); // options are wider than their texts
    const POINT now = ScrollPosition(form);
    ScrollTo(form, {now.x + Missing(place.left, place.right, client.right),
                    now.y + Missing(place.top, place.bottom, client.bottom)});
}

bool ScrollByMessage(HWND form, UINT message, WPARAM wParam) {
    const int line = Scaled(kLinePixels, GetDpiForWindow(form));
    POINT position = ScrollPosition(form);
    switch (message) {
    case WM_HSCROLL:
        position.x = PositionAfter(InfoOf(form, SB_HORZ), LOWORD(wParam), line);
        break;
    case WM_VSCROLL:
        position.y = PositionAfter(InfoOf(form, SB_VERT), LOWORD(wParam), line);
        break;
    case WM_MOUSEWHEEL: {
        const int pixels = -GET_WHEEL_DELTA_WPARAM(wParam) * kWheelLines * line / WHEEL_DELTA;
        const bool sideways = (LOWORD(wParam) & MK_SHIFT) != 0 || LastPosition(InfoOf(form, SB_VERT)) == 0;
        (sideways ? position.x : position.y) += pixels;
        break;
    }
    default:
        return false;
    }
    ScrollTo(form, position);
    return true;
}
