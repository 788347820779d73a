#include "Rigs.h"
#include "dialogs/main/EnumFont.h"
#include "fakes/FakeFonts.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/WindowsInstalledFonts.h"

#include <windows.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <tuple>

static bool operator==(const ReportedFont& a, const ReportedFont& b) {
    const auto fields = [](const ReportedFont& font) {
        return std::tie(font.faceName, font.fontType, font.italic, font.weight, font.charSet);
    };
    return fields(a) == fields(b);
}

static void PrintTo(const ReportedFont& font, std::ostream* out) {
    *out << testing::PrintToString(ToAnsi(font.faceName)) << ", type " << font.fontType << ", weight "
         << font.weight << (font.italic ? ", italic" : "") << ", character set " << int{font.charSet};
}

namespace {

using testing::AllOf;
using testing::Each;
using testing::Field;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;
using testing::Not;

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakeFonts fonts;

    FakeRig() {
        fonts.Add(L"Arial");
        fonts.Add(L"Arial").charSet = FakeFonts::kGreek;
        fonts.Add(L"Arial").charSet = FakeFonts::kShiftJis;
        fonts.Add(L"Courier").fontType = FakeFonts::kRaster;
    }
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";
    WindowsInstalledFonts fonts;
};

template <class Rig> class InstalledFontsContract : public testing::Test {
protected:
    Rig rig_;

    [[nodiscard]] std::vector<ReportedFont> Reports() {
        std::vector<ReportedFont> reports;
        rig_.fonts.Enumerate([&](const ReportedFont& font) { reports.push_back(font); });
        return reports;
    }
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(InstalledFontsContract, Rigs, RigName);

TYPED_TEST(InstalledFontsContract, AnUprightTrueTypeFaceIsReported) {
    const auto reports = this->Reports();
    EXPECT_TRUE(std::any_of(reports.begin(), reports.end(), [](const ReportedFont& font) {
        return (font.fontType & TRUETYPE_FONTTYPE) != 0 && !font.italic && font.weight == FW_NORMAL &&
               font.charSet == ANSI_CHARSET;
    }));
}

TYPED_TEST(InstalledFontsContract, EveryReportIsWellFormed) {
    const auto reports = this->Reports();
    ASSERT_THAT(reports, Not(IsEmpty()));
    EXPECT_THAT(reports, Each(Field(&ReportedFont::weight, AllOf(Ge(1), Le(1000)))));
    EXPECT_THAT(reports, Each(Field(&ReportedFont::fontType, Le(7U))));
    for (const ReportedFont& font : reports) {
        EXPECT_FALSE(font.faceName.empty());
        EXPECT_LT(ToAnsi(font.faceName).size(), std::size_t{LF_FACESIZE});
        EXPECT_EQ(font.faceName.find(L'\0'), std::wstring::npos);
    }
}

TYPED_TEST(InstalledFontsContract, AFaceIsReportedOncePerCharacterSet) {
    std::set<std::tuple<std::wstring, std::uint8_t>> seen;
    std::set<std::wstring> faces;
    for (const ReportedFont& font : this->Reports()) {
        EXPECT_TRUE(seen.emplace(font.faceName, font.charSet).second) << testing::PrintToString(font);
        faces.insert(font.faceName);
    }
    EXPECT_LT(faces.size(), seen.size());
}

TYPED_TEST(InstalledFontsContract, TheOrderIsTheSameEachTime) {
    EXPECT_EQ(this->Reports(), this->Reports());
}

TYPED_TEST(InstalledFontsContract, TheProgramFindsFacesToOffer) {
    FontList list(L"no such face");
    list.EnumerateFonts(this->rig_.fonts);
    ASSERT_THAT(list.Faces(), Not(IsEmpty()));
    EXPECT_EQ(list.MatchInstalledFont(list.Faces().back()), list.Faces().back());
}

TEST(WindowsInstalledFontsTest, AReportedFaceCanBeChosenByItsName) {
    std::wstring face;
    WindowsInstalledFonts().Enumerate([&](const ReportedFont& font) {
        if (face.empty() && (font.fontType & TRUETYPE_FONTTYPE) != 0 && font.faceName[0] != L'@') {
            face = font.faceName;
        }
    });
    ASSERT_FALSE(face.empty());
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    face.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    const HFONT font = CreateFontIndirectW(&wanted);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(dc, font);
    std::wstring chosen(LF_FACESIZE, L'\0');
    chosen.resize(static_cast<std::size_t>(GetTextFaceW(dc, LF_FACESIZE, chosen.data())));
    SelectObject(dc, before);
    DeleteDC(dc);
    DeleteObject(font);
    EXPECT_STREQ(chosen.c_str(), face.c_str());
}

} // namespace
