#include "CommandRig.h"
#include "settings/StdModule.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class Checking : public testing::Test, public CommandRig {
protected:
    Checking() {
        PutPattern(1, "Home", 1);
        wholeFiles.Put(L"C:\\mail.exe", "");
    }
    std::string Told() {
        Qlb({L"check"});
        return ToUtf8(console.out);
    }
};

TEST_F(Checking, OfGoodSettingsFindsNothing) {
    EXPECT_EQ(Qlb({L"check"}), kExitDone);
    EXPECT_EQ(console.out, L"");
    EXPECT_EQ(console.error, L"qlb: nothing is wrong\r\n");
}

TEST_F(Checking, WritesNothing) {
    PutUser(L"", L"NumSetting", 99);
    EXPECT_EQ(Qlb({L"check"}), kExitFound);
    EXPECT_THAT(Written(), testing::IsEmpty());
}

TEST_F(Checking, FindsNumbersOutOfRange) {
    PutUser(L"", L"CurrSetting", 2);
    PutUser(L"OnScreen", L"OnScreen", 2);
    PutUser(L"OnScreen", L"size", 6);
    PutUser(L"Setting\\Set1\\AppKey3", L"NumAP", 6);
    const std::string told = Told();
    EXPECT_THAT(told, HasSubstr("[KORVOQLB] CurrUser is 2, not a number from 1 to 1\r\n"));
    EXPECT_THAT(told, HasSubstr("[ONSCREEN] OnScreen is 2, not a number from 0 to 1\r\n"));
    EXPECT_THAT(told, HasSubstr("[ONSCREEN] FontSize is 6, not a number from 1 to 5\r\n"));
    EXPECT_THAT(told, HasSubstr("[USER1] Btn3_NumAP is 6, not a number from 0 to 5\r\n"));
}

TEST_F(Checking, FindsACountOfPatternsOutOfRange) {
    PutUser(L"", L"NumSetting", 11);
    EXPECT_THAT(Told(), HasSubstr("[KORVOQLB] NumUser is 11, not a number from 1 to 10\r\n"));
}

TEST_F(Checking, FindsProgramsFoldersAndShortcutsThatAreGone) {
    const auto put = [&](const char* path) { PutUser(L"Setting\\Set1\\AppKey1", L"AP1", path); };
    for (const char* const path :
         {"C:\\gone.exe", "C:\\Folder", "C:\\x\\App.lnk", "C:\\gone.exe|/new", "\"C:\\a b\\gone.exe\" /x"}) {
        put(path);
        EXPECT_THAT(Told(), HasSubstr("Home, button 1: C:\\")) << path;
        EXPECT_THAT(Told(), HasSubstr(" is not there\r\n"));
    }
    for (const char* const path : {"notepad.exe", "http://example/", "\\\\server\\share\\a.exe",
                                   "C:\\mail.exe", "C:\\mail.exe /new", "\"C:\\mail.exe\" /new"}) {
        put(path);
        EXPECT_EQ(Told(), "") << path;
    }
}

TEST_F(Checking, AFolderThatOnlyBeginsACommandIsNoProgram) {
    wholeFiles.Put(L"C:\\Program Files", "");
    dataFiles.AddFolder(L"C:\\Program Files");
    PutUser(L"Setting\\Set1\\AppKey1", L"AP1", "C:\\Program Files (x86)\\gone.exe");
    EXPECT_THAT(Told(), HasSubstr(" is not there\r\n"));
    PutUser(L"Setting\\Set1\\AppKey1", L"AP1", "C:\\Program Files");
    EXPECT_EQ(Told(), "");
}

TEST_F(Checking, FindsAProgramThatCountsButIsEmpty) {
    PutUser(L"Setting\\Set1\\AppKey1", L"NumAP", 3);
    EXPECT_THAT(Told(), HasSubstr("Home, button 1: program 3 counts, but is empty\r\n"));
}

TEST_F(Checking, FindsMethodsAndKeyCodesThatAreNone) {
    PutUser(L"Setting\\Set1\\AppKey1", L"Execute", "X");
    PutUser(L"Setting\\Set1\\AppKey2", L"AP1", "Ctrl+C");
    EXPECT_THAT(Told(), HasSubstr("Home, button 1: there is no launch method \"X\"\r\n"));
    EXPECT_THAT(Told(), HasSubstr("Home, button 2: \"Ctrl+C\" is no key code\r\n"));
}

TEST_F(Checking, FindsButtonsThatShareAPlace) {
    PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey3", 2);
    EXPECT_THAT(Told(), HasSubstr("buttons 2 and 3 are both stored as button 2\r\n"));
    PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey2", 3);
    EXPECT_THAT(Told(), Not(HasSubstr("stored as")));
}

TEST_F(Checking, FindsNamesThatNoDialogGives) {
    PutPattern(2, "Home", 4);
    PutPattern(3, "", 4);
    PutPattern(4, "123456789012345678901", 4);
    const std::string told = Told();
    EXPECT_THAT(told, HasSubstr("Pattern 2 has the name of another one: Home\r\n"));
    EXPECT_THAT(told, HasSubstr("Pattern 3 has no name\r\n"));
    EXPECT_THAT(told, HasSubstr("the name of Pattern 4 is longer than 20 bytes: 1234"));
}

TEST_F(Checking, FindsTextsThatTheCodePageCantKeep) {
    PutUser(L"Setting\\Set1\\AppKey1", L"DispTitle", "???");
    EXPECT_EQ(Told(), "");
    registry.MarkInexact(RegistryHive::CurrentUser, Path(L"Setting\\Set1\\AppKey1"), L"DispTitle");
    EXPECT_THAT(Told(), HasSubstr("[USER1] Btn1_Name has characters that the code page can't keep: ???\r\n"));
    PutUser(L"Setting\\Set1\\AppKey1", L"AP1", "C:\\?.exe");
    EXPECT_THAT(Told(), HasSubstr("Home, button 1: C:\\?.exe has a \"?\""));
}

TEST_F(Checking, FindsBytesThatTheCodePageDoesNotKnow) {
    CommandRig japanese({false, FakeAnsiText::kJapanese});
    japanese.PutPattern(1, "a", 1);
    japanese.wholeFiles.Put(L"C:\\mail.exe", "");
    japanese.PutUser(L"Setting\\Set1\\AppKey1", L"DispTitle", "a\x81");
    EXPECT_EQ(japanese.Qlb({L"check"}), kExitFound);
    EXPECT_THAT(ToUtf8(japanese.console.out),
                HasSubstr("[USER1] Btn1_Name has characters that the code page"));
}

TEST_F(Checking, FindsValuesOfAnotherKind) {
    PutUser(L"Setting\\Set1\\AppKey1", L"NumAP", "1");
    EXPECT_THAT(Told(), HasSubstr("[USER1] Btn1_NumAP"));
}

TEST_F(Checking, FindsDataFilesThatCantBeReadOrKept) {
    const std::wstring codes = L"C:\\Program Files\\QLBUtl\\QLBCODE.DAT";
    const std::wstring menu = L"C:\\Program Files\\QLBUtl\\QLBMCMNU.DAT";
    dataFiles.AddFile(codes, "Ctrl+C,579,Copy\r\n");
    EXPECT_EQ(Told(), "");
    dataFiles.FailOpening(codes);
    dataFiles.AddFile(menu, "\xFF\xFEx");
    EXPECT_THAT(Told(), HasSubstr("QLBCODE.DAT can't be read\r\n"));
    EXPECT_THAT(Told(), HasSubstr("QLBMCMNU.DAT can't be read\r\n"));
    dataFiles.AddFile(menu, "\xEF\xBB\xBF\xE5\xAE\xB6,a,b\r\n");
    EXPECT_THAT(Told(), HasSubstr("QLBMCMNU.DAT: the code page can't keep \"\xE5\xAE\xB6\"\r\n"));
}

} // namespace
