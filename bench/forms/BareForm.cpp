#include "forms/BareForm.h"

#include "resources/resource.h"
#include "ui/Controls.h"

#include <commctrl.h>

#include <array>
#include <bit>

namespace {

constexpr const wchar_t* kDialogClass = L"#32770";

INT_PTR CALLBACK BareProc(HWND /*window*/, UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) noexcept {
    return FALSE;
}

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

HFONT FontOf(HWND window) {
    return std::bit_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
}

} // namespace

void PaintNow(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

BareForm::BareForm(HWND original) : title_(TextOf(original)) {
    GetWindowRect(original, &place_);
    GetObjectW(FontOf(original), sizeof font_, &font_);
    Take(original, 0);
}

void BareForm::Take(HWND parent, std::size_t parentPlace) {
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        Piece piece{parentPlace,
                    false,
                    ClassOf(child),
                    TextOf(child),
                    static_cast<DWORD>(GetWindowLongPtrW(child, GWL_STYLE)),
                    static_cast<DWORD>(GetWindowLongPtrW(child, GWL_EXSTYLE)),
                    {},
                    GetDlgCtrlID(child)};
        if (piece.windowClass.starts_with(L"QLBUtl")) {
            piece.windowClass = WC_BUTTONW; // a class of our own that is the system's button
        }
        piece.page = piece.windowClass == kDialogClass;
        GetWindowRect(child, &piece.place);
        MapWindowPoints(nullptr, parent, std::bit_cast<POINT*>(&piece.place), 2);
        pieces_.push_back(piece);
        if (piece.page) {
            Take(child, pieces_.size());
        }
    }
}

HWND BareForm::Open(HWND owner) const {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    const HWND form = CreateDialogParamW(instance, MAKEINTRESOURCEW(IDD_FORM), owner, BareProc, 0);
    if (form == nullptr) {
        return nullptr;
    }
    const auto font = std::bit_cast<LPARAM>(CreateFontIndirectW(&font_)); // as long-lived as this program
    SetWindowTextW(form, title_.c_str());
    std::vector<HWND> windows{form};
    for (const Piece& piece : pieces_) {
        const HWND parent = windows[piece.parent];
        const int width = piece.place.right - piece.place.left;
        const int height = piece.place.bottom - piece.place.top;
        HWND window = nullptr;
        if (piece.page) {
            window = CreateDialogParamW(instance, MAKEINTRESOURCEW(IDD_PAGE), parent, BareProc, 0);
            SetWindowPos(window, nullptr, piece.place.left, piece.place.top, width, height,
                         SWP_NOZORDER | SWP_NOACTIVATE |
                             ((piece.style & WS_VISIBLE) != 0 ? SWP_SHOWWINDOW : 0U));
        } else {
            window = CreateWindowExW(piece.exStyle, piece.windowClass.c_str(), piece.text.c_str(),
                                     piece.style, piece.place.left, piece.place.top, width, height, parent,
                                     std::bit_cast<HMENU>(static_cast<INT_PTR>(piece.id)), instance, nullptr);
            SendMessageW(window, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
        }
        windows.push_back(window);
    }
    SetWindowPos(form, nullptr, place_.left, place_.top, place_.right - place_.left,
                 place_.bottom - place_.top, SWP_NOZORDER | SWP_NOACTIVATE);
    EnableWindow(owner, FALSE);
    ShowWindow(form, SW_SHOW);
    PaintNow(form);
    return form;
}
