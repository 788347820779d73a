#include "dialogs/register/frmSetAp.h"

#include "app/StringTable.h"
#include "dialogs/patterns/frmInputBox.h"
#include "platform/Platform.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "ui/Controls.h"

#include <commctrl.h>

#include <bit>
#include <cstring>

namespace {

constexpr UINT kMenuFlags = static_cast<UINT>(TPM_RETURNCMD | TPM_RIGHTBUTTON);

/// Not repainted for as long as this lives. Windows freezes one window at a time: another one's lock stays.
class FrozenWindow {
public:
    explicit FrozenWindow(HWND window) : frozen_(LockWindowUpdate(window) != FALSE) {}
    ~FrozenWindow() {
        if (frozen_) {
            LockWindowUpdate(nullptr);
        }
    }
    FrozenWindow(const FrozenWindow&) = delete;
    FrozenWindow& operator=(const FrozenWindow&) = delete;

private:
    bool frozen_;
};

bool IsSlotBox(int id) {
    return id >= IDC_txtApplication0 && id < IDC_txtApplication0 + kSlots;
}

} // namespace

frmSetAp::frmSetAp(Form& owner, const Platform& platform, const RegIniFunc& store, const StringTable& texts)
    : ModalForm(&owner), platform_(platform), texts_(texts), panes_(*this, platform, store, texts) {
    CreateHidden(Globals().DialogFontName);
}

void frmSetAp::LoadSources() {
    const WaitCursor cursor; // a stored program may lie on a server that doesn't answer
    panes_.Load();
    editor_.emplace(Globals().EditedButtonSlot, panes_.Services());
}

void frmSetAp::ShowSlots() {
    const bool locked = editor_->IsMethodLocked();
    EnableWindow(Control(IDC_fraExecMethod), locked ? FALSE : TRUE);
    CheckRadioButton(Window(), IDC_optExecMethod0, IDC_optExecMethod2,
                     IDC_optExecMethod0 + editor_->Option());
    for (int id = IDC_optExecMethod0; id <= IDC_optExecMethod2; ++id) {
        EnableControl(id, !locked);
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        const HWND box = Control(IDC_txtApplication0 + slot);
        SetTextIfOther(box, editor_->ShownText(slot));
        EnableControl(IDC_txtApplication0 + slot, editor_->IsSlotEnabled(slot));
        EnableWindow(Control(IDC_lblApplication0 + slot), editor_->IsSlotEnabled(slot) ? TRUE : FALSE);
    }
}

void frmSetAp::EnableControl(int id, bool enabled) {
    if (!enabled && GetFocus() == Control(id)) {
        FocusControl(IDC_txtApplication0); // a disabled control would keep the keyboard to itself
    }
    EnableWindow(Control(id), enabled ? TRUE : FALSE);
}

ProgramSource frmSetAp::ShownSource() const {
    const auto tab = static_cast<std::size_t>(SendMessageW(Control(IDC_tabMenu), TCM_GETCURSEL, 0, 0));
    return tabs_[tab < tabs_.size() ? tab : 0];
}

void frmSetAp::ShowTab(int tab) {
    if (tab >= 0 && static_cast<std::size_t>(tab) < tabs_.size()) { // another program may have added one
        panes_.Show(tabs_[static_cast<std::size_t>(tab)]);
    }
}

void frmSetAp::TurnTab(int step) {
    const auto count = static_cast<int>(tabs_.size());
    const auto current = static_cast<int>(SendMessageW(Control(IDC_tabMenu), TCM_GETCURSEL, 0, 0));
    const int next = (current + step + count) % count;
    const bool focusWasInside = GetFocus() == panes_.ControlOf(ShownSource());
    SendMessageW(Control(IDC_tabMenu), TCM_SETCURSEL, static_cast<WPARAM>(next), 0);
    ShowTab(next);
    if (focusWasInside) {
        SetFocus(panes_.ControlOf(ShownSource()));
    }
}

LRESULT frmSetAp::OnNotify(NMHDR& header) {
    if (header.idFrom == IDC_tabMenu && header.code == TCN_SELCHANGE) {
        ShowTab(static_cast<int>(SendMessageW(header.hwndFrom, TCM_GETCURSEL, 0, 0)));
        return 0;
    }
    if (header.code == TVN_BEGINDRAGW) {
        if (const auto source = panes_.SourceOf(header.hwndFrom)) {
            const auto& begun = *std::bit_cast<const NMTREEVIEWW*>(&header);
            const auto node = std::bit_cast<NodeId>(begun.itemNew.hItem);
            StartDrag(panes_.PickedNode(*source, node), panes_.TreeOf(*source)->Control().IconOf(node));
        }
        return 0;
    }
    return panes_.OnNotify(header).value_or(0);
}

void frmSetAp::OnCommand(int id, int notification) {
    if (id == IDC_cmdCancel) { // Escape too
        OnClose();
        return;
    }
    if (notification != BN_CLICKED) {
        return;
    }
    if (id == IDC_cmdOK) {
        Accept();
    } else if (id >= IDC_optExecMethod0 && id <= IDC_optExecMethod2) {
        editor_->ChooseOption(id - IDC_optExecMethod0);
        ShowSlots();
    }
}

bool frmSetAp::OnKeyDown(WPARAM key) {
    if (drag_) {
        if (key == VK_ESCAPE) {
            EndDrag();
        }
        return true; // the keyboard is not for the controls now
    }
    if (key == VK_TAB && GetKeyState(VK_CONTROL) < 0) {
        TurnTab(GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
        return true;
    }
    const int id = GetDlgCtrlID(GetFocus());
    if (key == VK_DELETE && IsSlotBox(id)) {
        editor_->DeleteByKey(id - IDC_txtApplication0);
        ShowSlots();
        return true;
    }
    return false;
}

bool frmSetAp::SelectAt(ProgramSource source, POINT screen) {
    const HWND control = panes_.ControlOf(source);
    POINT point = screen;
    ScreenToClient(control, &point);
    if (!IsList(source)) {
        TVHITTESTINFO hit{};
        hit.pt = point;
        SendMessageW(control, TVM_HITTEST, 0, std::bit_cast<LPARAM>(&hit));
        if (hit.hItem == nullptr || (hit.flags & (TVHT_ONITEM | TVHT_ONITEMRIGHT)) == 0) {
            return false;
        }
        SendMessageW(control, TVM_SELECTITEM, TVGN_CARET, std::bit_cast<LPARAM>(hit.hItem));
        return true;
    }
    // The nearest row, which a point below the last one is not on.
    const WORD row = LOWORD(SendMessageW(control, LB_ITEMFROMPOINT, 0, MAKELPARAM(point.x, point.y)));
    RECT place{};
    if (SendMessageW(control, LB_GETITEMRECT, row, std::bit_cast<LPARAM>(&place)) == LB_ERR ||
        PtInRect(&place, point) == FALSE) {
        return false;
    }
    SendMessageW(control, LB_SETCURSEL, row, 0);
    return true;
}

POINT frmSetAp::MenuPlace(ProgramSource source) {
    const HWND control = panes_.ControlOf(source);
    RECT place{};
    if (IsList(source)) {
        const LRESULT row = SendMessageW(control, LB_GETCURSEL, 0, 0);
        SendMessageW(control, LB_SETCURSEL, static_cast<WPARAM>(row), 0); // scrolls it into view
        SendMessageW(control, LB_GETITEMRECT, static_cast<WPARAM>(row), std::bit_cast<LPARAM>(&place));
    } else {
        const LRESULT item = SendMessageW(control, TVM_GETNEXTITEM, TVGN_CARET, 0);
        SendMessageW(control, TVM_ENSUREVISIBLE, 0, item);
        // The message takes the item in the place where it puts the rectangle.
        std::memcpy(&place, &item, sizeof item);
        SendMessageW(control, TVM_GETITEMRECT, TRUE, std::bit_cast<LPARAM>(&place));
    }
    POINT at{place.left, place.bottom};
    ClientToScreen(control, &at);
    return at;
}

bool frmSetAp::OnContextMenu(HWND control, std::optional<POINT> at) {
    if (drag_) {
        return true;
    }
    const int id = GetDlgCtrlID(control);
    if (IsSlotBox(id)) {
        ShowSlotMenu(id - IDC_txtApplication0, at);
        return true;
    }
    if (const auto source = panes_.SourceOf(control)) {
        ShowSendMenu(*source, at);
        return true;
    }
    return false;
}

void frmSetAp::ShowSendMenu(ProgramSource source, std::optional<POINT> at) {
    if (at && !SelectAt(source, *at)) {
        return;
    }
    const std::optional<PickedItem> item = panes_.SelectionOf(source);
    const int targets = item ? editor_->SendTargets(*item) : 0;
    if (targets == 0) {
        return;
    }
    SetFocus(panes_.ControlOf(source));
    const PopupMenu programs(CreatePopupMenu());
    const PopupMenu menu(CreatePopupMenu());
    if (!programs || !menu) {
        return;
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        AppendMenuW(programs.get(), slot < targets ? MF_ENABLED : MF_GRAYED,
                    static_cast<UINT_PTR>(IDC_Menu_SendAP_Send_AP0 + slot),
                    texts_.ResText(kTextSendProgram1 + slot).c_str());
    }
    AppendMenuW(menu.get(), MF_POPUP, std::bit_cast<UINT_PTR>(programs.get()),
                texts_.ResText(kTextSend).c_str());
    editor_->Begin(*item);
    const POINT place = at ? *at : MenuPlace(source);
    const int chosen = Track(menu.get(), place);
    RemoveMenu(menu.get(), 0, MF_BYPOSITION); // each menu is destroyed by its own owner
    if (chosen >= IDC_Menu_SendAP_Send_AP0 && chosen < IDC_Menu_SendAP_Send_AP0 + targets) {
        editor_->Send(chosen - IDC_Menu_SendAP_Send_AP0, *item);
        ShowSlots();
    } else {
        editor_->Cancel();
    }
}

int frmSetAp::Track(HMENU menu, POINT place) {
    return RunOver([&](HWND window) {
        return static_cast<int>(TrackPopupMenuEx(menu, kMenuFlags, place.x, place.y, window, nullptr));
    });
}

void frmSetAp::ShowSlotMenu(int slot, std::optional<POINT> at) {
    const HWND box = Control(IDC_txtApplication0 + slot);
    const PopupMenu menu(CreatePopupMenu());
    if (!menu) {
        return;
    }
    SetFocus(box);
    AppendMenuW(menu.get(), MF_STRING, IDC_Menu_DeleteAp_Delete, texts_.ResText(kTextDeleteProgram).c_str());
    AppendMenuW(menu.get(), editor_->CanSetParameter() ? MF_ENABLED : MF_GRAYED, IDC_Menu_DeleteAp_Parameter,
                texts_.ResText(kTextParameterSetting).c_str());
    AppendMenuW(menu.get(), MF_SEPARATOR, IDC_Menu_DeleteAp_Line, nullptr);
    AppendMenuW(menu.get(), MF_STRING, IDC_Menu_DeleteAp_Cancel, texts_.ResText(kTextCancelMenu).c_str());
    RECT place{};
    GetWindowRect(box, &place);
    int chosen = 0;
    {
        // The box must not open its own menu, nor flicker while it is disabled.
        const FrozenWindow frozen(box);
        EnableWindow(box, FALSE);
        chosen = Track(menu.get(), at ? *at : POINT{place.left, place.bottom});
        EnableWindow(box, TRUE);
    }
    SetFocus(box);
    if (editor_->ShownText(slot).empty()) {
        return;
    }
    if (chosen == IDC_Menu_DeleteAp_Delete) {
        editor_->DeleteByMenu(slot);
        ShowSlots();
    } else if (chosen == IDC_Menu_DeleteAp_Parameter) {
        AskForParameter(slot);
    }
}

void frmSetAp::AskForParameter(int slot) {
    frmInputBox box(*this, texts_, platform_.ansiText);
    box.NoCheckFlag(true);
    box.SetMsgLabel(texts_.ResText(kTextInputParameter));
    box.InputTitle(texts_.ResText(kTextParameterSetting));
    box.InputText(editor_->Parameter(slot));
    box.ShowModal();
    if (box.GetButtonStatus() == kStatusOk) {
        editor_->SetParameter(slot, box.InputText());
    }
}

void frmSetAp::Accept() {
    Globals().EditedButtonSlot = editor_->Slot();
    OnClose();
}

void frmSetAp::OnClose() {
    EndDrag();
    panes_.Clear();
    End();
}
