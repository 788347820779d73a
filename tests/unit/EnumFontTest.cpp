#include "dialogs/main/EnumFont.h"

#include "fakes/FakeFonts.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FontListTest : public testing::Test {
public:
    FakeFonts fonts;
    FontList list{L"MS Shell Dlg 2"};

    const std::vector<std::wstring>& Offered() {
        list.EnumerateFonts(fonts);
        return list.Faces();
    }
};

TEST_F(FontListTest, OffersFacesInTheOrderReported) {
    fonts.Add(L"Verdana");
    fonts.Add(L"Arial");
    EXPECT_THAT(Offered(), ElementsAre(L"Verdana", L"Arial"));
}

TEST_F(FontListTest, OffersTrueTypeFacesOnly) {
    fonts.Add(L"Raster").fontType = FakeFonts::kRaster;
    fonts.Add(L"Device").fontType = FakeFonts::kDevice;
    fonts.Add(L"Vector").fontType = 0;
    EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(FontListTest, LooksAtTheTrueTypeBitAlone) {
    fonts.Add(L"Both").fontType = FakeFonts::kTrueType | FakeFonts::kDevice;
    EXPECT_THAT(Offered(), ElementsAre(L"Both"));
}

TEST_F(FontListTest, DoesNotOfferAFaceThatIsOnlyItalicOrBold) {
    fonts.Add(L"Italic").italic = true;
    fonts.Add(L"Bold").weight = 700;
    fonts.Add(L"Heavier").weight = 401;
    EXPECT_THAT(Offered(), IsEmpty());
}

TEST_F(FontListTest, OffersLightAndRegularWeights) {
    fonts.Add(L"Thin").weight = 100;
    fonts.Add(L"Regular").weight = 400;
    fonts.Add(L"Unknown").weight = 0;
    EXPECT_THAT(Offered(), ElementsAre(L"Thin", L"Regular", L"Unknown"));
}

TEST_F(FontListTest, OffersAFaceThatIsAlsoItalic) {
    fonts.Add(L"Arial").italic = true;
    fonts.Add(L"Arial");
    EXPECT_THAT(Offered(), ElementsAre(L"Arial"));
}

TEST_F(FontListTest, OffersAnsiAndShiftJisOnly) {
    fonts.Add(L"Western").charSet = FakeFonts::kAnsi;
    fonts.Add(L"Japanese").charSet = FakeFonts::kShiftJis;
    fonts.Add(L"Greek").charSet = FakeFonts::kGreek;
    fonts.Add(L"Default").charSet = 1;
    fonts.Add(L"Symbol").charSet = 2;
    fonts.Add(L"Korean").charSet = 129;
    EXPECT_THAT(Offered(), ElementsAre(L"Western", L"Japanese"));
}

TEST_F(FontListTest, OffersAFaceOfBothCharacterSetsOnce) {
    fonts.Add(L"MS Gothic").charSet = FakeFonts::kAnsi;
    fonts.Add(L"Arial");
    fonts.Add(L"MS Gothic").charSet = FakeFonts::kShiftJis;
    EXPECT_THAT(Offered(), ElementsAre(L"MS Gothic", L"Arial"));
}

TEST_F(FontListTest, KeepsTheSpellingFirstReported) {
    fonts.Add(L"Arial");
    fonts.Add(L"ARIAL");
    EXPECT_THAT(Offered(), ElementsAre(L"Arial"));
}

TEST_F(FontListTest, CutsAFaceAtItsFirstNul) {
    fonts.Add(std::wstring(L"Arial\0xyz", 9));
    EXPECT_THAT(Offered(), ElementsAre(L"Arial"));
}

TEST_F(FontListTest, SkipsAFaceWithoutAName) {
    fonts.Add(L"");
    fonts.Add(L"Arial");
    EXPECT_THAT(Offered(), ElementsAre(L"Arial"));
}

TEST_F(FontListTest, IsFilledAnew) {
    fonts.Add(L"Arial");
    EXPECT_THAT(Offered(), ElementsAre(L"Arial"));
    fonts.reported.clear();
    fonts.Add(L"Verdana");
    EXPECT_THAT(Offered(), ElementsAre(L"Verdana"));
}

TEST_F(FontListTest, IsEmpty_BeforeItIsFilled) {
    EXPECT_THAT(list.Faces(), IsEmpty());
    EXPECT_EQ(list.IndexOf(L"Arial"), -1);
}

TEST_F(FontListTest, KnowsTheIndexOfAFace) {
    fonts.Add(L"Verdana");
    fonts.Add(L"Arial");
    list.EnumerateFonts(fonts);
    EXPECT_EQ(list.IndexOf(L"Verdana"), 0);
    EXPECT_EQ(list.IndexOf(L"aRIAL"), 1);
    EXPECT_EQ(list.IndexOf(L"Nowhere"), -1);
    EXPECT_EQ(list.IndexOf(L""), -1);
}

TEST_F(FontListTest, MatchesAFaceInItsOwnSpelling) {
    fonts.Add(L"Arial");
    fonts.Add(L"MS Shell Dlg 2");
    list.EnumerateFonts(fonts);
    EXPECT_EQ(list.MatchInstalledFont(L"aRIAL"), L"Arial");
}

TEST_F(FontListTest, MatchesTheDialogFont_WhenTheFaceIsNotInstalled) {
    fonts.Add(L"Arial");
    fonts.Add(L"MS SHELL DLG 2");
    list.EnumerateFonts(fonts);
    EXPECT_EQ(list.MatchInstalledFont(L"Nowhere"), L"MS SHELL DLG 2");
    EXPECT_EQ(list.MatchInstalledFont(L""), L"MS SHELL DLG 2");
}

TEST_F(FontListTest, KeepsTheWantedFace_WhenTheDialogFontIsMissingToo) {
    fonts.Add(L"Arial");
    list.EnumerateFonts(fonts);
    EXPECT_EQ(list.MatchInstalledFont(L"Nowhere"), L"Nowhere");
    EXPECT_EQ(list.MatchInstalledFont(L""), L"");
}

} // namespace
