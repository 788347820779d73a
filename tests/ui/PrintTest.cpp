#include "BrowseUse.h"
#include "TestPrinter.h"
#include "UiTest.h"

#include <dlgs.h>
#include <winspool.h>

using UiDriver::Milliseconds;
using UiDriver::ModalBox;
using UiDriver::Window;

namespace {

using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

constexpr Milliseconds kPrinterTime{120000}; // the first use of a printer's fonts takes seconds
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

class Print : public UiTest {
protected:
    static std::wstring Output() { return ScratchFolder::Path() + L"\\out.ps"; }

    /// The default printer prints into Output.
    void InstallPrinter() {
        printer_.emplace(L"cat >'" + UiDriver::FromUtf8(UiDriver::UnixPath(Output())) + L"'");
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

    /// A dialog of the system's, by an id of its template, which is the same in all languages.
    Window SystemDialogWith(int control) const {
        const auto find = [&]() -> std::optional<Window> {
            for (const Window& window : UiDriver::FindWindows({Program().Id(), L"#32770", std::nullopt})) {
                if (window.HasControl(control)) {
                    return window;
                }
            }
            return std::nullopt;
        };
        const Window dialog = UiDriver::WaitForValue(find, L"a dialog of the system's", kPrinterTime);
        dialog.WaitUntilAnswers();
        return dialog;
    }
    Window PressPrint() const {
        Item(IDC_cmdPrint).Press();
        return SystemDialogWith(rad3);
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

    /// Prints so much that it doesn't come to its end by itself.
    Window PressPrintOfManyCopies() {
        MakeLongPattern();
        InstallPrinter();
        Start();
        const Window dialog = PressPrint();
        dialog.Control(edt3).SetText(L"999");
        Answer(dialog, IDOK);
        return PrintingWindow();
    }
    void GiveUp(const Window& waiting) const {
        waiting.Close();
        WaitUntilDone();
    }

    /// Between the system's dialog and the printing the dialog is enabled, but does not answer.
    void WaitUntilDone() const {
        UiDriver::WaitUntil(
            [&] {
                Dialog().WaitUntilAnswers();
                return Dialog().Enabled() && UiDriver::Forms(Program()).size() == 1;
            },
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
    static void ExpectNoPrintout() {
        EXPECT_EQ(UiDriver::ReadBytes(Output()).value_or("").find("%%EOF"), std::string::npos);
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
    ExpectNoPrintout();
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

TEST_F(Print, ShowsAWindowThatAnswers_WhileItDraws) {
    const Window waiting = PressPrintOfManyCopies();
    EXPECT_FALSE(Dialog().Enabled());
    EXPECT_EQ(waiting.Owner(), Dialog().Hwnd());
    EXPECT_TRUE(waiting.Control(IDC_cmdCancel).Enabled());
    EXPECT_THAT(waiting.Control(IDC_lblPrinting).Text(), Not(IsEmpty()));
    EXPECT_EQ(waiting.FocusedHwnd(), waiting.Control(IDC_cmdCancel).Hwnd());
    EXPECT_EQ(UiDriver::Accessible::Of(waiting.FocusedHwnd()).name, Text(kCancelText));
    GiveUp(waiting);
}

TEST_F(Print, LetsNothingOpenOrEndTheProgram_WhileItDraws) {
    const Window waiting = PressPrintOfManyCopies();
    for (const int id : {IDC_cmdPrint, IDC_picButton0, IDC_cmdUserManager0, IDC_cmdWizard0, IDC_cmdOK}) {
        Item(id).Press();
    }
    Dialog().Close();
    PostMessageW(Dialog().Hwnd(), WM_CLOSE, 0, 0);
    EXPECT_THAT(UiDriver::Forms(Program()), SizeIs(2));
    EXPECT_FALSE(ModalBox::IsOpen(Program()));
    EXPECT_TRUE(waiting.Visible());
    EXPECT_FALSE(Dialog().Enabled());
    GiveUp(waiting); // by a message that comes after those
    ExpectUsable();
}

TEST_F(Print, EndsTheDocument_WhenCancelIsPressed) {
    const Window waiting = PressPrintOfManyCopies();
    waiting.Control(IDC_cmdCancel).Press();
    WaitUntilDone();
    ExpectNoPrintout();
    ExpectUsable();
}

TEST_F(Print, EndsTheDocument_WhenTheCloseBoxIsPressed) {
    GiveUp(PressPrintOfManyCopies());
    ExpectNoPrintout();
    ExpectUsable();
}

TEST_F(Print, EndsTheDocument_WhenEscapeIsPressed) {
    const Window waiting = PressPrintOfManyCopies();
    waiting.BringToFrontForGood();
    UiDriver::Keyboard::Press(VK_ESCAPE);
    WaitUntilDone();
    ExpectNoPrintout();
    ExpectUsable();
}

TEST_F(Print, IsOverAtOnce_WhenThePrinterCannotBeOpened) {
    InstallPrinter();
    Start();
    const Window dialog = PressPrint();
    RemovePrinter();
    Answer(dialog, IDOK);
    WaitUntilDone();
    ExpectNoPrintout();
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

TEST_F(Print, PrintsIntoTheFileThatIsChosen) {
    InstallPrinter();
    Start();
    const std::wstring file = ScratchFolder::Path() + L"\\chosen.prn";
    for (const int answer : {IDCANCEL, IDOK}) {
        const Window dialog = PressPrint();
        dialog.Control(chx1).Press();
        Answer(dialog, IDOK);
        const Window question = SystemDialogWith(cmb13);
        UiDriver::Control(question.FocusedHwnd()).SetText(file);
        PostMessageW(question.Hwnd(), WM_COMMAND, static_cast<WPARAM>(answer), 0);
        question.WaitUntilGone(kPrinterTime);
        WaitUntilDone();
        EXPECT_EQ(UiDriver::ReadBytes(file).has_value(), answer == IDOK);
    }
    EXPECT_EQ(PagesOf(UiDriver::ReadBytes(file).value_or("")), 1U);
    ExpectNoPrintout();
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
