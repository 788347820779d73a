#include "exchange/SettingsFile.h"
#include "CommandRig.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kHead = "; QLBUtl settings, format 1\r\n";
const std::string kTail = "[END]\r\n";

class SettingsFileTest : public testing::Test, public CommandRig {
protected:
    SettingsFile Read(const std::string& bytes) { return ReadSettingsFile(bytes, Stored()); }
    std::wstring Text(const SettingsFile& file, const wchar_t* section, const wchar_t* key) {
        const auto found = file.settings.find({section, key});
        return found == file.settings.end() ? L"(none)" : Stored().ReadingOf(found->first, found->second);
    }
};

TEST_F(SettingsFileTest, IsTheIniStyleNamesInTheirOrder) {
    PutPattern(1, "Home", 1);
    PutUser(L"", L"CurrSetting", 1);
    PutUser(L"OnScreen", L"FontFace", "Arial");
    PutUser(L"Setting\\Set1\\AppKey1", L"DispTitle", " Mail ");
    const StoredSettings stored = Stored();
    EXPECT_EQ(WriteSettingsFile(stored.Read(), stored),
              kHead +
                  "\r\n[KORVOQLB]\r\nCurrUser=1\r\nNumUser=1\r\n"
                  "\r\n[ONSCREEN]\r\nFontName=Arial\r\n"
                  "\r\n[USER1]\r\nUserName=Home\r\n"
                  "Btn1_Exec=P\r\nBtn1_NumAP=2\r\n"
                  "Btn1_Name=\" Mail \"\r\n"
                  "Btn1_AP1=C:\\mail.exe|/new\r\n"
                  "Btn1_AP2=http://example/?a=b&c\r\n"
                  "Btn1_Title2=Web\r\n"
                  "Btn2_Exec=K\r\nBtn2_NumAP=1\r\nBtn2_Name=Copy\r\n"
                  "Btn2_AP1=579\r\n"
                  "\r\n" +
                  kTail);
}

TEST_F(SettingsFileTest, HasEveryFieldOfTheLayout) {
    for (const PatternEntry& entry : PatternEntries(kMaxButtons)) {
        store.IniSetString(L"USER1", entry.key, L"1", kOwnFile);
    }
    const StoredSettings stored = Stored();
    const SettingsFile file = Read(WriteSettingsFile(stored.Read(), stored));
    EXPECT_EQ(file.settings.size(), PatternEntries(kMaxButtons).size());
    EXPECT_EQ(file.settings, stored.Read());
}

TEST_F(SettingsFileTest, IsReadAsAPersonWritesIt) {
    const SettingsFile file =
        Read("\xEF\xBB\xBF" + kHead +
             "# a remark\n; another\n\n  [user1]\n username = Home \nBTN1_name=\"a \"\n[end]");
    EXPECT_THAT(file.errors, IsEmpty());
    EXPECT_EQ(Text(file, L"USER1", L"UserName"), L"Home");
    EXPECT_EQ(Text(file, L"USER1", L"Btn1_Name"), L"a ");
}

TEST_F(SettingsFileTest, NamesWhatItDoesNotKnowAndLeavesItOut) {
    const SettingsFile file =
        Read(kHead + "[KORVOQLB]\nSpeed=1\n[LAUNCHER]\nKey=2\n[USER1]\nBtn9_Name=x\nBtn1_AP6=y\n" + kTail);
    EXPECT_THAT(file.errors, IsEmpty());
    EXPECT_THAT(file.settings, IsEmpty());
    EXPECT_THAT(file.notes, ElementsAre(Finding{Say::kFileUnknownKey, {L"[KORVOQLB]", L"Speed"}, 3},
                                        Finding{Say::kFileUnknownSection, {L"[LAUNCHER]"}, 4},
                                        Finding{Say::kFileUnknownKey, {L"[USER1]", L"Btn9_Name"}, 7},
                                        Finding{Say::kFileUnknownKey, {L"[USER1]", L"Btn1_AP6"}, 8}));
}

TEST_F(SettingsFileTest, ReadsAnIniFileOfTheStoreInTheCodePage) {
    const SettingsFile file =
        Read("[KORVOQLB]\r\nNumUser=1\r\n[Other]\r\nx\r\n[USER1]\r\nUserName=Gr\xF6\xDF"
             "e\r\nUserName=second\r\nBtn1_Name= \" a \" \r\nBtn1_AP1=\"C:\\x\" /y\r\n");
    EXPECT_THAT(file.errors, IsEmpty());
    EXPECT_EQ(Text(file, L"USER1", L"UserName"), L"Größe");
    EXPECT_EQ(Text(file, L"USER1", L"Btn1_Name"), L" a ");
    EXPECT_EQ(Text(file, L"USER1", L"Btn1_AP1"), L"\"C:\\x\" /y");
}

TEST_F(SettingsFileTest, ReadsAnIniFileInUtf16) {
    std::string little = "\xFF\xFE";
    std::string big = "\xFE\xFF";
    for (const wchar_t c : std::wstring(L"[USER1]\r\nUserName=Größe\r\n")) {
        little += {static_cast<char>(c), '\0'};
        big += {'\0', static_cast<char>(c)};
    }
    EXPECT_EQ(Text(Read(little), L"USER1", L"UserName"), L"Größe");
    EXPECT_EQ(Text(Read(big), L"USER1", L"UserName"), L"Größe");
}

TEST_F(SettingsFileTest, ReadsAnIniFileInJapanese) {
    CommandRig japanese({false, FakeAnsiText::kJapanese});
    const StoredSettings stored = japanese.Stored();
    const SettingsFile file = ReadSettingsFile("[USER1]\r\nUserName=\x89\xC6\r\n", stored);
    ASSERT_THAT(file.errors, IsEmpty());
    const EntryName name{L"USER1", L"UserName"};
    EXPECT_EQ(stored.ReadingOf(name, file.settings.at(name)), L"家");
}

TEST_F(SettingsFileTest, KeepsWhatTheRulesWouldRefuse) {
    PutUser(L"", L"NumSetting", 37);
    PutUser(L"Setting\\Set1", L"SetName", "Same");
    PutUser(L"Setting\\Set2", L"SetName", "Same");
    PutUser(L"Setting\\Set1\\AppKey1", L"NumAP", 7);
    PutUser(L"Setting\\Set1\\AppKey2", L"NumAP", "3");
    PutUser(L"Setting\\Set1\\AppKey1", L"AP1", std::string(2049, 'x').c_str());
    const StoredSettings stored = Stored();
    const std::string bytes = WriteSettingsFile(stored.Read(), stored);
    const SettingsFile file = Read(bytes);
    EXPECT_THAT(file.errors, IsEmpty()) << bytes;
    EXPECT_EQ(file.settings, stored.Read());
}

} // namespace
