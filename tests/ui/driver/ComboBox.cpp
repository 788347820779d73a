#include "ComboBox.h"

#include "Message.h"
#include "Wait.h"

namespace UiDriver {
namespace {

BOOL CALLBACK KeepVisibleList(HWND hwnd, LPARAM param) {
    if (IsWindowVisible(hwnd) && SameClass(ClassNameOf(hwnd), L"ComboLBox")) {
        *reinterpret_cast<HWND*>(param) = hwnd;
        return FALSE;
    }
    return TRUE;
}

/// The drop-down list is a top-level window that belongs to the combo box's thread.
std::optional<HWND> FindDroppedList(HWND combo) {
    HWND found = nullptr;
    EnumThreadWindows(GetWindowThreadProcessId(combo, nullptr), KeepVisibleList,
                      reinterpret_cast<LPARAM>(&found));
    return found != nullptr ? std::optional(found) : std::nullopt;
}

} // namespace

int ComboBox::Count() const {
    return static_cast<int>(Send(Hwnd(), CB_GETCOUNT));
}

std::wstring ComboBox::Item(int index) const {
    const auto position = static_cast<WPARAM>(index);
    const LRESULT length = Send(Hwnd(), CB_GETLBTEXTLEN, position);
    if (length == CB_ERR) {
        Fail(Describe(Hwnd()) + L" has no entry " + std::to_wstring(index));
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = Send(Hwnd(), CB_GETLBTEXT, position, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

std::vector<std::wstring> ComboBox::Items() const {
    std::vector<std::wstring> items;
    const int count = Count();
    items.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        items.push_back(Item(index));
    }
    return items;
}

LPARAM ComboBox::ItemData(int index) const {
    return Send(Hwnd(), CB_GETITEMDATA, static_cast<WPARAM>(index));
}

std::optional<int> ComboBox::Selected() const {
    const LRESULT index = Send(Hwnd(), CB_GETCURSEL);
    return index == CB_ERR ? std::nullopt : std::optional(static_cast<int>(index));
}

std::wstring ComboBox::SelectedText() const {
    const std::optional<int> index = Selected();
    return index ? Item(*index) : std::wstring();
}

bool ComboBox::ListOpen() const {
    return Send(Hwnd(), CB_GETDROPPEDSTATE) != 0;
}

void ComboBox::Choose(int index) const {
    if (!Enabled()) {
        Fail(Describe(Hwnd()) + L" is disabled and nothing can be chosen in it");
    }
    if (index < 0 || Send(Hwnd(), CB_SETCURSEL, static_cast<WPARAM>(index)) == CB_ERR) {
        Fail(Describe(Hwnd()) + L" has no entry " + std::to_wstring(index));
    }
    Notify(CBN_SELENDOK);
    Notify(CBN_SELCHANGE);
}

void ComboBox::Choose(const std::wstring& item) const {
    const LRESULT index =
        Send(Hwnd(), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(item.c_str()));
    if (index == CB_ERR) {
        Fail(Describe(Hwnd()) + L" has no entry \"" + item + L"\"");
    }
    Choose(static_cast<int>(index));
}

void ComboBox::ChooseByMouse(int index) const {
    if (index < 0 || index >= Count()) {
        Fail(Describe(Hwnd()) + L" has no entry " + std::to_wstring(index));
    }
    // The arrow, because a click into an editable text does not open the list.
    const RECT rect = Rect();
    const POINT arrow{rect.right - GetSystemMetrics(SM_CXVSCROLL) / 2, (rect.top + rect.bottom) / 2};
    RequireReachable(arrow);
    Mouse::Click(arrow);
    const HWND list = WaitForValue([this] { return FindDroppedList(Hwnd()); },
                                   L"the list of " + Describe(Hwnd()) + L" to open");
    Send(list, LB_SETTOPINDEX, static_cast<WPARAM>(index));
    RECT row{};
    if (Send(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&row)) == LB_ERR) {
        Fail(L"the list of " + Describe(Hwnd()) + L" does not say where its entries are");
    }
    POINT point{(row.left + row.right) / 2, (row.top + row.bottom) / 2};
    ClientToScreen(list, &point);
    Mouse::Click(point);
    WaitUntil([list] { return !IsWindowVisible(list); }, L"the list of " + Describe(Hwnd()) + L" to close");
}

} // namespace UiDriver
