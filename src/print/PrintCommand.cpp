#include "print/PrintCommand.h"

#include "app/StringTable.h"
#include "platform/windows/KernelHandle.h"
#include "platform/windows/SystemLibrary.h"
#include "platform/windows/WindowsPrintDevice.h"
#include "platform/windows/Worker.h"
#include "print/CQlbPrint.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "settings/StdModule.h"
#include "ui/Controls.h"
#include "ui/Form.h"

#include <commctrl.h>
#include <commdlg.h>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace {

constexpr UINT kPrinted = WM_APP + 1;
constexpr WORD kMostPages = 99;

struct GlobalMemoryDeleter {
    using pointer = HGLOBAL;
    void operator()(HGLOBAL memory) const { GlobalFree(memory); }
};
using GlobalMemory = std::unique_ptr<void, GlobalMemoryDeleter>;

struct ChosenPrinter {
    HDC hdc = nullptr; ///< for a WindowsPrintDevice to own
    PrintJob job;
    bool toFile = false;
};

std::optional<ChosenPrinter> AskForPrinter(HWND owner) {
    using PrintDialog = BOOL WINAPI(PRINTDLGW*);
    static const auto kPrintDialog = SystemProcedure<PrintDialog>(L"comdlg32.dll", "PrintDlgW");
    if (kPrintDialog == nullptr) {
        return std::nullopt;
    }
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.Flags = PD_RETURNDC | PD_NOSELECTION | PD_USEDEVMODECOPIESANDCOLLATE;
    dialog.nMinPage = 1;
    dialog.nMaxPage = kMostPages;
    dialog.nFromPage = 1;
    dialog.nToPage = 1;
    dialog.nCopies = 1;
    const BOOL chosen = kPrintDialog(&dialog);
    const GlobalMemory mode(dialog.hDevMode);
    const GlobalMemory names(dialog.hDevNames);
    if (chosen == FALSE || dialog.hDC == nullptr) {
        return std::nullopt;
    }
    ChosenPrinter printer;
    printer.hdc = dialog.hDC;
    printer.toFile = (dialog.Flags & PD_PRINTTOFILE) != 0;
    printer.job.copies = dialog.nCopies;
    if ((dialog.Flags & PD_PAGENUMS) != 0) {
        printer.job.firstPage = dialog.nFromPage;
        printer.job.lastPage = dialog.nToPage;
    }
    return printer;
}

/// Stands over the form while the printer works.
class PrintingForm final : public Form {
public:
    PrintingForm(HWND owner, const StringTable& texts) : texts_(texts) {
        CreateHidden(owner, Globals().DialogFontName);
    }

    [[nodiscard]] std::shared_ptr<const std::atomic<bool>> GivenUp() const { return givenUp_; }

    /// Runs `print` on another thread, and returns when it has ended.
    void Run(const std::function<void()>& print) {
        const auto ended = std::make_shared<KernelHandle>(CreateEventW(nullptr, TRUE, FALSE, nullptr));
        const HWND window = Window();
        if (window == nullptr || !*ended || !StartWorker([print, window, ended] {
                print();
                SetEvent(ended->get());
                PostMessageW(window, kPrinted, 0, 0);
            })) {
            print();
            return;
        }
        ended_ = ended->get();
        RunModal();
        *givenUp_ = true; // when the program ends before the printer
        WaitForSingleObject(ended->get(), INFINITE);
        Close();
    }

protected:
    void OnCreate() override {
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
    SIZE OnLayout() override { return {TextFont().PixelsX(174), TextFont().PixelsY(47)}; }
    void OnCommand(int id, int /*notification*/) override {
        if (id == IDC_cmdCancel) {
            OnClose();
        }
    }
    void OnClose() override {
        // The window stays until the printer has let go.
        *givenUp_ = true;
        EnableWindow(Control(IDC_cmdCancel), FALSE);
    }
    bool OnPrivateMessage(UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) override {
        if (message == kPrinted && WaitForSingleObject(ended_, 0) == WAIT_OBJECT_0) {
            EndModal();
        }
        return message == kPrinted;
    }

private:
    const StringTable& texts_;
    HANDLE ended_ = nullptr; ///< set when the printer has let go
    std::shared_ptr<std::atomic<bool>> givenUp_ = std::make_shared<std::atomic<bool>>(false);
};

} // namespace

void PrintPattern(Form& owner, const RegIniFunc& store, const StringTable& texts,
                  const std::wstring& iniFile) {
    owner.WhileAsking([&] {
        const auto printer = AskForPrinter(owner.Window());
        if (!printer) {
            return false;
        }
        PrintingForm waiting(owner.Window(), texts);
        WindowsPrintDevice device(printer->hdc, waiting.GivenUp());
        if (printer->toFile) {
            device.OutputTo(L"FILE:");
        }
        CQlbPrint print(store);
        print.IniFileName(iniFile);
        const std::wstring name = texts.ResText(kTextTitle);
        waiting.Run([&] { print.QlbPrintOut(device, name, printer->job); });
        return true;
    });
}
