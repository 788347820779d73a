// Dragging programs onto the slots of the registration dialog.

#include "dialogs/register/frmSetAp.h"

#include "platform/windows/SystemLibrary.h"
#include "resources/resource.h"
#include "ui/Dpi.h"

#include <windowsx.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kDragIconSize = 16; // pixels at 100 %

std::vector<std::wstring> PathsOf(HDROP files) {
    static const auto kQuery = SystemProcedure<decltype(DragQueryFileW)>(L"shell32.dll", "DragQueryFileW");
    static const auto kFinish = SystemProcedure<decltype(DragFinish)>(L"shell32.dll", "DragFinish");
    std::vector<std::wstring> paths;
    if (kQuery == nullptr || kFinish == nullptr) {
        return paths;
    }
    const UINT count = kQuery(files, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(kQuery(files, i, nullptr, 0) + std::size_t{1}, L'\0');
        path.resize(kQuery(files, i, path.data(), static_cast<UINT>(path.size())));
        paths.push_back(std::move(path));
    }
    kFinish(files);
    return paths;
}

POINT CursorPoint() {
    POINT point{};
    GetCursorPos(&point);
    return point;
}

} // namespace

int frmSetAp::SlotAt(POINT screen) const {
    for (int slot = 0; slot < kSlots; ++slot) {
        RECT place{};
        GetWindowRect(Control(IDC_txtApplication0 + slot), &place);
        if (PtInRect(&place, screen) != FALSE && editor_->IsSlotEnabled(slot)) {
            return slot;
        }
    }
    return -1;
}

void frmSetAp::HighlightSlot(int slot) {
    if (drag_->slot == slot) {
        return;
    }
    const int former = std::exchange(drag_->slot, slot);
    for (const int changed : {former, slot}) {
        if (changed >= 0) {
            InvalidateRect(Control(IDC_txtApplication0 + changed), nullptr, TRUE);
        }
    }
}

void frmSetAp::StartDrag(const std::optional<PickedItem>& item, const Icon& icon) {
    if (drag_ || IsAsking() || HasEnded() || !item || !ButtonSlotEditor::CanDrag(*item)) {
        return;
    }
    const HICON shown = icon ? icon.get() : LoadIconW(nullptr, IDI_APPLICATION);
    editor_->Begin(*item);
    drag_ = Drag{*item, CreateDragCursor(shown, Scaled(kDragIconSize, Dpi()))};
    SetCapture(Window());
    MoveDrag();
}

void frmSetAp::MoveDrag() {
    const POINT at = CursorPoint();
    RECT form{};
    GetWindowRect(Window(), &form);
    if (PtInRect(&form, at) == FALSE) {
        EndDrag();
        return;
    }
    const int slot = SlotAt(at);
    HighlightSlot(slot < 0 ? -1 : editor_->DropTarget(slot, drag_->item));
    const HCURSOR carrying = drag_->cursor ? drag_->cursor.get() : LoadCursorW(nullptr, IDC_ARROW);
    SetCursor(slot < 0 ? LoadCursorW(nullptr, IDC_NO) : carrying);
}

void frmSetAp::FinishDrag() {
    const int slot = SlotAt(CursorPoint());
    if (slot < 0) {
        EndDrag();
        return;
    }
    const PickedItem item = drag_->item;
    EndDrag();
    editor_->Begin(item);
    editor_->Drop(slot, item);
    ShowSlots();
}

void frmSetAp::EndDrag() {
    if (!drag_) {
        return;
    }
    HighlightSlot(-1);
    editor_->Cancel();
    SetCursor(LoadCursorW(nullptr, IDC_ARROW)); // before the drag's own cursor goes
    drag_.reset();                              // before the capture goes, which calls this again
    if (GetCapture() == Window()) {
        ReleaseCapture();
    }
}

bool frmSetAp::OnMouseMessage(const MSG& message) {
    if (message.message == WM_RBUTTONUP && std::exchange(cancelledByRight_, false)) {
        return true; // it was no wish for a menu
    }
    if (!drag_) {
        return WatchListForDrag(message);
    }
    switch (message.message) {
    case WM_MOUSEMOVE:
        if ((message.wParam & MK_LBUTTON) != 0) {
            MoveDrag();
        } else {
            EndDrag(); // the button came up where nobody saw it
        }
        break;
    case WM_LBUTTONUP:
        FinishDrag();
        break;
    case WM_RBUTTONDOWN:
        EndDrag();
        cancelledByRight_ = true;
        break;
    default:
        break;
    }
    return true;
}

/// A tree tells when a drag begins; a list box doesn't, and would select every row that the mouse passes.
bool frmSetAp::WatchListForDrag(const MSG& message) {
    const auto source = panes_.SourceOf(message.hwnd);
    switch (message.message) {
    case WM_LBUTTONDOWN:
        listPress_.reset();
        if (source && panes_.TreeOf(*source) == nullptr && SelectAt(*source, message.pt)) {
            listPress_ = message.pt;
        }
        return false;
    case WM_LBUTTONUP:
        listPress_.reset();
        return false;
    case WM_MOUSEMOVE:
        break;
    default:
        return false;
    }
    if (!listPress_ || !source || (message.wParam & MK_LBUTTON) == 0) {
        return false;
    }
    if (std::abs(message.pt.x - listPress_->x) >= GetSystemMetrics(SM_CXDRAG) ||
        std::abs(message.pt.y - listPress_->y) >= GetSystemMetrics(SM_CYDRAG)) {
        listPress_.reset();
        SendMessageW(message.hwnd, WM_CANCELMODE, 0, 0); // the list box follows the mouse no more
        ReleaseCapture();
        StartDrag(panes_.SelectionOf(*source), nullptr);
    }
    return true;
}

void frmSetAp::DropFiles(HWND box, HDROP files) {
    const int slot = GetDlgCtrlID(box) - IDC_txtApplication0;
    const std::vector<std::wstring> paths = PathsOf(files);
    if (IsAsking() || slot < 0 || slot >= kSlots || !editor_->IsSlotEnabled(slot)) {
        return;
    }
    editor_->DropPaths(slot, paths);
    ShowSlots();
}
