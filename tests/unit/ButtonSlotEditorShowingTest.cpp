#include "RegistrationDialog.h"

namespace {

using testing::ElementsAre;
using testing::Test;

class ShownSlots : public Test, public RegistrationDialog {};
class ChosenOption : public Test, public RegistrationDialog {};

void ExpectEnabledSlots(const ButtonSlotEditor& editor, int count) {
    for (int slot = 0; slot < kSlots; ++slot) {
        EXPECT_EQ(editor.IsSlotEnabled(slot), slot < count) << slot;
    }
}

TEST_F(ShownSlots, TheLetterSelectsTheOption_AndTheOptionTheSlots) {
    struct Case {
        const wchar_t* letter;
        int option;
        int slots;
    };
    for (const auto& [letter, option, slots] :
         {Case{L"M", 0, 1}, Case{L"m", 0, 1}, Case{L"K", 0, 1}, Case{L"k", 0, 1}, Case{L"S", 1, 5},
          Case{L"s", 1, 5}, Case{L"P", 2, 5}, Case{L"p", 2, 5}, Case{L"X", 0, 1}, Case{L"", 0, 1},
          Case{L"SS", 0, 1}}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(letter)));
        const ButtonSlotEditor editor = Open(Button(letter, {}));
        EXPECT_EQ(editor.Option(), option);
        ExpectEnabledSlots(editor, slots);
    }
}

TEST_F(ShownSlots, OpeningChangesNothingInTheButton) {
    ButtonSlot favourite = Button(L"m", {L"iexplore.exe|http://news.example/"});
    favourite.Program(1).Title = L"News";
    ButtonSlot gaps = Button(L"p", {L"", L"C:\\Apps\\Mail.exe", L"C:\\no.exe"});
    gaps.NumAP = 2;
    for (const ButtonSlot& slot : {Sequence(5), MusicButton(), favourite, gaps, Button(L"k", {L"46"})}) {
        EXPECT_EQ(Open(slot).Slot(), slot);
    }
}

TEST_F(ShownSlots, ATitleIsShownAsItIs) {
    ButtonSlot slot = Sequence(3);
    slot.Program(1).Title = L"a\\b.c";
    slot.Program(3).Title = L"Tax 1.0.exe";
    EXPECT_THAT(Shown(Open(slot)), ElementsAre(L"a\\b.c", L"app.v2", L"Tax 1.0.exe", L"", L""));
}

TEST_F(ShownSlots, AFolderShowsItsOwnNameWhole) {
    EXPECT_EQ(Open(Button(L"M", {L"C:\\Apps\\Tools.d"})).ShownText(0), L"Tools.d");
}

TEST_F(ShownSlots, AFileShowsItsNameWithoutTheLastExtension) {
    disk.AddFile(L"C:\\Apps\\Tools.d\\app.v2.exe");
    disk.AddFile(L"C:\\Apps\\Tools.d\\readme");
    const ButtonSlotEditor editor =
        Open(Button(L"P", {L"C:\\Apps\\app.v2.exe", L"C:\\Apps\\Tools.d\\app.v2.exe", L"C:\\Apps\\Mail.exe",
                           L"C:\\Apps\\Tools.d\\readme"}));
    EXPECT_THAT(Shown(editor), ElementsAre(L"app.v2", L"app.v2", L"Mail", L"readme", L""));
}

TEST_F(ShownSlots, APathThatDoesNotExistKeepsItsExtension) {
    EXPECT_EQ(Open(Button(L"M", {L"C:\\Gone\\app.v2.exe"})).ShownText(0), L"app.v2.exe");
    EXPECT_EQ(Open(Button(L"M", {L"notepad.exe"})).ShownText(0), L"notepad.exe");
}

TEST_F(ShownSlots, APathWhoseAttributesCannotBeReadKeepsItsExtension) {
    disk.HideAttributes(L"C:\\Apps\\Mail.exe");
    EXPECT_EQ(Open(Sequence(1)).ShownText(0), L"Mail.exe");
}

TEST_F(ShownSlots, ProgramsBehindAnEmptySlotAreShownInTheirPlaces) {
    const ButtonSlotEditor editor = Open(Button(L"S", {L"", L"C:\\Apps\\Mail.exe", L"", L"", L"D:\\x.exe"}));
    EXPECT_THAT(Shown(editor), ElementsAre(L"", L"Mail", L"", L"", L"x.exe"));
}

TEST_F(ShownSlots, ProgramsClearMediaCenterPicked) {
    for (const ButtonSlot& slot : {Sequence(0), Sequence(1), Button(L"M", {L"C:\\Apps\\Mail.exe"})}) {
        Globals().MediaCenterPicked = true;
        EXPECT_FALSE(Open(slot).IsMethodLocked());
        EXPECT_FALSE(Globals().MediaCenterPicked);
    }
}

TEST_F(ShownSlots, AShortcutKeyShowsItsName_AndLocksTheMethod) {
    for (const wchar_t* letter : {L"K", L"k"}) {
        const ButtonSlotEditor editor = Open(Button(letter, {L"47"}));
        EXPECT_THAT(Shown(editor), ElementsAre(L"Paste", L"", L"", L"", L""));
        EXPECT_TRUE(editor.IsMethodLocked());
    }
}

TEST_F(ShownSlots, AShortcutKeyShowsItsName_WhateverElseIsStored) {
    ButtonSlot slot = Button(L"K", {L"46", L"C:\\Apps\\Mail.exe"});
    slot.Program(1).Title = L"Music";
    slot.Program(2).Title = L"Title";
    Globals().MediaCenterPicked = true;
    EXPECT_THAT(Shown(Open(slot)), ElementsAre(L"Copy", L"", L"", L"", L""));
    EXPECT_FALSE(Globals().MediaCenterPicked);
}

TEST_F(ShownSlots, AShortcutKeyThatIsNotInTheListShowsNothing_ButLocksTheMethod) {
    for (const wchar_t* code : {L"48", L"046", L" 46", L"", L"Copy"}) {
        const ButtonSlotEditor editor = Open(Button(L"K", {code}));
        EXPECT_EQ(editor.ShownText(0), L"") << testing::PrintToString(std::wstring(code));
        EXPECT_TRUE(editor.IsMethodLocked());
    }
}

TEST_F(ShownSlots, OfTwoShortcutKeysWithOneCodeTheFirstIsShown) {
    disk.AddFile(L"C:\\Program Files\\QLBUtl\\QLBCODE.DAT", "a,46,First\nb,46,Second\n");
    sources.LoadShortcutKeys();
    EXPECT_EQ(Open(Button(L"K", {L"46"})).ShownText(0), L"First");
}

TEST_F(ShownSlots, AMediaCenterItemShowsItsTitle_LocksTheMethod_AndIsPicked) {
    for (const wchar_t* letter : {L"M", L"m"}) {
        ButtonSlot slot = MusicButton();
        slot.Exec = letter;
        Globals().MediaCenterPicked = false;
        const ButtonSlotEditor editor = Open(slot);
        EXPECT_THAT(Shown(editor), ElementsAre(L"Music", L"", L"", L"", L""));
        EXPECT_TRUE(editor.IsMethodLocked());
        EXPECT_TRUE(Globals().MediaCenterPicked);
    }
}

TEST_F(ShownSlots, AMediaCenterItemIsKnownByItsTitleAlone) {
    ButtonSlot slot = MusicButton();
    slot.Program(1).AP = L"D:\\other.exe";
    EXPECT_EQ(Open(slot).ShownText(0), L"Music");
    EXPECT_TRUE(Globals().MediaCenterPicked);
}

TEST_F(ShownSlots, ASingleFavouriteIsTakenForTheMediaCenterItemOfItsTitle) {
    ButtonSlot slot = Button(L"M", {L"iexplore.exe|http://music.example/"});
    slot.Program(1).Param = L"http://music.example/";
    slot.Program(1).Title = L"Music";
    const ButtonSlotEditor editor = Open(slot);
    EXPECT_THAT(Shown(editor), ElementsAre(L"Music", L"", L"", L"", L""));
    EXPECT_TRUE(editor.IsMethodLocked());
    EXPECT_TRUE(Globals().MediaCenterPicked);
}

TEST_F(ShownSlots, ASingleProgramWithATitleShowsNothing_WhenMediaCenterHasNoSuchTitle) {
    for (const wchar_t* title : {L"News", L"music", L"Music ", L"My Music"}) {
        ButtonSlot slot = Button(L"M", {L"C:\\Apps\\Mail.exe"});
        slot.Program(1).Title = title;
        Globals().MediaCenterPicked = true;
        const ButtonSlotEditor editor = Open(slot);
        EXPECT_THAT(Shown(editor), ElementsAre(L"", L"", L"", L"", L""));
        EXPECT_FALSE(editor.IsMethodLocked());
        EXPECT_FALSE(Globals().MediaCenterPicked);
    }
}

TEST_F(ShownSlots, ASingleFavouriteShowsNothingWhenItIsOpenedAgain) {
    ButtonSlotEditor placed = Open(Button(L"M", {}));
    DragOnto(placed, 0, Favorite(L"C:\\Favorites\\News.url"));
    ASSERT_EQ(placed.ShownText(0), L"News.url");
    EXPECT_EQ(Open(placed.Slot()).ShownText(0), L"");
}

TEST_F(ShownSlots, ASingleProgramWithATitleShowsNothing_WhenMediaCenterIsNotOffered) {
    PutMachine(L"UTLSetting\\ProgramGroup", L"MCMenu", 0);
    sources.LoadMediaCenter();
    const ButtonSlotEditor editor = Open(MusicButton());
    EXPECT_EQ(editor.ShownText(0), L"");
    EXPECT_FALSE(editor.IsMethodLocked());
}

TEST_F(ShownSlots, ATitleWithASecondProgramIsNoMediaCenterItem) {
    ButtonSlot slot = Button(L"M", {L"C:\\mc\\mc.exe /music", L"C:\\Apps\\Mail.exe"});
    slot.Program(1).Title = L"Music";
    const ButtonSlotEditor editor = Open(slot);
    EXPECT_THAT(Shown(editor), ElementsAre(L"Music", L"Mail", L"", L"", L""));
    EXPECT_FALSE(editor.IsMethodLocked());
}

TEST_F(ShownSlots, ATitleInASequenceIsNoMediaCenterItem) {
    for (const wchar_t* letter : {L"S", L"P"}) {
        ButtonSlot slot = MusicButton();
        slot.Exec = letter;
        const ButtonSlotEditor editor = Open(slot);
        EXPECT_EQ(editor.ShownText(0), L"Music");
        EXPECT_FALSE(editor.IsMethodLocked());
    }
}

TEST_F(ShownSlots, AnUnknownLetterIsReadAsASingleProgram) {
    for (const wchar_t* letter : {L"X", L""}) {
        ButtonSlot slot = MusicButton();
        slot.Exec = letter;
        const ButtonSlotEditor music = Open(slot);
        EXPECT_EQ(music.ShownText(0), L"Music");
        EXPECT_TRUE(music.IsMethodLocked());
        EXPECT_FALSE(music.CanSetParameter());
        slot.Program(1).Title = L"News";
        EXPECT_EQ(Open(slot).ShownText(0), L"");

        slot = Sequence(3);
        slot.Exec = letter;
        ButtonSlotEditor programs = Open(slot);
        programs.DeleteByKey(0);
        EXPECT_EQ(programs.Slot().NumAP, 1);
    }
}

TEST_F(ChosenOption, GivesTheLetterAndTheSlots) {
    ButtonSlotEditor editor = Open(Sequence(2));
    editor.ChooseOption(2);
    EXPECT_EQ(editor.Slot().Exec, L"P");
    EXPECT_EQ(editor.Option(), 2);
    ExpectEnabledSlots(editor, 5);
    editor.ChooseOption(1);
    EXPECT_EQ(editor.Slot().Exec, L"S");
    EXPECT_EQ(editor.Option(), 1);
    ExpectEnabledSlots(editor, 5);
    editor.ChooseOption(0);
    EXPECT_EQ(editor.Slot().Exec, L"M");
    EXPECT_EQ(editor.Option(), 0);
    ExpectEnabledSlots(editor, 1);
}

TEST_F(ChosenOption, SingleKeepsAShortcutKey) {
    ButtonSlotEditor editor = Open(Button(L"K", {L"46"}));
    editor.ChooseOption(0);
    EXPECT_EQ(editor.Slot().Exec, L"K");
    EXPECT_EQ(editor.Slot().NumAP, 1);
}

TEST_F(ChosenOption, ASmallKBecomesM_ByWayOfASequence) {
    ButtonSlotEditor editor = Open(Button(L"k", {L"46"}));
    EXPECT_EQ(editor.Option(), 0);
    editor.ChooseOption(1);
    EXPECT_EQ(editor.Slot().Exec, L"S");
    editor.ChooseOption(0);
    EXPECT_EQ(editor.Slot().Exec, L"M");
}

TEST_F(ChosenOption, SingleCountsTheFirstProgramAlone) {
    ButtonSlotEditor three = Open(Sequence(3));
    three.ChooseOption(0);
    EXPECT_EQ(three.Slot().NumAP, 1);

    ButtonSlot gap = Button(L"S", {L"", L"C:\\Apps\\Mail.exe"});
    ButtonSlotEditor none = Open(gap);
    none.ChooseOption(0);
    EXPECT_EQ(none.Slot().NumAP, 0);
}

TEST_F(ChosenOption, SeveralCountUpToTheFirstEmptySlot) {
    struct Case {
        std::vector<std::wstring> commands;
        int count;
    };
    for (const auto& [commands, count] : {Case{{}, 0}, Case{{L"a"}, 1}, Case{{L"a", L"b", L"", L"d"}, 2},
                                          Case{{L"", L"b"}, 0}, Case{{L"a", L"b", L"c", L"d", L"e"}, 5}}) {
        for (const int option : {1, 2}) {
            ButtonSlot slot = Button(L"M", commands);
            slot.NumAP = 3;
            ButtonSlotEditor editor = Open(slot);
            editor.ChooseOption(option);
            EXPECT_EQ(editor.Slot().NumAP, count) << commands.size() << " option " << option;
        }
    }
}

TEST_F(ChosenOption, OtherProgramsStayBehindASingleOne_AndCountAgain) {
    ButtonSlotEditor editor = Open(Sequence(3));
    const std::vector<std::wstring> shown = Shown(editor);
    editor.ChooseOption(0);
    EXPECT_EQ(Shown(editor), shown);
    editor.ChooseOption(1);
    EXPECT_EQ(editor.Slot(), Sequence(3));
    EXPECT_EQ(Shown(editor), shown);
}

TEST_F(ChosenOption, DoesNotTouchTheName) {
    ButtonSlotEditor editor = Open(Sequence(2));
    for (const int option : {0, 1, 2, 0}) {
        editor.ChooseOption(option);
        EXPECT_EQ(editor.Slot().Name, L"Button");
    }
}

} // namespace
