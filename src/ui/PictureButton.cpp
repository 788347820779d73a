#include "ui/PictureButton.h"

#include "ui/Dpi.h"
#include "ui/Theme.h"

#include <commctrl.h>

#include <bit>

namespace {

constexpr int kPicturePixels = 48;
/// Room for the focus ring around the picture.
constexpr int kMarginPixels = 4;
constexpr int kRingPixels = 2;
constexpr UINT_PTR kSubclassId = 1;

void PaintBackground(HWND button, HDC hdc, const RECT& area) {
    const HWND parent = GetParent(button);
    FillRect(hdc, &area,
             std::bit_cast<HBRUSH>(SendMessageW(parent, WM_CTLCOLORBTN, std::bit_cast<WPARAM>(hdc),
                                                std::bit_cast<LPARAM>(button))));
    PaintParentTheme(button, hdc);
}

} // namespace

PictureButton::PictureButton(HWND button, PictureList& pictures, MouseEvents events)
    : button_(button), pictures_(pictures), events_(std::move(events)) {
    SetWindowSubclass(button_, Subclass, kSubclassId, std::bit_cast<DWORD_PTR>(this));
}

PictureButton::~PictureButton() {
    if (button_ != nullptr) {
        RemoveWindowSubclass(button_, Subclass, kSubclassId);
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

LRESULT CALLBACK PictureButton::Subclass(HWND button, UINT message, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR /*id*/, DWORD_PTR self) noexcept {
    auto* picture = std::bit_cast<PictureButton*>(self);
    switch (message) {
    case WM_GETDLGCODE:
        // The system leaves this out for buttons that draw themselves; Enter would press OK instead of this
        // one.
        return DLGC_BUTTON | (picture->isDefault_ ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
    case BM_SETSTYLE:
        // Passed on, it would take the owner drawing away.
        picture->isDefault_ = (wParam & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
        return 0;
    case WM_MOUSEMOVE: {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, button, 0};
        TrackMouseEvent(&track);
        picture->events_.over();
        break;
    }
    case WM_MOUSELEAVE:
        picture->events_.left();
        break;
    case WM_ERASEBKGND:
        return 1; // Draw covers all of it
    case WM_NCDESTROY:
        RemoveWindowSubclass(button, Subclass, kSubclassId);
        picture->button_ = nullptr;
        break;
    default:
        break;
    }
    return DefSubclassProc(button, message, wParam, lParam);
}
