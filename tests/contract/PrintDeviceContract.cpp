#include "Rigs.h"
#include "fakes/FakePrintDevice.h"
#include "platform/windows/WindowsPrintDevice.h"

#include <windows.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

using testing::Gt;

constexpr int kWidth = 600;
constexpr int kHeight = 400;
constexpr COLORREF kPaper = RGB(255, 255, 255);
constexpr COLORREF kInk = RGB(0, 0, 0);
const std::wstring kJapanese = L"設定名：ボタン１";

/// A sheet of white pixels.
class Canvas {
public:
    Canvas() : hdc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = kWidth;
        info.bmiHeader.biHeight = -kHeight;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_.reset(CreateDIBSection(hdc_.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        previous_ = SelectObject(hdc_.get(), bitmap_.get());
        PatBlt(hdc_.get(), 0, 0, kWidth, kHeight, WHITENESS);
    }
    ~Canvas() { SelectObject(hdc_.get(), previous_); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    [[nodiscard]] HDC Dc() const { return hdc_.get(); }
    [[nodiscard]] COLORREF At(int x, int y) const { return GetPixel(hdc_.get(), x, y); }

    /// The bounds of all that is not white; empty when there is none.
    [[nodiscard]] PrintRect Inked() const {
        PrintRect inked{kWidth, kHeight, 0, 0};
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (At(x, y) != kPaper) {
                    inked = {std::min(inked.left, x), std::min(inked.top, y), std::max(inked.right, x + 1),
                             std::max(inked.bottom, y + 1)};
                }
            }
        }
        return inked.right == 0 ? PrintRect{} : inked;
    }

private:
    MemoryDc hdc_;
    Bitmap bitmap_;
    HGDIOBJ previous_ = nullptr;
};

struct MetafileDeleter {
    using pointer = HENHMETAFILE;
    void operator()(HENHMETAFILE metafile) const { DeleteEnhMetaFile(metafile); }
};

/// The device owns its context, so what it drew is copied from there.
class OnBitmap {
public:
    static constexpr const char* kName = "Bitmap";

    template <class Draw> static void DrawOn(Canvas& canvas, const Draw& draw) {
        const HDC own = CreateCompatibleDC(nullptr);
        const Bitmap bitmap(CreateCompatibleBitmap(canvas.Dc(), kWidth, kHeight));
        const HGDIOBJ stock = SelectObject(own, bitmap.get());
        PatBlt(own, 0, 0, kWidth, kHeight, WHITENESS);
        WindowsPrintDevice device(own);
        draw(device);
        GdiFlush();
        BitBlt(canvas.Dc(), 0, 0, kWidth, kHeight, own, 0, 0, SRCCOPY);
        SelectObject(own, stock);
    }
};

/// The metafile is played one to one.
class OnMetafile {
public:
    static constexpr const char* kName = "Metafile";

    template <class Draw> static void DrawOn(Canvas& canvas, const Draw& draw) {
        const HDC recording = CreateEnhMetaFileW(canvas.Dc(), nullptr, nullptr, nullptr);
        std::unique_ptr<void, MetafileDeleter> metafile;
        {
            WindowsPrintDevice device(recording);
            draw(device);
            // Ends the context too; that the device then can't is no harm as no other one was made meanwhile.
            metafile.reset(CloseEnhMetaFile(recording));
        }
        ASSERT_NE(metafile.get(), nullptr);
        ENHMETAHEADER header{};
        ASSERT_NE(GetEnhMetaFileHeader(metafile.get(), sizeof header, &header), 0U);
        // One to one: the frame is in hundredths of a millimetre, the bounds in pixels.
        const RECT frame{MulDiv(static_cast<int>(header.rclFrame.left), header.szlDevice.cx,
                                header.szlMillimeters.cx * 100),
                         MulDiv(static_cast<int>(header.rclFrame.top), header.szlDevice.cy,
                                header.szlMillimeters.cy * 100),
                         MulDiv(static_cast<int>(header.rclFrame.right), header.szlDevice.cx,
                                header.szlMillimeters.cx * 100),
                         MulDiv(static_cast<int>(header.rclFrame.bottom), header.szlDevice.cy,
                                header.szlMillimeters.cy * 100)};
        ASSERT_TRUE(PlayEnhMetaFile(canvas.Dc(), metafile.get(), &frame));
    }
};

template <class Rig> class PrintDeviceDrawing : public testing::Test {
protected:
    Canvas canvas_;
};

using Drawings = testing::Types<OnBitmap, OnMetafile>;
TYPED_TEST_SUITE(PrintDeviceDrawing, Drawings, RigName);

/// How far a pixel may lie elsewhere: a metafile's coordinates are rounded.
constexpr int kRounding = 2;

TYPED_TEST(PrintDeviceDrawing, ATextIsDrawnInBlackFromItsTopLeftOn) {
    PrintExtent extent;
    TypeParam::DrawOn(this->canvas_, [&](WindowsPrintDevice& device) {
        extent = device.Extent(kJapanese, PrintFont::Body);
        device.Text(50, 60, kJapanese, PrintFont::Body);
    });
    const PrintRect inked = this->canvas_.Inked();
    EXPECT_GE(inked.left, 50 - kRounding);
    EXPECT_GE(inked.top, 60 - kRounding);
    EXPECT_LE(inked.right, 50 + extent.width + kRounding);
    EXPECT_LE(inked.bottom, 60 + extent.height + kRounding);
    // The glyphs fill most of the extent.
    EXPECT_GT(inked.right - inked.left, extent.width * 3 / 4);
    EXPECT_GT(inked.bottom - inked.top, extent.height / 2);
}

TYPED_TEST(PrintDeviceDrawing, TheTitlesFontIsLarger) {
    PrintExtent body;
    PrintExtent title;
    TypeParam::DrawOn(this->canvas_, [&](WindowsPrintDevice& device) {
        body = device.Extent(kJapanese, PrintFont::Body);
        title = device.Extent(kJapanese, PrintFont::Title);
        device.Text(10, 10, kJapanese, PrintFont::Title);
    });
    EXPECT_NEAR(title.width, body.width * 1.2, body.width * 0.15);
    EXPECT_GT(title.height, body.height);
    EXPECT_GT(this->canvas_.Inked().right - this->canvas_.Inked().left, title.width * 3 / 4);
}

TYPED_TEST(PrintDeviceDrawing, AFrameIsAnOutlineInBlack) {
    TypeParam::DrawOn(this->canvas_, [](WindowsPrintDevice& device) { device.Frame({100, 50, 300, 200}); });
    const PrintRect inked = this->canvas_.Inked();
    EXPECT_NEAR(inked.left, 100, kRounding);
    EXPECT_NEAR(inked.top, 50, kRounding);
    EXPECT_NEAR(inked.right, 300, kRounding);
    EXPECT_NEAR(inked.bottom, 200, kRounding);
    EXPECT_EQ(this->canvas_.At(inked.left, 120), kInk);
    EXPECT_EQ(this->canvas_.At(inked.right - 1, 120), kInk);
    EXPECT_EQ(this->canvas_.At(200, inked.top), kInk);
    EXPECT_EQ(this->canvas_.At(200, inked.bottom - 1), kInk);
    for (int x = inked.left + 5; x < inked.right - 5; ++x) {
        ASSERT_EQ(this->canvas_.At(x, 120), kPaper) << x;
    }
}

TYPED_TEST(PrintDeviceDrawing, ATextLeavesWhatLiesBehindIt) {
    TypeParam::DrawOn(this->canvas_, [](WindowsPrintDevice& device) {
        device.Frame({20, 20, 400, 60});
        device.Text(10, 15, L"　　　　", PrintFont::Body);
    });
    const PrintRect inked = this->canvas_.Inked();
    EXPECT_NEAR(inked.left, 20, kRounding);
    EXPECT_EQ(this->canvas_.At(inked.left, 25), kInk);
}

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakePrintDevice device;
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";
    WindowsPrintDevice device{CreateCompatibleDC(nullptr)};
};

template <class Rig> class PrintDeviceContract : public testing::Test {
protected:
    Rig rig_;

    [[nodiscard]] int Width(const std::wstring& text, PrintFont font = PrintFont::Body) const {
        return rig_.device.Extent(text, font).width;
    }
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(PrintDeviceContract, Rigs, RigName);

TYPED_TEST(PrintDeviceContract, TheFontHasOnePitch) {
    for (const PrintFont font : {PrintFont::Body, PrintFont::Title}) {
        const int cell = this->Width(L"A", font);
        EXPECT_GT(cell, 0);
        for (const wchar_t* narrow : {L"i", L"W", L" ", L"\\", L"0"}) {
            EXPECT_EQ(this->Width(narrow, font), cell);
        }
        const int wide = this->Width(L"あ", font);
        EXPECT_NEAR(wide, 2 * cell, 1);
        for (const wchar_t* japanese : {L"：", L"　", L"設", L"１", L"Ａ", L"ン"}) {
            EXPECT_EQ(this->Width(japanese, font), wide);
        }
    }
}

TYPED_TEST(PrintDeviceContract, TheLabelsOfALineAreEquallyWide) {
    const int width = this->Width(L"設定名　　　");
    EXPECT_EQ(this->Width(L"ボタン１名称"), width);
    EXPECT_EQ(this->Width(L"実行形態　　"), width);
    EXPECT_EQ(this->Width(L"起動ＡＰ５　"), width);
}

TYPED_TEST(PrintDeviceContract, AnEmptyTextHasNoWidth) {
    EXPECT_EQ(this->Width(L""), 0);
}

TYPED_TEST(PrintDeviceContract, ALongerTextIsWider) {
    EXPECT_EQ(this->Width(std::wstring(2000, L'x')), 2000 * this->Width(L"x"));
    EXPECT_EQ(this->Width(std::wstring(1000, L'漢')), 1000 * this->Width(L"漢"));
}

TYPED_TEST(PrintDeviceContract, AllTextsOfAFontAreEquallyHigh) {
    const int height = this->rig_.device.Extent(L"A", PrintFont::Body).height;
    EXPECT_GT(height, 0);
    EXPECT_EQ(this->rig_.device.Extent(L"設定", PrintFont::Body).height, height);
    EXPECT_GT(this->rig_.device.Extent(L"A", PrintFont::Title).height, height);
}

TYPED_TEST(PrintDeviceContract, ThePrintablePageLiesOnThePaper) {
    const PrintPage page = this->rig_.device.Page();
    EXPECT_THAT((std::vector{page.width, page.height, page.dpiX, page.dpiY}), testing::Each(Gt(0)));
    EXPECT_GE(page.offsetX, 0);
    EXPECT_GE(page.offsetY, 0);
    EXPECT_LE(page.offsetX + page.width, page.paperWidth);
    EXPECT_LE(page.offsetY + page.height, page.paperHeight);
}

TEST(WindowsPrintDeviceTest, OfNoPrinter_HasNothingButPrintablePaper) {
    const MemoryDc screen(CreateCompatibleDC(nullptr));
    const WindowsPrintDevice device(CreateCompatibleDC(nullptr));
    const PrintPage page = device.Page();
    EXPECT_EQ(page.width, GetDeviceCaps(screen.get(), HORZRES));
    EXPECT_EQ(page.height, GetDeviceCaps(screen.get(), VERTRES));
    EXPECT_EQ(page.paperWidth, page.width);
    EXPECT_EQ(page.paperHeight, page.height);
    EXPECT_EQ(page.offsetX, 0);
    EXPECT_EQ(page.offsetY, 0);
    EXPECT_EQ(page.dpiX, GetDeviceCaps(screen.get(), LOGPIXELSX));
    EXPECT_EQ(page.dpiY, GetDeviceCaps(screen.get(), LOGPIXELSY));
}

TEST(WindowsPrintDeviceTest, TheFaceInUseHasEveryLabelsCharacters) {
    const std::wstring face = WindowsPrintDevice(CreateCompatibleDC(nullptr)).FaceName();
    ASSERT_FALSE(face.empty());
    LOGFONTW wanted{};
    wanted.lfHeight = -20;
    wanted.lfCharSet = SHIFTJIS_CHARSET;
    face.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    const MemoryDc hdc(CreateCompatibleDC(nullptr));
    const Font font(CreateFontIndirectW(&wanted));
    const Selected selected(hdc.get(), font.get());
    const std::wstring labels = L"設定名　実行形態ボタン称１２３４５起動ＡＰ単独順次同時ショートカット：";
    std::vector<WORD> glyphs(labels.size(), 0xFFFF);
    ASSERT_NE(GetGlyphIndicesW(hdc.get(), labels.data(), static_cast<int>(labels.size()), glyphs.data(),
                               GGI_MARK_NONEXISTING_GLYPHS),
              GDI_ERROR);
    EXPECT_THAT(glyphs, testing::Each(testing::Ne(WORD{0xFFFF})));
}

} // namespace
