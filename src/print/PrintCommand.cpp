#include "print/PrintCommand.h"

#include "app/StringTable.h"
#include "platform/windows/WindowsPrintDevice.h"
#include "print/CQlbPrint.h"
#include "print/PrinterChoice.h"
#include "print/PrintingForm.h"
#include "settings/GlobalValue.h"
#include "settings/StdModule.h"
#include "ui/Form.h"

namespace {

/// In the system's words.
std::wstring TextOfError(DWORD error) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                                            FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    const Owned<HLOCAL, LocalFree> owner(text);
    std::wstring words(text == nullptr ? L"" : text, length);
    words.erase(words.find_last_not_of(L" \r\n") + 1);
    return words.empty() ? DecimalText(error) : words;
}

/// What kept the printer from printing it all; ERROR_SUCCESS when nothing did.
DWORD PrintWith(const PrinterChoice& choice, CQlbPrint& print, const std::wstring& documentName,
                PrintingForm& waiting) {
    MemoryDc printer = choice.Open();
    if (!printer) {
        const DWORD error = GetLastError();
        if (!waiting.GoOn()) {
            return ERROR_PRINT_CANCELLED;
        }
        return error == ERROR_SUCCESS ? ERROR_GEN_FAILURE : error;
    }
    WindowsPrintDevice device(printer.release(), [&] { return waiting.GoOn(); });
    device.OutputTo(choice.Output());
    print.QlbPrintOut(device, documentName, choice.Job());
    return device.Error();
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
    DWORD error = ERROR_SUCCESS;
    PrintingForm waiting(owner, texts);
    waiting.PrintWhile([&] { error = PrintWith(*choice, print, title, waiting); });
    // The user may have given up in a dialog of the driver's too.
    if (error != ERROR_SUCCESS && error != ERROR_CANCELLED && error != ERROR_PRINT_CANCELLED) {
        owner.Ask(TextOfError(error), title, MB_OK | MB_ICONERROR);
    }
}
