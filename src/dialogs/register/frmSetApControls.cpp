// The controls of the registration dialog, and where they stand.

#include "dialogs/register/frmSetAp.h"

#include "app/StringTable.h"
#include "resources/resource.h"
#include "settings/StdModule.h"
#include "ui/Controls.h"

#include <commctrl.h>

#include <algorithm>
#include <bit>
#include <string>

namespace {

// Dialog units.
constexpr int kMargin = 7;
constexpr int kTabWidth = 236;
constexpr int kTabHeight = 202;
constexpr int kPaneInset = 4;
constexpr int kRight = kMargin + kTabWidth + kMargin;
constexpr int kRightWidth = 186;
constexpr int kGroupInset = 8;
constexpr int kMethodHeight = 54;
constexpr int kOptionHeight = 10;
constexpr int kOptionStep = 13;
constexpr int kSlotsTop = kMargin + kMethodHeight + kMargin;
constexpr int kSlotStep = 18;
constexpr int kSlotHeight = 13;
constexpr int kSlotsHeight = 14 + kSlots * kSlotStep + 3;
constexpr int kLabelWidth = 52;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;
constexpr int kButtonGap = 4;
constexpr int kClientWidth = kRight + kRightWidth + kMargin;
constexpr int kClientHeight = kMargin + kTabHeight + kMargin;

WNDPROC SystemEditProcedure() {
    static const WNDPROC kProcedure = [] {
        WNDCLASSEXW edit{};
        edit.cbSize = sizeof edit;
        GetClassInfoExW(nullptr, WC_EDITW, &edit);
        return edit.lpfnWndProc;
    }();
    return kProcedure;
}

/// Of all tabs in one row.
LONG CaptionsWidth(HWND tab) {
    RECT first{};
    RECT last{};
    const LRESULT count = SendMessageW(tab, TCM_GETITEMCOUNT, 0, 0);
    SendMessageW(tab, TCM_GETITEMRECT, 0, std::bit_cast<LPARAM>(&first));
    SendMessageW(tab, TCM_GETITEMRECT, static_cast<WPARAM>(count - 1), std::bit_cast<LPARAM>(&last));
    constexpr int kEdges = 4; // the chosen tab is larger than it says
    return last.right - first.left + 2 * kEdges;
}

} // namespace

void frmSetAp::OnCreate() {
    SetTextOf(Window(), texts_.ResText(kTextProgramRegistration));
    panes_.CreateControls([this](const ControlRow& row) { return AddControl(Window(), row); }, Dpi());
    LoadSources();
    CreateMethodControls();
    CreateSlotControls();
    const int buttonTop = kMargin + kTabHeight - kButtonHeight;
    const int cancelLeft = kRight + kRightWidth - kButtonWidth;
    AddControl(Window(),
               {IDC_cmdOK,
                WC_BUTTONW,
                BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP,
                {cancelLeft - kButtonGap - kButtonWidth, buttonTop, kButtonWidth, kButtonHeight}},
               texts_.ResText(kTextRegisterOk));
    AddControl(Window(),
               {IDC_cmdCancel,
                WC_BUTTONW,
                BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP,
                {cancelLeft, buttonTop, kButtonWidth, kButtonHeight}},
               texts_.ResText(kTextRegisterCancel));
    CreateTabs(); // behind the panes, and so last in the tab order, as in the main dialog
    SendMessageW(Window(), DM_SETDEFID, IDC_cmdOK, 0);
    ShowSlots();
    ShowTab(0);
}

void frmSetAp::CreateTabs() {
    const HWND tab = AddControl(Window(),
                                {IDC_tabMenu,
                                 WC_TABCONTROLW,
                                 WS_TABSTOP | WS_GROUP | WS_CLIPSIBLINGS,
                                 {kMargin, kMargin, kClientWidth, kTabHeight}}, // OnLayout knows its width
                                texts_.ResText(kTextProgramSources));
    tabs_ = panes_.AddTabs(tab);
}

void frmSetAp::CreateMethodControls() {
    AddControl(Window(),
               {IDC_fraExecMethod,
                WC_BUTTONW,
                BS_GROUPBOX | WS_GROUP,
                {kRight, kMargin, kRightWidth, kMethodHeight}},
               texts_.ResText(kTextStartupMethod));
    for (int i = 0; i < 3; ++i) {
        const DWORD first = i == 0 ? WS_GROUP | WS_TABSTOP : 0;
        AddControl(Window(),
                   {IDC_optExecMethod0 + i,
                    WC_BUTTONW,
                    BS_AUTORADIOBUTTON | first,
                    {kRight + kGroupInset, kMargin + 12 + i * kOptionStep, kRightWidth - 2 * kGroupInset,
                     kOptionHeight}},
                   texts_.ResText(kTextExecMethod1 + i));
    }
}

void frmSetAp::CreateSlotControls() {
    AddControl(Window(),
               {IDC_fraApplication,
                WC_BUTTONW,
                BS_GROUPBOX | WS_GROUP,
                {kRight, kSlotsTop, kRightWidth, kSlotsHeight}},
               texts_.ResText(kTextRegisterPrograms));
    const int boxLeft = kRight + kGroupInset + kLabelWidth;
    for (int slot = 0; slot < kSlots; ++slot) {
        const int top = kSlotsTop + 14 + slot * kSlotStep;
        AddControl(Window(),
                   {IDC_lblApplication0 + slot,
                    WC_STATICW,
                    SS_LEFT | SS_CENTERIMAGE | WS_GROUP,
                    {kRight + kGroupInset, top, kLabelWidth, kSlotHeight}},
                   texts_.ResText(kTextProgramNumber) + DecimalText(slot + 1));
        const HWND box =
            AddControl(Window(), {IDC_txtApplication0 + slot,
                                  WC_EDITW,
                                  ES_READONLY | ES_AUTOHSCROLL | WS_TABSTOP | WS_GROUP,
                                  {boxLeft, top, kRight + kRightWidth - kGroupInset - boxLeft, kSlotHeight},
                                  WS_EX_CLIENTEDGE | WS_EX_ACCEPTFILES});
        SetWindowLongPtrW(box, GWLP_USERDATA, std::bit_cast<LONG_PTR>(this));
        SetWindowLongPtrW(box, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(&SlotProcedure));
    }
}

LRESULT CALLBACK frmSetAp::SlotProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    switch (message) {
    case WM_CONTEXTMENU: // the form has a menu of its own for it
        return SendMessageW(GetParent(box), message, std::bit_cast<WPARAM>(box), lParam);
    case WM_DROPFILES:
        std::bit_cast<frmSetAp*>(GetWindowLongPtrW(box, GWLP_USERDATA))
            ->DropFiles(box, std::bit_cast<HDROP>(wParam));
        return 0;
    default:
        return CallWindowProcW(SystemEditProcedure(), box, message, wParam, lParam);
    }
}

SIZE frmSetAp::OnLayout() {
    const HWND tab = Control(IDC_tabMenu);
    RECT pane = TextFont().Pixels({kMargin, kMargin, kTabWidth, kTabHeight});
    const int more = std::max(0L, CaptionsWidth(tab) - (pane.right - pane.left));
    pane.right += more;
    PlaceInRow(tab, pane);
    if (more > 0) {
        ShiftRightColumn(more);
    }
    SendMessageW(tab, TCM_ADJUSTRECT, FALSE, std::bit_cast<LPARAM>(&pane));
    InflateRect(&pane, -TextFont().PixelsX(kPaneInset), -TextFont().PixelsY(kPaneInset));
    panes_.Place(pane);
    panes_.SetScaling(Dpi());
    return {TextFont().PixelsX(kClientWidth) + more, TextFont().PixelsY(kClientHeight)};
}

void frmSetAp::ShiftRightColumn(int pixels) {
    const auto shift = [&](int id) {
        RECT place{};
        GetWindowRect(Control(id), &place);
        MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
        SetWindowPos(Control(id), nullptr, place.left + pixels, place.top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    };
    for (const int id : {IDC_fraExecMethod, IDC_optExecMethod0, IDC_optExecMethod1, IDC_optExecMethod2,
                         IDC_fraApplication, IDC_cmdOK, IDC_cmdCancel}) {
        shift(id);
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        shift(IDC_lblApplication0 + slot);
        shift(IDC_txtApplication0 + slot);
    }
}

HBRUSH frmSetAp::OnStaticColour(HWND control, HDC hdc) {
    const int slot = GetDlgCtrlID(control) - IDC_txtApplication0;
    if (slot < 0 || slot >= kSlots) {
        return nullptr;
    }
    if (drag_ && drag_->slot == slot) {
        SetTextColor(hdc, GetSysColor(COLOR_HIGHLIGHTTEXT));
        SetBkColor(hdc, GetSysColor(COLOR_HIGHLIGHT));
        return GetSysColorBrush(COLOR_HIGHLIGHT);
    }
    if (IsWindowEnabled(control) == FALSE) {
        return nullptr;
    }
    // Read-only, but no grey: a program can be put here.
    SetTextColor(hdc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(hdc, GetSysColor(COLOR_WINDOW));
    return GetSysColorBrush(COLOR_WINDOW);
}
