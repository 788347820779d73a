#include "print/CQlbPrint.h"

#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

#include <algorithm>

namespace {

constexpr int kPrintedButtons = 5;
constexpr const wchar_t* kColon = L"：";

std::wstring FullWidth(int number) {
    std::wstring digits = DecimalText(number);
    for (wchar_t& digit : digits) {
        digit = static_cast<wchar_t>(L'０' + (digit - L'0'));
    }
    return digits;
}

std::wstring MethodLabel(const std::wstring& code) {
    switch (LaunchMethodFromText(code)) {
    case LaunchMethod::Single:
        return L"単独";
    case LaunchMethod::Sequential:
        return L"順次";
    case LaunchMethod::Simultaneous:
        return L"同時";
    case LaunchMethod::ShortcutKey:
        return L"ショートカット";
    case LaunchMethod::Unknown:
        break;
    }
    return {};
}

bool PrintPageOn(PrintDevice& device, const PlacedPage& page) {
    if (!device.StartPage()) {
        return false;
    }
    for (const PrintRect& frame : page.frames) {
        device.Frame(frame);
    }
    for (const PlacedText& text : page.texts) {
        device.Text(text.x, text.y, text.text, text.font);
    }
    return device.EndPage();
}

bool PrintPages(PrintDevice& device, const std::vector<PlacedPage>& pages, const PrintJob& job) {
    const int copies = std::max(1, job.copies);
    for (int round = 0; round < (job.collate ? copies : 1); ++round) {
        for (const PlacedPage& page : pages) {
            for (int again = 0; again < (job.collate ? 1 : copies); ++again) {
                if (!PrintPageOn(device, page)) {
                    return false;
                }
            }
        }
    }
    return true;
}

/// Without the pages that were not asked for.
std::vector<PlacedPage> ChosenPages(std::vector<PlacedPage> pages, const PrintJob& job) {
    const auto count = static_cast<int>(pages.size());
    const int last = job.lastPage == 0 ? count : std::clamp(job.lastPage, 0, count);
    const int first = std::clamp(job.firstPage, 1, last + 1);
    pages.erase(pages.begin() + last, pages.end());
    pages.erase(pages.begin(), pages.begin() + (first - 1));
    return pages;
}

} // namespace

void CQlbPrint::ReadPrintData() {
    const std::int32_t current = store_.IniGetInt(kProgramSection, L"CurrUser", 1, iniFileName_);
    const std::wstring section = PatternSection(current);
    const auto text = [&](const FieldMember& member, int button = 0, int program = 0) {
        return store_.IniGetString(section, FieldOf(member).IniKey(button, program), L"", iniFileName_);
    };
    Clear();
    SetPrintData({L"設定名　　　", kColon + text(&Pattern::UserName)});
    SetPrintData({});
    for (int button = 1; button <= kPrintedButtons; ++button) {
        SetPrintData({L"ボタン" + FullWidth(button) + L"名称", kColon + text(&ButtonSlot::Name, button)});
        SetPrintData({L"実行形態　　", kColon + MethodLabel(text(&ButtonSlot::Exec, button))});
        const std::wstring count = FieldOf(&ButtonSlot::NumAP).IniKey(button);
        const std::int32_t programs =
            std::min(store_.IniGetInt(section, count, 0, iniFileName_), kMaxPrograms);
        for (int program = 1; program <= programs; ++program) {
            SetPrintData({L"起動ＡＰ" + FullWidth(program) + L"　",
                          kColon + text(&ProgramEntry::AP, button, program)});
        }
        SetPrintData({});
    }
}

bool CQlbPrint::QlbPrintOut(PrintDevice& device, const std::wstring& documentName, const PrintJob& job) {
    ReadPrintData();
    const std::vector<PlacedPage> pages = ChosenPages(LayOutPages(lines_, device), job);
    if (pages.empty()) {
        return true; // an empty sheet helps nobody
    }
    if (!device.StartDocument(documentName)) {
        return false;
    }
    if (PrintPages(device, pages, job) && device.EndDocument()) {
        return true;
    }
    device.Abort();
    return false;
}
