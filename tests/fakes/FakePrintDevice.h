#pragma once

#include "platform/PrintDevice.h"

#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

/// A printer in memory. Its font is as simple as can be: a Japanese character is as wide as it is high, an ASCII
/// one half as wide. Everything printed is remembered, and any call that has an answer can be made to fail.
class FakePrintDevice final : public PrintDevice {
public:
    struct PrintedText {
        int x = 0;
        int y = 0;
        std::wstring text;
        PrintFont font = PrintFont::Body;

        bool operator==(const PrintedText&) const = default;
    };

    struct PrintedPage {
        std::vector<PrintedText> texts;
        std::vector<PrintRect> frames;

        bool operator==(const PrintedPage&) const = default;
    };

    /// Millimetres at each edge of the sheet that the printer can't print on.
    struct Edges {
        double left = 0;
        double top = 0;
        double right = 0;
        double bottom = 0;
    };

    static constexpr double kMillimetresPerInch = 25.4;

    int failingCall = 0; ///< the N-th call with an answer (1: the next) fails; 0: none

    FakePrintDevice() : FakePrintDevice(Sheet(210, 297, 300, 300, {4.2, 4.2, 4.2, 4.2})) {}
    explicit FakePrintDevice(const PrintPage& page) : page_(page) {}

    [[nodiscard]] static PrintPage Sheet(double widthMm, double heightMm, int dpiX, int dpiY,
                                         const Edges& edges) {
        const auto x = [dpiX](double mm) {
            return static_cast<int>(std::lround(mm * dpiX / kMillimetresPerInch));
        };
        const auto y = [dpiY](double mm) {
            return static_cast<int>(std::lround(mm * dpiY / kMillimetresPerInch));
        };
        PrintPage page;
        page.dpiX = dpiX;
        page.dpiY = dpiY;
        page.paperWidth = x(widthMm);
        page.paperHeight = y(heightMm);
        page.offsetX = x(edges.left);
        page.offsetY = y(edges.top);
        page.width = page.paperWidth - page.offsetX - x(edges.right);
        page.height = page.paperHeight - page.offsetY - y(edges.bottom);
        return page;
    }

    [[nodiscard]] PrintPage Page() const override { return page_; }

    [[nodiscard]] PrintExtent Extent(const std::wstring& text, PrintFont font) const override {
        int cells = 0;
        for (const wchar_t c : text) {
            cells += CellsOf(static_cast<char32_t>(c));
        }
        return {cells * PixelsOf(font, page_.dpiX) / 2, PixelsOf(font, page_.dpiY)};
    }

    [[nodiscard]] bool StartDocument(const std::wstring& name) override {
        documents_.push_back(name);
        return Answer("StartDocument");
    }
    [[nodiscard]] bool StartPage() override {
        const bool started = Answer("StartPage");
        if (started) {
            pages_.emplace_back();
            onPage_ = true;
        }
        return started;
    }
    [[nodiscard]] bool EndPage() override {
        onPage_ = false;
        return Answer("EndPage");
    }
    [[nodiscard]] bool EndDocument() override { return Answer("EndDocument"); }
    void Abort() override { calls_.emplace_back("Abort"); }

    void Text(int x, int y, const std::wstring& text, PrintFont font) override {
        CurrentPage().texts.push_back({x, y, text, font});
    }
    void Frame(const PrintRect& frame) override { CurrentPage().frames.push_back(frame); }

    /// All but texts and frames, in order.
    [[nodiscard]] const std::vector<std::string>& Calls() const { return calls_; }
    /// Names of the documents begun.
    [[nodiscard]] const std::vector<std::wstring>& Documents() const { return documents_; }
    /// Pages begun, with copies.
    [[nodiscard]] const std::vector<PrintedPage>& Pages() const { return pages_; }

private:
    static int PixelsOf(PrintFont font, int dpi) {
        constexpr int kPointsPerInch = 72;
        constexpr int kBodyPoints = 10;
        constexpr int kTitlePoints = 12;
        const int points = font == PrintFont::Title ? kTitlePoints : kBodyPoints;
        return (points * dpi + kPointsPerInch / 2) / kPointsPerInch;
    }

    /// Half the width of a Japanese character is one cell.
    static int CellsOf(char32_t c) {
        constexpr char32_t kFirstBeyondAscii = 0x80;
        const bool halfWidthKatakana = c >= 0xFF61 && c <= 0xFF9F;
        const bool secondOfPair = c >= 0xDC00 && c <= 0xDFFF;
        if (secondOfPair) {
            return 0;
        }
        return c < kFirstBeyondAscii || halfWidthKatakana ? 1 : 2;
    }

    bool Answer(const char* call) {
        calls_.emplace_back(call);
        return failingCall <= 0 || --failingCall != 0;
    }

    PrintedPage& CurrentPage() {
        if (!onPage_) {
            throw std::logic_error("drawn on no page");
        }
        return pages_.back();
    }

    PrintPage page_;
    bool onPage_ = false;
    std::vector<std::string> calls_;
    std::vector<std::wstring> documents_;
    std::vector<PrintedPage> pages_;
};
