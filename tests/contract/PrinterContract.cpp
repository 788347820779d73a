#include "platform/windows/JapaneseFont.h"
#include "platform/windows/WindowsPrintDevice.h"
#include "ui/TestPrinter.h"

#include <windows.h>

#include <winspool.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <sstream>
#include <string>

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr int kNever = std::numeric_limits<int>::max();

/// A PostScript printer that prints into a file.
class Printer : public testing::Test {
protected:
    static void SetUpTestSuite() { installed = std::make_unique<TestPrinter>(L"cat >/dev/null"); }
    static void TearDownTestSuite() { installed.reset(); }

    Printer() : file_(std::filesystem::temp_directory_path() / L"qlbutl-printout.ps") {
        std::filesystem::remove(file_);
        device.OutputTo(file_.wstring());
    }
    ~Printer() override {
        std::error_code none;
        std::filesystem::remove(file_, none);
    }

    static HDC Open() {
        const HDC hdc = CreateDCW(L"WINSPOOL", L"Test Printer", nullptr, nullptr);
        EXPECT_NE(hdc, nullptr);
        return hdc;
    }
    [[nodiscard]] std::string Output() const {
        std::ostringstream text;
        text << std::ifstream(file_, std::ios::binary).rdbuf();
        return text.str();
    }

    inline static std::unique_ptr<TestPrinter> installed;

    std::filesystem::path file_;
    int asked = 0;
    int givesUpAt = kNever; ///< the first time that it is asked is 1
    WindowsPrintDevice device{Open(), [this] { return ++asked < givesUpAt; }};
};

TEST_F(Printer, PrintsADocument) {
    ASSERT_TRUE(device.StartDocument(L"Settings"));
    ASSERT_TRUE(device.StartPage());
    device.Frame({100, 100, 500, 300});
    device.Text(150, 150, L"ボタン１", PrintFont::Body);
    ASSERT_TRUE(device.EndPage());
    ASSERT_TRUE(device.EndDocument());
    EXPECT_EQ(device.Error(), 0U);
    const std::string output = Output();
    EXPECT_THAT(output, StartsWith("%!PS"));
    EXPECT_THAT(output, HasSubstr("%%Title: Settings"));
    EXPECT_THAT(output, HasSubstr("%%EOF"));
}

TEST_F(Printer, TellsTheSizeOfItsPaper) {
    const PrintPage page = device.Page();
    // A4 with edges of 14 points.
    EXPECT_EQ(page.dpiX, 300);
    EXPECT_EQ(page.dpiY, 300);
    EXPECT_NEAR(page.paperWidth, 210 / 25.4 * 300, 3);
    EXPECT_NEAR(page.paperHeight, 297 / 25.4 * 300, 3);
    EXPECT_NEAR(page.offsetX, 14 / 72.0 * 300, 2);
    EXPECT_NEAR(page.offsetY, 14 / 72.0 * 300, 2);
    EXPECT_NEAR(page.width, 567 / 72.0 * 300, 3);
    EXPECT_NEAR(page.height, 814 / 72.0 * 300, 3);
}

TEST_F(Printer, AsksBeforeEachLineWhetherToGoOn) {
    ASSERT_TRUE(device.StartDocument(L"Settings"));
    ASSERT_TRUE(device.StartPage());
    const int before = asked;
    device.Text(150, 150, L"ボタン１", PrintFont::Body);
    EXPECT_GT(asked, before);
    const int between = asked;
    device.Frame({100, 100, 500, 300});
    EXPECT_GT(asked, between);
    device.Abort();
}

TEST_F(Printer, IsAskedByTheSystemToo_WhichThenBeginsNothing) {
    givesUpAt = 2; // before the document is the first time
    EXPECT_FALSE(device.StartDocument(L"Settings"));
    EXPECT_EQ(device.Error(), ERROR_PRINT_CANCELLED);
    EXPECT_THAT(Output(), IsEmpty());
}

TEST_F(Printer, BeginsNothing_OnceItIsGivenUp) {
    givesUpAt = 1;
    EXPECT_FALSE(device.StartDocument(L"Settings"));
    EXPECT_EQ(device.Error(), ERROR_PRINT_CANCELLED);
    EXPECT_THAT(Output(), IsEmpty());
}

TEST_F(Printer, DrawsNothingMoreAndEndsNothing_OnceItIsGivenUp) {
    ASSERT_TRUE(device.StartDocument(L"Settings"));
    ASSERT_TRUE(device.StartPage());
    givesUpAt = asked + 1;
    device.Text(150, 150, L"ボタン１", PrintFont::Body);
    givesUpAt = kNever; // it is not asked any more
    EXPECT_FALSE(device.EndPage());
    EXPECT_FALSE(device.StartPage());
    EXPECT_FALSE(device.EndDocument());
    EXPECT_EQ(device.Error(), ERROR_PRINT_CANCELLED);
    device.Abort();
    EXPECT_EQ(Output().find("%%EOF"), std::string::npos);
}

TEST_F(Printer, SaysWhyADocumentCannotBePrinted) {
    device.OutputTo((std::filesystem::temp_directory_path() / L"no such folder" / L"x.ps").wstring());
    EXPECT_FALSE(device.StartDocument(L"Settings") && device.StartPage() && device.EndPage() &&
                 device.EndDocument());
    EXPECT_NE(device.Error(), 0U);
}

TEST_F(Printer, PrintsAgainAfterAnAbort) {
    ASSERT_TRUE(device.StartDocument(L"First"));
    ASSERT_TRUE(device.StartPage());
    device.Abort();
    WindowsPrintDevice next{Open()};
    next.OutputTo(file_.wstring());
    ASSERT_TRUE(next.StartDocument(L"Second"));
    ASSERT_TRUE(next.StartPage());
    ASSERT_TRUE(next.EndPage());
    ASSERT_TRUE(next.EndDocument());
    EXPECT_THAT(Output(), HasSubstr("%%Title: Second"));
}

class Face : public testing::Test {
protected:
    MemoryDc hdc_{CreateCompatibleDC(nullptr)};

    /// Of the font that the system gives for it.
    [[nodiscard]] bool HasJapanese(const LOGFONTW& logical) const {
        const Font font(CreateFontIndirectW(&logical));
        const Selected selected(hdc_.get(), font.get());
        std::array<WORD, 3> glyphs{};
        GetGlyphIndicesW(hdc_.get(), L"設定：", 3, glyphs.data(), GGI_MARK_NONEXISTING_GLYPHS);
        return std::find(glyphs.begin(), glyphs.end(), WORD{0xFFFF}) == glyphs.end();
    }
};

TEST_F(Face, IsThePreferredOneThatHasTheCharacters) {
    constexpr std::array kFaces = {L"ＭＳ ゴシック", L"MS Gothic"};
    EXPECT_STREQ(JapaneseFont(hdc_.get(), kFaces).lfFaceName, L"ＭＳ ゴシック");
}

TEST_F(Face, IsAnotherOneWithTheCharacters_WhereTheSystemHasNoneOfThePreferred) {
    const LOGFONTW font = JapaneseFont(hdc_.get(), {});
    EXPECT_STRNE(font.lfFaceName, L"");
    EXPECT_NE(font.lfFaceName[0], L'@');
    EXPECT_TRUE(HasJapanese(font));
}

} // namespace
