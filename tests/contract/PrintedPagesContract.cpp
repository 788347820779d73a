#include "platform/windows/Handles.h"
#include "platform/windows/WindowsPrintDevice.h"
#include "print/PrintLayout.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using testing::Gt;
using testing::SizeIs;

constexpr double kMillimetresPerInch = 25.4;

int Millimetres(double mm, int dpi) {
    return static_cast<int>(std::lround(mm * dpi / kMillimetresPerInch));
}

/// A whole sheet of paper as black and white pixels.
class Paper {
public:
    explicit Paper(const PrintPage& page)
        : width_(page.width), height_(page.height), rowBytes_((page.width + 31) / 32 * 4) {
        struct {
            BITMAPINFOHEADER header;
            RGBQUAD colours[2];
        } info{};
        info.header.biSize = sizeof info.header;
        info.header.biWidth = width_;
        info.header.biHeight = -height_;
        info.header.biPlanes = 1;
        info.header.biBitCount = 1;
        info.colours[1] = {0xFF, 0xFF, 0xFF, 0};
        void* bits = nullptr;
        bitmap_.reset(CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS,
                                       &bits, nullptr, 0));
        if (!bitmap_) {
            throw std::runtime_error("no bitmap of a whole sheet");
        }
        bits_ = static_cast<std::uint8_t*>(bits);
        std::fill_n(bits_, rowBytes_ * height_, std::uint8_t{0xFF});
    }

    /// A new device context that draws on the sheet, for its taker to delete.
    [[nodiscard]] HDC NewDc() const {
        const HDC hdc = CreateCompatibleDC(nullptr);
        SelectObject(hdc, bitmap_.get());
        return hdc;
    }

    [[nodiscard]] bool Black(int x, int y) const { return (At(x, y) >> (7 - x % 8) & 1) == 0; }
    /// Black pixels.
    [[nodiscard]] int Ink(const PrintRect& area) const {
        int ink = 0;
        for (int y = std::max(0, area.top); y < std::min(height_, area.bottom); ++y) {
            for (int x = std::max(0, area.left); x < std::min(width_, area.right); ++x) {
                ink += Black(x, y) ? 1 : 0;
            }
        }
        return ink;
    }
    [[nodiscard]] int Ink() const { return Ink({0, 0, width_, height_}); }
    void Erase(const PrintRect& area) {
        for (int y = std::max(0, area.top); y < std::min(height_, area.bottom); ++y) {
            for (int x = std::max(0, area.left); x < std::min(width_, area.right); ++x) {
                At(x, y) |= static_cast<std::uint8_t>(1 << (7 - x % 8));
            }
        }
    }

private:
    [[nodiscard]] std::uint8_t& At(int x, int y) const { return bits_[y * rowBytes_ + x / 8]; }

    int width_;
    int height_;
    int rowBytes_;
    Bitmap bitmap_;
    std::uint8_t* bits_ = nullptr;
};

/// A4 with a printer's usual edges.
PrintPage A4(int dpi, bool landscape = false) {
    constexpr double kEdge = 4.2;
    PrintPage page;
    page.paperWidth = Millimetres(landscape ? 297 : 210, dpi);
    page.paperHeight = Millimetres(landscape ? 210 : 297, dpi);
    page.offsetX = page.offsetY = Millimetres(kEdge, dpi);
    page.width = page.paperWidth - 2 * page.offsetX;
    page.height = page.paperHeight - 2 * page.offsetY;
    page.dpiX = page.dpiY = dpi;
    return page;
}

std::vector<PrintLine> LongLines() {
    std::wstring path = L"：C:\\Program Files\\Some Maker\\";
    while (path.size() < 1200) {
        path += L"An application\\長い名前のフォルダ\\";
    }
    std::vector<PrintLine> lines{{L"設定名　　　", L"：仕事 Work"}, {}};
    for (const wchar_t digit : std::wstring(L"１２３４５")) {
        lines.push_back({L"ボタン" + std::wstring(1, digit) + L"名称", L"：Mail"});
        lines.push_back({L"実行形態　　", L"：順次"});
        lines.push_back({L"起動ＡＰ１　", path});
        lines.push_back({L"起動ＡＰ２　", L"：" + std::wstring(700, L'x')});
        lines.emplace_back();
    }
    return lines;
}

/// One sheet as the program laid it out, and the pixels that the system made of it.
struct Sheet {
    explicit Sheet(const PlacedPage& placed, const PrintPage& page) : paper(page), frames(placed.frames) {
        WindowsPrintDevice device(
            paper.NewDc(), [] { return true; }, page);
        for (const PrintRect& frame : placed.frames) {
            device.Frame(frame);
        }
        for (const PlacedText& text : placed.texts) {
            const PrintExtent extent = device.Extent(text.text, text.font);
            device.Text(text.x, text.y, text.text, text.font);
            texts.push_back({text, {text.x, text.y, text.x + extent.width, text.y + extent.height}});
        }
        GdiFlush();
    }

    struct Text {
        PlacedText placed;
        PrintRect box;
    };

    Paper paper;
    std::vector<PrintRect> frames;
    std::vector<Text> texts;
};

/// The four bars of a frame.
std::vector<PrintRect> BarsOf(const PrintRect& frame, int thickness) {
    return {{frame.left, frame.top, frame.right, frame.top + thickness},
            {frame.left, frame.bottom - thickness, frame.right, frame.bottom},
            {frame.left, frame.top, frame.left + thickness, frame.bottom},
            {frame.right - thickness, frame.top, frame.right, frame.bottom}};
}

class PrintedPages : public testing::TestWithParam<int> {
protected:
    static std::vector<std::unique_ptr<Sheet>> Print(bool landscape = false) {
        const PrintPage page = A4(GetParam(), landscape);
        const WindowsPrintDevice device(
            CreateCompatibleDC(nullptr), [] { return true; }, page);
        std::vector<std::unique_ptr<Sheet>> sheets;
        for (const PlacedPage& placed : LayOutPages(LongLines(), device)) {
            sheets.push_back(std::make_unique<Sheet>(placed, page));
        }
        return sheets;
    }
    static int LineWidth() { return std::max(1, Millimetres(0.25, GetParam())); }
};

TEST_P(PrintedPages, HaveInkWhereTheLayoutPutItAndNowhereElse) {
    for (const bool landscape : {false, true}) {
        const auto sheets = Print(landscape);
        ASSERT_THAT(sheets, SizeIs(Gt(1U)));
        for (const auto& sheet : sheets) {
            for (const Sheet::Text& text : sheet->texts) {
                EXPECT_GT(sheet->paper.Ink(text.box), 0) << testing::PrintToString(text.placed.text);
                sheet->paper.Erase(text.box);
            }
            for (const PrintRect& frame : sheet->frames) {
                for (const PrintRect& bar : BarsOf(frame, LineWidth())) {
                    EXPECT_EQ(sheet->paper.Ink(bar), (bar.right - bar.left) * (bar.bottom - bar.top));
                }
            }
            for (const PrintRect& frame : sheet->frames) {
                for (const PrintRect& bar : BarsOf(frame, LineWidth())) {
                    sheet->paper.Erase(bar);
                }
            }
            EXPECT_EQ(sheet->paper.Ink(), 0);
        }
    }
}

TEST_P(PrintedPages, KeepTheirMargins) {
    for (const bool landscape : {false, true}) {
        const PrintPage page = A4(GetParam(), landscape);
        const int margin = Millimetres(15, GetParam());
        const int left = margin - page.offsetX;
        const int right = page.paperWidth - margin - page.offsetX;
        const int top = margin - page.offsetY;
        const int bottom = page.paperHeight - margin - page.offsetY;
        for (const auto& sheet : Print(landscape)) {
            EXPECT_EQ(sheet->paper.Ink({0, 0, left, page.height}), 0);
            EXPECT_EQ(sheet->paper.Ink({right, 0, page.width, page.height}), 0);
            EXPECT_EQ(sheet->paper.Ink({0, 0, page.width, top}), 0);
            EXPECT_EQ(sheet->paper.Ink({0, bottom, page.width, page.height}), 0);
        }
    }
}

TEST_P(PrintedPages, AlignTheirColumns) {
    std::set<int> labels;
    std::set<int> values;
    std::set<int> continued;
    for (const auto& sheet : Print()) {
        for (const Sheet::Text& text : sheet->texts) {
            const bool inFrame =
                std::any_of(sheet->frames.begin(), sheet->frames.end(), [&](const PrintRect& frame) {
                    return text.box.top >= frame.top && text.box.bottom <= frame.bottom;
                });
            if (!inFrame) {
                continue;
            }
            if (text.placed.text.starts_with(L"：")) {
                values.insert(text.box.left);
            } else if (text.placed.text.ends_with(L"　") || text.placed.text.ends_with(L"名称")) {
                labels.insert(text.box.left);
                // All labels end where the values begin.
                continued.insert(text.box.right);
            }
        }
    }
    EXPECT_THAT(labels, SizeIs(1));
    EXPECT_THAT(values, SizeIs(1));
    EXPECT_EQ(continued, values);
}

TEST_P(PrintedPages, WrapLongValuesInsideTheirFrame) {
    std::size_t rows = 0;
    for (const auto& sheet : Print()) {
        for (const Sheet::Text& text : sheet->texts) {
            for (const PrintRect& frame : sheet->frames) {
                if (text.box.top < frame.top || text.box.top >= frame.bottom) {
                    continue;
                }
                ++rows;
                EXPECT_GT(text.box.left, frame.left + LineWidth());
                EXPECT_LT(text.box.right, frame.right - LineWidth());
                EXPECT_LT(text.box.bottom, frame.bottom - LineWidth());
            }
        }
    }
    EXPECT_GT(rows, 5U * 4U * 3U);
}

TEST_P(PrintedPages, AreAsLargeOnPaperAtEveryResolution) {
    const auto sheets = Print();
    const Sheet& first = *sheets.front();
    const double mm = kMillimetresPerInch / GetParam();
    const auto heightOf = [mm](const Sheet::Text& text) { return (text.box.bottom - text.box.top) * mm; };
    // 12 and 10 points; a font's cell may be a little higher.
    EXPECT_NEAR(heightOf(first.texts.back()), 10 * kMillimetresPerInch / 72, 0.8);
    EXPECT_NEAR(heightOf(first.texts.front()) / heightOf(first.texts.back()), 1.2, 0.1);
    EXPECT_NEAR((first.frames.front().right - first.frames.front().left) * mm, 180, 0.5);
}

INSTANTIATE_TEST_SUITE_P(Resolutions, PrintedPages, testing::Values(96, 300, 600),
                         [](const auto& dpi) { return "At" + std::to_string(dpi.param) + "Dpi"; });

} // namespace
