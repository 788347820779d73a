#include "RegistrationDialog.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Test;

std::string WayName(const testing::TestParamInfo<bool>& info) {
    return info.param ? "ByMenu" : "ByKey";
}

/// The menu's Delete, or the key.
class Removing : public testing::TestWithParam<bool>, public RegistrationDialog {
public:
    static void Remove(ButtonSlotEditor& editor, int slot) {
        GetParam() ? editor.DeleteByMenu(slot) : editor.DeleteByKey(slot);
    }
    /// Four programs with parameters and titles of their own.
    [[nodiscard]] static ButtonSlot Four() {
        ButtonSlot slot = Sequence(4);
        for (int number = 1; number <= 4; ++number) {
            slot.Program(number).Param = L"p" + std::to_wstring(number);
            slot.Program(number).Title = L"t" + std::to_wstring(number);
        }
        return slot;
    }
};

class RemovingByMenu : public Test, public RegistrationDialog {};
class RemovingByKey : public Test, public RegistrationDialog {};
class ProgramParameter : public Test, public RegistrationDialog {};

TEST_P(Removing, TheSecondOfFourMovesTheOthersUp) {
    ButtonSlotEditor editor = Open(Four());
    Remove(editor, 1);
    EXPECT_THAT(Commands(editor),
                ElementsAre(L"C:\\Apps\\Mail.exe", L"C:\\Apps\\Paint.exe", L"C:\\Apps\\Calc.exe", L"", L""));
    EXPECT_THAT(Parameters(editor), ElementsAre(L"p1", L"p3", L"p4", L"", L""));
    EXPECT_THAT(Titles(editor), ElementsAre(L"t1", L"t3", L"t4", L"", L""));
    EXPECT_THAT(Shown(editor), ElementsAre(L"t1", L"t3", L"t4", L"", L""));
    EXPECT_EQ(editor.Slot().NumAP, 3);
    EXPECT_EQ(editor.Slot().Name, L"Button");
}

TEST_P(Removing, TheLastOfFiveClearsItsSlot) {
    ButtonSlot slot = Sequence(5);
    slot.Program(5).Param = L"parameter";
    slot.Program(5).Title = L"title";
    ButtonSlotEditor editor = Open(slot);
    Remove(editor, 4);
    EXPECT_EQ(editor.Slot(), Sequence(4));
    EXPECT_EQ(editor.ShownText(4), L"");
}

TEST_P(Removing, TheFirstGivesTheButtonTheNewFirstName) {
    ButtonSlotEditor editor = Open(Sequence(3));
    Remove(editor, 0);
    EXPECT_THAT(Commands(editor),
                ElementsAre(L"C:\\Apps\\app.v2.exe", L"C:\\Apps\\Paint.exe", L"", L"", L""));
    EXPECT_EQ(editor.Slot().NumAP, 2);
    EXPECT_EQ(editor.Slot().Name, GetParam() ? L"app.v2" : L"app");
}

TEST_P(Removing, AllLeavesNothing) {
    ButtonSlotEditor editor = Open(Four());
    for (int count = 3; count >= 0; --count) {
        Remove(editor, 0);
        EXPECT_EQ(editor.Slot().NumAP, count);
    }
    EXPECT_EQ(editor.Slot().Name, L"");
    EXPECT_THAT(Commands(editor), Each(L""));
    EXPECT_THAT(Parameters(editor), Each(L""));
    EXPECT_THAT(Titles(editor), Each(L""));
    EXPECT_THAT(Shown(editor), Each(L""));
    Remove(editor, 0);
    EXPECT_EQ(editor.Slot().NumAP, 0);
    EXPECT_EQ(editor.Slot().Exec, L"S");
}

TEST_P(Removing, AnEmptySlotChangesNothing) {
    ButtonSlot slot = Sequence(2);
    for (const int empty : {2, 3, 4}) {
        ButtonSlotEditor editor = Open(slot);
        Remove(editor, empty);
        EXPECT_EQ(editor.Slot(), slot);
    }
    slot = Sequence(0);
    ButtonSlotEditor editor = Open(slot);
    Remove(editor, 0);
    EXPECT_EQ(editor.Slot(), slot) << "the name stays too";
}

TEST_P(Removing, TheCountDoesNotFallBelow0) {
    ButtonSlot slot = Sequence(2);
    slot.NumAP = 0;
    ButtonSlotEditor editor = Open(slot);
    Remove(editor, 1);
    EXPECT_EQ(editor.Slot().NumAP, 0);
}

TEST_P(Removing, TheCountOfSeveralFallsByOne_EvenPastAGap) {
    ButtonSlot slot = Button(L"P", {L"", L"C:\\Apps\\Mail.exe", L"C:\\Apps\\Paint.exe"});
    ButtonSlotEditor editor = Open(slot);
    Remove(editor, 2);
    EXPECT_EQ(editor.Slot().NumAP, 2);
}

TEST_P(Removing, TheCountOfAShortcutKeyFallsByOne_WhateverIsStoredBehindIt) {
    ButtonSlot slot = Button(L"K", {L"46", L"C:\\Apps\\Mail.exe"});
    slot.NumAP = 1;
    ButtonSlotEditor editor = Open(slot);
    Remove(editor, 0);
    EXPECT_EQ(editor.Slot().NumAP, 0);
    EXPECT_EQ(editor.Slot().Program(1).AP, L"C:\\Apps\\Mail.exe");
}

TEST_P(Removing, ASingleProgramLeavesNone) {
    ButtonSlotEditor editor = Open(Button(L"M", {L"C:\\Apps\\Mail.exe"}));
    Remove(editor, 0);
    EXPECT_EQ(editor.Slot().NumAP, 0);
    EXPECT_EQ(editor.Slot().Name, L"");
    EXPECT_EQ(editor.Slot().Exec, L"M");
    EXPECT_FALSE(editor.IsMethodLocked());
}

TEST_P(Removing, ASingleProgramMakesRoomForTheNext_WhichCountsAlone) {
    ButtonSlotEditor editor = Open(Sequence(3));
    editor.ChooseOption(0);
    Remove(editor, 0);
    EXPECT_EQ(editor.Slot().NumAP, 1);
    EXPECT_EQ(editor.Slot().Program(1).AP, L"C:\\Apps\\app.v2.exe");
}

TEST_P(Removing, AShortcutKey_FreesTheMethod) {
    ButtonSlotEditor editor = Open(Button(L"K", {L"46"}));
    Remove(editor, 0);
    EXPECT_EQ(editor.Slot().NumAP, 0);
    EXPECT_EQ(editor.Slot().Program(1).AP, L"");
    EXPECT_EQ(editor.Slot().Exec, L"M");
    EXPECT_FALSE(editor.IsMethodLocked());
}

TEST_P(Removing, AMediaCenterItem_FreesTheMethod) {
    ButtonSlotEditor editor = Open(MusicButton());
    Remove(editor, 0);
    EXPECT_EQ(editor.Slot().NumAP, 0);
    EXPECT_EQ(editor.Slot().Program(1).Title, L"");
    EXPECT_FALSE(editor.IsMethodLocked());
    EXPECT_FALSE(Globals().MediaCenterPicked);
}

INSTANTIATE_TEST_SUITE_P(EitherWay, Removing, testing::Bool(), WayName);

TEST_F(RemovingByMenu, DropsTheAction_WhenTheSlotShowsNothing) {
    ButtonSlot favourite = Button(L"M", {L"iexplore.exe|http://news.example/"});
    favourite.Program(1).Title = L"News";
    for (const ButtonSlot& slot : {favourite, Button(L"K", {L"99"})}) {
        ButtonSlotEditor editor = Open(slot);
        editor.DeleteByMenu(0);
        EXPECT_EQ(editor.Slot(), slot);
    }
}

TEST_F(RemovingByKey, RemovesACommand_EvenWhenTheSlotShowsNothing) {
    ButtonSlot favourite = Button(L"M", {L"iexplore.exe|http://news.example/"});
    favourite.Program(1).Title = L"News";
    for (const ButtonSlot& slot : {favourite, Button(L"K", {L"99"})}) {
        ButtonSlotEditor editor = Open(slot);
        editor.DeleteByKey(0);
        EXPECT_THAT(Commands(editor), Each(L""));
        EXPECT_THAT(Titles(editor), Each(L""));
        EXPECT_EQ(editor.Slot().NumAP, 0);
    }
}

TEST_F(RemovingByMenu, TakesATextWithoutACommand) {
    ButtonSlot slot = Sequence(1);
    slot.Program(2).Title = L"Title";
    ButtonSlotEditor editor = Open(slot);
    editor.DeleteByKey(1);
    EXPECT_EQ(editor.ShownText(1), L"Title") << "the key looks at the command";
    editor.DeleteByMenu(1);
    EXPECT_EQ(editor.ShownText(1), L"");
    EXPECT_EQ(editor.Slot().Program(2).Title, L"");
}

TEST_F(RemovingByMenu, KeepsTheExtensionInTheName_ThatTheKeyCuts) {
    const ButtonSlot slot = Button(L"S", {L"C:\\Apps\\Mail.exe", L"C:\\Gone\\tool.exe"});
    ButtonSlotEditor menu = Open(slot);
    menu.DeleteByMenu(0);
    EXPECT_EQ(menu.Slot().Name, L"tool.exe");
    EXPECT_EQ(menu.ShownText(0), L"tool.exe");
    ButtonSlotEditor key = Open(slot);
    key.DeleteByKey(0);
    EXPECT_EQ(key.Slot().Name, L"tool");
    EXPECT_EQ(key.ShownText(0), L"tool.exe");
}

TEST_F(ProgramParameter, IsOfItsSlotAlone) {
    ButtonSlotEditor editor = Open(Sequence(3));
    EXPECT_EQ(editor.Parameter(1), L"");
    editor.SetParameter(1, L" /x \"a b\" ");
    EXPECT_EQ(editor.Parameter(1), L" /x \"a b\" ");
    ButtonSlot expected = Sequence(3);
    expected.Program(2).Param = L" /x \"a b\" ";
    EXPECT_EQ(editor.Slot(), expected);
    editor.SetParameter(1, L"");
    EXPECT_EQ(editor.Slot(), Sequence(3));
}

TEST_F(ProgramParameter, IsNotForAShortcutKey) {
    EXPECT_FALSE(Open(Button(L"K", {L"46"})).CanSetParameter());
    EXPECT_FALSE(Open(Button(L"k", {L"46"})).CanSetParameter());
}

TEST_F(ProgramParameter, IsNotForAMediaCenterItem) {
    EXPECT_FALSE(Open(MusicButton()).CanSetParameter());
    EXPECT_TRUE(Open(Button(L"M", {L"C:\\Apps\\Mail.exe"})).CanSetParameter());
}

TEST_F(ProgramParameter, IsForEveryOtherProgram) {
    for (const wchar_t* letter : {L"M", L"m", L"S", L"s", L"P", L"p"}) {
        EXPECT_TRUE(Open(Button(letter, {L"C:\\Apps\\Mail.exe"})).CanSetParameter());
    }
    ButtonSlotEditor several = Open(Sequence(2));
    several.Begin(MediaCenter(kMusic));
    EXPECT_TRUE(several.CanSetParameter()) << "it has only begun";
    several.Cancel();
}

} // namespace
