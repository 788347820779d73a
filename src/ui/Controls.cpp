#include "ui/Controls.h"

#include <commctrl.h>

#include <bit>

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

void AddTab(HWND tabControl, std::wstring caption) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption.data();
    const LRESULT count = SendMessageW(tabControl, TCM_GETITEMCOUNT, 0, 0);
    SendMessageW(tabControl, TCM_INSERTITEMW, static_cast<WPARAM>(count), std::bit_cast<LPARAM>(&item));
}

void ComboAdd(HWND combo, const std::wstring& text, LPARAM data) {
    const LRESULT index = SendMessageW(combo, CB_ADDSTRING, 0, std::bit_cast<LPARAM>(text.c_str()));
    if (index >= 0) {
        SendMessageW(combo, CB_SETITEMDATA, static_cast<WPARAM>(index), data);
    }
}

int ComboSelection(HWND combo) {
    return static_cast<int>(SendMessageW(combo, CB_GETCURSEL, 0, 0));
}

void ComboSelect(HWND combo, int index) {
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

LPARAM ComboData(HWND combo, int index) {
    return SendMessageW(combo, CB_GETITEMDATA, static_cast<WPARAM>(index), 0);
}

ComboEvent ComboEventOf(HWND combo, int notification) {
    const bool open = SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0;
    if (notification == CBN_SELENDCANCEL) {
        return ComboEvent::Cancelled;
    }
    const bool chosen = notification == CBN_CLOSEUP || (notification == CBN_SELCHANGE && !open);
    return chosen ? ComboEvent::Chosen : ComboEvent::None;
}
