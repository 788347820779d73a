#include "dialogs/patterns/frmInputBox.h"

#include "app/StringTable.h"
#include "dialogs/patterns/NameRules.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "ui/Controls.h"

#include <commctrl.h>

namespace {

// Dialog units.
constexpr int kMargin = 7;
constexpr int kGap = 4;
constexpr int kWidth = 220;
constexpr int kLabelHeight = 8;
constexpr int kBoxHeight = 14;
constexpr int kButtonWidth = 54;
constexpr int kBoxTop = kMargin + kLabelHeight + kGap;
constexpr int kButtonTop = kBoxTop + kBoxHeight + kMargin;

int ProblemText(NameProblem problem) {
    switch (problem) {
    case NameProblem::Empty:
        return kTextNameEmpty;
    case NameProblem::Used:
        return kTextNameUsed;
    default:
        return kTextNameTooLong;
    }
}

} // namespace

frmInputBox::frmInputBox(Form& owner, const StringTable& texts, const AnsiText& ansiText)
    : ModalForm(&owner), texts_(texts), ansiText_(ansiText) {
    CreateHidden(Globals().DialogFontName);
}

void frmInputBox::OnCreate() {
    constexpr int kContentWidth = kWidth - 2 * kMargin;
    InputTitle(texts_.ResText(kTextInputTitle));
    AddControl(Window(),
               {IDC_lblInputBox,
                WC_STATICW,
                SS_LEFT | SS_NOPREFIX | WS_GROUP,
                {kMargin, kMargin, kContentWidth, kLabelHeight}},
               texts_.ResText(kTextEnterPatternName));
    AddControl(Window(), {IDC_txtInputBox,
                          WC_EDITW,
                          ES_AUTOHSCROLL | WS_TABSTOP | WS_GROUP,
                          {kMargin, kBoxTop, kContentWidth, kBoxHeight},
                          WS_EX_CLIENTEDGE});
    const int cancelLeft = kWidth - kMargin - kButtonWidth;
    AddControl(Window(),
               {IDC_cmdOK,
                WC_BUTTONW,
                BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP,
                {cancelLeft - kGap - kButtonWidth, kButtonTop, kButtonWidth, kBoxHeight}},
               texts_.ResText(kTextInputOk));
    AddControl(Window(),
               {IDC_cmdCancel,
                WC_BUTTONW,
                BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP,
                {cancelLeft, kButtonTop, kButtonWidth, kBoxHeight}},
               texts_.ResText(kTextInputCancel));
}

SIZE frmInputBox::OnLayout() {
    return {TextFont().PixelsX(kWidth), TextFont().PixelsY(kButtonTop + kBoxHeight + kMargin)};
}

void frmInputBox::SetMsgLabel(const std::wstring& text) {
    SetTextOf(Control(IDC_lblInputBox), text);
}

void frmInputBox::InputText(const std::wstring& text) {
    if (!HasControl(IDC_txtInputBox)) {
        return; // no window: the answer will be Cancel
    }
    SetTextOf(Control(IDC_txtInputBox), text);
    userName_ = text;
}

void frmInputBox::InputTitle(const std::wstring& title) {
    SetTextOf(Window(), title);
}

void frmInputBox::OnActivate() {
    SelectAll();
}

void frmInputBox::SelectAll() {
    if (HasControl(IDC_txtInputBox)) {
        SendMessageW(Control(IDC_txtInputBox), EM_SETSEL, 0, -1);
    }
}

void frmInputBox::OnCommand(int id, int notification) {
    switch (id) {
    case IDC_txtInputBox:
        if (notification == EN_CHANGE) {
            userName_ = TextOf(Control(id));
        }
        break;
    case IDC_cmdOK:
        Accept();
        break;
    case IDC_cmdCancel:
        OnClose();
        break;
    default:
        break;
    }
}

void frmInputBox::OnClose() {
    buttonStatus_ = kStatusCancel;
    End();
}

void frmInputBox::Accept() {
    userName_ = TextOf(Control(IDC_txtInputBox));
    if (!noCheck_ && Refuse()) {
        return;
    }
    buttonStatus_ = kStatusOk;
    End();
}

bool frmInputBox::Refuse() {
    const NameProblem problem = CheckPatternName(userName_, usedNames_, ansiText_);
    if (problem == NameProblem::None) {
        return false;
    }
    Ask(texts_.ResText(ProblemText(problem)), texts_.ResText(kTextInputError), MB_OK | MB_ICONERROR);
    FocusControl(IDC_txtInputBox);
    SelectAll();
    return true;
}
