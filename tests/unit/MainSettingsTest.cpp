#include "MainDialog.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Test;

constexpr const wchar_t* kFirstButton = L"Setting\\Set1\\AppKey1";

class Loading : public Test, public MainDialog {};

class Loaded : public Test, public LoadedMainDialog {};

std::size_t PositionOf(const std::vector<std::string>& lines, const std::string& start) {
    const auto found = std::find_if(lines.begin(), lines.end(),
                                    [&](const std::string& line) { return line.starts_with(start); });
    EXPECT_NE(found, lines.end()) << start;
    return static_cast<std::size_t>(found - lines.begin());
}

TEST_F(Loading, ReadsInTheOrderOfTheStartUp) {
    settings.Load();
    const std::vector<std::string> asked = Asked();
    std::size_t previous = 0;
    for (const char* place : {"HKLM QSTART", "HKLM BtnImage", "HKLM NTNumAPBtn", "HKLM DTNumAPBtn",
                              "HKLM UTLSetting ShowNTTab", "HKCU CurrSetting", "HKLM Default\\OnScreen",
                              "HKCU OnScreen", "HKLM Default\\Setting\\Set1 SetName",
                              "HKCU Setting\\Set1 SetName", "HKCU Setting\\Set2 SetName"}) {
        const std::size_t position = PositionOf(asked, place);
        EXPECT_GE(position, previous) << place;
        previous = position;
    }
}

TEST_F(Loading, WritesNothingAndTellsNobody) {
    settings.Load();
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(Loading, TakesTheCurrentPatternAndAllNames) {
    PutUser(L"", L"CurrSetting", 2);
    settings.Load();
    EXPECT_EQ(settings.CurrentPattern(), 2);
    EXPECT_EQ(settings.Working().UserName, L"Work");
    EXPECT_EQ(settings.Slot(1).Name, L"Report");
    EXPECT_THAT(settings.PatternNames(), ElementsAre(L"Home", L"Work"));
    EXPECT_FALSE(settings.AnythingChanged());
}

TEST_F(Loading, NamesAPatternByTheDefault_WhenItHasNoName) {
    PutUser(L"", L"NumSetting", 3);
    settings.Load();
    EXPECT_THAT(settings.PatternNames(), ElementsAre(L"Home", L"Work", L"Standard"));
}

TEST_F(Loading, HasOnePattern_WithoutAValidCount) {
    for (const int count : {0, 11, -1}) {
        PutUser(L"", L"NumSetting", count);
        settings.Load();
        EXPECT_THAT(settings.PatternNames(), ElementsAre(L"Home")) << count;
    }
}

TEST_F(Loading, TakesTheFirstPattern_WithoutAValidNumber) {
    PutUser(L"", L"NumSetting", 10);
    for (const int number : {0, 11, -1}) {
        PutUser(L"", L"CurrSetting", number);
        settings.Load();
        EXPECT_EQ(settings.CurrentPattern(), 1) << number;
    }
}

TEST_F(Loading, KeepsACurrentNumberOf1To10_WhateverTheCount) {
    PutUser(L"", L"CurrSetting", 3);
    PutPattern(3, "Travel", "Maps");
    settings.Load();
    EXPECT_EQ(settings.CurrentPattern(), 3);
    EXPECT_EQ(settings.Slot(1).Name, L"Maps");
}

TEST_F(Loading, TakesEverythingFromTheMaker_WhenTheUserHasNoSettings) {
    registry = FakeRegistry();
    PutMachine(L"Default\\Setting\\Set1", L"SetName", "Standard");
    PutMachine(L"Default\\Setting\\Set1\\AppKey1", L"DispTitle", "Default");
    settings.Load();
    EXPECT_EQ(settings.CurrentPattern(), 1);
    EXPECT_THAT(settings.PatternNames(), ElementsAre(L"Standard"));
    EXPECT_EQ(settings.Slot(1).Name, L"Default");
    EXPECT_FALSE(settings.AnythingChanged());
}

TEST_F(Loading, GivesTheDefaults_WhenNothingCanBeRead) {
    registry.refusesReads = true;
    settings.Load();
    EXPECT_EQ(settings.CurrentPattern(), 1);
    EXPECT_EQ(settings.PatternNames().size(), 1U);
    Pattern expected;
    for (int button = 1; button <= 7; ++button) {
        expected.Btn(button).Exec = L"M";
    }
    EXPECT_EQ(settings.Working(), expected);
    EXPECT_EQ(settings.OnScreen().FontName, L"MS Shell Dlg 2");
    EXPECT_FALSE(settings.AnythingChanged());
}

TEST_F(Loading, DropsEarlierEdits) {
    settings.Load();
    settings.SetButtonName(1, L"Other");
    settings.Load();
    EXPECT_EQ(settings.Slot(1).Name, L"Mail");
    EXPECT_FALSE(settings.AnythingChanged());
    EXPECT_EQ(settings.PatternNames().size(), 2U);
}

TEST_F(Loading, ShowsTheButtonsThatTheMakerSays) {
    PutMachine(L"", L"DTNumAPBtn", 3);
    PutMachine(L"", L"NTNumAPBtn", 1);
    settings.Load();
    EXPECT_THAT(settings.ButtonsOf(MainPage::Desktop), ElementsAre(1, 2, 3));
    EXPECT_THAT(settings.ButtonsOf(MainPage::Notebook), ElementsAre(6));
}

TEST_F(Loaded, ShowsFiveAndTwoButtons_WithoutTheMakersNumbers) {
    EXPECT_THAT(settings.ButtonsOf(MainPage::Desktop), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(settings.ButtonsOf(MainPage::Notebook), ElementsAre(6, 7));
    EXPECT_THAT(settings.ButtonsOf(MainPage::OnScreen), IsEmpty());
}

TEST_F(Loaded, StoresAButtonNameAsItIs) {
    for (const wchar_t* name : {L"", L" ", L"  Mail  ", L"a|b", L"\x65E5\x672C"}) {
        settings.SetButtonName(1, name);
        EXPECT_EQ(settings.Slot(1).Name, name);
        EXPECT_TRUE(settings.PatternChanged());
    }
    const std::wstring longName(5000, L'x');
    settings.SetButtonName(8, longName);
    EXPECT_EQ(settings.Slot(8).Name, longName);
}

TEST_F(Loaded, LeavesABoxEmptyWhoseNameIsStoredAsABlank_AndNoOther) {
    settings.SetButtonName(1, L"");
    settings.Apply();
    ASSERT_EQ(settings.Slot(1).Name, L" ");
    EXPECT_TRUE(settings.IsNameShown(1, L""));
    EXPECT_TRUE(settings.IsNameShown(1, L" "));
    EXPECT_FALSE(settings.IsNameShown(1, L"  "));
    settings.SetButtonName(2, L"a\x65E5");
    settings.Apply();
    EXPECT_FALSE(settings.IsNameShown(2, L"a\x65E5"));
    EXPECT_FALSE(settings.IsNameShown(2, L""));
    EXPECT_TRUE(settings.IsNameShown(2, L"a?"));
}

TEST_F(Loaded, CountsNoChange_WhenANameIsChangedBack) {
    settings.SetButtonName(1, L"Other");
    EXPECT_TRUE(settings.AnythingChanged());
    settings.SetButtonName(1, L"Mail");
    EXPECT_FALSE(settings.AnythingChanged());
}

TEST_F(Loaded, TellsChangesOfTheScreenFromThoseOfThePattern) {
    OnScreenSettings screen = settings.OnScreen();
    screen.FontSize = 5;
    settings.SetOnScreen(screen);
    EXPECT_TRUE(settings.AnythingChanged());
    EXPECT_FALSE(settings.PatternChanged());
}

TEST_F(Loaded, ShowsThePictureOfTheMethod) {
    EXPECT_EQ(settings.PictureOf(1), kPictureSequence);
}

TEST_F(Loaded, TakesAWholeButtonAsItWasEdited) {
    ButtonSlot slot;
    slot.Name = L"Letters";
    slot.Exec = L"P";
    slot.NumAP = 2;
    for (int number = 1; number <= kMaxPrograms; ++number) {
        slot.Program(number).AP = L"command" + std::to_wstring(number);
        slot.Program(number).Param = L"parameter" + std::to_wstring(number);
        slot.Program(number).Title = L"title" + std::to_wstring(number);
    }
    for (const int button : {1, 7}) {
        Pattern expected = settings.Working();
        expected.Btn(button) = slot;
        settings.SetSlot(button, slot);
        EXPECT_EQ(settings.Working(), expected);
        EXPECT_EQ(settings.Slot(button), slot);
        EXPECT_TRUE(settings.PatternChanged());
    }
}

TEST_F(Loaded, SavesNothingAndTellsNobody_WhenAButtonWasEdited) {
    ButtonSlot slot = settings.Slot(1);
    slot.Program(1).AP = L"C:\\Apps\\Mail.exe";
    settings.SetSlot(1, slot);
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(Loaded, CountsNoChange_WhenAButtonComesBackAsItWas) {
    const ButtonSlot before = settings.Slot(1);
    settings.SetSlot(1, before);
    EXPECT_FALSE(settings.AnythingChanged());
    ButtonSlot slot = before;
    slot.Program(1).Param = L"/p";
    settings.SetSlot(1, slot);
    EXPECT_TRUE(settings.AnythingChanged());
    settings.SetSlot(1, before);
    EXPECT_FALSE(settings.AnythingChanged());
}

TEST_F(Loaded, ShowsThePictureOfTheEditedButton) {
    struct Case {
        const wchar_t* letter;
        std::int16_t count;
        ButtonPicture picture;
    };
    for (const auto& [letter, count, picture] :
         {Case{L"M", 1, kPictureSingle}, Case{L"K", 1, kPictureSingle}, Case{L"P", 3, kPictureSimul},
          Case{L"P", 0, kPictureNoApp}, Case{L"S", 2, kPictureSequence}, Case{L"M", 0, kPictureNoApp}}) {
        ButtonSlot slot = settings.Slot(1);
        slot.Exec = letter;
        slot.NumAP = count;
        settings.SetSlot(1, slot);
        EXPECT_EQ(settings.PictureOf(1), picture) << testing::PrintToString(std::wstring(letter)) << count;
        EXPECT_EQ(settings.PictureOf(2), kPictureSequence);
    }
}

TEST_F(Loading, ShowsTheEditedButtonAgain_WhoseMethodWasUnknown) {
    PutUser(kFirstButton, L"Execute", "X");
    settings.Load();
    ASSERT_EQ(settings.PictureOf(1), kPictureNoApp);
    settings.SetSlot(1, settings.Slot(1));
    EXPECT_EQ(settings.PictureOf(1), kPictureSingle);
    EXPECT_FALSE(settings.AnythingChanged());
}

TEST_F(Loading, ShowsAnUnknownMethodAsNoAppOnce_WithoutCountingAChange) {
    PutUser(kFirstButton, L"Execute", "X");
    settings.Load();
    EXPECT_EQ(settings.PictureOf(1), kPictureNoApp);
    EXPECT_EQ(settings.Slot(1).Exec, L"M");
    EXPECT_FALSE(settings.AnythingChanged());
    settings.Apply();
    settings.Load();
    EXPECT_EQ(settings.PictureOf(1), kPictureSingle);
}

TEST_F(Loading, KeepsTheChosenPicture_WhenNamesChange) {
    PutUser(kFirstButton, L"Execute", "X");
    settings.Load();
    settings.SetButtonName(1, L"Other");
    EXPECT_EQ(settings.PictureOf(1), kPictureNoApp);
    PutUser(L"Setting\\Set1", L"SetName", "Renamed");
    OpenAndCloseManager();
    ASSERT_EQ(settings.Working().UserName, L"Renamed");
    EXPECT_EQ(settings.PictureOf(1), kPictureNoApp);
}

TEST_F(Loading, ShowsAnUnknownMethodOfTheDefaultsAsNoApp) {
    PutMachine(L"Default\\Setting\\Set1\\AppKey1", L"Execute", "X");
    PutMachine(L"Default\\Setting\\Set1\\AppKey1", L"NumAP", 1);
    settings.Load();
    settings.RestoreDefaults(MainPage::Desktop);
    EXPECT_EQ(settings.PictureOf(1), kPictureNoApp);
    EXPECT_EQ(settings.Slot(1).Exec, L"M");
}

TEST_F(Loaded, RestoresTheDesktopButtonsAlone) {
    const OnScreenSettings screen = settings.OnScreen();
    settings.SetButtonName(6, L"Mine");
    settings.RestoreDefaults(MainPage::Desktop);
    EXPECT_EQ(settings.Slot(1).Name, L"Default");
    EXPECT_EQ(settings.Slot(1).Exec, L"M");
    EXPECT_EQ(settings.Slot(6).Name, L"Mine");
    EXPECT_EQ(settings.Working().UserName, L"Home");
    EXPECT_EQ(settings.OnScreen(), screen);
    EXPECT_TRUE(settings.PatternChanged());
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(Loaded, RestoresTheNotebookButtonsAlone) {
    settings.RestoreDefaults(MainPage::Notebook);
    EXPECT_EQ(settings.Slot(1).Name, L"Mail");
    EXPECT_EQ(settings.Slot(6).Name, L"Default key");
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(Loading, RestoresTheScreenAlone) {
    PutUser(L"OnScreen", L"size", 5);
    settings.Load();
    settings.RestoreDefaults(MainPage::OnScreen);
    EXPECT_EQ(settings.OnScreen().FontSize, 3);
    EXPECT_EQ(settings.OnScreen().FontName, L"Arial");
    EXPECT_EQ(settings.Slot(1).Name, L"Mail");
    EXPECT_TRUE(settings.AnythingChanged());
    EXPECT_FALSE(settings.PatternChanged());
    EXPECT_THAT(Written(), IsEmpty());
}

} // namespace
