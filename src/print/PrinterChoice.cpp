#include "print/PrinterChoice.h"

#include "platform/windows/SystemLibrary.h"

#include <cwchar>

namespace {

constexpr WORD kMostPages = 99;
constexpr DWORD kLongestPath = 32768;
/// Ports whose monitors ask for a file: the first is asked for here, the second one's driver asks for itself.
constexpr const wchar_t* kFilePort = L"FILE:";
constexpr const wchar_t* kPromptingPort = L"PORTPROMPT:";

/// The contents of movable memory for as long as this lives.
template <class Contents> class LockedMemory {
public:
    explicit LockedMemory(HGLOBAL memory)
        : memory_(memory),
          contents_(static_cast<const Contents*>(memory == nullptr ? nullptr : GlobalLock(memory))) {}
    ~LockedMemory() {
        if (contents_ != nullptr) {
            GlobalUnlock(memory_);
        }
    }
    LockedMemory(const LockedMemory&) = delete;
    LockedMemory& operator=(const LockedMemory&) = delete;

    [[nodiscard]] const Contents* Get() const { return contents_; }

private:
    HGLOBAL memory_;
    const Contents* contents_;
};

/// Empty when the user gives up.
std::wstring AskForFile(HWND owner) {
    using SaveDialog = BOOL WINAPI(OPENFILENAMEW*);
    static const auto kSaveDialog = SystemProcedure<SaveDialog>(L"comdlg32.dll", "GetSaveFileNameW");
    if (kSaveDialog == nullptr) {
        return {};
    }
    std::wstring path(kLongestPath, L'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = L"*.prn\0*.prn\0*.*\0*.*\0";
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = kLongestPath;
    dialog.lpstrDefExt = L"prn";
    dialog.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOREADONLYRETURN |
                   OFN_NOCHANGEDIR | OFN_EXPLORER;
    path.resize(kSaveDialog(&dialog) == FALSE ? 0 : std::wcslen(path.data()));
    return path;
}

} // namespace

std::optional<PrinterChoice> PrinterChoice::Ask(HWND owner) {
    using PrintDialog = BOOL WINAPI(PRINTDLGW*);
    static const auto kPrintDialog = SystemProcedure<PrintDialog>(L"comdlg32.dll", "PrintDlgW");
    if (kPrintDialog == nullptr) {
        return std::nullopt;
    }
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    // Copies are made here, since not every printer can.
    dialog.Flags = PD_NOSELECTION | PD_COLLATE;
    dialog.nMinPage = 1;
    dialog.nMaxPage = kMostPages;
    dialog.nFromPage = 1;
    dialog.nToPage = 1;
    dialog.nCopies = 1;
    const BOOL chosen = kPrintDialog(&dialog);
    PrinterChoice choice;
    choice.mode_.reset(dialog.hDevMode);
    choice.names_.reset(dialog.hDevNames);
    if (chosen == FALSE) {
        return std::nullopt;
    }
    choice.job_.copies = dialog.nCopies;
    choice.job_.collate = (dialog.Flags & PD_COLLATE) != 0;
    if ((dialog.Flags & PD_PAGENUMS) != 0) {
        choice.job_.firstPage = dialog.nFromPage;
        choice.job_.lastPage = dialog.nToPage;
    }
    if ((dialog.Flags & PD_PRINTTOFILE) != 0 || choice.NameAt(&DEVNAMES::wOutputOffset) == kFilePort) {
        choice.output_ = AskForFile(owner);
        if (choice.output_.empty()) {
            return std::nullopt;
        }
    }
    return choice;
}

std::wstring PrinterChoice::NameAt(WORD DEVNAMES::*offset) const {
    const LockedMemory<DEVNAMES> names(names_.get());
    if (names.Get() == nullptr) {
        return {};
    }
    // Offsets are in characters.
    const void* start = names.Get();
    return static_cast<const wchar_t*>(start) + names.Get()->*offset;
}

MemoryDc PrinterChoice::Open() const {
    const LockedMemory<DEVMODEW> mode(mode_.get());
    return MemoryDc(CreateDCW(NameAt(&DEVNAMES::wDriverOffset).c_str(),
                              NameAt(&DEVNAMES::wDeviceOffset).c_str(), nullptr, mode.Get()));
}

bool PrinterChoice::AsksForFile() const {
    return output_.empty() && NameAt(&DEVNAMES::wOutputOffset) == kPromptingPort;
}
