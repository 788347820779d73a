#include "BrowseUse.h"
#include "TestPrinter.h"
#include "UiTest.h"

#include <dlgs.h>
#include <winspool.h>

#include <chrono>

using UiDriver::Milliseconds;
using UiDriver::ModalBox;
using UiDriver::Window;

namespace {

using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr Milliseconds kPrinterTime{30000}; // the first use of a printer's fonts takes seconds
constexpr std::size_t kSmallestPrintout = 5000;

DWORD PrinterCount() {
    DWORD bytes = 0;
    DWORD count = 0;
    EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 4, nullptr, 0, &bytes, &count);
    std::string buffer(bytes, '\0');
    if (!EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 4, reinterpret_cast<BYTE*>(buffer.data()), bytes, &bytes,
                       &count)) {
        UiDriver::FailLastError(L"counting the printers");
    }
    return count;
}

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) {
        ++count;
    }
    return count;
}

std::wstring SystemTextOf(DWORD error) {
    wchar_t text[512] = L"";
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, text,
                   static_cast<DWORD>(std::size(text)), nullptr);
    return text;
}

class Print : public UiTest {
protected:
    static std::wstring Output() { return ScratchFolder::Path() + L"\\out.ps"; }

    /// The default printer prints into Output, by way of `before`.
    void InstallPrinter(const std::wstring& before = {}) {
        printer_.emplace(before + L"cat >'" + UiDriver::FromUtf8(UiDriver::UnixPath(Output())) + L"'");
    }
    void RemovePrinter() { printer_.reset(); }

    /// Of many pages.
    void MakeLongPattern() const {
        StoredPattern pattern = Seeded(1);
        for (int button = 1; button <= 5; ++button) {
            pattern.Button(button).count = 5;
            for (std::wstring& program : pattern.Button(button).programs) {
                program = L"C:\\" + std::wstring(1500, L'x');
            }
        }
        WritePattern(Set(1), pattern);
    }

    /// By the ids of the system's template, which are the same in all languages.
    std::optional<Window> FindPrintDialog() const {
        for (const Window& window : UiDriver::FindWindows({Program().Id(), L"#32770", std::nullopt})) {
            if (window.HasControl(rad3) && window.HasControl(edt3)) {
                return window;
            }
        }
        return std::nullopt;
    }
    Window PressPrint() const {
        Item(IDC_cmdPrint).Press();
        const Window dialog =
            UiDriver::WaitForValue([&] { return FindPrintDialog(); }, L"the print dialog", kPrinterTime);
        dialog.WaitUntilAnswers();
        return dialog;
    }
    void Answer(const Window& dialog, int button) const {
        dialog.Control(button).Press();
        dialog.WaitUntilGone(kPrinterTime);
    }

    /// What stands over the dialog while the printer works.
    Window PrintingWindow() const {
        return UiDriver::WaitForValue(
            [&]() -> std::optional<Window> {
                for (const Window& form : UiDriver::Forms(Program())) {
                    if (form.Hwnd() != Dialog().Hwnd()) {
                        return form;
                    }
                }
                return std::nullopt;
            },
            L"the window of the printing", kPrinterTime);
    }

    /// The dialog is enabled for a moment also between the system's dialog and the printing.
    void WaitUntilDone() const {
        const auto idle = [&] {
            Dialog().WaitUntilAnswers();
            return Dialog().Enabled() && UiDriver::Forms(Program()).size() == 1;
        };
        UiDriver::WaitUntil([&] { return UiDriver::HoldsFor(idle, Milliseconds(200)); },
                            L"the program to be done with printing", kPrinterTime);
    }

    /// Waits until it is complete.
    static std::string Printout() {
        std::string bytes;
        UiDriver::WaitUntil(
            [&] {
                bytes = UiDriver::ReadBytes(Output()).value_or("");
                return bytes.find("%%EOF") != std::string::npos;
            },
            L"the printout", kPrinterTime);
        return bytes;
    }
    static std::size_t PagesOf(const std::string& printout) { return Count(printout, "\n%%Page: "); }

    void ExpectUsable() const {
        ExpectAlive();
        NameBox(1).SetText(L"After printing");
        Apply();
        EXPECT_EQ(AppKey(1, 1).String(L"DispTitle"), L"After printing");
    }

private:
    ScratchFolder folder_;
    std::optional<TestPrinter> printer_;
};

TEST_F(Print, PrintsOnePage_AfterOk) {
    InstallPrinter();
    Start();
    Answer(PressPrint(), IDOK);
    WaitUntilDone();
    const std::string printout = Printout();
    EXPECT_THAT(printout, StartsWith("%!PS"));
    EXPECT_GT(printout.size(), kSmallestPrintout);
    EXPECT_EQ(PagesOf(printout), 1U);
    ExpectUsable();
}

TEST_F(Print, PrintsNothing_AfterCancel) {
    InstallPrinter();
    Start();
    Answer(PressPrint(), IDCANCEL);
    WaitUntilDone();
    EXPECT_TRUE(
        UiDriver::HoldsFor([] { return !UiDriver::ReadBytes(Output()).has_value(); }, Milliseconds(500)));
    ExpectUsable();
}

TEST_F(Print, PrintsAllPagesOrThoseChosen) {
    MakeLongPattern();
    InstallPrinter();
    Start();
    Answer(PressPrint(), IDOK);
    WaitUntilDone();
    const std::string all = Printout();
    EXPECT_GE(PagesOf(all), 3U);

    UiDriver::RemoveFile(Output());
    const Window dialog = PressPrint();
    dialog.Control(rad3).Press();
    dialog.Control(edt1).SetText(L"2");
    dialog.Control(edt2).SetText(L"3");
    Answer(dialog, IDOK);
    WaitUntilDone();
    EXPECT_EQ(PagesOf(Printout()), 2U);
    ExpectUsable();
}

TEST_F(Print, AnswersAndShowsAWindow_WhileAPrinterIsSlow) {
    InstallPrinter(L"sleep 3; ");
    Start();
    Answer(PressPrint(), IDOK);
    const Window waiting = PrintingWindow();
    Dialog().WaitUntilAnswers();
    EXPECT_FALSE(Dialog().Enabled());
    EXPECT_EQ(waiting.Owner(), Dialog().Hwnd());
    EXPECT_TRUE(waiting.Control(IDC_cmdCancel).Enabled());
    EXPECT_THAT(waiting.Control(IDC_lblPrinting).Text(), Not(IsEmpty()));
    EXPECT_EQ(waiting.FocusedHwnd(), waiting.Control(IDC_cmdCancel).Hwnd());
    EXPECT_EQ(UiDriver::Accessible::Of(waiting.FocusedHwnd()).name, Text(kCancelText));
    WaitUntilDone();
    EXPECT_EQ(PagesOf(Printout()), 1U);
    ExpectUsable();
}

TEST_F(Print, SaysThatThePrinterCannotBeOpened) {
    InstallPrinter();
    Start();
    const Window dialog = PressPrint();
    RemovePrinter();
    dialog.Control(IDOK).Press();
    const ModalBox box = ModalBox::Wait(Program(), kPrinterTime);
    EXPECT_THAT(SystemTextOf(ERROR_INVALID_PRINTER_NAME), StartsWith(box.Text()));
    box.Press(IDOK);
    WaitUntilDone();
    ExpectUsable();
}

TEST_F(Print, ComesToAnEnd_WhenGivenUpWhileThePrinterIsStuck) {
    const std::wstring stuck = ScratchFolder::Path() + L"\\stuck";
    InstallPrinter(L"touch '" + UiDriver::FromUtf8(UiDriver::UnixPath(stuck)) + L"'; sleep 12; ");
    Start();
    Answer(PressPrint(), IDOK);
    const Window waiting = PrintingWindow();
    UiDriver::WaitUntil([&] { return UiDriver::ReadBytes(stuck).has_value(); }, L"the printer to get stuck",
                        kPrinterTime);
    const auto start = std::chrono::steady_clock::now();
    waiting.Control(IDC_cmdCancel).Press();
    UiDriver::WaitUntil([&] { return !waiting.Control(IDC_cmdCancel).Enabled(); }, L"Cancel to be disabled");
    WaitUntilDone();
    EXPECT_LT(std::chrono::steady_clock::now() - start, Milliseconds(9000));
    ExpectUsable();
}

TEST_F(Print, MakesTheCopiesThatAreAskedFor) {
    InstallPrinter();
    Start();
    const Window dialog = PressPrint();
    dialog.Control(edt3).SetText(L"3");
    Answer(dialog, IDOK);
    WaitUntilDone();
    EXPECT_EQ(PagesOf(Printout()), 3U);
}

TEST_F(Print, LeavesTheDialogUsable_WithoutAPrinter) {
    if (PrinterCount() != 0) {
        GTEST_SKIP() << "this machine has a printer of its own";
    }
    Start();
    for (int i = 0; i < 2; ++i) {
        Item(IDC_cmdPrint).Press();
        // The system says why.
        const ModalBox box = ModalBox::Wait(Program(), kPrinterTime);
        EXPECT_THAT(box.Text(), Not(IsEmpty()));
        box.Press(IDOK);
        WaitUntilDone();
    }
    ExpectUsable();
}

} // namespace
