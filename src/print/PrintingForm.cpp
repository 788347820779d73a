#include "print/PrintingForm.h"

#include "app/StringTable.h"
#include "platform/windows/KernelHandle.h"
#include "platform/windows/Worker.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "settings/StdModule.h"
#include "ui/Controls.h"

#include <commctrl.h>

#include <utility>

namespace {

constexpr UINT kPrinted = WM_APP + 1;
constexpr UINT_PTR kTimer = 1;
constexpr UINT kTimerMs = 250;
/// How long a printer that was given up has for an orderly end.
constexpr DWORD kLettingGoMs = 3000;

} // namespace

PrintingForm::PrintingForm(HWND owner, const StringTable& texts) : texts_(texts) {
    CreateHidden(owner, Globals().DialogFontName);
}

bool PrintingForm::Run(std::function<void()> print) {
    const auto ended = std::make_shared<KernelHandle>(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const auto shared = std::make_shared<std::function<void()>>(std::move(print));
    const HWND window = Window();
    if (window == nullptr || !*ended || !StartWorker([shared, window, ended] {
            (*shared)();
            SetEvent(ended->get());
            PostMessageW(window, kPrinted, 0, 0);
        })) {
        return false;
    }
    ended_ = ended->get();
    SetTimer(window, kTimer, kTimerMs, nullptr); // should the message above get lost
    RunModal();
    Close();
    if (WaitForSingleObject(ended_, 0) != WAIT_OBJECT_0 && !*givenUp_) {
        // The program ends before the printer.
        *givenUp_ = true;
        WaitForSingleObject(ended_, kLettingGoMs);
    }
    return WaitForSingleObject(ended_, 0) == WAIT_OBJECT_0;
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
    if (std::exchange(cancelled_, true)) {
        return;
    }
    // The window stays until the printer has let go.
    *givenUp_ = true;
    givenUpAt_ = GetTickCount64();
    SetFocus(Window());
    EnableWindow(Control(IDC_cmdCancel), FALSE);
}

void PrintingForm::OnTimer() {
    const bool ended = WaitForSingleObject(ended_, 0) == WAIT_OBJECT_0;
    const bool waitedEnough = cancelled_ && GetTickCount64() - givenUpAt_ >= kLettingGoMs;
    if (ended || waitedEnough) {
        EndModal();
    }
}

bool PrintingForm::OnPrivateMessage(UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    if (message == kPrinted) {
        OnTimer();
    }
    return message == kPrinted;
}
