#include "dialogs/wizard/frmWizard.h"

#include "app/Help.h"
#include "app/StringTable.h"
#include "dialogs/wizard/WizardButtons.h"
#include "platform/Platform.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "settings/MakerSwitches.h"
#include "ui/Controls.h"

#include <commctrl.h>
#include <windowsx.h>

#include <array>
#include <bit>
#include <utility>

namespace {

struct FrameOfForm {
    WizardFrame frame;
    int id;
};
constexpr std::array<FrameOfForm, kWizardFrameCount> kFrames{{
    {WizardFrame::SelectButton, IDC_fraSelectButton},
    {WizardFrame::SelectLaunchMethod, IDC_fraSelectLaunchMethod},
    {WizardFrame::SelectMenu, IDC_fraSelectMenu},
    {WizardFrame::SelectProgramForSingle, IDC_fraSelectProgramForSingle},
    {WizardFrame::Finish, IDC_fraFinish},
    {WizardFrame::ButtonName, IDC_fraButtonName},
    {WizardFrame::SomePrograms, IDC_fraSomePrograms},
    {WizardFrame::ProgramList, IDC_fraProgramList},
}};

int HeadingOf(WizardPage page) {
    switch (page) {
    case WizardPage::SelectButton:
        return kTextSelectButtonHeading;
    case WizardPage::SelectLaunchMethod:
        return kTextLaunchMethodHeading;
    case WizardPage::SelectMenu:
        return kTextSelectMenuHeading;
    case WizardPage::SelectProgramForSingle:
        return kTextSelectProgramHeading;
    case WizardPage::ButtonName:
        return kTextButtonNameHeading;
    case WizardPage::SomePrograms:
        return kTextSomeProgramsHeading;
    default:
        return kTextFinishHeading;
    }
}

bool IsOption(int id, int first, int count) {
    return id >= first && id < first + count;
}

/// A selection by the user. What the control selects by itself when the keyboard comes to it is none; but a
/// click on that node is.
bool IsNodeClick(const NMHDR& header) {
    if (header.code == TVN_SELCHANGEDW) {
        const UINT action = std::bit_cast<const NMTREEVIEWW*>(&header)->action;
        return action == TVC_BYMOUSE || action == TVC_BYKEYBOARD;
    }
    if (header.code != NM_CLICK) {
        return false;
    }
    const DWORD at = GetMessagePos();
    TVHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(at), GET_Y_LPARAM(at)};
    ScreenToClient(header.hwndFrom, &hit.pt);
    const LRESULT item = SendMessageW(header.hwndFrom, TVM_HITTEST, 0, std::bit_cast<LPARAM>(&hit));
    return item != 0 && (hit.flags & TVHT_ONITEM) != 0 &&
           item == SendMessageW(header.hwndFrom, TVM_GETNEXTITEM, TVGN_CARET, 0);
}

void Check(HWND option, bool checked) {
    const WPARAM wanted = checked ? BST_CHECKED : BST_UNCHECKED;
    if (static_cast<WPARAM>(SendMessageW(option, BM_GETCHECK, 0, 0)) != wanted) {
        SendMessageW(option, BM_SETCHECK, wanted, 0);
    }
    // The tab key stops at the checked option.
    const LONG_PTR style = GetWindowLongPtrW(option, GWL_STYLE);
    SetWindowLongPtrW(option, GWL_STYLE,
                      checked ? style | WS_TABSTOP : style & ~static_cast<LONG_PTR>(WS_TABSTOP));
}

} // namespace

frmWizard::frmWizard(HWND owner, const Platform& platform, const RegIniFunc& store, const StringTable& texts,
                     const Pattern& defaults)
    : platform_(platform), store_(store), texts_(texts), defaults_(defaults),
      panes_(*this, platform, store, texts) {
    CreateHidden(owner, Globals().DialogFontName);
}

std::int32_t frmWizard::ButtonIndex() const {
    const bool notebook = IsNotebookSet(buttonSet_, LoadMakerSwitches(store_).NTNumAPBtn);
    return (flow_ ? flow_->ButtonOption() : 0) + (notebook ? kDesktopButtons : 0);
}

void frmWizard::ShowModal() {
    if (!flow_) {
        return; // the system refused the window
    }
    ShowButtonOptions();
    flow_->Start();
    Refresh();
    RunModal(FirstFocus());
}

void frmWizard::Refresh() {
    SetTextIfOther(Control(IDC_lblHeading), texts_.ResText(HeadingOf(flow_->Page())));
    for (const FrameOfForm& frame : kFrames) {
        ShowWindow(Control(frame.id), flow_->Shows(frame.frame) ? SW_SHOW : SW_HIDE);
    }
    ShowWindow(Control(IDC_imgWizardImage), flow_->Shows(WizardFrame::ProgramList) ? SW_HIDE : SW_SHOW);
    panes_.Show(flow_->Shows(WizardFrame::ProgramList) ? flow_->ShownSource() : std::nullopt);
    for (int i = 0; i < kWizardButtonOptions; ++i) {
        Check(Control(IDC_optMFButton0 + i), i == flow_->ButtonOption());
    }
    for (int i = 0; i < 3; ++i) {
        Check(Control(IDC_optSelectLaunchMethod0 + i), i == flow_->LaunchOption());
    }
    for (int i = 0; i < static_cast<int>(kProgramSourceCount); ++i) {
        const auto source = static_cast<ProgramSource>(i);
        Check(Control(IDC_optSelectMenuForSingle0 + i), source == flow_->CheckedForSingle());
        Check(Control(IDC_optSelectMenu0 + i), source == flow_->CheckedForSeveral());
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        SetTextIfOther(Control(IDC_txtProgram0 + slot), flow_->ProgramText(slot));
    }
    if (std::exchange(markedSlot_, flow_->MarkedSlot()) != flow_->MarkedSlot()) {
        for (int slot = 0; slot < kSlots; ++slot) {
            InvalidateRect(Control(IDC_txtProgram0 + slot), nullptr, TRUE);
        }
    }
    SetTextIfOther(Control(IDC_cmdNext), texts_.ResText(flow_->NextSaysFinish() ? kTextFinish : kTextNext));
    const bool newPage = focusedPage_ != flow_->Page();
    focusedPage_ = flow_->Page();
    if (newPage && IsWindowVisible(Window()) != FALSE) {
        // Before a button that has the keyboard is disabled.
        SendMessageW(Window(), WM_NEXTDLGCTL, std::bit_cast<WPARAM>(FirstFocus()), TRUE);
    }
    ShowCommandButton(IDC_cmdBack, true, flow_->BackEnabled());
    ShowCommandButton(IDC_cmdNext, true, flow_->NextEnabled());
    ShowCommandButton(IDC_cmdFinish, flow_->FinishVisible(), flow_->FinishEnabled());
}

void frmWizard::ShowCommandButton(int id, bool visible, bool enabled) {
    const HWND button = Control(id);
    if ((!visible || !enabled) && GetFocus() == button) {
        SendMessageW(Window(), WM_NEXTDLGCTL, std::bit_cast<WPARAM>(FirstFocus()), TRUE);
    }
    ShowWindow(button, visible ? SW_SHOW : SW_HIDE);
    EnableWindow(button, enabled ? TRUE : FALSE);
}

HWND frmWizard::FirstFocus() const {
    switch (flow_->Page()) {
    case WizardPage::SelectButton:
        if (flow_->ButtonOption() < shownButtons_) {
            return Control(IDC_optMFButton0 + flow_->ButtonOption());
        }
        break;
    case WizardPage::SelectLaunchMethod:
        return Control(IDC_optSelectLaunchMethod0 + flow_->LaunchOption());
    case WizardPage::SelectMenu:
        if (const auto source = flow_->CheckedForSingle()) {
            return Control(IDC_optSelectMenuForSingle0 + static_cast<int>(*source));
        }
        break;
    case WizardPage::ButtonName:
        return Control(IDC_txtButtonName);
    case WizardPage::SelectProgramForSingle:
    case WizardPage::SomePrograms:
        if (const auto source = flow_->ShownSource()) {
            return panes_.ControlOf(*source);
        }
        break;
    default:
        break;
    }
    return Control(IDC_cmdNext);
}

bool frmWizard::OnOption(int id) {
    if (IsOption(id, IDC_optMFButton0, kWizardButtonOptions)) {
        flow_->ChooseButton(id - IDC_optMFButton0);
    } else if (IsOption(id, IDC_optSelectLaunchMethod0, 3)) {
        flow_->ChooseLaunchMethod(id - IDC_optSelectLaunchMethod0);
    } else if (IsOption(id, IDC_optSelectMenuForSingle0, static_cast<int>(kProgramSourceCount))) {
        flow_->ChooseSourceForSingle(static_cast<ProgramSource>(id - IDC_optSelectMenuForSingle0));
    } else if (IsOption(id, IDC_optSelectMenu0, static_cast<int>(kProgramSourceCount))) {
        flow_->ChooseSource(static_cast<ProgramSource>(id - IDC_optSelectMenu0));
    } else {
        return false;
    }
    return true;
}

void frmWizard::OnCommand(int id, int notification) {
    if (!flow_) {
        return; // still being created
    }
    if (id == IDC_cmdCancel) { // Escape too
        Cancel();
        return;
    }
    if (id == IDC_txtButtonName) {
        if (notification == EN_CHANGE) {
            flow_->SetButtonName(TextOf(Control(id)));
            Refresh();
        }
        return;
    }
    if (id == IDC_lstListBox0 || id == IDC_lstListBox1) {
        if (notification == LBN_SELCHANGE) {
            const auto source =
                id == IDC_lstListBox0 ? ProgramSource::MediaCenter : ProgramSource::ShortcutKey;
            flow_->ClickRow(panes_.SelectionOf(source));
            Refresh();
        }
        return;
    }
    if (notification != BN_CLICKED) {
        return;
    }
    switch (id) {
    case IDC_cmdBack:
        flow_->Back();
        break;
    case IDC_cmdNext:
        flow_->Next();
        break;
    case IDC_cmdFinish:
        flow_->PressFinish();
        break;
    default:
        if (!OnOption(id)) {
            return;
        }
        break;
    }
    if (flow_->Committed()) {
        returnStatus_ = kWizardFinished;
        OnClose();
        return;
    }
    Refresh();
}

LRESULT frmWizard::OnNotify(NMHDR& header) {
    const auto result = panes_.OnNotify(header);
    const auto source = panes_.SourceOf(header.hwndFrom);
    if (flow_ && source && flow_->ShownSource() == source && flow_->Shows(WizardFrame::ProgramList) &&
        (IsNodeClick(header) || SelectionMoved(header))) {
        clickedNode_ = panes_.TreeOf(*source)->Control().Selected();
        flow_->ClickNode(panes_.SelectionOf(*source));
        Refresh();
    }
    return result.value_or(0);
}

bool frmWizard::SelectionMoved(const NMHDR& header) const {
    // Closing a folder moves the selection from what it held to the folder, and tells of no user.
    const LRESULT selected =
        header.code == TVN_ITEMEXPANDEDW ? SendMessageW(header.hwndFrom, TVM_GETNEXTITEM, TVGN_CARET, 0) : 0;
    return clickedNode_ != 0 && selected != 0 && static_cast<NodeId>(selected) != clickedNode_;
}

void frmWizard::Cancel() {
    const int answer =
        Ask(texts_.ResText(kTextCloseWizard), texts_.ResText(kTextTitle) + L" " + texts_.ResText(kTextWizard),
            MB_YESNO | MB_ICONQUESTION);
    if (answer == IDYES) {
        OnClose();
    }
}

bool frmWizard::OnHelpKey() {
    if (!Globals().WizardForButton) {
        return false; // the main dialog answers
    }
    if (HasHelpFile(platform_.shell)) {
        ShowHelp(platform_.shell, platform_.windows, texts_, std::bit_cast<WindowId>(Window()));
    }
    return true;
}

void frmWizard::OnClose() {
    panes_.Clear();
    EndModal();
}
