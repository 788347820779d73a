#include "dialogs/patterns/frmManager.h"

#include "app/StringTable.h"
#include "dialogs/patterns/PatternList.h"
#include "dialogs/patterns/frmInputBox.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "ui/Controls.h"

#include <commctrl.h>

#include <bit>

namespace {

// Dialog units.
constexpr int kMargin = 7;
constexpr int kGap = 4;
constexpr int kLabelHeight = 8;
constexpr int kListTop = kMargin + kLabelHeight + 2;
constexpr int kListWidth = 150;
constexpr int kListHeight = 106;
constexpr int kButtonLeft = kMargin + kListWidth + kMargin;
constexpr int kButtonWidth = 64;
constexpr int kButtonHeight = 14;

} // namespace

frmManager::frmManager(Form& owner, PatternList& patterns, const StringTable& texts, const AnsiText& ansiText)
    : ModalForm(&owner), texts_(texts), ansiText_(ansiText), patterns_(patterns) {
    patterns_.Load();
    CreateHidden(Globals().DialogFontName);
}

void frmManager::OnCreate() {
    SetTextOf(Window(), texts_.ResText(kTextManagerTitle));
    AddControl(
        Window(),
        {IDC_lblUserList, WC_STATICW, SS_LEFT | WS_GROUP, {kMargin, kMargin, kListWidth, kLabelHeight}},
        texts_.ResText(kTextNameList));
    AddControl(Window(), {IDC_lstUserList,
                          WC_LISTBOXW,
                          LBS_NOTIFY | LBS_WANTKEYBOARDINPUT | LBS_NOINTEGRALHEIGHT | WS_VSCROLL |
                              WS_TABSTOP | WS_GROUP,
                          {kMargin, kListTop, kListWidth, kListHeight},
                          WS_EX_CLIENTEDGE});
    int top = kListTop;
    const auto addButton = [&](int id, int textOffset, DWORD kind = BS_PUSHBUTTON) {
        AddControl(
            Window(),
            {id, WC_BUTTONW, kind | WS_TABSTOP | WS_GROUP, {kButtonLeft, top, kButtonWidth, kButtonHeight}},
            texts_.ResText(textOffset));
        top += kButtonHeight + kGap;
    };
    addButton(IDC_cmdAdd, kTextAdd);
    addButton(IDC_cmdDelete, kTextDelete);
    addButton(IDC_cmdCopy, kTextCopy);
    addButton(IDC_cmdRename, kTextRename);
    top = kListTop + kListHeight - kButtonHeight;
    addButton(IDC_cmdClose, kTextClose, BS_DEFPUSHBUTTON);
    SendMessageW(Window(), DM_SETDEFID, IDC_cmdClose, 0);
    FillList(patterns_.CurrentPattern() - 1);
    EnableButtons();
}

SIZE frmManager::OnLayout() {
    return {TextFont().PixelsX(kButtonLeft + kButtonWidth + kMargin),
            TextFont().PixelsY(kListTop + kListHeight + kMargin)};
}

void frmManager::FillList(int selected) {
    const HWND list = Control(IDC_lstUserList);
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    for (const std::wstring& name : patterns_.Names()) {
        SendMessageW(list, LB_ADDSTRING, 0, std::bit_cast<LPARAM>(name.c_str()));
    }
    SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

int frmManager::Selected() const {
    const auto selected = static_cast<int>(SendMessageW(Control(IDC_lstUserList), LB_GETCURSEL, 0, 0));
    return selected < patterns_.Count() ? selected : -1;
}

void frmManager::EnableButtons() {
    const auto enable = [this](int id, bool enabled) {
        const HWND button = Control(id);
        if (!enabled && GetFocus() == button) {
            FocusControl(IDC_lstUserList); // a disabled button would keep the keyboard to itself
        }
        EnableWindow(button, enabled ? TRUE : FALSE);
    };
    enable(IDC_cmdAdd, patterns_.CanAdd());
    enable(IDC_cmdCopy, patterns_.CanAdd());
    enable(IDC_cmdDelete, patterns_.CanDelete(Selected()));
}

void frmManager::OnListKey(int id, WORD key) {
    if (id == IDC_lstUserList && key == VK_DELETE && patterns_.CanDelete(Selected())) {
        Delete();
    }
}

void frmManager::OnCommand(int id, int notification) {
    switch (id) {
    case IDC_lstUserList:
        if (notification == LBN_SELCHANGE) {
            EnableButtons();
        }
        break;
    case IDC_cmdAdd:
        Add();
        break;
    case IDC_cmdDelete:
        Delete();
        break;
    case IDC_cmdCopy:
        Copy();
        break;
    case IDC_cmdRename:
        Rename();
        break;
    case IDC_cmdClose:
    case IDC_cmdCancel: // Escape
        OnClose();
        break;
    default:
        break;
    }
}

std::optional<std::wstring> frmManager::AskForName(int titleText, const std::wstring& initial) {
    frmInputBox box(*this, texts_, ansiText_);
    box.InputTitle(texts_.ResText(titleText));
    box.SetUserNameList(patterns_.Names());
    box.SetUserName(initial);
    box.ShowModal();
    if (box.GetButtonStatus() != kStatusOk) {
        return std::nullopt;
    }
    return box.GetUserName();
}

void frmManager::Add() {
    if (!patterns_.CanAdd()) {
        return;
    }
    if (const auto name = AskForName(kTextAdd, patterns_.DefaultName())) {
        patterns_.Add(*name);
        FillList(patterns_.Count() - 1);
        EnableButtons();
    }
}

void frmManager::Copy() {
    const int selected = Selected();
    if (selected < 0 || !patterns_.CanAdd()) {
        return;
    }
    if (const auto name =
            AskForName(kTextCopy, texts_.ResText(kTextCopy) + L" " + patterns_.Name(selected))) {
        patterns_.Copy(selected, *name);
        FillList(patterns_.Count() - 1);
        EnableButtons();
    }
}

void frmManager::Rename() {
    const int selected = Selected();
    if (selected < 0) {
        return;
    }
    if (const auto name = AskForName(kTextRename, patterns_.Name(selected))) {
        patterns_.Rename(selected, *name);
        FillList(selected);
        EnableButtons();
    }
}

void frmManager::Delete() {
    const int selected = Selected();
    if (!patterns_.CanDelete(selected)) {
        return;
    }
    const std::wstring question = patterns_.Name(selected) + L" " + texts_.ResText(kTextWillBeDeleted);
    if (Ask(question, texts_.ResText(kTextDelete), MB_OKCANCEL | MB_ICONQUESTION) == IDOK) {
        const WaitCursor cursor;
        FillList(patterns_.Delete(selected));
        EnableButtons();
    }
}
