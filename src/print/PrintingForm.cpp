#include "print/PrintingForm.h"

#include "app/StringTable.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "settings/StdModule.h"
#include "ui/Controls.h"

#include <commctrl.h>

PrintingForm::PrintingForm(Form& owner, const StringTable& texts) : ModalForm(&owner), texts_(texts) {
    CreateHidden(Globals().DialogFontName);
}

void PrintingForm::PrintWhile(const std::function<void()>& print) {
    ModalForm::ShowWhile([&] {
        if (GoOn()) { // the window is drawn before the printer takes its time
            print();
        }
    });
}

bool PrintingForm::GoOn() {
    return pump_.Process() && !givenUp_;
}

void PrintingForm::OnCreate() {
    constexpr int kMargin = 7;
    constexpr int kWidth = 160;
    constexpr int kButtonWidth = 50;
    constexpr int kButtonTop = 26;
    SetTextOf(Window(), texts_.ResText(kTextTitle));
    AddControl(Window(), {IDC_lblPrinting, WC_STATICW, SS_CENTER | WS_GROUP, {kMargin, 9, kWidth, 10}},
               WithoutMnemonic(texts_.ResText(kTextPrint)) + L"...");
    AddControl(Window(),
               {IDC_cmdCancel,
                WC_BUTTONW,
                BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP,
                {kMargin + (kWidth - kButtonWidth) / 2, kButtonTop, kButtonWidth, 14}},
               texts_.ResText(kTextCancel));
}

SIZE PrintingForm::OnLayout() {
    return {TextFont().PixelsX(174), TextFont().PixelsY(47)};
}

void PrintingForm::OnCommand(int id, int /*notification*/) {
    if (id == IDC_cmdCancel) {
        OnClose();
    }
}

void PrintingForm::OnClose() {
    givenUp_ = true; // the window stays until the printer has let go
    SetFocus(Window());
    EnableWindow(Control(IDC_cmdCancel), FALSE);
}
