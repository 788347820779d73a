#include "ComboBox.h"

#include "Message.h"
#include "Wait.h"

#include <optional>

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

constexpr ItemList::Messages ComboBox::kMessages{
    CB_GETCOUNT,  CB_GETLBTEXTLEN, CB_GETLBTEXT,       CB_GETITEMDATA,
    CB_GETCURSEL, CB_SETCURSEL,    CB_FINDSTRINGEXACT, {CBN_SELENDOK, CBN_SELCHANGE}};

ComboBox::ComboBox(HWND hwnd) : ItemList(hwnd, kMessages) {}

bool ComboBox::ListOpen() const {
    return Send(Hwnd(), CB_GETDROPPEDSTATE) != 0;
}

void ComboBox::ChooseByMouse(int index) const {
    if (index < 0 || index >= Count()) {
        FailForEntry(index);
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
