#pragma once

#include "platform/windows/Handles.h"
#include "print/CQlbPrint.h"

#include <windows.h>

#include <commdlg.h>

#include <functional>
#include <optional>
#include <string>

/// What the common dialogs hand out.
using GlobalMemory = Owned<HGLOBAL, GlobalFree>;

/// PrintDlg.
using PrintDialog = std::function<BOOL(PRINTDLGW&)>;
/// The system's. FALSE also when the system has none.
[[nodiscard]] BOOL ShowPrintDialog(PRINTDLGW& dialog);

/// A printer as chosen in the system's dialog, not yet opened.
class PrinterChoice {
public:
    /// Shows the dialog, and asks for a file where one is to be printed to. Nothing when the user cancels, or
    /// when there is no printer, which the system then says.
    [[nodiscard]] static std::optional<PrinterChoice> Ask(HWND owner, const PrintDialog& show);

    /// CreateDC; may take long for a printer of another computer. Null on failure, with GetLastError.
    [[nodiscard]] MemoryDc Open() const;

    [[nodiscard]] const PrintJob& Job() const { return job_; }
    /// File or port that the printout goes to; empty: the printer's own.
    [[nodiscard]] const std::wstring& Output() const { return output_; }

private:
    PrinterChoice() = default;
    /// How many copies of what kind there are to be, and who makes them: the driver where it can, as it knows of
    /// duplex and staples; else this program, and the driver none besides.
    void SettleCopies(const PRINTDLGW& dialog);
    /// DEVNAMES: driver, device or port.
    [[nodiscard]] std::wstring NameAt(WORD DEVNAMES::*offset) const;

    GlobalMemory mode_;
    GlobalMemory names_;
    PrintJob job_;
    std::wstring output_;
};
