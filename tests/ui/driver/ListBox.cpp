#include "ListBox.h"

#include "Message.h"
#include "Wait.h"

namespace UiDriver {

int ListBox::Count() const {
    return static_cast<int>(Send(Hwnd(), LB_GETCOUNT));
}

std::wstring ListBox::Item(int index) const {
    const auto position = static_cast<WPARAM>(index);
    const LRESULT length = Send(Hwnd(), LB_GETTEXTLEN, position);
    if (length == LB_ERR) {
        Fail(Describe(Hwnd()) + L" has no entry " + std::to_wstring(index));
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = Send(Hwnd(), LB_GETTEXT, position, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

std::vector<std::wstring> ListBox::Items() const {
    std::vector<std::wstring> items;
    const int count = Count();
    items.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        items.push_back(Item(index));
    }
    return items;
}

LPARAM ListBox::ItemData(int index) const {
    return Send(Hwnd(), LB_GETITEMDATA, static_cast<WPARAM>(index));
}

std::optional<int> ListBox::Selected() const {
    const LRESULT index = Send(Hwnd(), LB_GETCURSEL);
    return index == LB_ERR ? std::nullopt : std::optional(static_cast<int>(index));
}

std::wstring ListBox::SelectedText() const {
    const std::optional<int> index = Selected();
    return index ? Item(*index) : std::wstring();
}

void ListBox::Choose(int index) const {
    if (!Enabled()) {
        Fail(Describe(Hwnd()) + L" is disabled and nothing can be chosen in it");
    }
    if (index < 0 || Send(Hwnd(), LB_SETCURSEL, static_cast<WPARAM>(index)) == LB_ERR) {
        Fail(Describe(Hwnd()) + L" has no entry " + std::to_wstring(index));
    }
    Notify(LBN_SELCHANGE);
}

void ListBox::Choose(const std::wstring& item) const {
    const LRESULT index =
        Send(Hwnd(), LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(item.c_str()));
    if (index == LB_ERR) {
        Fail(Describe(Hwnd()) + L" has no entry \"" + item + L"\"");
    }
    Choose(static_cast<int>(index));
}

POINT ListBox::ItemCentre(int index) const {
    RECT row{};
    const auto position = static_cast<WPARAM>(index);
    RECT client{};
    GetClientRect(Hwnd(), &client);
    const auto ask = [&] {
        if (Send(Hwnd(), LB_GETITEMRECT, position, reinterpret_cast<LPARAM>(&row)) == LB_ERR) {
            Fail(Describe(Hwnd()) + L" has no entry " + std::to_wstring(index));
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
