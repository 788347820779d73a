// Printing a Pattern of five full buttons on a bitmap of the size of an A4 sheet at 300 dpi, beside the bare calls
// that draw the same:
//
//   PrintBench.exe [/rounds:N]

#include "common/Comparison.h"
#include "common/FullPattern.h"
#include "common/ScratchKey.h"
#include "common/Statistics.h"
#include "platform/windows/Com.h"
#include "platform/windows/Handles.h"
#include "platform/windows/WindowsPlatform.h"
#include "platform/windows/WindowsPrintDevice.h"
#include "print/CQlbPrint.h"
#include "settings/PatternStore.h"
#include "settings/RegIniFunc.h"

#include <cstdio>
#include <optional>
#include <string_view>
#include <vector>

namespace {

constexpr const wchar_t* kIniFile = L"korvoqlb.ini";
constexpr int kButtons = 7;
constexpr PrintPage kSheet{2360, 3390, 2480, 3508, 60, 59, 300, 300};

/// A sheet of paper; each of its device contexts belongs to the caller.
class Sheet {
public:
    Sheet() {
        const MemoryDc screen(CreateCompatibleDC(nullptr));
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = kSheet.width;
        info.bmiHeader.biHeight = -kSheet.height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_.reset(CreateDIBSection(screen.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    }
    [[nodiscard]] HDC Dc() const {
        const HDC hdc = CreateCompatibleDC(nullptr);
        SelectObject(hdc, bitmap_.get());
        return hdc;
    }

private:
    Bitmap bitmap_;
};

/// Draws as the printer would, where no document can be started.
class SheetDevice final : public PrintDevice {
public:
    explicit SheetDevice(HDC hdc)
        : real_(
              hdc, [] { return true; }, kSheet) {}

    [[nodiscard]] PrintPage Page() const override { return real_.Page(); }
    [[nodiscard]] PrintExtent Extent(const std::wstring& text, PrintFont font) const override {
        return real_.Extent(text, font);
    }
    [[nodiscard]] bool StartDocument(const std::wstring& /*name*/) override { return true; }
    [[nodiscard]] bool StartPage() override { return true; }
    [[nodiscard]] bool EndPage() override { return true; }
    [[nodiscard]] bool EndDocument() override { return true; }
    void Abort() override {}
    void Text(int x, int y, const std::wstring& text, PrintFont font) override {
        real_.Text(x, y, text, font);
    }
    void Frame(const PrintRect& frame) override { real_.Frame(frame); }

private:
    WindowsPrintDevice real_;
};

/// The drawing as nothing but calls.
class BareDrawing {
public:
    BareDrawing(const std::vector<PlacedPage>& pages, const Sheet& sheet) : pages_(pages) {
        const WindowsPrintDevice device(
            sheet.Dc(), [] { return true; }, kSheet);
        face_ = device.FaceName();
    }

    void Draw(HDC hdc) const {
        const Font body = FontOf(10);
        const Font title = FontOf(12);
        const HGDIOBJ before = SelectObject(hdc, body.get());
        SetBkMode(hdc, TRANSPARENT);
        const auto brush = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
        constexpr int kThick = 3;
        for (const PlacedPage& page : pages_) {
            for (const PrintRect& frame : page.frames) {
                const RECT bars[] = {{frame.left, frame.top, frame.right, frame.top + kThick},
                                     {frame.left, frame.bottom - kThick, frame.right, frame.bottom},
                                     {frame.left, frame.top, frame.left + kThick, frame.bottom},
                                     {frame.right - kThick, frame.top, frame.right, frame.bottom}};
                for (const RECT& bar : bars) {
                    FillRect(hdc, &bar, brush);
                }
            }
            for (const PlacedText& text : page.texts) {
                SelectObject(hdc, text.font == PrintFont::Title ? title.get() : body.get());
                TextOutW(hdc, text.x, text.y, text.text.data(), static_cast<int>(text.text.size()));
            }
        }
        SelectObject(hdc, before);
    }

private:
    [[nodiscard]] Font FontOf(int points) const {
        LOGFONTW font{};
        font.lfHeight = -MulDiv(points, kSheet.dpiY, 72);
        font.lfCharSet = SHIFTJIS_CHARSET;
        font.lfOutPrecision = OUT_TT_ONLY_PRECIS;
        face_.copy(font.lfFaceName, LF_FACESIZE - 1);
        return Font(CreateFontIndirectW(&font));
    }

    const std::vector<PlacedPage>& pages_;
    std::wstring face_;
};

template <class Work> std::optional<double> TimeOf(Work work) {
    const double start = NowMilliseconds();
    const bool done = work();
    const double taken = NowMilliseconds() - start;
    return done ? std::optional(taken) : std::nullopt;
}

void Measure(Comparison& table, const Sheet& sheet, const RegIniFunc& store) {
    CQlbPrint printed(store);
    printed.IniFileName(kIniFile);
    printed.ReadPrintData();
    const SheetDevice measuring(sheet.Dc());
    const std::vector<PlacedPage> pages = LayOutPages(printed.Lines(), measuring);
    const BareDrawing bare(pages, sheet);
    const auto floor = [&] {
        return TimeOf([&] {
            const MemoryDc hdc(sheet.Dc());
            bare.Draw(hdc.get());
            return true;
        });
    };
    table.Row("print 5 full buttons", 0, floor, [&] {
        return TimeOf([&] {
            CQlbPrint print(store);
            print.IniFileName(kIniFile);
            SheetDevice device(sheet.Dc());
            return print.QlbPrintOut(device, L"Bench");
        });
    });
    table.Row("  laying out and drawing alone", 0, floor, [&] {
        SheetDevice device(sheet.Dc());
        return TimeOf([&] {
            const std::vector<PlacedPage> placed = LayOutPages(printed.Lines(), device);
            for (const PlacedPage& page : placed) {
                for (const PrintRect& frame : page.frames) {
                    device.Frame(frame);
                }
                for (const PlacedText& text : page.texts) {
                    device.Text(text.x, text.y, text.text, text.font);
                }
            }
            return placed.size() == pages.size();
        });
    });
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    const ScratchUserKey scratch;
    const ComApartment com;
    WindowsPlatform system(kProductKey);
    const Platform platform = system.Interfaces();
    RegIniFunc store(platform.registry, platform.profileFiles, platform.ansiText, kIniFile);
    Pattern pattern = FullPattern(1);
    PatternStore(store, kButtons).SavePattern(1, pattern);

    Comparison table(RoundsFrom(count, arguments, 20));
    Measure(table, Sheet(), store);
    return table.Finish();
}
