#include "StoreRig.h"

namespace {

/// The ini file, as the resident launcher and an editor see it.
template <class Rig> class StoreOnIniFile : public testing::Test {
protected:
    StoreOnIniFile() { rig_.store.IniFileExist = true; }

    Rig rig_;

    [[nodiscard]] std::wstring Read(const std::wstring& key, std::string_view bytes) {
        rig_.PutLine(kOwnIniFile, L"USER1", key, bytes);
        return rig_.store.IniGetString(L"USER1", key, L"FALSE", kOwnIniFile);
    }
    bool Set(const std::wstring& section, const std::wstring& key, const std::wstring& value) {
        return rig_.store.IniSetString(section, key, value, kOwnIniFile);
    }
    [[nodiscard]] std::optional<std::string> Line(const std::wstring& section, const std::wstring& key) {
        return rig_.Line(kOwnIniFile, section, key);
    }
};

using Rigs = testing::Types<FakeStoreRig, WindowsStoreRig>;
TYPED_TEST_SUITE(StoreOnIniFile, Rigs, RigName);

TYPED_TEST(StoreOnIniFile, NamesAndTextsGoToTheFileUnchanged) {
    EXPECT_TRUE(this->Set(L"USER2", L"Btn3_AP4", L"C:\\App\\app.exe|/x"));
    EXPECT_EQ(this->Line(L"USER2", L"Btn3_AP4"), "C:\\App\\app.exe|/x");
    EXPECT_TRUE(this->Set(L"ONSCREEN", L"FontSize", L"3"));
    EXPECT_EQ(this->Line(L"ONSCREEN", L"FontSize"), "3");
    EXPECT_TRUE(this->Set(L"OTHER", L"Any", L"text"));
    EXPECT_EQ(this->Line(L"OTHER", L"Any"), "text");
}

TYPED_TEST(StoreOnIniFile, TheFileTakesAnyTextForANumber) {
    EXPECT_TRUE(this->Set(L"KORVOQLB", L"CurrUser", L"three"));
    EXPECT_EQ(this->Line(L"KORVOQLB", L"CurrUser"), "three");
    EXPECT_EQ(this->rig_.store.ReadCurrentPatternNumber(), 1);
    EXPECT_EQ(this->rig_.store.IniGetInt(L"KORVOQLB", L"CurrUser", 9, kOwnIniFile), 0);
}

TYPED_TEST(StoreOnIniFile, TextIsInTheCodePage) {
    EXPECT_TRUE(this->Set(L"USER1", L"UserName", LocalText()));
    EXPECT_EQ(this->Line(L"USER1", L"UserName"), LocalBytes());
    EXPECT_EQ(this->Read(L"Btn1_Name", LocalBytes()), LocalText());
}

TYPED_TEST(StoreOnIniFile, ALineWithoutTextIsEmpty) {
    EXPECT_EQ(this->Read(L"Btn1_AP1", ""), L"");
    EXPECT_EQ(this->Read(L"Btn1_AP2", " "), L"");
}

TYPED_TEST(StoreOnIniFile, QuotesAroundACommandAreLost) {
    EXPECT_EQ(this->Read(L"Btn1_AP1", "\"C:\\a b.exe\""), L"C:\\a b.exe");
    EXPECT_EQ(this->Read(L"Btn1_AP2", "\"C:\\a b.exe\"|/x"), L"\"C:\\a b.exe\"|/x");
}

TYPED_TEST(StoreOnIniFile, LongTextIsCutWhenItIsRead) {
    EXPECT_TRUE(this->Set(L"USER1", L"Btn1_AP1", std::wstring(600, L'x')));
    EXPECT_EQ(this->Line(L"USER1", L"Btn1_AP1"), std::string(600, 'x'));
    EXPECT_EQ(this->rig_.store.IniGetString(L"USER1", L"Btn1_AP1", L"FALSE", kOwnIniFile),
              std::wstring(511, L'x'));
}

TYPED_TEST(StoreOnIniFile, TheCutTearsNoCharacter) {
    std::string bytes;
    for (int i = 0; i < 400; ++i) {
        bytes += "\x83\x41";
    }
    EXPECT_EQ(this->Read(L"Btn1_AP1", bytes),
              GetACP() == 932 ? std::wstring(255, L'ア') : FromAnsi(bytes.substr(0, 511)));
    EXPECT_EQ(this->Read(L"Btn1_AP2", 'x' + bytes),
              GetACP() == 932 ? L'x' + std::wstring(255, L'ア') : L'x' + FromAnsi(bytes.substr(0, 510)));
}

TYPED_TEST(StoreOnIniFile, AnySectionCanBeDeleted) {
    EXPECT_TRUE(this->Set(L"OTHER", L"Any", L"text"));
    EXPECT_TRUE(this->rig_.store.IniDeleteSection(L"OTHER", kOwnIniFile));
    EXPECT_EQ(this->Line(L"OTHER", L"Any"), std::nullopt);
}

TYPED_TEST(StoreOnIniFile, ASectionThatCannotBeDeletedIsReported) {
    this->rig_.RefuseWrites();
    EXPECT_FALSE(this->rig_.store.IniDeleteSection(L"USER1", kOwnIniFile));
}

TYPED_TEST(StoreOnIniFile, TheRegistryIsNotTouched) {
    this->rig_.PutValue(RegistryHive::CurrentUser, kProductKey, L"CurrSetting", kRegistryString, "7");
    EXPECT_EQ(this->rig_.store.ReadCurrentPatternNumber(), 1);
    EXPECT_TRUE(this->Set(L"KORVOQLB", L"NumUser", L"3"));
    EXPECT_FALSE(this->rig_.Value(kProductKey, L"NumSetting"));
}

TYPED_TEST(StoreOnIniFile, TheMakersValuesStillComeFromTheRegistry) {
    this->rig_.PutValue(RegistryHive::LocalMachine, kProductKey, L"QLBB", kRegistryDword,
                        std::string_view("\1\0\0\0", 4));
    EXPECT_EQ(this->rig_.store.RegGetDword(RegistryHive::LocalMachine, kProductKey, L"QLBB"), 1);
}

} // namespace
