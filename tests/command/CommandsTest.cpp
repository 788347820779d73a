#include "CommandRig.h"
#include "settings/StdModule.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Commands : public testing::Test, public CommandRig {
protected:
    Commands() {
        PutPattern(1, "Home", 3);
        PutPattern(2, "Office", 3);
        PutPattern(3, "2", 3);
        PutUser(L"", L"CurrSetting", 2);
    }
    std::string Out() const { return ToUtf8(console.out); }
    std::string Error() const { return ToUtf8(console.error); }
    std::vector<std::wstring> Names() {
        std::vector<std::wstring> names;
        for (int number = 1; number <= store.ReadPatternCount(); ++number) {
            names.push_back(store.IniGetString(PatternSection(number), L"UserName", L"", kOwnFile));
        }
        return names;
    }
};

TEST_F(Commands, ListMarksTheCurrentPattern) {
    EXPECT_EQ(Qlb({L"list"}), kExitDone);
    EXPECT_EQ(Out(), "   1  Home\r\n*  2  Office\r\n   3  2\r\n");
    EXPECT_EQ(Error(), "");
}

TEST_F(Commands, ListTellsJson) {
    PutUser(L"Setting\\Set1", L"SetName", "a\"b\\c\n");
    PutUser(L"", L"NumSetting", 2);
    EXPECT_EQ(Qlb({L"list", L"--json"}), kExitDone);
    EXPECT_EQ(Out(), "{\"current\": 2, \"patterns\": [\r\n"
                     "  {\"number\": 1, \"name\": \"a\\\"b\\\\c\\n\", \"current\": false},\r\n"
                     "  {\"number\": 2, \"name\": \"Office\", \"current\": true}\r\n]}\r\n");
}

TEST_F(Commands, ListOfNoSettingsHasTheDefaultPattern) {
    CommandRig fresh;
    fresh.PutMachine(L"Default\\Setting\\Set1", L"SetName", "Standard");
    EXPECT_EQ(fresh.Qlb({L"list"}), kExitDone);
    EXPECT_EQ(fresh.console.out, L"*  1  Standard\r\n");
}

TEST_F(Commands, ShowTellsButtonsMethodsAndPrograms) {
    EXPECT_EQ(Qlb({L"show", L"Home"}), kExitDone);
    EXPECT_THAT(Out(), HasSubstr("1  Home\r\n\r\n1  Button 1: Mail (at the same time)\r\n"
                                 "   C:\\mail.exe | /new\r\n   http://example/?a=b&c  [Web]\r\n\r\n"
                                 "2  Button 2: Copy (shortcut key)\r\n   579\r\n\r\n"
                                 "3  Button 3:  (no program)\r\n"));
    EXPECT_EQ(Qlb({L"show", L"--json"}), kExitDone);
    EXPECT_THAT(Out(), HasSubstr("{\"number\": 2, \"name\": \"Office\", \"buttons\": [\r\n"
                                 "  {\"button\": 1, \"label\": \"Button 1\", \"name\": \"Mail\", \"method\": "
                                 "\"P\", \"programs\": [\r\n    {\"command\": \"C:\\\\mail.exe\""));
}

TEST_F(Commands, APatternIsMeantByItsNameFirstThenByItsNumber) {
    EXPECT_EQ(Qlb({L"show", L"2"}), kExitDone);
    EXPECT_THAT(Out(), HasSubstr("3  2\r\n"));
    EXPECT_EQ(Qlb({L"show", L"office"}), kExitDone);
    EXPECT_THAT(Out(), HasSubstr("2  Office\r\n"));
    EXPECT_EQ(Qlb({L"show", L"3"}), kExitDone);
    EXPECT_EQ(Qlb({L"show", L"4"}), kExitUsage);
    EXPECT_EQ(Error(), "qlb: there is no Pattern \"4\"; there are\r\n  1  Home\r\n  2  Office\r\n  3  2\r\n");
    EXPECT_EQ(Out(), "");
}

TEST_F(Commands, InDoubtThePatternsAreListed) {
    PutPattern(3, "HOME", 3);
    EXPECT_EQ(Qlb({L"show", L"Home"}), kExitDone);
    EXPECT_EQ(Qlb({L"show", L"hOME"}), kExitUsage);
    EXPECT_EQ(Error(), "qlb: \"hOME\" may be any of\r\n  1  Home\r\n  3  HOME\r\n");
}

TEST_F(Commands, UseSwitchesAndTellsTheLauncher) {
    const WindowId launcher = windows.Add(L"KORVOQLBCLASS");
    EXPECT_EQ(Qlb({L"use", L"Home"}), kExitDone);
    EXPECT_EQ(UserDword(L"", L"CurrSetting"), 1);
    ASSERT_EQ(windows.Events().size(), 1U);
    EXPECT_EQ(windows.Events().front().window, launcher);
    EXPECT_EQ(windows.Events().front().message, 1336U);
    EXPECT_THAT(Written(), ElementsAre("CurrSetting = 1"));
}

TEST_F(Commands, NothingIsWrittenUnderTheDialog) {
    FakeInstanceGuard dialog(session);
    EXPECT_FALSE(dialog.AnotherInstanceRuns());
    wholeFiles.Put(L"C:\\x.qlb", "; QLBUtl settings, format 1\n[END]\n");
    for (const std::vector<std::wstring>& command : std::vector<std::vector<std::wstring>>{
             {L"use", L"Home"}, {L"import", L"C:\\x.qlb"}, {L"restore", L"C:\\x.qlb"}}) {
        ForgetOperations();
        EXPECT_EQ(Qlb(command), kExitDialogOpen);
        EXPECT_THAT(Error(), HasSubstr("the settings dialog"));
        EXPECT_THAT(Written(), IsEmpty());
    }
    EXPECT_EQ(Qlb({L"list"}), kExitDone);
    EXPECT_EQ(Qlb({L"export", L"-"}), kExitDone);
    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb", L"--dry-run"}), kExitFile);
}

TEST_F(Commands, ExportNeverGoesOverAFileUnlessForced) {
    wholeFiles.Put(L"C:\\x.qlb", "theirs");
    EXPECT_EQ(Qlb({L"export", L"C:\\x.qlb"}), kExitUsage);
    EXPECT_EQ(wholeFiles.Content(L"C:\\x.qlb"), "theirs");
    EXPECT_EQ(Qlb({L"export", L"C:\\x.qlb", L"--force"}), kExitDone);
    EXPECT_NE(wholeFiles.Content(L"C:\\x.qlb"), "theirs");
    wholeFiles.refusesWrites = true;
    EXPECT_EQ(Qlb({L"export", L"C:\\y.qlb"}), kExitFile);
}

TEST_F(Commands, ExportOfPatternsHasThemAndTheMakersDefaultsWhereNothingIsStored) {
    PutMachine(L"Default\\Setting\\Set1\\AppKey3", L"DispTitle", "Standard 3");
    PutMachine(L"Default\\Setting\\Set1\\AppKey1", L"DispTitle", "not this");
    EXPECT_EQ(Qlb({L"export", L"-", L"2", L"Home"}), kExitDone);
    EXPECT_THAT(Out(), HasSubstr("[KORVOQLB]\r\nNumUser=2\r\n\r\n[USER1]\r\nUserName=2\r\n"));
    EXPECT_THAT(Out(), HasSubstr("[USER2]\r\nUserName=Home\r\n"));
    EXPECT_THAT(Out(), HasSubstr("Btn3_Name=Standard 3\r\n"));
    EXPECT_THAT(Out(), Not(HasSubstr("CurrUser")));
    EXPECT_THAT(Out(), Not(HasSubstr("Office")));
}

TEST_F(Commands, ImportAddsPatternsAfterABackup) {
    CommandRig other;
    other.PutPattern(1, "Travel", 2);
    other.PutPattern(2, "Party", 2);
    other.Qlb({L"export", L"C:\\x.qlb"});
    wholeFiles.Put(L"C:\\x.qlb", *other.wholeFiles.Content(L"C:\\x.qlb"));
    windows.Add(L"KORVOQLBCLASS");
    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb", L"Party"}), kExitDone);
    EXPECT_THAT(Names(), ElementsAre(L"Home", L"Office", L"2", L"Party"));
    EXPECT_EQ(UserString(L"Setting\\Set4\\AppKey1", L"AP1"), "C:\\mail.exe|/new");
    EXPECT_EQ(UserDword(L"", L"CurrSetting"), 2);
    EXPECT_EQ(BackupNames().size(), 1U);
    EXPECT_THAT(Error(), HasSubstr("what was there before is in C:\\Users\\hanako"));
    EXPECT_THAT(Error(), HasSubstr("Party was added as Pattern 4"));
    EXPECT_EQ(windows.Events().size(), 1U);
    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb", L"Nobody"}), kExitUsage);
}

TEST_F(Commands, ImportAsksWhatToDoWithANameThatIsThere) {
    CommandRig other;
    other.PutPattern(1, "Office", 1);
    other.store.IniSetString(L"USER1", L"Btn1_AP1", L"other.exe", kOwnFile);
    other.Qlb({L"export", L"C:\\x.qlb"});
    wholeFiles.Put(L"C:\\x.qlb", *other.wholeFiles.Content(L"C:\\x.qlb"));
    PutUser(L"Setting\\Set2\\AppKey5", L"DispTitle", "old");

    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb"}), kExitUsage);
    EXPECT_THAT(Error(), HasSubstr("a Pattern \"Office\" is there already"));
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb", L"--replace", L"--rename"}), kExitUsage);
    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb", L"--dry-run"}), kExitFound);
    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb", L"--dry-run", L"--rename"}), kExitDone);
    EXPECT_THAT(Error(), HasSubstr("Office would be added as Pattern 4, Office (2)"));
    EXPECT_THAT(Written(), IsEmpty());

    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb", L"--rename"}), kExitDone);
    EXPECT_THAT(Names(), ElementsAre(L"Home", L"Office", L"2", L"Office (2)"));
    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb", L"--replace"}), kExitDone);
    EXPECT_THAT(Names(), ElementsAre(L"Home", L"Office", L"2", L"Office (2)"));
    EXPECT_EQ(UserString(L"Setting\\Set2\\AppKey1", L"AP1"), "other.exe");
    EXPECT_EQ(UserString(L"Setting\\Set2\\AppKey5", L"DispTitle"), std::nullopt);
}

TEST_F(Commands, ARenamedPatternKeepsToTheBytesThatANameMayHave) {
    CommandRig japanese({false, FakeAnsiText::kJapanese});
    japanese.PutPattern(1, "\x93\xFA\x96\x7B\x8C\xEA\x93\xFA\x96\x7B\x8C\xEA\x93\xFA\x96\x7B\x8C\xEA\x93\xFA",
                        1);
    japanese.Qlb({L"export", L"C:\\x.qlb"});
    EXPECT_EQ(japanese.Qlb({L"import", L"C:\\x.qlb", L"--rename"}), kExitDone);
    EXPECT_EQ(japanese.UserString(L"Setting\\Set2", L"SetName"),
              "\x93\xFA\x96\x7B\x8C\xEA\x93\xFA\x96\x7B\x8C\xEA\x93\xFA\x96\x7B (2)");
}

TEST_F(Commands, ImportHasRoomForTenPatterns) {
    for (int number = 1; number <= 10; ++number) {
        PutPattern(number, std::to_string(number).c_str(), 10);
    }
    Qlb({L"export", L"C:\\x.qlb", L"1"});
    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb", L"--rename"}), kExitUsage);
    EXPECT_THAT(Error(), HasSubstr("there is no room for \"1\": 10 Patterns at most"));
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_EQ(Qlb({L"import", L"C:\\x.qlb", L"--replace"}), kExitDone);
}

TEST_F(Commands, RestoreBringsTheNewestBackupAFileOrANumberedOne) {
    const Settings first = Stored().Read();
    EXPECT_EQ(Qlb({L"backup"}), kExitDone);
    const std::wstring path = console.out.substr(0, console.out.size() - 2);
    EXPECT_TRUE(wholeFiles.Content(path));
    PutUser(L"OnScreen", L"Color", 1);
    EXPECT_EQ(Qlb({L"restore"}), kExitDone);
    EXPECT_EQ(Stored().Read(), first);
    EXPECT_EQ(Qlb({L"backups"}), kExitDone);
    EXPECT_THAT(Out(),
                HasSubstr("1  C:\\Users\\hanako\\AppData\\Local\\QLBUtl\\Backups\\2026-11-22 031502-02.qlb"));
    EXPECT_EQ(Qlb({L"restore", L"1"}), kExitDone);
    EXPECT_EQ(UserDword(L"OnScreen", L"Color"), 1);
    EXPECT_EQ(Qlb({L"restore", path}), kExitDone);
    EXPECT_EQ(Stored().Read(), first);
    EXPECT_EQ(Qlb({L"restore", path}), kExitDone);
    EXPECT_THAT(Error(), HasSubstr("already"));
    EXPECT_EQ(Qlb({L"restore", L""}), kExitUsage);
    EXPECT_EQ(Qlb({L"restore", L"9"}), kExitUsage);
    EXPECT_EQ(Qlb({L"restore", L"C:\\none.qlb"}), kExitFile);
    wholeFiles.Put(L"1", "");
    EXPECT_EQ(Qlb({L"restore", L"1"}), kExitUsage);
}

TEST_F(Commands, RestoreLeavesTheKeyboardWhereTheFileDoesNotSayIt) {
    PutUser(L"", L"QLBB", 1);
    wholeFiles.Put(L"C:\\x.qlb", "; QLBUtl settings, format 1\n[END]\n");
    EXPECT_EQ(Qlb({L"restore", L"C:\\x.qlb"}), kExitDone);
    EXPECT_EQ(UserDword(L"", L"QLBB"), 1);
    EXPECT_EQ(Stored().Read().size(), 1U);
    wholeFiles.Put(L"C:\\x.qlb", "; QLBUtl settings, format 1\n[KORVOQLB]\nQLBKeyboard=0\n[END]\n");
    EXPECT_EQ(Qlb({L"restore", L"C:\\x.qlb"}), kExitDone);
    EXPECT_EQ(UserDword(L"", L"QLBB"), 0);
}

TEST_F(Commands, RestoreTouchesNothingThatIsNotOfTheLayout) {
    PutUser(L"", L"Theirs", 7);
    PutUser(L"Setting\\Set2", L"Theirs", "x");
    wholeFiles.Put(L"C:\\x.qlb", "; QLBUtl settings, format 1\n[END]\n");
    EXPECT_EQ(Qlb({L"restore", L"C:\\x.qlb"}), kExitDone);
    EXPECT_THAT(Stored().Read(), IsEmpty());
    EXPECT_EQ(UserDword(L"", L"Theirs"), 7);
    EXPECT_EQ(UserString(L"Setting\\Set2", L"Theirs"), "x");
}

TEST_F(Commands, PressAsksTheLauncherForAButton) {
    EXPECT_EQ(Qlb({L"press", L"1"}), kExitNoLauncher);
    EXPECT_EQ(Error(), "qlb: no launcher runs\r\n");
    const WindowId launcher = windows.Add(L"KORVOQLBCLASS");
    using Event = FakeWindows::Event;
    EXPECT_EQ(Qlb({L"press", L"1"}), kExitDone);
    EXPECT_EQ(Qlb({L"press", L"Copy"}), kExitDone);
    EXPECT_THAT(windows.Events(), ElementsAre(Event{FakeWindows::Deed::Posted, launcher, 1332, 104, 1},
                                              Event{FakeWindows::Deed::Posted, launcher, 1332, 105, 1}));
    EXPECT_EQ(Qlb({L"press", L"9"}), kExitUsage);
    EXPECT_THAT(Error(),
                HasSubstr("there is no button \"9\"; there are\r\n  1  Mail\r\n  2  Copy\r\n  3  Button 3"));
}

TEST_F(Commands, PressTellsTheEighthButtonByItsOwnNumber) {
    PutMachine(L"", L"NTNumAPBtn", 3);
    windows.Add(L"KORVOQLBCLASS");
    EXPECT_EQ(Qlb({L"press", L"8"}), kExitDone);
    EXPECT_EQ(windows.Events().front().wParam, 84U);
}

TEST_F(Commands, OverviewIsOnePageWithATableForEachPattern) {
    PutUser(L"Setting\\Set1\\AppKey1", L"DispTitle", "<Mail> & \"Web\"");
    EXPECT_EQ(Qlb({L"overview", L"-", L"Home", L"Office"}), kExitDone);
    const std::string page = Out();
    EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n<html lang=\"en\">"));
    EXPECT_THAT(page, HasSubstr("<caption>1. Home</caption>"));
    EXPECT_THAT(page, HasSubstr("<caption>2. Office <span class=\"current\">(current)</span></caption>"));
    EXPECT_THAT(page, HasSubstr("&lt;Mail&gt; &amp; &quot;Web&quot;"));
    EXPECT_THAT(page, HasSubstr("<symbol id=\"RUN_SIMUL\" viewBox=\"0 0 144 144\">"));
    EXPECT_THAT(page, HasSubstr("<use href=\"#RUN_SIMUL\"/>"));
    EXPECT_THAT(page, HasSubstr("key code 579"));
    EXPECT_THAT(page, Not(HasSubstr("http://www.w3.org")));
    EXPECT_THAT(page, Not(HasSubstr(" src=")));
    EXPECT_EQ(Qlb({L"overview", L"-", L"Nobody"}), kExitUsage);
}

TEST_F(Commands, WordsAreInTheUsersLanguageDataIsNot) {
    tongue = Tongue::Japanese;
    EXPECT_EQ(Qlb({L"use", L"9"}), kExitUsage);
    EXPECT_THAT(Error(), HasSubstr("というパターンはありません"));
    EXPECT_EQ(Qlb({L"list"}), kExitDone);
    EXPECT_THAT(Out(), HasSubstr("*  2  Office"));
    EXPECT_EQ(Qlb({L"--help"}), kExitDone);
    EXPECT_THAT(Out(), HasSubstr("使い方"));
}

TEST_F(Commands, AWrongCommandLineIsTold) {
    for (const std::vector<std::wstring>& line :
         std::vector<std::vector<std::wstring>>{{},
                                                {L"nonsense"},
                                                {L"list", L"--nonsense"},
                                                {L"list", L"more"},
                                                {L"use"},
                                                {L"use", L"1", L"2"},
                                                {L"export"},
                                                {L"import"},
                                                {L"press"},
                                                {L"show", L"1", L"2"},
                                                {L"restore", L"1", L"2"}}) {
        EXPECT_EQ(Qlb(line), kExitUsage) << testing::PrintToString(line);
        EXPECT_NE(Error(), "");
        EXPECT_EQ(Out(), "");
    }
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(Commands, EachHasItsHelp) {
    for (const wchar_t* const command : {L"list", L"show", L"use", L"export", L"import", L"backup",
                                         L"backups", L"restore", L"check", L"overview", L"press"}) {
        EXPECT_EQ(Qlb({command, L"--help"}), kExitDone);
        EXPECT_THAT(Out(), HasSubstr("Usage: qlb " + ToUtf8(command)));
        EXPECT_EQ(Error(), "");
    }
}

TEST_F(Commands, NamesMayLookLikeAnything) {
    for (const char* const name : {"[a,b]", "/x", "{1}", "a=b", "日本"}) {
        PutPattern(1, ansiText.Encode(FromUtf8(name)).c_str(), 3);
        EXPECT_EQ(Qlb({L"show", ansiText.Decode(*UserString(L"Setting\\Set1", L"SetName"))}), kExitDone)
            << name;
    }
    PutPattern(1, "--json", 3);
    EXPECT_EQ(Qlb({L"show", L"--", L"--json"}), kExitDone);
    EXPECT_THAT(Out(), HasSubstr("1  --json"));
}

TEST_F(Commands, AReaderThatIsGoneIsAFailure) {
    console.readerIsGone = true;
    EXPECT_EQ(Qlb({L"list"}), kExitFile);
    EXPECT_EQ(Qlb({L"export", L"-"}), kExitFile);
}

} // namespace
