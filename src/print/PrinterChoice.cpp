#include "print/PrinterChoice.h"

#include "platform/windows/SystemLibrary.h"

#include <cwchar>
#include <string_view>

namespace {

constexpr WORD kMostPages = 99;
constexpr WORD kCopiesAtFirst = 1;
constexpr DWORD kLongestPath = 32768;
/// Ports that are a file of the user's choice. It is asked for here: not every system asks by itself.
constexpr std::wstring_view kFilePort = L"FILE:";
constexpr std::wstring_view kPromptingPort = L"PORTPROMPT:";

/// The contents of movable memory for as long as this lives.
template <class Contents> class LockedMemory {
public:
    explicit LockedMemory(HGLOBAL memory)
        : memory_(memory),
          contents_(static_cast<Contents*>(memory == nullptr ? nullptr : GlobalLock(memory))) {}
    ~LockedMemory() {
        if (contents_ != nullptr) {
            GlobalUnlock(memory_);
        }
    }
    LockedMemory(const LockedMemory&) = delete;
    LockedMemory& operator=(const LockedMemory&) = delete;

    [[nodiscard]] Contents* Get() const { return contents_; }

private:
    HGLOBAL memory_;
    Contents* contents_;
};

/// What a printer writes into a file.
struct FileKind {
    const wchar_t* filter;
    const wchar_t* extension;
};

FileKind FileKindOf(const std::wstring& port, const std::wstring& device) {
    if (port == kPromptingPort && device.find(L"PDF") != std::wstring::npos) {
        return {L"*.pdf\0*.pdf\0", L"pdf"};
    }
    if (port == kPromptingPort) {
        return {L"*.oxps\0*.oxps\0*.xps\0*.xps\0", L"oxps"};
    }
    return {L"*.prn\0*.prn\0*.*\0*.*\0", L"prn"};
}

/// Empty when the user gives up.
std::wstring AskForFile(HWND owner, const FileKind& kind) {
    static const auto kSaveDialog =
        SystemProcedure<decltype(GetSaveFileNameW)>(L"comdlg32.dll", "GetSaveFileNameW");
    if (kSaveDialog == nullptr) {
        return {};
    }
    std::wstring path(kLongestPath, L'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = kind.filter;
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = kLongestPath;
    dialog.lpstrDefExt = kind.extension;
    dialog.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOREADONLYRETURN |
                   OFN_NOCHANGEDIR | OFN_EXPLORER;
    path.resize(kSaveDialog(&dialog) == FALSE ? 0 : std::wcslen(path.data()));
    return path;
}

} // namespace

BOOL ShowPrintDialog(PRINTDLGW& dialog) {
    static const auto kPrintDialog = SystemProcedure<decltype(PrintDlgW)>(L"comdlg32.dll", "PrintDlgW");
    return kPrintDialog == nullptr ? FALSE : kPrintDialog(&dialog);
}

std::optional<PrinterChoice> PrinterChoice::Ask(HWND owner, const PrintDialog& show) {
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    // Without PD_USEDEVMODECOPIES a user can have copies of every printer.
    dialog.Flags = PD_NOSELECTION | PD_COLLATE;
    dialog.nMinPage = 1;
    dialog.nMaxPage = kMostPages;
    dialog.nFromPage = 1;
    dialog.nToPage = 1;
    dialog.nCopies = kCopiesAtFirst;
    const BOOL chosen = show(dialog);
    PrinterChoice choice;
    choice.mode_.reset(dialog.hDevMode);
    choice.names_.reset(dialog.hDevNames);
    if (chosen == FALSE) {
        return std::nullopt;
    }
    if ((dialog.Flags & PD_PAGENUMS) != 0) {
        choice.job_.firstPage = dialog.nFromPage;
        choice.job_.lastPage = dialog.nToPage;
    }
    choice.SettleCopies(dialog);
    const std::wstring port = choice.NameAt(&DEVNAMES::wOutputOffset);
    if ((dialog.Flags & PD_PRINTTOFILE) != 0 || port == kFilePort || port == kPromptingPort) {
        choice.output_ = AskForFile(owner, FileKindOf(port, choice.NameAt(&DEVNAMES::wDeviceOffset)));
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
    const void* const start = names.Get();
    return static_cast<const wchar_t*>(start) + names.Get()->*offset;
}

void PrinterChoice::SettleCopies(const PRINTDLGW& dialog) {
    static const auto kCapabilities =
        SystemProcedure<decltype(DeviceCapabilitiesW)>(L"winspool.drv", "DeviceCapabilitiesW");
    job_.copies = dialog.nCopies;
    job_.collate = (dialog.Flags & PD_COLLATE) != 0;
    const LockedMemory<DEVMODEW> memory(mode_.get());
    DEVMODEW* const mode = memory.Get();
    if (mode == nullptr) {
        return;
    }
    // Some dialogs leave both in the driver's structure alone, and their own as it came.
    if (job_.copies == kCopiesAtFirst && (mode->dmFields & DM_COPIES) != 0 && mode->dmCopies > 1) {
        job_.copies = mode->dmCopies;
        job_.collate = (mode->dmFields & DM_COLLATE) != 0 && mode->dmCollate == DMCOLLATE_TRUE;
    }
    const std::wstring device = NameAt(&DEVNAMES::wDeviceOffset);
    const std::wstring port = NameAt(&DEVNAMES::wOutputOffset);
    const auto can = [&](WORD what, int atLeast) {
        return kCapabilities != nullptr &&
               kCapabilities(device.c_str(), port.c_str(), what, nullptr, mode) >= atLeast;
    };
    const bool byDriver =
        job_.copies > 1 && can(DC_COPIES, job_.copies) && (!job_.collate || can(DC_COLLATE, 1));
    mode->dmFields |= DM_COPIES | DM_COLLATE;
    mode->dmCopies = static_cast<short>(byDriver ? job_.copies : 1);
    mode->dmCollate = byDriver && job_.collate ? DMCOLLATE_TRUE : DMCOLLATE_FALSE;
    if (byDriver) {
        job_.copies = 1;
    }
}

MemoryDc PrinterChoice::Open() const {
    MemoryDc printer;
    DWORD error = ERROR_SUCCESS;
    {
        const LockedMemory<DEVMODEW> mode(mode_.get());
        printer.reset(CreateDCW(NameAt(&DEVNAMES::wDriverOffset).c_str(),
                                NameAt(&DEVNAMES::wDeviceOffset).c_str(), nullptr, mode.Get()));
        error = GetLastError();
    }
    SetLastError(error); // unlocking had its own say
    return printer;
}
