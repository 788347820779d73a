#include "print/CQlbPrint.h"

#include "Fuzz.h"
#include "FuzzStore.h"
#include "fakes/FakePrintDevice.h"
#include "settings/Pattern.h"
#include "settings/StdModule.h"

#include <vector>

namespace {

constexpr int kPrintedButtons = 5;

PrintPage Sheet(FuzzInput& input) {
    // From a label of 40 mm to A3; a printer without a resolution too.
    const int width = 40 + input.Byte();
    const int height = 40 + 2 * input.Byte();
    const int dpi = 4 * input.Byte();
    const double edge = input.Byte() % 20;
    return FakePrintDevice::Sheet(width, height, dpi, dpi, {edge, edge, edge, edge});
}

void PutPattern(FuzzStore& settings, FuzzInput& input) {
    const std::wstring set = FuzzStore::Path(L"Setting\\Set1");
    const auto put = [&](const std::wstring& key, const std::wstring& name, std::string_view bytes) {
        settings.registry.PutRaw(RegistryHive::CurrentUser, key, name, kRegistryString, bytes);
    };
    put(set, L"SetName", input.Line());
    for (int button = 1; button <= kPrintedButtons; ++button) {
        const std::wstring key = set + L"\\AppKey" + std::to_wstring(button);
        settings.registry.PutDword(RegistryHive::CurrentUser, key, L"NumAP", input.Byte() % 10 - 2);
        put(key, L"Execute", input.Line());
        put(key, L"DispTitle", input.Line());
        put(key, L"AP1", input.Line());
        put(key, L"AP2", input.Line());
    }
}

void CheckLines(const std::vector<PrintLine>& lines) {
    std::size_t ends = 0;
    for (const PrintLine& line : lines) {
        const bool isEnd = line == PrintLine{};
        ends += isEnd ? 1 : 0;
        Require(isEnd || (!line.label.empty() && line.value.starts_with(L"：")), "a line without its colon");
    }
    Require(ends == kPrintedButtons + 1U, "not one group of lines for each button");
    Require(lines.size() <= 2U + kPrintedButtons * (3U + kMaxPrograms), "too many lines");
}

/// Labels and values in their order, the title's apart.
std::wstring BodyText(const std::vector<PrintLine>& lines) {
    std::wstring text;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        text += lines[i].label + lines[i].value;
    }
    return text;
}

void CheckPage(const PlacedPage& page, const PrintPage& sheet) {
    int bottom = 0;
    for (const PrintRect& frame : page.frames) {
        Require(frame.top >= bottom && frame.bottom > frame.top, "frames that lie over each other");
        bottom = frame.bottom;
        Require(frame.left >= 0 && frame.right <= std::max(sheet.width, frame.left), "a frame off the sheet");
    }
    for (const PlacedText& text : page.texts) {
        Require(!text.text.empty(), "an empty text");
        Require(text.y >= 0, "a text above the sheet");
    }
}

void CheckLayout(const std::vector<PrintLine>& lines, const FakePrintDevice& device) {
    const std::vector<PlacedPage> pages = LayOutPages(lines, device);
    Require(!pages.empty(), "no page");
    std::wstring body;
    for (const PlacedPage& page : pages) {
        CheckPage(page, device.Page());
        const std::size_t numbers = pages.size() > 1 ? 1 : 0;
        Require(page.texts.size() > numbers, "a page of its number alone");
        for (std::size_t i = 0; i + numbers < page.texts.size(); ++i) {
            body += page.texts[i].font == PrintFont::Body ? page.texts[i].text : std::wstring();
        }
    }
    Require(body == BodyText(lines), "not every line once and in order");
}

void CheckPrinting(CQlbPrint& print, const PrintPage& sheet, int failingCall, const PrintJob& job) {
    FakePrintDevice device(sheet);
    device.failingCall = failingCall;
    const bool printed = print.QlbPrintOut(device, L"Fuzz", job);
    const bool failed = failingCall > 0 && device.failingCall == 0;
    Require(printed != failed, "a failure is not told, or told without one");
    const bool aborted = !device.Calls().empty() && device.Calls().back() == "Abort";
    Require(aborted == (failed && device.Calls().size() > 1), "a broken document is left in the printer");
    const FakePrintDevice again(sheet);
    const std::size_t pages = LayOutPages(print.Lines(), again).size();
    Require(device.Pages().size() <= pages * static_cast<std::size_t>(std::max(1, job.copies)),
            "more pages than there are");
}

} // namespace

/// Four bytes of the sheet, the failing call, the job, the code page; then the Pattern's name, and for each button
/// a byte of its number of programs and the lines of letter, name and two programs.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const PrintPage sheet = Sheet(input);
    const int failingCall = input.Byte() % 16;
    const PrintJob job{input.Byte() % 8 - 1, input.Byte() % 8 - 1, input.Byte() % 4};
    FuzzStore settings(FuzzStore::CodePage(input.Byte() % 2 != 0));
    PutPattern(settings, input);

    CQlbPrint print(settings.store);
    print.IniFileName(FuzzStore::kOwnFile);
    print.ReadPrintData();
    const std::vector<PrintLine> lines = print.Lines();
    CheckLines(lines);
    CheckLayout(lines, FakePrintDevice(sheet));
    CheckPrinting(print, sheet, failingCall, job);
    Require(print.Lines() == lines, "printing changes what is printed");
    return 0;
}
