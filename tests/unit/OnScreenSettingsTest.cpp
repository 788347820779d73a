#include "settings/OnScreenSettings.h"

#include "TestStore.h"
#include "dialogs/main/EnumFont.h"
#include "fakes/FakeFonts.h"

#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Test;

FontList Installed() {
    FakeFonts fonts;
    fonts.Add(L"Arial");
    fonts.Add(L"MS Shell Dlg 2");
    FontList list(L"MS Shell Dlg 2");
    list.EnumerateFonts(fonts);
    return list;
}

class OnScreen : public Test, public TestStore {
public:
    const FontList fonts = Installed();
    const OnScreenSettings defaults{1, L"Arial", 4, 0x0000FF};

    [[nodiscard]] OnScreenSettings Load() const { return LoadOnScreen(store, fonts, defaults); }
    [[nodiscard]] OnScreenSettings LoadDefault() const { return LoadDefaultOnScreen(store, fonts); }
};

class OnScreenInTheFile : public OnScreen {
public:
    OnScreenInTheFile() { store.IniFileExist = true; }
};

TEST_F(OnScreen, ReadsTheMakersDefaults_WithTheRegistryBackEnd) {
    PutMachine(L"Default\\OnScreen", L"OnScreen", 1);
    PutMachine(L"Default\\OnScreen", L"FontFace", "arial");
    PutMachine(L"Default\\OnScreen", L"Size", 5);
    PutMachine(L"Default\\OnScreen", L"Color", 12);
    EXPECT_EQ(LoadDefault(), (OnScreenSettings{1, L"Arial", 5, 0x12}));
}

TEST_F(OnScreenInTheFile, ReadsTheMakersDefaultsUnderTheirOwnNames) {
    PutMachine(L"Default\\OnScreen", L"OnScreen", 0);
    PutMachine(L"Default\\OnScreen", L"FontName", "Arial");
    PutMachine(L"Default\\OnScreen", L"FontSize", 2);
    PutMachine(L"Default\\OnScreen", L"Color", 34);
    PutMachine(L"Default\\OnScreen", L"FontFace", "MS Shell Dlg 2");
    PutMachine(L"Default\\OnScreen", L"Size", 5);
    EXPECT_EQ(LoadDefault(), (OnScreenSettings{0, L"Arial", 2, 0x34}));
    EXPECT_THAT(files.Operations(), IsEmpty());
}

TEST_F(OnScreen, IsOffBlackAndOfStandardSize_WithoutTheMakersValues) {
    // A missing number reads as 0, which is a valid switch and a valid colour, but no size step.
    EXPECT_EQ(LoadDefault(), (OnScreenSettings{0, L"MS Shell Dlg 2", 3, 0}));
}

TEST_F(OnScreen, IsOn_WhenTheMakersSwitchIsNeither0Nor1) {
    for (const int value : {2, -1, 256, 257}) {
        PutMachine(L"Default\\OnScreen", L"OnScreen", value);
        EXPECT_EQ(LoadDefault().OnScreen, 1) << value;
    }
}

TEST_F(OnScreen, IsOfStandardSize_WhenTheMakersStepIsNot1To5) {
    for (const int value : {0, 6, -1, 257}) {
        PutMachine(L"Default\\OnScreen", L"Size", value);
        EXPECT_EQ(LoadDefault().FontSize, 3) << value;
    }
    for (const int value : {1, 5}) {
        PutMachine(L"Default\\OnScreen", L"Size", value);
        EXPECT_EQ(LoadDefault().FontSize, value);
    }
}

TEST_F(OnScreen, TakesTheDialogFont_WhenTheMakersFaceIsNotInstalled) {
    PutMachine(L"Default\\OnScreen", L"FontFace", "Nowhere");
    EXPECT_EQ(LoadDefault().FontName, L"MS Shell Dlg 2");
}

TEST(ColorFromDecimalDigitsTest, ReadsTheDecimalDigitsAsHexadecimal) {
    const std::pair<std::int32_t, std::int32_t> colors[] = {
        {0, 0},
        {9, 9},
        {10, 0x10},
        {255, 0x255},
        {9999, 0x9999},
        {65280, 0x65280},
        {808000, 0x808000},
        {79999999, 0x79999999},
        {99999999, static_cast<std::int32_t>(0x99999999U)}};
    for (const auto& [stored, color] : colors) {
        EXPECT_EQ(ColorFromDecimalDigits(stored), color) << stored;
    }
}

TEST(ColorFromDecimalDigitsTest, IsGreen_WhenTheDigitsAreNoHexadecimalNumberOf32Bits) {
    constexpr std::int32_t kGreen = 65280;
    EXPECT_EQ(ColorFromDecimalDigits(-1), kGreen);
    EXPECT_EQ(ColorFromDecimalDigits(std::numeric_limits<std::int32_t>::min()), kGreen);
    EXPECT_EQ(ColorFromDecimalDigits(100000000), kGreen);
    EXPECT_EQ(ColorFromDecimalDigits(std::numeric_limits<std::int32_t>::max()), kGreen);
}

TEST_F(OnScreen, IsReadFromTheUsersSettings) {
    PutUser(L"OnScreen", L"OnScreen", 0);
    PutUser(L"OnScreen", L"FontFace", "MS SHELL DLG 2");
    PutUser(L"OnScreen", L"size", 5);
    PutUser(L"OnScreen", L"Color", 255);
    EXPECT_EQ(Load(), (OnScreenSettings{0, L"MS Shell Dlg 2", 5, 255}));
}

TEST_F(OnScreenInTheFile, IsReadFromItsSection) {
    PutLine(L"ONSCREEN", L"OnScreen", "0");
    PutLine(L"ONSCREEN", L"FontName", "Arial");
    PutLine(L"ONSCREEN", L"FontSize", "1");
    PutLine(L"ONSCREEN", L"Color", "16777215");
    EXPECT_EQ(Load(), (OnScreenSettings{0, L"Arial", 1, 0xFFFFFF}));
}

TEST_F(OnScreen, TakesWhatIsMissingFromTheDefaults) {
    EXPECT_EQ(Load(), defaults);
}

TEST_F(OnScreenInTheFile, TakesWhatIsMissingFromTheDefaults) {
    EXPECT_EQ(Load(), defaults);
}

TEST_F(OnScreen, TakesWhatIsOutOfRangeFromTheDefaults) {
    for (const int value : {2, -1, 256}) {
        PutUser(L"OnScreen", L"OnScreen", value);
        EXPECT_EQ(Load().OnScreen, defaults.OnScreen) << value;
    }
    for (const int value : {0, 6, -1, 257}) {
        PutUser(L"OnScreen", L"size", value);
        EXPECT_EQ(Load().FontSize, defaults.FontSize) << value;
    }
}

TEST_F(OnScreenInTheFile, TakesWhatIsNoNumberFromTheDefaults) {
    PutLine(L"ONSCREEN", L"OnScreen", "x");
    PutLine(L"ONSCREEN", L"FontSize", "6");
    PutLine(L"ONSCREEN", L"Color", "red");
    EXPECT_EQ(Load(), defaults);
}

TEST_F(OnScreen, TakesTheDialogFont_WhenTheUsersFaceIsNotInstalled) {
    PutUser(L"OnScreen", L"FontFace", "Nowhere");
    EXPECT_EQ(Load().FontName, L"MS Shell Dlg 2");
}

TEST_F(OnScreen, KeepsAnyColorNumber) {
    PutUser(L"OnScreen", L"Color", -1);
    EXPECT_EQ(Load().Color, -1);
}

TEST_F(OnScreen, WritesItsFourValues) {
    SaveOnScreen(store, {1, L"Arial", 5, 0xFFFFFF});
    EXPECT_THAT(Written(), ElementsAre("OnScreen OnScreen = 1", "OnScreen FontFace = \"Arial\"",
                                       "OnScreen size = 5", "OnScreen Color = 16777215"));
}

TEST_F(OnScreenInTheFile, WritesItsFourValues) {
    SaveOnScreen(store, {0, L"Arial", 1, -1});
    EXPECT_THAT(Written(), ElementsAre("[ONSCREEN] OnScreen = \"0\"", "[ONSCREEN] FontName = \"Arial\"",
                                       "[ONSCREEN] FontSize = \"1\"", "[ONSCREEN] Color = \"-1\""));
}

TEST_F(OnScreen, LoadsAsItWasSaved) {
    const OnScreenSettings saved{0, L"Arial", 1, 0x123456};
    SaveOnScreen(store, saved);
    EXPECT_EQ(Load(), saved);
}

TEST_F(OnScreenInTheFile, LoadsAsItWasSaved) {
    const OnScreenSettings saved{0, L"Arial", 1, 0x123456};
    SaveOnScreen(store, saved);
    EXPECT_EQ(Load(), saved);
}

TEST(OnScreenEqualTest, ComparesAllFields) {
    const OnScreenSettings settings{1, L"Arial", 3, 255};
    EXPECT_TRUE(OnScreenEqual(settings, settings));
    EXPECT_FALSE(OnScreenEqual(settings, {0, L"Arial", 3, 255}));
    EXPECT_FALSE(OnScreenEqual(settings, {1, L"Other", 3, 255}));
    EXPECT_FALSE(OnScreenEqual(settings, {1, L"Arial", 4, 255}));
    EXPECT_FALSE(OnScreenEqual(settings, {1, L"Arial", 3, 256}));
}

TEST(OnScreenEqualTest, TellsTheCaseOfAFaceApart) {
    EXPECT_FALSE(OnScreenEqual({1, L"Arial", 3, 255}, {1, L"ARIAL", 3, 255}));
}

} // namespace
