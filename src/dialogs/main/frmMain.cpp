#include "dialogs/main/frmMain.h"

#include "app/Help.h"
#include "app/StringTable.h"
#include "dialogs/main/ButtonDescription.h"
#include "dialogs/main/EnumFont.h"
#include "dialogs/patterns/PatternList.h"
#include "dialogs/patterns/frmManager.h"
#include "dialogs/register/frmSetAp.h"
#include "dialogs/wizard/WizardButtons.h"
#include "dialogs/wizard/frmWizard.h"
#include "platform/InstanceGuard.h"
#include "platform/Platform.h"
#include "print/PrintCommand.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "settings/RegIniFunc.h"
#include "ui/Controls.h"

#include <commctrl.h>

#include <algorithm>
#include <bit>

namespace {

constexpr UINT kSwitchPatternMessage = WM_APP + 1;

} // namespace

frmMain::frmMain(const Platform& platform, const StringTable& texts, RegIniFunc& store, FontList& fonts,
                 MainSettings& settings)
    : platform_(platform), texts_(texts), store_(store), fonts_(fonts), settings_(settings),
      onScreenPage_(*this, settings, fonts, texts), tips_(platform, store) {}

bool frmMain::IniFileExist() const {
    return store_.IniFileExist;
}

bool frmMain::Load(std::wstring_view commandLine) {
    if (!startUp_.ParseCommandLine(commandLine, store_, platform_.instanceGuard, platform_.windows, texts_)) {
        return false;
    }
    fonts_.EnumerateFonts(platform_.fonts);
    settings_.Load();
    if (Globals().WizardForButton) {
        RunWizardAlone();
        return false;
    }
    return CreateHidden(Globals().DialogFontName);
}

void frmMain::Show() {
    int tabIndex = 0;
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        if (static_cast<int>(pages_[i].kind) == startUp_.InitialPage) {
            tabIndex = static_cast<int>(i);
        }
    }
    SelectPage(tabIndex);
    FocusFirst(Window());
    ShowWindow(Window(), SW_SHOW);
    SetForegroundWindow(Window());
}

void frmMain::OnDestroy() {
    platform_.instanceGuard.GiveUp();
    PostQuitMessage(0);
}

void frmMain::SelectPage(int tabIndex) {
    if (tabIndex < 0 || static_cast<std::size_t>(tabIndex) >= pages_.size()) {
        return; // another program changed the tabs
    }
    Page& selected = pages_.at(static_cast<std::size_t>(tabIndex));
    SendMessageW(Control(IDC_tabContainer), TCM_SETCURSEL, static_cast<WPARAM>(tabIndex), 0);
    if (selected.window == nullptr) {
        selected.window = CreatePage(selected.kind);
    } else if (selected.kind == MainPage::OnScreen) {
        onScreenPage_.RefreshPreview();
    }
    ShowWindow(selected.window, SW_SHOW);
    for (const Page& page : pages_) {
        if (page.window == nullptr || page.window == selected.window) {
            continue;
        }
        if (IsChild(page.window, GetFocus()) != FALSE) {
            FocusFirst(selected.window); // or the system would move it, to a button that Enter then presses
        }
        ShowWindow(page.window, SW_HIDE);
    }
}

void frmMain::TurnPage(int step) {
    const int count = static_cast<int>(pages_.size());
    const auto current = static_cast<int>(SendMessageW(Control(IDC_tabContainer), TCM_GETCURSEL, 0, 0));
    SelectPage((current + step + count) % count);
}

bool frmMain::OnKeyDown(WPARAM key) {
    if (GetKeyState(VK_CONTROL) >= 0) {
        return false;
    }
    switch (key) {
    case VK_TAB:
        TurnPage(GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
        return true;
    case VK_NEXT:
        TurnPage(1);
        return true;
    case VK_PRIOR:
        TurnPage(-1);
        return true;
    default:
        return false;
    }
}

void frmMain::FillPatternBox(HWND box) {
    SendMessageW(box, CB_RESETCONTENT, 0, 0);
    for (const std::wstring& name : settings_.PatternNames()) {
        ComboAdd(box, name);
    }
    ComboSelect(box, settings_.CurrentPattern() - 1);
}

void frmMain::SelectCurrentPattern() {
    for (int box = IDC_cmbUserName0; box <= IDC_cmbUserName1; ++box) {
        if (HasControl(box)) {
            ComboSelect(Control(box), settings_.CurrentPattern() - 1);
        }
    }
}

void frmMain::ShowButtons() {
    for (const PlacedPicture& placed : pictures_) {
        ShowButton(placed.button);
    }
}

void frmMain::ShowButton(int button) {
    if (!HasControl(IDC_txtButtonName0 + button - 1)) {
        return; // its page was never shown, or shows fewer buttons
    }
    const HWND box = Control(IDC_txtButtonName0 + button - 1);
    if (!settings_.IsNameShown(button, TextOf(box))) { // else the caret would move
        const ScopedFlag filling(filling_);
        SetTextOf(box, settings_.Slot(button).Name);
    }
    ShowPictures({button});
}

void frmMain::ShowPictures(const std::vector<int>& buttons) {
    for (const PlacedPicture& placed : pictures_) {
        const int button = placed.button;
        if (std::find(buttons.begin(), buttons.end(), button) == buttons.end()) {
            continue;
        }
        const ButtonPicture picture = settings_.PictureOf(button);
        const MakerSwitches& switches = settings_.Switches();
        const bool edited = button == editedButton_;
        const PictureState rest{.pressed = edited, .hovered = !edited && hover_.IsOver(button)};
        const PictureState pressed{.pressed = true, .hovered = false};
        placed.picture->Show(PictureNumber(switches, button, picture, rest),
                             PictureNumber(switches, button, picture, pressed));
        placed.picture->Describe(ButtonDescription(picture, settings_.Slot(button), texts_));
    }
}

void frmMain::EnterPicture(int button) {
    ShowPictures(hover_.MoveOver(button));
    tips_.Enter(Window(), Control(IDC_picButton0 + button - 1), settings_.Slot(button),
                {TextFont().Handle(), Dpi()});
}

void frmMain::LeavePicture(int button) {
    ShowPictures(hover_.Leave(button));
    tips_.Leave(Control(IDC_picButton0 + button - 1));
}

bool frmMain::OnMouseMessage(const MSG& message) {
    tips_.Relay(message);
    return false;
}

void frmMain::OnMouseOverPage() {
    ShowPictures(hover_.MoveOff());
}

void frmMain::OnDrawItem(const DRAWITEMSTRUCT& item) {
    if (item.CtlID == IDC_picPreview) {
        onScreenPage_.DrawPreview(item);
        return;
    }
    for (const PlacedPicture& placed : pictures_) {
        if (IDC_picButton0 + placed.button - 1 == static_cast<int>(item.CtlID)) {
            placed.picture->Draw(item);
        }
    }
}

LRESULT frmMain::OnNotify(NMHDR& header) {
    if (header.idFrom == IDC_tabContainer && header.code == TCN_SELCHANGE) {
        SelectPage(static_cast<int>(SendMessageW(header.hwndFrom, TCM_GETCURSEL, 0, 0)));
    }
    return 0;
}

void frmMain::OnCommand(int id, int notification) {
    if (!HasControl(id)) {
        return; // not from one of our controls
    }
    if (onScreenPage_.OnCommand(id, notification)) {
        return;
    }
    if (IsOneOf(id, IDC_txtButtonName0, kMaxButtons)) {
        if (notification == EN_CHANGE && !filling_) {
            const int button = id - IDC_txtButtonName0 + 1;
            settings_.SetButtonName(button, TextOf(Control(id)));
            for (const int alike : settings_.ButtonsStoredWith(button)) {
                ShowButton(alike);
            }
        }
        return;
    }
    if (IsOneOf(id, IDC_cmbUserName0, 2)) {
        ChoosePattern(id, notification);
        return;
    }
    if (notification != BN_CLICKED || saving_) {
        return;
    }
    if (IsOneOf(id, IDC_picButton0, kMaxButtons)) {
        EditButton(id - IDC_picButton0 + 1);
        return;
    }
    if (IsOneOf(id, IDC_cmdDefault0, 3)) {
        RestoreDefaults(static_cast<MainPage>(id - IDC_cmdDefault0));
        return;
    }
    switch (id) {
    case IDC_cmdWizard0:
    case IDC_cmdWizard1:
        RunWizard(static_cast<MainPage>(id - IDC_cmdWizard0));
        break;
    case IDC_cmdUserManager0:
    case IDC_cmdUserManager1:
        ManagePatterns();
        break;
    case IDC_cmdOK:
        Ok();
        break;
    case IDC_cmdCancel:
        OnClose();
        break;
    case IDC_cmdApply:
        Apply();
        break;
    case IDC_cmdPrint:
        PrintPattern(*this, store_, texts_, Globals().IniFileName);
        break;
    case IDC_cmdHelp:
        Help(Window());
        break;
    default:
        break;
    }
}

void frmMain::ChoosePattern(int box, int notification) {
    const ComboEvent event = ComboEventOf(Control(box), notification);
    if (event == ComboEvent::Cancelled) {
        SelectCurrentPattern();
    }
    if (event == ComboEvent::Chosen && !switchPending_) {
        // The question box must not open inside the combo box's own work.
        switchPending_ = PostMessageW(Window(), kSwitchPatternMessage, static_cast<WPARAM>(box), 0) != FALSE;
    }
}

bool frmMain::OnPrivateMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    if (message != kSwitchPatternMessage) {
        return false;
    }
    switchPending_ = false;
    const auto box = static_cast<int>(wParam);
    if (IsOneOf(box, IDC_cmbUserName0, 2) && HasControl(box) && !IsAsking()) {
        SwitchToChosenPattern(ComboSelection(Control(box)) + 1);
    }
    return true;
}

void frmMain::SwitchToChosenPattern(int number) {
    WhileSaving([&] {
        settings_.SwitchPattern(
            number, [this] { return AskToSave(); }, [this] { ShowButtons(); });
    });
    SelectCurrentPattern();
}

template <class Operation> void frmMain::WhileSaving(Operation operation) {
    const WaitCursor cursor;
    const ScopedFlag saving(saving_);
    operation();
}

void frmMain::OnClose() {
    if (!saving_) {
        Close();
    }
}

SaveAnswer frmMain::AskToSave() {
    const HCURSOR busy = SetCursor(LoadCursorW(nullptr, IDC_ARROW)); // it is the user who takes time now
    const int answer = Ask(texts_.ResText(kTextSettingsChanged), texts_.ResText(kTextUpdateUserData),
                           MB_YESNOCANCEL | MB_ICONQUESTION);
    SetCursor(busy);
    return answer == IDYES ? SaveAnswer::Yes : answer == IDNO ? SaveAnswer::No : SaveAnswer::Cancel;
}

void frmMain::RestoreDefaults(MainPage page) {
    settings_.RestoreDefaults(page);
    if (page == MainPage::OnScreen) {
        onScreenPage_.Refresh();
    }
    ShowButtons();
}

void frmMain::ManagePatterns() {
    settings_.ManagePatterns([this](PatternList& patterns) {
        frmManager(*this, patterns, texts_, platform_.ansiText).ShowModal();
    });
    for (int box = IDC_cmbUserName0; box <= IDC_cmbUserName1; ++box) {
        if (HasControl(box)) {
            FillPatternBox(Control(box));
        }
    }
    ShowButtons();
}

void frmMain::EditButton(int button) {
    editedButton_ = button;
    ShowPictures({button});
    Globals().EditedButtonSlot = settings_.Slot(button);
    frmSetAp(*this, platform_, store_, texts_).ShowModal();
    settings_.SetSlot(button, Globals().EditedButtonSlot);
    editedButton_ = 0;
    ShowButtons();
}

void frmMain::RunWizard(MainPage page) {
    frmWizard wizard(this, platform_, store_, texts_, settings_.Defaults());
    wizard.QLBeyCount(WizardButtonSet(page == MainPage::Desktop, settings_.Switches().NTNumAPBtn));
    wizard.ShowModal();
    if (wizard.ReturnStatus() == kWizardFinished) {
        WhileSaving([&] { settings_.SaveButton(wizard.ButtonIndex() + 1, Globals().EditedButtonSlot); });
        ShowButtons();
    }
}

void frmMain::RunWizardAlone() {
    frmWizard wizard(nullptr, platform_, store_, texts_, settings_.Defaults());
    wizard.ShowModal();
    if (wizard.ReturnStatus() == kWizardFinished) {
        settings_.SaveLoneButton(startUp_, Globals().EditedButtonSlot,
                                 [this] { platform_.instanceGuard.GiveUp(); });
    }
    platform_.instanceGuard.GiveUp();
}

void frmMain::Ok() {
    bool closes = false;
    WhileSaving([&] { closes = settings_.Ok([this] { return AskToSave(); }); });
    if (closes) {
        Close();
    }
}

void frmMain::Apply() {
    WhileSaving([this] { settings_.Apply(); });
    ShowButtons();
}

bool frmMain::HasHelp() const {
    return HasHelpFile(platform_.shell);
}

void frmMain::Help(HWND owner) {
    ShowHelp(platform_.shell, platform_.windows, texts_, std::bit_cast<WindowId>(owner));
    if (!HasHelp()) { // any more
        if (GetFocus() == Control(IDC_cmdHelp)) {
            FocusControl(IDC_cmdOK);
        }
        EnableWindow(Control(IDC_cmdHelp), FALSE);
    }
}

bool frmMain::OnHelpKey() {
    if (HasHelp()) {
        Help(GetActiveWindow()); // a dialog over this one may have been asked
    }
    return true;
}
