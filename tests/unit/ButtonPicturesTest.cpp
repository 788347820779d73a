#include "dialogs/main/ButtonPictures.h"

#include <gmock/gmock.h>

#include <string>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr ButtonPicture kPictures[] = {kPictureNoApp, kPictureSingle, kPictureSequence, kPictureSimul};

MakerSwitches HoverSet() {
    MakerSwitches switches;
    switches.BtnImage = 1;
    return switches;
}

MakerSwitches Model(int number) {
    MakerSwitches switches;
    switches.QSTART = number;
    return switches;
}

std::vector<std::wstring> Names(const MakerSwitches& switches) {
    const auto names = PictureNames(switches);
    return {names.begin(), names.end()};
}

std::wstring NameOf(const MakerSwitches& switches, int button, ButtonPicture picture, PictureState state) {
    return Names(switches).at(static_cast<std::size_t>(PictureNumber(switches, button, picture, state) - 1));
}

TEST(PictureNamesTest, ListTheHoverSet) {
    EXPECT_THAT(Names(HoverSet()),
                ElementsAre(L"NO_APP", L"NO_APP_DOWN", L"RUN_SINGLE", L"RUN_SINGLE_DOWN", L"RUN_SEQUENCE",
                            L"RUN_SEQUENCE_DOWN", L"RUN_SIMUL", L"RUN_SIMUL_DOWN", L"NO_APP_MOUSEOVER",
                            L"RUN_SINGLE_MOUSEOVER", L"RUN_SEQUENCE_MOUSEOVER", L"RUN_SIMUL_MOUSEOVER"));
}

TEST(PictureNamesTest, ListTheOtherSet) {
    EXPECT_THAT(Names(MakerSwitches{}),
                ElementsAre(L"NO_APP", L"NO_APP_DOWN", L"RUN_SINGLE", L"RUN_SINGLE_DOWN", L"RUN_SEQUENCE",
                            L"RUN_SEQUENCE_DOWN", L"RUN_SIMUL", L"RUN_SIMUL_DOWN", L"Q_NO_APP",
                            L"Q_NO_APP_DOWN", L"Q_RUN_SINGLE", L"Q_RUN_SINGLE_DOWN", L"Q_RUN_SEQUENCE",
                            L"Q_RUN_SEQUENCE_DOWN", L"Q_RUN_SIMUL", L"Q_RUN_SIMUL_DOWN"));
}

TEST(PictureNamesTest, ListTheOtherSet_WhenTheModelIs1EvenIfTheHoverSetIsAskedFor) {
    MakerSwitches switches = HoverSet();
    switches.QSTART = 1;
    EXPECT_EQ(Names(switches), Names(MakerSwitches{}));
}

TEST(PictureNumberTest, IsThePictureItselfAndTheNextOneWhenPressed) {
    for (const MakerSwitches& switches : {MakerSwitches{}, HoverSet(), Model(2), Model(-1)}) {
        for (int button = 1; button <= kMaxButtons; ++button) {
            for (const ButtonPicture picture : kPictures) {
                EXPECT_EQ(PictureNumber(switches, button, picture, {}), picture);
                EXPECT_EQ(PictureNumber(switches, button, picture, {.pressed = true}), picture + 1);
            }
        }
    }
}

TEST(PictureNumberTest, IsTheKeysOwn_ForTheSixthAndSeventhButtonOfModel1) {
    for (int button = 1; button <= kMaxButtons; ++button) {
        const int shift = button == 6 || button == 7 ? 8 : 0;
        for (const ButtonPicture picture : kPictures) {
            EXPECT_EQ(PictureNumber(Model(1), button, picture, {}), picture + shift) << button;
            EXPECT_EQ(PictureNumber(Model(1), button, picture, {.pressed = true}), picture + 1 + shift)
                << button;
        }
    }
}

TEST(PictureNumberTest, NamesTheKeysPictures) {
    EXPECT_EQ(NameOf(Model(1), 6, kPictureNoApp, {}), L"Q_NO_APP");
    EXPECT_EQ(NameOf(Model(1), 6, kPictureNoApp, {.pressed = true}), L"Q_NO_APP_DOWN");
    EXPECT_EQ(NameOf(Model(1), 7, kPictureSimul, {}), L"Q_RUN_SIMUL");
    EXPECT_EQ(NameOf(Model(1), 7, kPictureSimul, {.pressed = true}), L"Q_RUN_SIMUL_DOWN");
    EXPECT_EQ(NameOf(Model(1), 8, kPictureSimul, {}), L"RUN_SIMUL");
    EXPECT_EQ(NameOf(Model(2), 6, kPictureSequence, {}), L"RUN_SEQUENCE");
}

TEST(PictureNumberTest, IsTheFamilysHoverPicture_UnderTheMouse) {
    for (int button = 1; button <= kMaxButtons; ++button) {
        EXPECT_EQ(NameOf(HoverSet(), button, kPictureNoApp, {.hovered = true}), L"NO_APP_MOUSEOVER");
        EXPECT_EQ(NameOf(HoverSet(), button, kPictureSingle, {.hovered = true}), L"RUN_SINGLE_MOUSEOVER");
        EXPECT_EQ(NameOf(HoverSet(), button, kPictureSequence, {.hovered = true}), L"RUN_SEQUENCE_MOUSEOVER");
        EXPECT_EQ(NameOf(HoverSet(), button, kPictureSimul, {.hovered = true}), L"RUN_SIMUL_MOUSEOVER");
    }
}

TEST(PictureNumberTest, IsThePressedPicture_WhenPressedUnderTheMouse) {
    EXPECT_EQ(NameOf(HoverSet(), 1, kPictureSingle, {.pressed = true, .hovered = true}), L"RUN_SINGLE_DOWN");
}

TEST(PictureNumberTest, IgnoresTheMouse_WithoutHoverPictures) {
    for (const MakerSwitches& switches : {MakerSwitches{}, Model(1), Model(2)}) {
        for (int button = 1; button <= kMaxButtons; ++button) {
            for (const ButtonPicture picture : kPictures) {
                EXPECT_EQ(PictureNumber(switches, button, picture, {.hovered = true}),
                          PictureNumber(switches, button, picture, {}));
            }
        }
    }
}

TEST(RoundPicturesTest, ReachToAnIndexThatTheModelSays) {
    EXPECT_EQ(LastRoundPicture(Model(0)), 7);
    EXPECT_EQ(LastRoundPicture(Model(1)), 4);
    for (const int other : {2, 3, -1, 1000}) {
        EXPECT_EQ(LastRoundPicture(Model(other)), 0) << other;
    }
}

TEST(RoundPicturesTest, MeasureInWholePixels) {
    EXPECT_EQ(RoundRegionPixels(720, 15), 48);
    EXPECT_EQ(RoundRegionPixels(734, 15), 48) << "the division cuts";
    EXPECT_EQ(RoundRegionPixels(735, 15), 49);
    EXPECT_EQ(RoundRegionPixels(0, 15), 0);
}

TEST(RoundPicturesTest, RoundBothOperandsBeforeTheDivision) {
    EXPECT_EQ(RoundRegionPixels(734.7, 15), 49);
    EXPECT_EQ(RoundRegionPixels(735.4, 15), 49);
    EXPECT_EQ(RoundRegionPixels(720, 7.6), 90);
    EXPECT_EQ(RoundRegionPixels(720, 7.4), 102);
}

TEST(RoundPicturesTest, AreEmpty_WhenAPixelIsNoTwip) {
    EXPECT_EQ(RoundRegionPixels(720, 0.4), 0);
    EXPECT_EQ(RoundRegionPixels(720, 0), 0);
}

TEST(ButtonHoverTest, RemembersNoButtonAtFirst) {
    ButtonHover hover;
    for (int button = 1; button <= kMaxButtons; ++button) {
        EXPECT_FALSE(hover.IsOver(button));
    }
    EXPECT_THAT(hover.MoveOff(), IsEmpty());
}

TEST(ButtonHoverTest, DrawsTheButtonEntered) {
    ButtonHover hover;
    EXPECT_THAT(hover.MoveOver(3), ElementsAre(3));
    EXPECT_TRUE(hover.IsOver(3));
}

TEST(ButtonHoverTest, DrawsNothing_WhileTheMouseStaysOnAButton) {
    ButtonHover hover;
    EXPECT_THAT(hover.MoveOver(3), ElementsAre(3));
    EXPECT_THAT(hover.MoveOver(3), IsEmpty());
    EXPECT_TRUE(hover.IsOver(3));
}

TEST(ButtonHoverTest, DrawsTheButtonLeftAndTheOneEntered) {
    ButtonHover hover;
    EXPECT_THAT(hover.MoveOver(3), ElementsAre(3));
    EXPECT_THAT(hover.MoveOver(8), ElementsAre(3, 8));
    EXPECT_FALSE(hover.IsOver(3));
    EXPECT_TRUE(hover.IsOver(8));
}

TEST(ButtonHoverTest, ForgetsTheButtonLeft) {
    ButtonHover hover;
    EXPECT_THAT(hover.MoveOver(3), ElementsAre(3));
    EXPECT_THAT(hover.Leave(3), ElementsAre(3));
    EXPECT_FALSE(hover.IsOver(3));
}

TEST(ButtonHoverTest, KeepsTheButtonEntered_WhenTheOneLeftSaysSoLate) {
    ButtonHover hover;
    EXPECT_THAT(hover.MoveOver(3), ElementsAre(3));
    EXPECT_THAT(hover.MoveOver(4), ElementsAre(3, 4));
    EXPECT_THAT(hover.Leave(3), IsEmpty());
    EXPECT_TRUE(hover.IsOver(4));
}

TEST(ButtonHoverTest, ForgetsTheButton_OverTheFrame) {
    ButtonHover hover;
    EXPECT_THAT(hover.MoveOver(3), ElementsAre(3));
    EXPECT_THAT(hover.MoveOff(), ElementsAre(3));
    EXPECT_FALSE(hover.IsOver(3));
    EXPECT_THAT(hover.MoveOff(), IsEmpty());
    EXPECT_THAT(hover.MoveOver(3), ElementsAre(3));
}

} // namespace
