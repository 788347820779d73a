#include "print/PrintCommand.h"

#include "app/StringTable.h"
#include "platform/windows/Com.h"
#include "platform/windows/WindowsPrintDevice.h"
#include "print/CQlbPrint.h"
#include "print/PrinterChoice.h"
#include "print/PrintingForm.h"
#include "settings/GlobalValue.h"
#include "settings/StdModule.h"
#include "ui/Form.h"

#include <functional>
#include <memory>
#include <new>
#include <utility>

namespace {

/// One printout, which its thread may still own when nobody waits for it any more.
class Printout {
public:
    Printout(PrinterChoice choice, std::function<bool(PrintDevice&)> draw, const PrintingForm& waiting)
        : choice_(std::move(choice)), draw_(std::move(draw)), givenUp_(waiting.GivenUp()) {}

    void Print() {
        try {
            PrintOnPrinter();
        } catch (const std::bad_alloc&) {
            error_ = ERROR_NOT_ENOUGH_MEMORY;
        }
    }

    [[nodiscard]] bool Printed() const { return printed_; }
    /// Worth a word: the user hasn't given up in a dialog of the driver's.
    [[nodiscard]] bool Failed() const {
        return !printed_ && error_ != ERROR_CANCELLED && error_ != ERROR_PRINT_CANCELLED;
    }
    [[nodiscard]] DWORD Error() const { return error_; }

private:
    void PrintOnPrinter() {
        const ComApartment com; // for drivers that show something of their own
        MemoryDc printer = choice_.Open();
        if (!printer) {
            error_ = GetLastError();
            return;
        }
        WindowsPrintDevice device(printer.release(), givenUp_);
        device.OutputTo(choice_.Output());
        printed_ = draw_(device);
        error_ = device.Error();
    }

    PrinterChoice choice_;
    std::function<bool(PrintDevice&)> draw_;
    std::shared_ptr<const std::atomic<bool>> givenUp_;
    bool printed_ = false;
    DWORD error_ = ERROR_NOT_ENOUGH_MEMORY; ///< until the thread runs
};

struct LocalMemoryDeleter {
    using pointer = HLOCAL;
    void operator()(HLOCAL memory) const { LocalFree(memory); }
};

/// In the system's words.
std::wstring TextOfError(DWORD error) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                                            FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    const std::unique_ptr<void, LocalMemoryDeleter> owner(text);
    std::wstring words(text == nullptr ? L"" : text, length);
    words.erase(words.find_last_not_of(L" \r\n") + 1);
    return words.empty() ? DecimalText(error) : words;
}

/// False when nothing was printed.
bool PrintOn(Form& owner, const StringTable& texts, PrinterChoice choice,
             std::function<bool(PrintDevice&)> draw) {
    PrintingForm waiting(owner.Window(), texts);
    const auto printout = std::make_shared<Printout>(std::move(choice), std::move(draw), waiting);
    const bool ended = waiting.Run([printout] { printout->Print(); });
    if (*waiting.GivenUp()) {
        return ended && printout->Printed();
    }
    if (printout->Failed()) {
        const DWORD error = printout->Error();
        MessageBoxW(owner.Window(), TextOfError(error == ERROR_SUCCESS ? ERROR_GEN_FAILURE : error).c_str(),
                    texts.ResText(kTextTitle).c_str(), MB_OK | MB_ICONERROR);
    }
    return printout->Printed();
}

} // namespace

void PrintPattern(Form& owner, const RegIniFunc& store, const StringTable& texts,
                  const std::wstring& iniFile) {
    owner.WhileAsking([&] {
        auto choice = PrinterChoice::Ask(owner.Window());
        if (!choice) {
            return false;
        }
        CQlbPrint print(store);
        print.IniFileName(iniFile);
        const PrintJob job = choice->Job();
        return print.QlbPrintOut(
            [&](std::function<bool(PrintDevice&)> draw) {
                return PrintOn(owner, texts, std::move(*choice), std::move(draw));
            },
            texts.ResText(kTextTitle), job);
    });
}
