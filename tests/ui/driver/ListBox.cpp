#include "ListBox.h"

#include "Message.h"

namespace UiDriver {

constexpr ItemList::Messages ListBox::kMessages{LB_GETCOUNT,        LB_GETTEXTLEN,     LB_GETTEXT,
                                                LB_GETITEMDATA,     LB_GETCURSEL,      LB_SETCURSEL,
                                                LB_FINDSTRINGEXACT, {LBN_SELCHANGE, 0}};

ListBox::ListBox(HWND hwnd) : ItemList(hwnd, kMessages) {}

POINT ListBox::ItemCentre(int index) const {
    RECT row{};
    const auto position = static_cast<WPARAM>(index);
    RECT client{};
    GetClientRect(Hwnd(), &client);
    const auto ask = [&] {
        if (Send(Hwnd(), LB_GETITEMRECT, position, reinterpret_cast<LPARAM>(&row)) == LB_ERR) {
            FailForEntry(index);
        }
    };
    ask();
    if (row.top < client.top || row.bottom > client.bottom) {
        Send(Hwnd(), LB_SETTOPINDEX, position);
        ask();
    }
    POINT point{(row.left + row.right) / 2, (row.top + row.bottom) / 2};
    ClientToScreen(Hwnd(), &point);
    return point;
}

void ListBox::ClickItem(int index, MouseButton button) const {
    const POINT point = ItemCentre(index);
    RequireReachable(point);
    Mouse::Click(point, button);
}

void ListBox::DoubleClickItem(int index) const {
    const POINT point = ItemCentre(index);
    RequireReachable(point);
    Mouse::DoubleClick(point);
}

} // namespace UiDriver
