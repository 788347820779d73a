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

struct PageOfForm {
    WizardPage page;
    int frame;
    int heading;
};
constexpr std::array kPages{
    PageOfForm{WizardPage::SelectButton, IDC_fraSelectButton, kTextSelectButtonHeading},
    PageOfForm{WizardPage::SelectLaunchMethod, IDC_fraSelectLaunchMethod, kTextLaunchMethodHeading},
    PageOfForm{WizardPage::SelectMenu, IDC_fraSelectMenu, kTextSelectMenuHeading},
    PageOfForm{WizardPage::SelectProgramForSingle, IDC_fraSelectProgramForSingle, kTextSelectProgramHeading},
    PageOfForm{WizardPage::Finish, IDC_fraFinish, kTextFinishHeading},
    PageOfForm{WizardPage::ButtonName, IDC_fraButtonName, kTextButtonNameHeading},
    PageOfForm{WizardPage::SomePrograms, IDC_fraSomePrograms, kTextSomeProgramsHeading},
};

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

frmWizard::frmWizard(Form* owner, const Platform& platform, const RegIniFunc& store, const StringTable& texts,
                     const Pattern& defaults)
    : ModalForm(owner), platform_(platform), store_(store), texts_(texts), defaults_(defaults),
      panes_(*this, platform, store, texts) {
    CreateHidden(Globals().DialogFontName);
}

std::int32_t frmWizard::ButtonIndex() const {
    const bool notebook = IsNotebookSet(buttonSet_, LoadMakerSwitches(store_).NTNumAPBtn);
    return (flow_ ? flow_->ButtonOption() : 0) + (notebook ? kDesktopButtons : 0);
}

HWND frmWizard::OnShow() {
    ShowButtonOptions();
    Refresh();
    return FirstFocus();
}

void frmWizard::Refresh() {
    for (const PageOfForm& page : kPages) {
        const bool shown = page.page == flow_->Page();
        ShowWindow(Control(page.frame), shown ? SW_SHOW : SW_HIDE);
        if (shown) {
            SetTextIfOther(Control(IDC_lblHeading), texts_.ResText(page.heading));
        }
    }
    const auto source = flow_->ShownSource();
    ShowWindow(Control(IDC_fraProgramList), source ? SW_SHOW : SW_HIDE);
    ShowWindow(Control(IDC_imgWizardImage), source ? SW_HIDE : SW_SHOW);
    panes_.Show(source);
    for (int i = 0; i < kWizardButtonOptions; ++i) {
        Check(Control(IDC_optMFButton0 + i), i == flow_->ButtonOption());
    }
    for (int i = 0; i < 3; ++i) {
        Check(Control(IDC_optSelectLaunchMethod0 + i), i == flow_->LaunchOption());
    }
    for (const ProgramSource each : kProgramSources) {
        const int i = static_cast<int>(each);
        Check(Control(IDC_optSelectMenuForSingle0 + i), each == flow_->SourceForSingle());
        Check(Control(IDC_optSelectMenu0 + i), each == flow_->SourceForSeveral());
    }
    for (int slot = 0; slot < kMaxPrograms; ++slot) {
        SetTextIfOther(Control(IDC_txtProgram0 + slot), flow_->ProgramText(slot));
    }
    if (std::exchange(markedSlot_, flow_->MarkedSlot()) != flow_->MarkedSlot()) {
        for (int slot = 0; slot < kMaxPrograms; ++slot) {
            InvalidateRect(Control(IDC_txtProgram0 + slot), nullptr, TRUE);
        }
    }
    SetTextIfOther(Control(IDC_cmdNext), texts_.ResText(flow_->NextSaysFinish() ? kTextFinish : kTextNext));
    const bool newPage = focusedPage_ != flow_->Page();
    focusedPage_ = flow_->Page();
    if (newPage && IsWindowVisible(Window()) != FALSE) {
        // Before a button that has the keyboard is disabled.
        Focus(FirstFocus());
    }
    ShowCommandButton(IDC_cmdBack, true, flow_->BackEnabled());
    ShowCommandButton(IDC_cmdNext, true, flow_->NextEnabled());
    ShowCommandButton(IDC_cmdFinish, flow_->FinishVisible(), flow_->FinishEnabled());
}

void frmWizard::ShowCommandButton(int id, bool visible, bool enabled) {
    const HWND button = Control(id);
    if ((!visible || !enabled) && GetFocus() == button) {
        Focus(FirstFocus());
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
        return Control(IDC_optSelectMenuForSingle0 + static_cast<int>(flow_->SourceForSingle()));
    case WizardPage::ButtonName:
        return Control(IDC_txtButtonName);
    case WizardPage::SelectProgramForSingle:
    case WizardPage::SomePrograms:
        return panes_.ControlOf(*flow_->ShownSource());
    default:
        break;
    }
    return Control(IDC_cmdNext);
}

bool frmWizard::OnOption(int id) {
    if (IsOneOf(id, IDC_optMFButton0, kWizardButtonOptions)) {
        flow_->ChooseButton(id - IDC_optMFButton0);
    } else if (IsOneOf(id, IDC_optSelectLaunchMethod0, 3)) {
        flow_->ChooseLaunchMethod(id - IDC_optSelectLaunchMethod0);
    } else if (IsOneOf(id, IDC_optSelectMenuForSingle0, static_cast<int>(kProgramSourceCount))) {
        flow_->ChooseSourceForSingle(static_cast<ProgramSource>(id - IDC_optSelectMenuForSingle0));
    } else if (IsOneOf(id, IDC_optSelectMenu0, static_cast<int>(kProgramSourceCount))) {
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
    if (const auto source = panes_.SourceOf(Control(id))) {
        if (notification == LBN_SELCHANGE && flow_->ShownSource() == source && flow_->Selected()) {
            flow_->Click(panes_.SelectionOf(*source));
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
    if (flow_ && source && flow_->ShownSource() == source && IsNodeClick(header)) {
        flow_->Click(panes_.SelectionOf(*source));
        Refresh();
    }
    if (header.code == TVN_ITEMEXPANDEDW) {
        // A folder that closes takes the selection from what it holds, afterwards and without telling.
        PostMessageW(Window(), WM_COMMAND, MAKEWPARAM(header.idFrom, LBN_SELCHANGE),
                     std::bit_cast<LPARAM>(header.hwndFrom));
    }
    return result.value_or(0);
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
    End();
}
