#include "MainDialog.h"
#include "app/CommandLine.h"

#include <algorithm>

namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::Test;

class WizardSaving : public Test, public LoadedMainDialog {
public:
    WizardSaving() {
        result.Name = L"Morning";
        result.Exec = L"P";
        result.NumAP = 2;
        result.Program(1).AP = L"C:\\Mail.exe";
        result.Program(2).AP = L"iexplore.exe|http://news.example/";
        result.Program(2).Param = L"http://news.example/";
        result.Program(2).Title = L"News.url";
    }

    ButtonSlot result;
};

TEST_F(WizardSaving, StoresTheButtonAtOnce) {
    settings.SaveButton(2, result);
    EXPECT_EQ(settings.Slot(2), result);
    const wchar_t* key = L"Setting\\Set1\\AppKey2";
    EXPECT_EQ(UserString(key, L"DispTitle"), "Morning");
    EXPECT_EQ(UserString(key, L"Execute"), "P");
    EXPECT_EQ(UserDword(key, L"NumAP"), 2);
    EXPECT_EQ(UserString(key, L"AP1"), "C:\\Mail.exe");
    EXPECT_EQ(UserString(key, L"AP2"), "iexplore.exe|http://news.example/");
    EXPECT_EQ(UserString(key, L"ProgName2"), "News.url");
}

TEST_F(WizardSaving, StoresThePatternAndThenTheNumbersAndThenTheScreen) {
    settings.SaveButton(2, result);
    EXPECT_THAT(WrittenElsewhere("Setting\\Set1"),
                ElementsAre("CurrSetting = 1", "NumSetting = 2", "OnScreen OnScreen = 0",
                            "OnScreen FontFace = \"Arial\"", "OnScreen size = 3", "OnScreen Color = 0"));
    EXPECT_EQ(Written().front(), "Setting\\Set1 SetName = \"Home\"");
    const std::vector<std::string> written = Written();
    const auto isPattern = [](const std::string& line) { return line.starts_with("Setting\\Set1"); };
    EXPECT_TRUE(std::is_partitioned(written.begin(), written.end(), isPattern))
        << testing::PrintToString(written);
}

TEST_F(WizardSaving, TellsTheLauncherOnce_AfterEverythingIsStored) {
    std::size_t writesWhenTold = 0;
    windows.whileSending = [&] { writesWhenTold = Written().size(); };
    settings.SaveButton(2, result);
    EXPECT_THAT(windows.Events(),
                ElementsAre(FakeWindows::Event{FakeWindows::Deed::Sent, launcher, 1336, 1, 0}));
    EXPECT_EQ(writesWhenTold, Written().size());
    EXPECT_GT(writesWhenTold, 0U);
}

TEST_F(WizardSaving, SavesWhatWasEditedBeforeTheWizardToo) {
    settings.SetButtonName(1, L"Post");
    OnScreenSettings screen = settings.OnScreen();
    screen.Color = 255;
    settings.SetOnScreen(screen);
    settings.SaveButton(2, result);
    EXPECT_EQ(UserString(L"Setting\\Set1\\AppKey1", L"DispTitle"), "Post");
    EXPECT_EQ(UserDword(L"OnScreen", L"Color"), 255);
}

TEST_F(WizardSaving, LeavesNothingToSave) {
    settings.SetButtonName(1, L"Post");
    settings.SaveButton(2, result);
    EXPECT_FALSE(settings.AnythingChanged());
}

TEST_F(WizardSaving, ShowsThePictureOfTheResult) {
    settings.SaveButton(2, result);
    EXPECT_EQ(settings.PictureOf(2), kPictureSimul);
    result.Exec = L"K";
    settings.SaveButton(2, result);
    EXPECT_EQ(settings.PictureOf(2), kPictureSingle);
}

TEST_F(WizardSaving, LeavesTheOtherButtonsAlone) {
    for (int button = 1; button <= 7; ++button) {
        ButtonSlot own = settings.Slot(button);
        own.Name = L"own " + std::to_wstring(button);
        own.Program(1).AP = L"C:\\own" + std::to_wstring(button) + L".exe";
        own.NumAP = 1;
        settings.SetSlot(button, own);
    }
    const Pattern before = settings.Working();
    for (const int button : {1, 5, 6, 7}) {
        settings.SaveButton(button, result);
        for (int other = 1; other <= 7; ++other) {
            if (other != button) {
                EXPECT_EQ(settings.Slot(other), before.Btn(other));
            }
        }
        settings.SaveButton(button, before.Btn(button));
    }
}

TEST_F(WizardSaving, SavesIntoTheCurrentPattern) {
    settings.SwitchPattern(2, AskNothing);
    ForgetOperations();
    settings.SaveButton(2, result);
    EXPECT_EQ(UserString(L"Setting\\Set2\\AppKey2", L"DispTitle"), "Morning");
    EXPECT_THAT(Written(), Contains("CurrSetting = 2"));
    EXPECT_THAT(Written(), Not(Contains(StartsWith("Setting\\Set1"))));
}

TEST_F(WizardSaving, StoresNothing_ForANumberThatIsNoButton) {
    for (const int number : {0, 9, -1}) {
        settings.SaveButton(number, result);
    }
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(WizardSaving, AsksTheLauncherForTheButtonOnceItIsStored_WhenTheWizardRunsAlone) {
    StartUp startUp;
    startUp.WizardButton = 2;
    settings.SaveLoneButton(startUp, result);
    EXPECT_EQ(settings.Slot(3), result);
    const FakeWindows::Event told{FakeWindows::Deed::Sent, launcher, 1336, 1, 0};
    EXPECT_THAT(windows.Events(), ElementsAre(told));
    windows.ForgetEvents();
    startUp.ButtonRequest = true;
    settings.SaveLoneButton(startUp, result);
    EXPECT_THAT(windows.Events(),
                ElementsAre(told, FakeWindows::Event{FakeWindows::Deed::Posted, launcher, 1332, 106, 1}));
}

TEST_F(WizardSaving, HasTheNameThatTheStoreKeeps) {
    result.Name = L"a\x65E5z";
    settings.SaveButton(1, result);
    EXPECT_EQ(settings.Slot(1).Name, L"a?z");
    result.Name = L"";
    settings.SaveButton(1, result);
    EXPECT_EQ(settings.Slot(1).Name, L" ");
    EXPECT_FALSE(settings.AnythingChanged());
}

TEST_F(WizardSaving, SavesWithoutALauncher) {
    windows.Close(launcher);
    settings.SaveButton(1, result);
    EXPECT_EQ(UserString(L"Setting\\Set1\\AppKey1", L"DispTitle"), "Morning");
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(WizardSaving, NeverWritesToTheMachine) {
    settings.SaveButton(1, result);
    EXPECT_THAT(Written(), Not(IsEmpty()));
    EXPECT_THAT(Written(), Each(Not(StartsWith("HKLM"))));
}

TEST_F(WizardSaving, IsReadBackByTheNextStart) {
    settings.SaveButton(7, result);
    MainSettings next(store, notification, fonts);
    next.Load();
    result.Program(2).AP = L"iexplore.exe"; // the address is read as the parameter alone
    EXPECT_EQ(next.Slot(7), result);
}

} // namespace
