#include "settings/MakerSwitches.h"

#include "TestStore.h"

namespace {

using testing::Contains;
using testing::Each;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::Test;

class Maker : public Test, public TestStore {};

TEST_F(Maker, HasEverySwitchOff_WithoutValues) {
    const MakerSwitches switches = LoadMakerSwitches(store);
    EXPECT_EQ(switches.QSTART, 0);
    EXPECT_EQ(switches.BtnImage, 0);
    EXPECT_EQ(switches.NTNumAPBtn, 0);
    EXPECT_EQ(switches.DTNumAPBtn, 0);
    EXPECT_EQ(switches.NR1t2, 0);
    EXPECT_FALSE(switches.ShowNTTab);
}

TEST_F(Maker, SetsEverySwitch) {
    PutMachine(L"", L"QSTART", -2);
    PutMachine(L"", L"BtnImage", 3);
    PutMachine(L"", L"NTNumAPBtn", 4);
    PutMachine(L"", L"DTNumAPBtn", 5);
    PutMachine(L"", L"NR1t2", 6);
    PutMachine(L"UTLSetting", L"ShowNTTab", 7);
    const MakerSwitches switches = LoadMakerSwitches(store);
    EXPECT_EQ(switches.QSTART, -2);
    EXPECT_EQ(switches.BtnImage, 3);
    EXPECT_EQ(switches.NTNumAPBtn, 4);
    EXPECT_EQ(switches.DTNumAPBtn, 5);
    EXPECT_EQ(switches.NR1t2, 6);
    EXPECT_TRUE(switches.ShowNTTab);
}

TEST_F(Maker, IsReadFromTheMachineAlone_AndNothingIsWritten) {
    PutUser(L"", L"QSTART", 1);
    EXPECT_EQ(LoadMakerSwitches(store).QSTART, 0);
    EXPECT_THAT(Asked(), Each(StartsWith("HKLM ")));
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(Maker, ReadsThePictureSetOnly_WhenTheModelIsBelow1) {
    PutMachine(L"", L"BtnImage", 1);
    for (const int model : {1, 2}) {
        PutMachine(L"", L"QSTART", model);
        ForgetOperations();
        EXPECT_EQ(LoadMakerSwitches(store).BtnImage, 0) << model;
        EXPECT_THAT(Asked(), Not(Contains("HKLM BtnImage")));
    }
    PutMachine(L"", L"QSTART", 0);
    EXPECT_EQ(LoadMakerSwitches(store).BtnImage, 1);
}

TEST(ButtonCountTest, IsFivePlusOneToThreeNotebookKeysAndElseSeven) {
    const std::pair<int, int> counts[] = {{1, 6}, {2, 7}, {3, 8}, {0, 7}, {4, 7}, {-1, 7}, {1000000, 7}};
    for (const auto& [stored, buttons] : counts) {
        MakerSwitches switches;
        switches.NTNumAPBtn = stored;
        EXPECT_EQ(switches.ButtonCount(), buttons) << stored;
    }
}

TEST(DesktopButtonCountTest, IsAllFive_WhenTheValueIsNot1To5) {
    const std::pair<int, int> counts[] = {{1, 1}, {3, 3}, {5, 5}, {0, 5}, {6, 5}, {-1, 5}};
    for (const auto& [stored, buttons] : counts) {
        MakerSwitches switches;
        switches.DTNumAPBtn = stored;
        EXPECT_EQ(switches.DesktopButtonCount(), buttons) << stored;
    }
}

TEST(PictureSet, HasHoverPictures_WhenTheModelIsBelow1AndTheSetIs1) {
    MakerSwitches switches;
    switches.BtnImage = 1;
    EXPECT_TRUE(switches.UsesHoverPictures());
    switches.QSTART = -1;
    EXPECT_TRUE(switches.UsesHoverPictures());
    for (const int model : {1, 2}) {
        switches.QSTART = model;
        EXPECT_FALSE(switches.UsesHoverPictures()) << model;
    }
    switches.QSTART = 0;
    for (const int set : {0, 2, -1}) {
        switches.BtnImage = set;
        EXPECT_FALSE(switches.UsesHoverPictures()) << set;
    }
}

} // namespace
