#include "TestStore.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Test;

class EntriesInTheRegistry : public Test, public TestStore {};

class EntriesInTheFile : public Test, public TestStore {
public:
    EntriesInTheFile() { store.IniFileExist = true; }
};

TEST_F(EntriesInTheRegistry, ReadAProgramOfAButtonOfAPattern) {
    PutUser(L"Setting\\Set2\\AppKey3", L"AP4", "notepad.exe");
    EXPECT_EQ(store.IniGetString(L"USER2", L"Btn3_AP4", L"FALSE", kOwnFile), L"notepad.exe");
    EXPECT_THAT(Asked(), ElementsAre("HKCU Setting\\Set2\\AppKey3 AP4"));
}

TEST_F(EntriesInTheRegistry, ReadTheDefaultText_WhenItIsMissing) {
    EXPECT_EQ(store.IniGetString(L"USER2", L"Btn3_AP4", L"FALSE", kOwnFile), L"FALSE");
}

TEST_F(EntriesInTheRegistry, WriteTheProgramCountAsANumberAndTheLaunchMethodAsText) {
    EXPECT_TRUE(store.IniSetString(L"USER1", L"Btn1_NumAP", L"3", kOwnFile));
    EXPECT_TRUE(store.IniSetString(L"USER1", L"Btn1_Exec", L"S", kOwnFile));
    EXPECT_THAT(Written(),
                ElementsAre("Setting\\Set1\\AppKey1 NumAP = 3", "Setting\\Set1\\AppKey1 Execute = \"S\""));
}

TEST_F(EntriesInTheRegistry, ReadTheFontSizeAsDecimalText) {
    PutUser(L"OnScreen", L"size", 4);
    EXPECT_EQ(store.IniGetString(L"ONSCREEN", L"FontSize", L"9", kOwnFile), L"4");
}

TEST_F(EntriesInTheRegistry, ReadTheDefaultNumberAsText_WhenItIsMissing) {
    EXPECT_EQ(store.IniGetString(L"ONSCREEN", L"FontSize", L"9", kOwnFile), L"9");
    EXPECT_EQ(store.IniGetString(L"ONSCREEN", L"FontSize", L" +9 ", kOwnFile), L"9");
}

TEST_F(EntriesInTheRegistry, ReadZero_WhenTheDefaultOfAMissingNumberIsNoNumber) {
    EXPECT_EQ(store.IniGetString(L"ONSCREEN", L"FontSize", L"x", kOwnFile), L"0");
    EXPECT_EQ(store.IniGetString(L"ONSCREEN", L"FontSize", L"", kOwnFile), L"0");
}

TEST_F(EntriesInTheRegistry, ReadANegativeNumberAsText) {
    PutUser(L"OnScreen", L"Color", -1);
    EXPECT_EQ(store.IniGetString(L"ONSCREEN", L"Color", L"0", kOwnFile), L"-1");
}

TEST_F(EntriesInTheRegistry, ReadAPresentEmptyTextAsEmpty) {
    EXPECT_TRUE(store.IniSetString(L"USER1", L"Btn1_AP1", L"", kOwnFile));
    EXPECT_EQ(store.IniGetString(L"USER1", L"Btn1_AP1", L"FALSE", kOwnFile), L"");
}

TEST_F(EntriesInTheRegistry, WriteNothing_WhenTheTextOfANumberIsNoNumber) {
    for (const wchar_t* text : {L"", L" ", L"x", L"5x", L"1.5", L"99999999999"}) {
        EXPECT_FALSE(store.IniSetString(L"KORVOQLB", L"CurrUser", text, kOwnFile))
            << testing::PrintToString(text);
    }
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(EntriesInTheRegistry, WriteANumberWithSignAndBlanks) {
    EXPECT_TRUE(store.IniSetString(L"ONSCREEN", L"Color", L" -7 ", kOwnFile));
    EXPECT_THAT(Written(), ElementsAre("OnScreen Color = -7"));
}

TEST_F(EntriesInTheRegistry, ReadNothingAndWriteNothing_InAnotherSection) {
    EXPECT_EQ(store.IniGetString(L"OTHER", L"Key", L"fallback", kOwnFile), L"");
    EXPECT_EQ(store.IniGetInt(L"OTHER", L"Key", 5, kOwnFile), 0);
    EXPECT_FALSE(store.IniSetString(L"OTHER", L"Key", L"1", kOwnFile));
    EXPECT_THAT(registry.Operations(), IsEmpty());
    EXPECT_THAT(files.Operations(), IsEmpty());
}

TEST_F(EntriesInTheRegistry, UseTheKeysUnnamedValue_WhenTheKeyMatchesNothing) {
    PutUser(L"Setting\\Set1\\AppKey2", L"", "unnamed");
    EXPECT_EQ(store.IniGetString(L"USER1", L"Btn2_Other", L"", kOwnFile), L"unnamed");
    EXPECT_TRUE(store.IniSetString(L"USER1", L"Other", L"written", kOwnFile));
    EXPECT_EQ(UserString(L"Setting\\Set1", L""), "written");
}

TEST_F(EntriesInTheRegistry, GiveTheLeadingNumberOfATextAsANumber) {
    PutUser(L"Setting\\Set1", L"SetName", " 12 monkeys");
    EXPECT_EQ(store.IniGetInt(L"USER1", L"UserName", 5, kOwnFile), 12);
    PutUser(L"Setting\\Set1", L"SetName", "Home");
    EXPECT_EQ(store.IniGetInt(L"USER1", L"UserName", 5, kOwnFile), 0);
}

TEST_F(EntriesInTheRegistry, GiveAStoredNumberOrTheDefault) {
    EXPECT_EQ(store.IniGetInt(L"KORVOQLB", L"NumUser", -6, kOwnFile), -6);
    PutUser(L"", L"NumSetting", 4);
    EXPECT_EQ(store.IniGetInt(L"KORVOQLB", L"NumUser", -6, kOwnFile), 4);
}

TEST_F(EntriesInTheRegistry, SaySo_WhenTheSystemRefusesAWrite) {
    registry.refusesWrites = true;
    EXPECT_FALSE(store.IniSetString(L"KORVOQLB", L"CurrUser", L"1", kOwnFile));
    EXPECT_FALSE(store.IniSetString(L"USER1", L"UserName", L"x", kOwnFile));
}

TEST_F(EntriesInTheRegistry, AreRemovedWithTheirPatternAndNoOther) {
    for (const wchar_t* section : {L"USER1", L"USER2", L"USER10"}) {
        EXPECT_TRUE(store.IniSetString(section, L"UserName", L"Name", kOwnFile));
        EXPECT_TRUE(store.IniSetString(section, L"Btn1_NumAP", L"1", kOwnFile));
    }
    EXPECT_TRUE(store.IniDeleteSection(L"USER1", kOwnFile));
    EXPECT_EQ(UserString(L"Setting\\Set1", L"SetName"), std::nullopt);
    EXPECT_EQ(UserDword(L"Setting\\Set1\\AppKey1", L"NumAP"), std::nullopt);
    for (const wchar_t* other : {L"Setting\\Set2", L"Setting\\Set10"}) {
        EXPECT_EQ(UserString(other, L"SetName"), "Name");
        EXPECT_EQ(UserDword(std::wstring(other) + L"\\AppKey1", L"NumAP"), 1);
    }
}

TEST_F(EntriesInTheRegistry, AreNotRemoved_WhenTheSectionIsNotAPatterns) {
    PutUser(L"", L"CurrSetting", 1);
    PutUser(L"OnScreen", L"size", 1);
    for (const wchar_t* section : {L"KORVOQLB", L"ONSCREEN", L"OTHER", L""}) {
        EXPECT_FALSE(store.IniDeleteSection(section, kOwnFile)) << testing::PrintToString(section);
    }
    EXPECT_THAT(registry.Operations(), IsEmpty());
    EXPECT_THAT(files.Operations(), IsEmpty());
}

TEST_F(EntriesInTheRegistry, SaySo_WhenTheSystemRefusesToRemoveThem) {
    PutUser(L"Setting\\Set1", L"SetName", "Name");
    registry.refusesWrites = true;
    EXPECT_FALSE(store.IniDeleteSection(L"USER1", kOwnFile));
    EXPECT_EQ(UserString(L"Setting\\Set1", L"SetName"), "Name");
}

TEST_F(EntriesInTheFile, AreRemovedWithTheirSectionAndNoOther) {
    for (const wchar_t* section : {L"USER1", L"USER2", L"USER10"}) {
        EXPECT_TRUE(store.IniSetString(section, L"UserName", L"Name", kOwnFile));
    }
    EXPECT_TRUE(store.IniDeleteSection(L"USER1", kOwnFile));
    EXPECT_EQ(Line(L"USER1", L"UserName"), std::nullopt);
    EXPECT_EQ(Line(L"USER2", L"UserName"), "Name");
    EXPECT_EQ(Line(L"USER10", L"UserName"), "Name");
    EXPECT_THAT(registry.Operations(), IsEmpty());
    files.refusesWrites = true;
    EXPECT_FALSE(store.IniDeleteSection(L"USER2", kOwnFile));
}

TEST_F(EntriesInTheRegistry, NeverTouchTheFile) {
    store.IniSetString(L"USER1", L"UserName", L"x", kOwnFile);
    EXPECT_EQ(store.IniGetString(L"USER1", L"UserName", L"", kOwnFile), L"x");
    EXPECT_EQ(store.IniGetInt(L"KORVOQLB", L"NumUser", 1, kOwnFile), 1);
    EXPECT_THAT(files.Operations(), IsEmpty());
}

TEST_F(EntriesInTheRegistry, StayInTheFile_WhenItHasAnotherName) {
    for (const wchar_t* file : {L"other.ini", L"korvoqlb.ini", L"KORVOQLB.INI ", L"C:\\KORVOQLB.INI", L""}) {
        SCOPED_TRACE(testing::PrintToString(file));
        ForgetOperations();
        EXPECT_TRUE(store.IniSetString(L"USER1", L"Btn1_NumAP", L"3", file));
        EXPECT_EQ(store.IniGetString(L"USER1", L"Btn1_NumAP", L"0", file), L"3");
        EXPECT_EQ(store.IniGetInt(L"USER1", L"Btn1_NumAP", 0, file), 3);
        EXPECT_THAT(registry.Operations(), IsEmpty());
        EXPECT_EQ(files.Operations().size(), 3U);
        for (const auto& operation : files.Operations()) {
            EXPECT_EQ(operation.file, file);
            EXPECT_EQ(operation.section, L"USER1");
            EXPECT_EQ(operation.key, L"Btn1_NumAP");
        }
    }
}

TEST_F(EntriesInTheFile, AreReadAndWrittenUnchanged) {
    EXPECT_TRUE(store.IniSetString(L"USER1", L"Btn1_NumAP", L"x", kOwnFile));
    EXPECT_EQ(Line(L"USER1", L"Btn1_NumAP"), "x");
    EXPECT_EQ(store.IniGetString(L"USER1", L"Btn1_NumAP", L"0", kOwnFile), L"x");
    EXPECT_TRUE(store.IniSetString(L"OTHER", L"Key", L"7", kOwnFile));
    EXPECT_EQ(store.IniGetInt(L"OTHER", L"Key", 0, kOwnFile), 7);
    EXPECT_THAT(registry.Operations(), IsEmpty());
}

TEST_F(EntriesInTheFile, ReadTheDefault_WhenTheyAreMissing) {
    EXPECT_EQ(store.IniGetString(L"USER1", L"UserName", L"FALSE", kOwnFile), L"FALSE");
    EXPECT_EQ(store.IniGetInt(L"KORVOQLB", L"NumUser", 5, kOwnFile), 5);
}

TEST_F(EntriesInTheFile, ReadTheDefault_WhenTheFileCannotBeRead) {
    PutLine(L"USER1", L"UserName", "Home");
    files.refusesReads = true;
    EXPECT_EQ(store.IniGetString(L"USER1", L"UserName", L"FALSE", kOwnFile), L"FALSE");
}

TEST_F(EntriesInTheFile, AreCutAt511Bytes) {
    PutLine(L"USER1", L"Btn1_AP1", std::string(511, 'x').c_str());
    PutLine(L"USER1", L"Btn1_AP2", std::string(512, 'x').c_str());
    PutLine(L"USER1", L"Btn1_AP3", std::string(70000, 'x').c_str());
    for (const wchar_t* key : {L"Btn1_AP1", L"Btn1_AP2", L"Btn1_AP3"}) {
        EXPECT_EQ(store.IniGetString(L"USER1", key, L"", kOwnFile), std::wstring(511, L'x'));
    }
}

TEST_F(EntriesInTheFile, EndAtTheirFirstNul) {
    files.PutLine(L"USER1", L"UserName", kOwnFile, std::string_view("ab\0cd", 5));
    EXPECT_EQ(store.IniGetString(L"USER1", L"UserName", L"", kOwnFile), L"ab");
}

TEST_F(EntriesInTheFile, SaySo_WhenTheFileRefusesAWrite) {
    files.refusesWrites = true;
    EXPECT_FALSE(store.IniSetString(L"USER1", L"UserName", L"x", kOwnFile));
}

class JapaneseEntriesInTheFile : public Test, public TestStore {
public:
    JapaneseEntriesInTheFile() : TestStore(FakeAnsiText::kJapanese) {
        store.IniFileExist = true;
        std::string text;
        for (int i = 0; i < 300; ++i) {
            text += "\x82\xA0";
        }
        PutLine(L"USER1", L"Even", text.c_str());
        PutLine(L"USER1", L"Odd", ("x" + text).c_str());
    }
};

TEST_F(JapaneseEntriesInTheFile, AreCutAt511Bytes_WhenACharacterEndsThere) {
    EXPECT_EQ(store.IniGetString(L"USER1", L"Odd", L"", kOwnFile), L"x" + std::wstring(255, L'\x3042'));
}

TEST_F(JapaneseEntriesInTheFile, AreCutBetweenCharacters_WhenAByteOfACharacterWouldRemain) {
    for (const wchar_t stray : {L'\0', L'\x30FB'}) {
        ansiText.strayLeadByte = stray;
        EXPECT_EQ(store.IniGetString(L"USER1", L"Even", L"", kOwnFile), std::wstring(255, L'\x3042'));
    }
}

TEST_F(EntriesInTheFile, GiveThePatternNumbersAs1To10AndElse1) {
    const std::pair<const char*, std::int32_t> texts[] = {
        {"1", 1}, {"10", 10}, {" 5 ", 5}, {"0", 1}, {"11", 1}, {"-3", 1}, {"x", 1}, {"3x", 1}, {"", 1}};
    for (const auto& [text, number] : texts) {
        PutLine(L"KORVOQLB", L"CurrUser", text);
        PutLine(L"KORVOQLB", L"NumUser", text);
        EXPECT_EQ(store.ReadCurrentPatternNumber(), number) << text;
        EXPECT_EQ(store.ReadPatternCount(), number) << text;
    }
}

TEST_F(EntriesInTheRegistry, GiveThePatternNumbersAs1To10AndElse1) {
    EXPECT_EQ(store.ReadCurrentPatternNumber(), 1);
    EXPECT_EQ(store.ReadPatternCount(), 1);
    for (const auto& [stored, number] : std::map<int, int>{{1, 1}, {10, 10}, {0, 1}, {11, 1}, {-1, 1}}) {
        PutUser(L"", L"CurrSetting", stored);
        PutUser(L"", L"NumSetting", stored);
        EXPECT_EQ(store.ReadCurrentPatternNumber(), number);
        EXPECT_EQ(store.ReadPatternCount(), number);
    }
}

} // namespace
