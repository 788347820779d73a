#pragma once

#include "platform/windows/Handles.h"
#include "print/CQlbPrint.h"

#include <windows.h>

#include <commdlg.h>

#include <optional>
#include <string>

/// What the common dialogs hand out.
using GlobalMemory = Owned<HGLOBAL, GlobalFree>;

/// A printer as chosen in the system's dialog, not yet opened.
class PrinterChoice {
public:
    /// Shows the system's dialog, and asks for a file where one is to be printed to. Nothing when the user
    /// cancels, or when there is no printer, which the system then says.
    [[nodiscard]] static std::optional<PrinterChoice> Ask(HWND owner);

    /// CreateDC; may take long for a printer of another computer. Null on failure, with GetLastError.
    [[nodiscard]] MemoryDc Open() const;

    [[nodiscard]] const PrintJob& Job() const { return job_; }
    /// File or port that the printout goes to; empty: the printer's own.
    [[nodiscard]] const std::wstring& Output() const { return output_; }

private:
    PrinterChoice() = default;
    /// The driver makes the copies where it can: it knows of duplex and staples.
    void LeaveCopiesToDriver();
    /// DEVNAMES: driver, device or port.
    [[nodiscard]] std::wstring NameAt(WORD DEVNAMES::*offset) const;

    GlobalMemory mode_;
    GlobalMemory names_;
    PrintJob job_;
    std::wstring output_;
};
