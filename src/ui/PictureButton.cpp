#include "ui/PictureButton.h"

#include "ui/AccessibleButton.h"
#include "ui/Dpi.h"
#include "ui/Theme.h"

#include <commctrl.h>

#include <array>
#include <bit>
#include <string_view>
#include <utility>

namespace {

constexpr int kPicturePixels = 48;
/// Room for the focus ring around the picture.
constexpr int kMarginPixels = 4;
constexpr int kRingPixels = 2;
constexpr const wchar_t* kClass = L"QLBUtlPicture";

const WNDCLASSEXW& SystemButtonClass() {
    static const WNDCLASSEXW kButton = [] {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof windowClass;
        GetClassInfoExW(nullptr, WC_BUTTONW, &windowClass);
        return windowClass;
    }();
    return kButton;
}

/// Where a window of ours keeps the object it belongs to: behind what the system's button keeps.
int OwnBytes() {
    return SystemButtonClass().cbWndExtra;
}

void PaintBackground(HWND button, HDC hdc, const RECT& area) {
    const HWND parent = GetParent(button);
    FillRect(hdc, &area,
             std::bit_cast<HBRUSH>(SendMessageW(parent, WM_CTLCOLORBTN, std::bit_cast<WPARAM>(hdc),
                                                std::bit_cast<LPARAM>(button))));
    PaintParentTheme(button, hdc);
}

} // namespace

const wchar_t* PictureButton::WindowClass() {
    // A class of our own costs less than changing the procedure of every window.
    static const ATOM kRegistered = [] {
        WNDCLASSEXW windowClass = SystemButtonClass();
        windowClass.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
        windowClass.cbWndExtra += static_cast<int>(sizeof(LONG_PTR));
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpfnWndProc = Procedure;
        windowClass.lpszClassName = kClass;
        return RegisterClassExW(&windowClass);
    }();
    return kRegistered != 0 ? kClass : WC_BUTTONW;
}

PictureButton::PictureButton(HWND button, PictureList& pictures, MouseEvents events)
    : button_(button), pictures_(pictures), events_(std::move(events)) {
    SetWindowLongPtrW(button_, OwnBytes(), std::bit_cast<LONG_PTR>(this));
}

PictureButton::~PictureButton() {
    if (button_ != nullptr) {
        SetWindowLongPtrW(button_, OwnBytes(), 0);
    }
}

int PictureButton::SizeFor(UINT dpi) {
    return Scaled(kPicturePixels, dpi) + 2 * Scaled(kMarginPixels, dpi);
}

void PictureButton::Show(int picture, int pressedPicture) {
    if (picture_ == picture && pressedPicture_ == pressedPicture) {
        return;
    }
    picture_ = picture;
    pressedPicture_ = pressedPicture;
    InvalidateRect(button_, nullptr, FALSE);
}

void PictureButton::Draw(const DRAWITEMSTRUCT& item) const {
    const RECT& area = item.rcItem;
    const int size = area.right - area.left;
    const UINT dpi = GetDpiForWindow(button_);
    const int margin = Scaled(kMarginPixels, dpi);

    const MemoryDc buffer(CreateCompatibleDC(item.hDC));
    const Bitmap canvas(CreateCompatibleBitmap(item.hDC, size, size));
    const Selected selected(buffer.get(), canvas.get());
    PaintBackground(button_, buffer.get(), area);
    if ((item.itemState & ODS_FOCUS) != 0) {
        const Bitmap ring = CreateRing(size, Scaled(kRingPixels, dpi), GetSysColor(COLOR_HIGHLIGHT));
        DrawWithAlpha(buffer.get(), 0, 0, size, ring.get());
    }
    const int picture = (item.itemState & ODS_SELECTED) != 0 ? pressedPicture_ : picture_;
    const int pictureSize = size - 2 * margin;
    if (const HBITMAP bitmap = pictures_.Picture(picture, pictureSize); bitmap != nullptr) {
        DrawWithAlpha(buffer.get(), margin, margin, pictureSize, bitmap);
    }
    BitBlt(item.hDC, area.left, area.top, size, size, buffer.get(), 0, 0, SRCCOPY);
}

void PictureButton::Describe(const std::wstring& description) {
    if (description_ != description) {
        description_ = description;
        TellDescriptionChanged(button_);
    }
}

PictureButton* PictureButton::Of(HWND button) {
    return std::bit_cast<PictureButton*>(GetWindowLongPtrW(button, OwnBytes()));
}

std::wstring PictureButton::DescriptionOf(HWND button) {
    // A screen reader may ask when the button is gone, and another window has its number.
    std::array<wchar_t, 32> name{};
    GetClassNameW(button, name.data(), static_cast<int>(name.size()));
    const PictureButton* picture = std::wstring_view(name.data()) == kClass ? Of(button) : nullptr;
    return picture == nullptr ? std::wstring() : picture->description_;
}

LRESULT CALLBACK PictureButton::Procedure(HWND button, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (PictureButton* picture = Of(button); picture != nullptr) {
        if (const auto result = picture->OnMessage(message, wParam, lParam)) {
            return *result;
        }
    }
    return CallWindowProcW(SystemButtonClass().lpfnWndProc, button, message, wParam, lParam);
}

std::optional<LRESULT> PictureButton::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_GETDLGCODE: {
        // Which button Enter presses depends on how the focus came here, and after a click it would be OK. So
        // Enter comes to this one itself.
        const auto* asked = std::bit_cast<const MSG*>(lParam);
        const bool enter = asked != nullptr && asked->message == WM_KEYDOWN && asked->wParam == VK_RETURN;
        // The system leaves the second out for buttons that draw themselves; OK would keep its mark.
        return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON | (enter ? DLGC_WANTMESSAGE : 0);
    }
    case WM_KEYDOWN:
        if (wParam != VK_RETURN) {
            return std::nullopt;
        }
        SendMessageW(GetParent(button_), WM_COMMAND,
                     MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(button_)), BN_CLICKED),
                     std::bit_cast<LPARAM>(button_));
        return 0;
    case BM_SETSTYLE:
        return 0; // it would take the owner drawing away
    case WM_MOUSEMOVE: {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, button_, 0};
        TrackMouseEvent(&track);
        events_.over();
        return std::nullopt;
    }
    case WM_MOUSELEAVE:
        events_.left();
        return std::nullopt;
    case WM_ERASEBKGND:
        return 1; // Draw covers all of it
    case WM_GETOBJECT: {
        const LRESULT answer = AnswerScreenReader(button_, wParam, lParam, DescriptionOf);
        return answer == 0 ? std::nullopt : std::optional(answer);
    }
    case WM_NCDESTROY:
        SetWindowLongPtrW(button_, OwnBytes(), 0);
        button_ = nullptr;
        return std::nullopt;
    default:
        return std::nullopt;
    }
}
