#include "print/PrintCommand.h"

#include "app/StringTable.h"
#include "platform/windows/WindowsPrintDevice.h"
#include "print/CQlbPrint.h"
#include "print/PrinterChoice.h"
#include "print/PrintingForm.h"
#include "settings/GlobalValue.h"
#include "ui/Form.h"

namespace {

void PrintWith(const PrinterChoice& choice, CQlbPrint& print, const std::wstring& documentName,
               PrintingForm& waiting) {
    if (MemoryDc printer = choice.Open()) {
        WindowsPrintDevice device(printer.release(), [&] { return waiting.GoOn(); });
        device.OutputTo(choice.Output());
        print.QlbPrintOut(device, documentName, choice.Job());
    }
}

} // namespace

void PrintPattern(Form& owner, const RegIniFunc& store, const StringTable& texts,
                  const std::wstring& iniFile) {
    const auto choice =
        owner.RunOver([](HWND window) { return PrinterChoice::Ask(window, ShowPrintDialog); });
    if (!choice) {
        return;
    }
    CQlbPrint print(store);
    print.IniFileName(iniFile);
    const std::wstring title = texts.ResText(kTextTitle);
    PrintingForm waiting(owner, texts);
    // What goes wrong, the system's printing says.
    waiting.PrintWhile([&] { PrintWith(*choice, print, title, waiting); });
}
