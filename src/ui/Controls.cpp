#include "ui/Controls.h"

#include "platform/windows/Handles.h"

#include <commctrl.h>

#include <array>
#include <bit>

namespace {

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 16> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

/// The line of text, a pixel above it, where the system puts one, and below it, and the edges.
int BoxHeight(HWND edit) {
    const MemoryDc hdc(CreateCompatibleDC(nullptr));
    const Selected selected(hdc.get(), std::bit_cast<HFONT>(SendMessageW(edit, WM_GETFONT, 0, 0)));
    TEXTMETRICW metrics{};
    GetTextMetricsW(hdc.get(), &metrics);
    return metrics.tmHeight + 2 * (GetSystemMetrics(SM_CYEDGE) + 1);
}

} // namespace

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

void SetTextOf(HWND window, const std::wstring& text) {
    SetWindowTextW(window, text.c_str());
}

void SetTextIfOther(HWND window, const std::wstring& text) {
    if (TextOf(window) != text) {
        SetTextOf(window, text);
    }
}

bool HasOwnHeight(std::wstring_view windowClass) {
    return windowClass == WC_EDITW || windowClass == WC_COMBOBOXW || windowClass == HOTKEY_CLASSW;
}

void PlaceInRow(HWND control, const RECT& row) {
    constexpr int kDroppedRows = 10;
    const std::wstring name = ClassOf(control);
    const int rowHeight = row.bottom - row.top;
    const auto place = [&](int top, int height, UINT flags = 0) {
        SetWindowPos(control, nullptr, row.left, top, row.right - row.left, height,
                     SWP_NOZORDER | SWP_NOACTIVATE | flags);
    };
    const auto centred = [&](int height) { return row.top + (rowHeight - height) / 2; };
    if (name == WC_EDITW || name == HOTKEY_CLASSW) {
        const int height = BoxHeight(control);
        place(centred(height), height);
    } else if (name == WC_COMBOBOXW) {
        // With its open list; closed, it is as high as the system wants.
        place(row.top, kDroppedRows * rowHeight);
        RECT closed{};
        GetWindowRect(control, &closed);
        place(centred(closed.bottom - closed.top), 0, SWP_NOSIZE);
    } else {
        place(row.top, rowHeight);
    }
}

void AddTab(HWND tabControl, std::wstring caption) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption.data();
    const LRESULT count = SendMessageW(tabControl, TCM_GETITEMCOUNT, 0, 0);
    SendMessageW(tabControl, TCM_INSERTITEMW, static_cast<WPARAM>(count), std::bit_cast<LPARAM>(&item));
}

bool IsClosedComboBox(HWND control) {
    return ClassOf(control) == WC_COMBOBOXW && SendMessageW(control, CB_GETDROPPEDSTATE, 0, 0) == 0;
}

void ComboAdd(HWND combo, const std::wstring& text) {
    SendMessageW(combo, CB_ADDSTRING, 0, std::bit_cast<LPARAM>(text.c_str()));
}

int ComboSelection(HWND combo) {
    return static_cast<int>(SendMessageW(combo, CB_GETCURSEL, 0, 0));
}

void ComboSelect(HWND combo, int index) {
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

ComboEvent ComboEventOf(HWND combo, int notification) {
    const bool open = SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0;
    if (notification == CBN_SELENDCANCEL) {
        return ComboEvent::Cancelled;
    }
    const bool chosen = notification == CBN_CLOSEUP || (notification == CBN_SELCHANGE && !open);
    return chosen ? ComboEvent::Chosen : ComboEvent::None;
}
