#pragma once

#include "platform/PrintDevice.h"
#include "print/PrintLayout.h"

#include <string>
#include <vector>

class RegIniFunc;

/// What the user chose in the print dialog.
struct PrintJob {
    int firstPage = 1; ///< 1-based
    int lastPage = 0;  ///< 0: to the end
    int copies = 1;
    bool collate = true; ///< copy by copy, not page by page
};

/// Prints the current Pattern as it is stored. The labels are Japanese in every interface language.
class CQlbPrint {
public:
    explicit CQlbPrint(const RegIniFunc& store) : store_(store) {}

    /// The ini file to read; "korvoqlb.ini" at first.
    void IniFileName(const std::wstring& file) { iniFileName_ = file; }

    /// Reads the settings and makes the lines of them.
    void ReadPrintData();
    /// Appends one line.
    void SetPrintData(const PrintLine& line) { lines_.push_back(line); }
    void Clear() { lines_.clear(); }
    [[nodiscard]] const std::vector<PrintLine>& Lines() const { return lines_; }

    /// Reads, makes the lines and prints them. False when the printer failed or the user gave up; then
    /// no more comes out.
    bool QlbPrintOut(PrintDevice& device, const std::wstring& documentName, const PrintJob& job = {});

private:
    const RegIniFunc& store_;
    std::wstring iniFileName_ = L"korvoqlb.ini";
    std::vector<PrintLine> lines_;
};
