#include "MainDialog.h"

namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::Test;

constexpr const wchar_t* kFirstButton = L"Setting\\Set1\\AppKey1";
constexpr const wchar_t* kSecondPatternsFirstButton = L"Setting\\Set2\\AppKey1";

class Saving : public Test, public LoadedMainDialog {};

TEST_F(Saving, OkWritesTheNumbersAndAsksNothing_WithoutAChange) {
    EXPECT_TRUE(settings.Ok(AskNothing));
    EXPECT_THAT(Written(), ElementsAre("CurrSetting = 1", "NumSetting = 2"));
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(Saving, OkWritesTheNumbersBeforeItAsks) {
    settings.SetButtonName(1, L"Post");
    std::vector<std::string> writtenWhenAsked;
    EXPECT_TRUE(settings.Ok([&] {
        writtenWhenAsked = Written();
        return SaveAnswer::Yes;
    }));
    EXPECT_THAT(writtenWhenAsked, ElementsAre("CurrSetting = 1", "NumSetting = 2"));
}

TEST_F(Saving, OkSavesTellsTheLauncherAndCloses_WhenTheAnswerIsYes) {
    settings.SetButtonName(1, L"Post");
    EXPECT_TRUE(settings.Ok(AnswerYes));
    EXPECT_EQ(UserString(kFirstButton, L"DispTitle"), "Post");
    EXPECT_FALSE(settings.AnythingChanged());
    EXPECT_EQ(windows.Events().size(), 1U);
}

TEST_F(Saving, OkClosesWithoutSaving_WhenTheAnswerIsNo) {
    settings.SetButtonName(1, L"Post");
    EXPECT_TRUE(settings.Ok(AnswerNo));
    EXPECT_THAT(Written(), ElementsAre("CurrSetting = 1", "NumSetting = 2"));
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(Saving, OkStaysWithTheEdits_WhenTheAnswerIsCancel) {
    settings.SetButtonName(1, L"Post");
    EXPECT_FALSE(settings.Ok(AnswerCancel));
    EXPECT_THAT(Written(), ElementsAre("CurrSetting = 1", "NumSetting = 2"));
    EXPECT_EQ(settings.Slot(1).Name, L"Post");
    EXPECT_TRUE(settings.PatternChanged());
}

TEST_F(Saving, OkAsks_WhenOnlyTheScreenHasChanged) {
    OnScreenSettings screen = settings.OnScreen();
    screen.Color = 255;
    settings.SetOnScreen(screen);
    EXPECT_TRUE(settings.Ok(AnswerYes));
    EXPECT_EQ(UserDword(L"OnScreen", L"Color"), 255);
}

TEST_F(Saving, ApplyWritesTheNumbers_ThenThePattern_ThenTheScreen_AndLeavesTheRestAlone) {
    settings.SetButtonName(1, L"Post");
    settings.Apply();
    const std::vector<std::string> written = Written();
    EXPECT_EQ(written.at(2), "Setting\\Set1 SetName = \"Home\"");
    EXPECT_THAT(written, Contains("Setting\\Set1\\AppKey1 DispTitle = \"Post\""));
    EXPECT_THAT(WrittenElsewhere("Setting\\Set1"),
                ElementsAre("CurrSetting = 1", "NumSetting = 2", "OnScreen OnScreen = 0",
                            "OnScreen FontFace = \"Arial\"", "OnScreen size = 3", "OnScreen Color = 0"));
    EXPECT_THAT(written.back(), StartsWith("OnScreen "));
}

TEST_F(Saving, SavesAllShownButtonsAndNoOther) {
    settings.Apply();
    EXPECT_THAT(Written(), Contains(StartsWith("Setting\\Set1\\AppKey7 ")));
    EXPECT_THAT(Written(), Not(Contains(StartsWith("Setting\\Set1\\AppKey8 "))));
}

TEST_F(Saving, HasNothingToSaveAnyMore_OnceSaved) {
    OnScreenSettings screen = settings.OnScreen();
    screen.Color = 255;
    settings.SetOnScreen(screen);
    settings.SetButtonName(1, L"");
    settings.Apply();
    EXPECT_FALSE(settings.AnythingChanged());
    EXPECT_EQ(settings.Slot(1).Name, L" ");
}

TEST_F(Saving, HasTheNamesThatTheCodePageCanStore_OnceSaved) {
    settings.SetButtonName(1, L"a\x65E5z");
    settings.Apply();
    EXPECT_EQ(settings.Slot(1).Name, L"a?z");
    EXPECT_EQ(UserString(kFirstButton, L"DispTitle"), "a?z");
    EXPECT_FALSE(settings.AnythingChanged());
}

TEST_F(Saving, TellsTheLauncherOnce_AfterEverythingIsStored) {
    settings.SetButtonName(1, L"Post");
    std::size_t writesWhenTold = 0;
    windows.whileSending = [&] { writesWhenTold = Written().size(); };
    settings.Apply();
    EXPECT_THAT(windows.Events(),
                ElementsAre(FakeWindows::Event{FakeWindows::Deed::Sent, launcher, 1336, 1, 0}));
    EXPECT_EQ(writesWhenTold, Written().size());
    EXPECT_GT(writesWhenTold, 0U);
}

TEST_F(Saving, CountsATitleAsNoChange_ButSavesIt) {
    PutUser(kFirstButton, L"ProgName1", "Changed");
    MainSettings other(store, notification, fonts);
    other.Load();
    EXPECT_TRUE(PatternsEqual(settings.Working(), other.Working(), 7));
    PutUser(kFirstButton, L"ProgName1", "Elsewhere");
    other.Apply();
    EXPECT_EQ(UserString(kFirstButton, L"ProgName1"), "Changed");
}

TEST_F(Saving, OkNeitherAsksNorSaves_WhenOnlyATitleChanged) {
    PutUser(kFirstButton, L"ProgName1", "Former");
    settings.Load();
    ForgetOperations();
    ButtonSlot slot = settings.Slot(1);
    slot.Program(1).Title = L"Changed";
    settings.SetSlot(1, slot);
    EXPECT_TRUE(settings.Ok(AskNothing));
    EXPECT_EQ(UserString(kFirstButton, L"ProgName1"), "Former");
}

TEST_F(Saving, SwitchesToAnotherPatternAtOnce) {
    settings.SwitchPattern(2, AskNothing);
    EXPECT_EQ(settings.CurrentPattern(), 2);
    EXPECT_EQ(settings.Working().UserName, L"Work");
    EXPECT_EQ(settings.Slot(1).Name, L"Report");
    EXPECT_FALSE(settings.AnythingChanged());
    EXPECT_THAT(Written(), ElementsAre("CurrSetting = 2"));
}

TEST_F(Saving, DropsTheEdits_WhenItSwitchesWithoutSaving) {
    settings.SetButtonName(1, L"Other");
    settings.SwitchPattern(2, AnswerNo);
    EXPECT_THAT(Written(), ElementsAre("CurrSetting = 2"));
    settings.SwitchPattern(1, AskNothing);
    EXPECT_EQ(settings.Slot(1).Name, L"Mail");
    EXPECT_EQ(UserString(kFirstButton, L"DispTitle"), "Mail");
}

TEST_F(Saving, SavesTheEditsUnderTheOldNumber_BeforeItSwitches) {
    settings.SetButtonName(1, L"Post");
    settings.SwitchPattern(2, AnswerYes);
    EXPECT_EQ(UserString(kFirstButton, L"DispTitle"), "Post");
    EXPECT_EQ(UserString(kSecondPatternsFirstButton, L"DispTitle"), "Report");
    EXPECT_EQ(settings.Slot(1).Name, L"Report");
    EXPECT_THAT(WrittenElsewhere("Setting\\Set1"), ElementsAre("CurrSetting = 2"));
    EXPECT_EQ(Written().back(), "CurrSetting = 2");
}

TEST_F(Saving, StaysWithTheEdits_WhenTheAnswerToASwitchIsCancel) {
    settings.SetButtonName(1, L"Post");
    settings.SwitchPattern(2, AnswerCancel);
    EXPECT_EQ(settings.CurrentPattern(), 1);
    EXPECT_EQ(settings.Slot(1).Name, L"Post");
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(Saving, SwitchesToNoPatternThatIsNotInTheList_NorToTheCurrentOne) {
    settings.SetButtonName(1, L"Post");
    for (const int number : {1, 0, -1, 3, 11}) {
        settings.SwitchPattern(number, AskNothing);
    }
    EXPECT_EQ(settings.CurrentPattern(), 1);
    EXPECT_EQ(settings.Slot(1).Name, L"Post");
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(Saving, LeavesTheScreenPending_WhenItSwitches) {
    OnScreenSettings screen = settings.OnScreen();
    screen.Color = 255;
    settings.SetOnScreen(screen);
    settings.SwitchPattern(2, AskNothing);
    EXPECT_EQ(settings.OnScreen(), screen);
    EXPECT_TRUE(settings.AnythingChanged());
    EXPECT_THAT(Written(), Each(Not(HasSubstr("OnScreen"))));
}

TEST_F(Saving, TellsTheLauncherOnce_WhenTheNewNumberIsStored) {
    std::optional<std::int32_t> currentWhenTold;
    windows.whileSending = [&] { currentWhenTold = UserDword(L"", L"CurrSetting"); };
    settings.SwitchPattern(2, AskNothing);
    EXPECT_EQ(currentWhenTold, 2);
    EXPECT_THAT(windows.Events(),
                ElementsAre(FakeWindows::Event{FakeWindows::Deed::Sent, launcher, 1336, 1, 0}));
}

TEST_F(Saving, ShowsTheNewPattern_BeforeTheLauncherTakesItsTime) {
    std::wstring shown;
    std::size_t toldBefore = 1;
    settings.SwitchPattern(2, AskNothing, [&] {
        shown = settings.Slot(1).Name;
        toldBefore = windows.Events().size();
    });
    EXPECT_EQ(shown, L"Report");
    EXPECT_EQ(toldBefore, 0U);
    EXPECT_EQ(windows.Events().size(), 1U);
}

TEST_F(Saving, ShowsThePicturesOfTheNewPattern) {
    PutUser(kSecondPatternsFirstButton, L"Execute", "P");
    settings.SwitchPattern(2, AskNothing);
    EXPECT_EQ(settings.PictureOf(1), kPictureSimul);
    PutUser(kFirstButton, L"NumAP", 0);
    settings.SwitchPattern(1, AskNothing);
    EXPECT_EQ(settings.PictureOf(1), kPictureNoApp);
}

TEST_F(Saving, TakesTheNumbersAndNamesThatTheManagerLeft) {
    PutUser(L"", L"CurrSetting", 2);
    PutUser(L"", L"NumSetting", 3);
    PutUser(L"Setting\\Set2", L"SetName", "Renamed");
    OpenAndCloseManager();
    EXPECT_EQ(settings.CurrentPattern(), 2);
    EXPECT_THAT(settings.PatternNames(), ElementsAre(L"Home", L"Renamed", L"Standard"));
    EXPECT_EQ(settings.Working().UserName, L"Renamed");
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(Saving, KeepsUnsavedEdits_WhateverTheManagerDoesToOtherPatterns) {
    settings.SetButtonName(1, L"Post");
    UseManager([](PatternList& list) {
        list.Add(L"New");
        list.Copy(0, L"Copied");
        list.Rename(0, L"Renamed");
        list.Delete(1);
    });
    EXPECT_EQ(settings.Slot(1).Name, L"Post");
    EXPECT_EQ(settings.Working().UserName, L"Renamed");
    EXPECT_TRUE(settings.PatternChanged());
    EXPECT_THAT(settings.PatternNames(), ElementsAre(L"Renamed", L"New", L"Copied"));
}

TEST_F(Saving, FollowsItsPattern_WhenTheManagerDeletesTheOneBefore) {
    settings.SwitchPattern(2, AskNothing);
    settings.SetButtonName(1, L"Post");
    UseManager([](PatternList& list) { list.Delete(0); });
    EXPECT_EQ(settings.CurrentPattern(), 1);
    EXPECT_EQ(settings.Slot(1).Name, L"Post");
    EXPECT_EQ(UserString(kFirstButton, L"DispTitle"), "Report");
    settings.Apply();
    EXPECT_EQ(UserString(kFirstButton, L"DispTitle"), "Post");
}

TEST_F(Saving, KeepsUnsavedEdits_WhenAnEarlierSaveWasRefused) {
    settings.SetButtonName(1, L"Post");
    registry.refusesWrites = true;
    settings.Apply();
    settings.SetButtonName(2, L"Letters");
    OpenAndCloseManager();
    EXPECT_EQ(settings.Slot(1).Name, L"Post");
    EXPECT_EQ(settings.Slot(2).Name, L"Letters");
}

// Edits of one Pattern never go over another.

TEST_F(Saving, ShowsThePatternThatAnotherProgramMadeCurrent_OnceTheManagerCloses) {
    settings.SetButtonName(1, L"Post");
    PutUser(L"", L"CurrSetting", 2);
    OpenAndCloseManager();
    EXPECT_EQ(settings.CurrentPattern(), 2);
    EXPECT_EQ(settings.Working().UserName, L"Work");
    EXPECT_EQ(settings.Slot(1).Name, L"Report");
    EXPECT_FALSE(settings.AnythingChanged());
    settings.Apply();
    EXPECT_EQ(UserString(kSecondPatternsFirstButton, L"DispTitle"), "Report");
}

TEST_F(Saving, ShowsThePatternThatAnotherProgramMadeCurrent_WhileTheManagerIsOpen) {
    settings.SetButtonName(1, L"Post");
    UseManager([this](PatternList& /*list*/) { PutUser(L"", L"CurrSetting", 2); });
    EXPECT_EQ(settings.CurrentPattern(), 2);
    EXPECT_EQ(settings.Slot(1).Name, L"Report");
}

TEST_F(Saving, ShowsThePatternThatMovedUp_WhenItsOwnWasDeleted) {
    settings.SetButtonName(1, L"Post");
    PutUser(L"", L"CurrSetting", 2); // which lets the manager delete the first
    UseManager([](PatternList& list) { list.Delete(0); });
    EXPECT_EQ(settings.CurrentPattern(), 1);
    EXPECT_EQ(settings.Working().UserName, L"Work");
    EXPECT_EQ(settings.Slot(1).Name, L"Report");
}

TEST_F(Saving, ShowsWhatIsStored_WhenADeletionsNewNumberWasRefused) {
    PutPattern(3, "Travel", "Maps");
    PutUser(L"", L"NumSetting", 3);
    settings.Load();
    settings.SwitchPattern(2, AskNothing);
    settings.SetButtonName(1, L"Post");
    registry.refusedName = L"CurrSetting";
    UseManager([](PatternList& list) { list.Delete(0); });
    EXPECT_EQ(settings.CurrentPattern(), 2);
    EXPECT_EQ(settings.Working().UserName, L"Travel");
    EXPECT_EQ(settings.Slot(1).Name, L"Maps");
}

TEST_F(Saving, ShowsWhatIsStored_WhenADeletionCouldNotMoveItsPattern) {
    settings.SwitchPattern(2, AskNothing);
    settings.SetButtonName(1, L"Post");
    registry.refusedName = L"SetName";
    UseManager([](PatternList& list) { list.Delete(0); });
    EXPECT_EQ(settings.CurrentPattern(), 1);
    EXPECT_EQ(settings.Working().UserName, L"Home");
    EXPECT_FALSE(settings.PatternChanged());
}

TEST_F(Saving, ShowsTheStoredCurrentPattern_WhenTheNumberOfASwitchWasRefused) {
    registry.refusedName = L"CurrSetting";
    settings.SwitchPattern(2, AskNothing);
    settings.SetButtonName(1, L"Letters");
    OpenAndCloseManager();
    EXPECT_EQ(settings.CurrentPattern(), 1);
    EXPECT_EQ(settings.Slot(1).Name, L"Mail");
}

TEST_F(Saving, SavesIntoItsOwnPattern_WhenTheNumberOfASwitchWasRefused) {
    registry.refusedName = L"CurrSetting";
    settings.SwitchPattern(2, AskNothing);
    settings.SetButtonName(1, L"Letters");
    settings.Apply();
    EXPECT_EQ(UserString(kSecondPatternsFirstButton, L"DispTitle"), "Letters");
    EXPECT_EQ(UserString(kFirstButton, L"DispTitle"), "Mail");
    registry.refusedName.clear();
    settings.Apply();
    EXPECT_EQ(UserDword(L"", L"CurrSetting"), 2);
}

class BeyondTheList : public Test, public MainDialog {
public:
    BeyondTheList() {
        PutPattern(3, "Travel", "Maps");
        PutUser(L"", L"CurrSetting", 3);
        settings.Load();
        settings.SetButtonName(1, L"Post");
        ForgetOperations();
    }
};

TEST_F(BeyondTheList, ThePatternStaysWithItsEdits_WhateverIsDeleted) {
    UseManager([](PatternList& list) {
        EXPECT_EQ(list.CurrentPattern(), 1);
        list.Delete(1);
    });
    EXPECT_EQ(settings.CurrentPattern(), 3);
    EXPECT_EQ(settings.Slot(1).Name, L"Post");
    EXPECT_EQ(settings.Working().UserName, L"Travel");
}

TEST_F(BeyondTheList, ANewPatternTakesItsPlaceAndIsShown) {
    UseManager([](PatternList& list) { list.Add(L"New"); });
    EXPECT_EQ(settings.CurrentPattern(), 3);
    EXPECT_EQ(settings.Working().UserName, L"New");
    EXPECT_EQ(settings.Slot(1).Name, L"Default");
    EXPECT_FALSE(settings.AnythingChanged());
}

TEST_F(BeyondTheList, ThePatternStaysWithItsEdits_WhenANewOneTakesAnotherPlace) {
    PutUser(L"", L"NumSetting", 1);
    UseManager([](PatternList& list) { list.Add(L"New"); });
    EXPECT_EQ(settings.CurrentPattern(), 3);
    EXPECT_EQ(settings.Slot(1).Name, L"Post");
}

TEST_F(Saving, StoresTheNewNameOfARenamedPattern) {
    PutUser(L"Setting\\Set1", L"SetName", "Renamed");
    OpenAndCloseManager();
    settings.Apply();
    EXPECT_EQ(UserString(L"Setting\\Set1", L"SetName"), "Renamed");
}

TEST_F(Saving, ACountAboveTenStays_SoThatTheManagerPutsNoPatternOverAnother) {
    for (int number = 3; number <= 12; ++number) {
        PutPattern(number, ("Number " + std::to_string(number)).c_str(), "Button");
    }
    PutUser(L"", L"NumSetting", 12);
    settings.Load();
    EXPECT_TRUE(settings.Ok(AskNothing));
    settings.Apply();
    UseManager([](PatternList& list) {
        EXPECT_EQ(list.Count(), 12);
        EXPECT_FALSE(list.CanAdd());
        list.Delete(11);
    });
    settings.Apply();
    EXPECT_THAT(Written(), Contains("NumSetting = 12"));
    EXPECT_THAT(Written(), Contains("NumSetting = 11"));
    EXPECT_THAT(Written(), Not(Contains("NumSetting = 1")));
    UseManager([](PatternList& list) { EXPECT_EQ(list.Count(), 11); });
}

TEST_F(Saving, TakesOnePatternAndTheFirst_WhenTheManagerLeftNoValidNumbers) {
    PutUser(L"", L"CurrSetting", 11);
    PutUser(L"", L"NumSetting", 0);
    OpenAndCloseManager();
    EXPECT_EQ(settings.CurrentPattern(), 1);
    EXPECT_THAT(settings.PatternNames(), ElementsAre(L"Home"));
}

TEST_F(Saving, NamesTheCurrentPatternByTheDefault_WhenItsNameIsGone) {
    registry.Remove(RegistryHive::CurrentUser, Path(L"Setting\\Set1"), L"SetName");
    OpenAndCloseManager();
    EXPECT_EQ(settings.Working().UserName, L"Standard");
}

TEST_F(Saving, SavesUnderTheNewNumber_OnceSwitched) {
    settings.SwitchPattern(2, AskNothing);
    settings.SetButtonName(1, L"Letter");
    settings.Apply();
    EXPECT_EQ(UserString(kSecondPatternsFirstButton, L"DispTitle"), "Letter");
    EXPECT_EQ(UserString(kFirstButton, L"DispTitle"), "Mail");
    EXPECT_EQ(UserDword(L"", L"CurrSetting"), 2);
    EXPECT_EQ(UserDword(L"", L"NumSetting"), 2);
}

TEST_F(Saving, ShowsTheDefaults_WhenItSwitchesToAPatternThatWasNeverSaved) {
    PutUser(L"", L"NumSetting", 9);
    settings.Load();
    settings.SwitchPattern(9, AskNothing);
    EXPECT_EQ(settings.Slot(1).Name, L"Default");
    EXPECT_EQ(settings.Working().UserName, L"Standard");
}

TEST_F(Saving, SavesWithoutALauncher) {
    windows.Close(launcher);
    settings.SetButtonName(1, L"Post");
    settings.Apply();
    EXPECT_EQ(UserString(kFirstButton, L"DispTitle"), "Post");
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(Saving, NeverWritesToTheMachine) {
    settings.Apply();
    settings.SwitchPattern(2, AskNothing);
    EXPECT_THAT(Written(), Each(Not(StartsWith("HKLM"))));
}

class LoadedFromTheFile : public Test, public MainDialog {
public:
    LoadedFromTheFile() {
        store.IniFileExist = true;
        PutLine(L"KORVOQLB", L"CurrUser", "2");
        PutLine(L"KORVOQLB", L"NumUser", "2");
        PutLine(L"USER1", L"UserName", "File home");
        PutLine(L"USER2", L"UserName", "File work");
        PutLine(L"USER2", L"Btn1_Name", "File report");
        settings.Load();
        ForgetOperations();
    }
};

TEST_F(LoadedFromTheFile, TakesTheUsersSettingsFromThere) {
    EXPECT_EQ(settings.CurrentPattern(), 2);
    EXPECT_THAT(settings.PatternNames(), ElementsAre(L"File home", L"File work"));
    EXPECT_EQ(settings.Slot(1).Name, L"File report");
}

TEST_F(LoadedFromTheFile, WritesThereAndNowhereElse) {
    settings.Apply();
    settings.SetButtonName(1, L"File letter");
    settings.SwitchPattern(1, AnswerYes);
    EXPECT_THAT(registry.Writes(), IsEmpty());
    EXPECT_EQ(Line(L"KORVOQLB", L"CurrUser"), "1");
    EXPECT_EQ(Line(L"KORVOQLB", L"NumUser"), "2");
    EXPECT_EQ(Line(L"USER2", L"Btn1_Name"), "File letter");
    EXPECT_EQ(Line(L"ONSCREEN", L"FontName"), "MS Shell Dlg 2");
}

} // namespace
