#include "RegistryValues.h"
#include "StoreRig.h"

#include <gmock/gmock.h>

namespace {

using namespace std::string_literals;
using testing::Optional;

constexpr auto kUser = RegistryHive::CurrentUser;
constexpr auto kMachine = RegistryHive::LocalMachine;
constexpr std::int32_t kFallback = -77;

RegistryValue Text(const std::string& bytes) {
    return {kRegistryString, bytes + '\0'};
}

RegistryValue Number(std::uint32_t number) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<char>(number >> shift & 0xFFU));
    }
    return {kRegistryDword, bytes};
}

/// The layout below HKEY_CURRENT_USER that the resident launcher reads, and the raw values of the maker.
template <class Rig> class StoreOnRegistry : public testing::Test {
protected:
    Rig rig_;

    void Put(RegistryHive hive, const std::wstring& name, const RegistryValue& value) {
        rig_.PutValue(hive, kProductKey, name, value.type, value.bytes);
    }
    [[nodiscard]] std::int32_t ReadDword(const RegistryValue& value) {
        Put(kMachine, L"Value", value);
        return rig_.store.RegGetDword(kMachine, kProductKey, L"Value", kFallback);
    }
    [[nodiscard]] std::wstring ReadString(const RegistryValue& value) {
        Put(kMachine, L"Value", value);
        return rig_.store.RegGetString(kMachine, kProductKey, L"Value", L"fallback");
    }
    bool Set(const std::wstring& section, const std::wstring& key, const std::wstring& value) {
        return rig_.store.IniSetString(section, key, value, kOwnIniFile);
    }
    [[nodiscard]] std::wstring Get(const std::wstring& section, const std::wstring& key,
                                   const std::wstring& fallback) {
        return rig_.store.IniGetString(section, key, fallback, kOwnIniFile);
    }
    [[nodiscard]] std::optional<RegistryValue> Value(const std::wstring& subkey, const std::wstring& name) {
        return rig_.Value(kProductKey + subkey, name);
    }
};

using Rigs = testing::Types<FakeStoreRig, WindowsStoreRig>;
TYPED_TEST_SUITE(StoreOnRegistry, Rigs, RigName);

TYPED_TEST(StoreOnRegistry, AMissingKeyOrValueIsTheFallback) {
    EXPECT_EQ(this->rig_.store.RegGetDword(kMachine, kProductKey, L"QLBB"), 0);
    EXPECT_EQ(this->rig_.store.RegGetString(kMachine, kProductKey, L"KeyName", L"fallback"), L"fallback");
    this->Put(kMachine, L"Other", Number(1));
    EXPECT_EQ(this->rig_.store.RegGetDword(kMachine, kProductKey, L"QLBB", kFallback), kFallback);
    EXPECT_EQ(this->rig_.store.RegGetString(kMachine, kProductKey, L"KeyName"), L"");
}

TYPED_TEST(StoreOnRegistry, ANumberIsSigned) {
    EXPECT_EQ(this->ReadDword(Number(0)), 0);
    EXPECT_EQ(this->ReadDword(Number(0x12345678)), 0x12345678);
    EXPECT_EQ(this->ReadDword(Number(0xFFFFFFFF)), -1);
    EXPECT_EQ(this->ReadDword(Number(0x80000000)), std::numeric_limits<std::int32_t>::min());
}

TYPED_TEST(StoreOnRegistry, FourBytesOfAnyTypeAreANumber) {
    EXPECT_EQ(this->ReadDword({REG_BINARY, "\1\0\0\0"s}), 1);
    EXPECT_EQ(this->ReadDword({kRegistryString, "abc\0"s}), 0x00636261);
    EXPECT_EQ(this->ReadDword({REG_NONE, "\2\0\0\0"s}), 2);
}

TYPED_TEST(StoreOnRegistry, FewerBytesAreTheLowOnesOfANumber) {
    for (const std::uint32_t type : std::initializer_list<std::uint32_t>{REG_BINARY, REG_SZ, REG_DWORD}) {
        EXPECT_EQ(this->ReadDword({type, ""s}), 0) << type;
        EXPECT_EQ(this->ReadDword({type, "\1"s}), 1) << type;
        EXPECT_EQ(this->ReadDword({type, "\1\2"s}), 0x0201) << type;
        EXPECT_EQ(this->ReadDword({type, "\1\2\3"s}), 0x030201) << type;
    }
    EXPECT_EQ(this->ReadDword(Text("7")), '7');
    EXPECT_EQ(this->ReadDword(Text("")), 0);
}

TYPED_TEST(StoreOnRegistry, MoreThanFourBytesAreNoNumber) {
    for (const std::string& bytes : {"\1\2\3\4\5"s, "\1\2\3\4\5\6\7\x8"s, std::string(70'000, '\1')}) {
        EXPECT_EQ(this->ReadDword({REG_BINARY, bytes}), kFallback) << bytes.size() << " bytes";
    }
    EXPECT_EQ(this->ReadDword(Text("hello")), kFallback);
}

TYPED_TEST(StoreOnRegistry, TextEndsAtTheFirstNulOrWithTheData) {
    EXPECT_EQ(this->ReadString(Text("text")), L"text");
    EXPECT_EQ(this->ReadString({kRegistryString, "ab\0cd\0"s}), L"ab");
    EXPECT_EQ(this->ReadString({REG_BINARY, "no nul"s}), L"no nul");
    EXPECT_EQ(this->ReadString({kRegistryString, ""}), L"");
    EXPECT_EQ(this->ReadString({kRegistryString, "\0\0"s}), L"");
}

TYPED_TEST(StoreOnRegistry, TheDataOfOtherTypesIsReadAsText) {
    EXPECT_EQ(this->ReadString({REG_EXPAND_SZ, "%windir%\0"s}), L"%windir%");
    EXPECT_EQ(this->ReadString({REG_MULTI_SZ, "one\0two\0\0"s}), L"one");
    EXPECT_EQ(this->ReadString({kRegistryDword, "AB\0\0"s}), L"AB");
    EXPECT_EQ(this->ReadString(Number(0)), L"");
}

TYPED_TEST(StoreOnRegistry, LongTextIsCut) {
    for (const std::size_t length : {2047U, 2048U}) {
        EXPECT_EQ(this->ReadString(Text(std::string(length, 'x'))).size(), length);
    }
    for (const std::size_t length : {2049U, 70'000U, 1'000'000U}) {
        EXPECT_EQ(this->ReadString(Text(std::string(length, 'x'))), std::wstring(2048, L'x'));
    }
}

TYPED_TEST(StoreOnRegistry, TheCutTearsNoCharacter) {
    if (GetACP() != 932) {
        EXPECT_EQ(this->ReadString(Text(std::string(3000, '\xDF'))), std::wstring(2048, L'ß'));
        return;
    }
    std::string bytes = "x";
    for (int i = 0; i < 1500; ++i) {
        bytes += "\x83\x41";
    }
    EXPECT_EQ(this->ReadString(Text(bytes)), L'x' + std::wstring(1023, L'ア'));
    EXPECT_EQ(this->ReadString(Text(bytes.substr(1))), std::wstring(1024, L'ア'));
}

TYPED_TEST(StoreOnRegistry, TextIsReadInTheCodePage) {
    EXPECT_EQ(this->ReadString(Text(LocalBytes())), LocalText());
}

TYPED_TEST(StoreOnRegistry, ANumberIsWrittenAsADword) {
    EXPECT_TRUE(this->rig_.store.RegSetDword(kUser, kProductKey, L"Value", -2));
    EXPECT_THAT(this->Value(L"", L"Value"), Optional(Number(0xFFFFFFFE)));
    EXPECT_EQ(this->rig_.store.RegGetDword(kUser, kProductKey, L"Value", kFallback), -2);
}

TYPED_TEST(StoreOnRegistry, TextIsWrittenInTheCodePageWithItsNul) {
    EXPECT_TRUE(this->rig_.store.RegSetString(kUser, kProductKey, L"Value", LocalText()));
    EXPECT_THAT(this->Value(L"", L"Value"), Optional(Text(LocalBytes())));
    EXPECT_EQ(this->rig_.store.RegGetString(kUser, kProductKey, L"Value"), LocalText());
}

TYPED_TEST(StoreOnRegistry, EmptyTextIsWrittenAsTwoNuls) {
    EXPECT_TRUE(this->rig_.store.RegSetString(kUser, kProductKey, L"Value", L""));
    EXPECT_THAT(this->Value(L"", L"Value"), Optional(RegistryValue{kRegistryString, "\0\0"s}));
    EXPECT_EQ(this->rig_.store.RegGetString(kUser, kProductKey, L"Value", L"fallback"), L"");
}

TYPED_TEST(StoreOnRegistry, TextIsWrittenUpToItsFirstNul) {
    EXPECT_TRUE(this->rig_.store.RegSetString(kUser, kProductKey, L"Value", L"ab\0cd"s));
    EXPECT_THAT(this->Value(L"", L"Value"), Optional(Text("ab")));
    EXPECT_TRUE(this->rig_.store.RegSetString(kUser, kProductKey, L"Value", L"\0cd"s));
    EXPECT_THAT(this->Value(L"", L"Value"), Optional(RegistryValue{kRegistryString, "\0\0"s}));
}

TYPED_TEST(StoreOnRegistry, WritesOfBothKindsSayWhenTheyAreRefused) {
    this->rig_.RefuseWrites();
    EXPECT_FALSE(this->rig_.store.RegSetDword(kUser, kProductKey, L"Value", 1));
    EXPECT_FALSE(this->rig_.store.RegSetString(kUser, kProductKey, L"Value", L"text"));
    EXPECT_EQ(this->Value(L"", L"Value"), std::nullopt);
}

struct Place {
    const wchar_t* section;
    const wchar_t* key;
    const wchar_t* subkey;
    const wchar_t* name;
    bool isNumber;
};

constexpr std::array kPlaces{
    Place{L"KORVOQLB", L"QLBKeyboard", L"", L"QLBB", true},
    Place{L"KORVOQLB", L"CurrUser", L"", L"CurrSetting", true},
    Place{L"KORVOQLB", L"NumUser", L"", L"NumSetting", true},
    Place{L"KORVOQLB", L"AnyOther", L"", L"AnyOther", true},
    Place{L"ONSCREEN", L"OnScreen", L"\\OnScreen", L"OnScreen", true},
    Place{L"ONSCREEN", L"FontName", L"\\OnScreen", L"FontFace", false},
    Place{L"ONSCREEN", L"FontSize", L"\\OnScreen", L"size", true},
    Place{L"ONSCREEN", L"Color", L"\\OnScreen", L"Color", true},
    Place{L"ONSCREEN", L"DelayTime", L"\\OnScreen", L"Time", true},
    Place{L"USER1", L"UserName", L"\\Setting\\Set1", L"SetName", false},
    Place{L"USER10", L"UserName", L"\\Setting\\Set10", L"SetName", false},
    Place{L"user2", L"UserName", L"\\Setting\\Set2", L"SetName", false},
    Place{L"USER1", L"Btn1_NumAP", L"\\Setting\\Set1\\AppKey1", L"NumAP", true},
    Place{L"USER1", L"Btn1_Exec", L"\\Setting\\Set1\\AppKey1", L"Execute", false},
    Place{L"USER3", L"Btn8_Name", L"\\Setting\\Set3\\AppKey8", L"DispTitle", false},
    Place{L"USER2", L"Btn3_AP4", L"\\Setting\\Set2\\AppKey3", L"AP4", false},
    Place{L"USER2", L"Btn3_Title5", L"\\Setting\\Set2\\AppKey3", L"ProgName5", false},
    Place{L"USER2", L"btn3_ap4", L"\\Setting\\Set2\\AppKey3", L"AP4", false},
    Place{L"USER2", L"NoSuchKey", L"\\Setting\\Set2", L"", false},
    Place{L"USER2", L"Btn3_NoSuchField", L"\\Setting\\Set2\\AppKey3", L"", false},
};

TYPED_TEST(StoreOnRegistry, EachEntryIsWrittenToItsValue) {
    for (const Place& place : kPlaces) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(place.section) + L" " + place.key));
        EXPECT_TRUE(this->Set(place.section, place.key, L"3"));
        EXPECT_THAT(this->Value(place.subkey, place.name), Optional(place.isNumber ? Number(3) : Text("3")));
    }
}

TYPED_TEST(StoreOnRegistry, EachEntryIsReadFromItsValue) {
    for (const Place& place : kPlaces) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(place.section) + L" " + place.key));
        const RegistryValue stored = place.isNumber ? Number(7) : Text("7");
        this->rig_.PutValue(kUser, std::wstring(kProductKey) + place.subkey, place.name, stored.type,
                            stored.bytes);
        EXPECT_EQ(this->Get(place.section, place.key, L"9"), L"7");
        EXPECT_EQ(this->rig_.store.IniGetInt(place.section, place.key, 9, kOwnIniFile), 7);
    }
}

TYPED_TEST(StoreOnRegistry, TextThatIsNoNumberIsNotWrittenAsOne) {
    for (const wchar_t* text : {L"", L"abc", L"3 of 5", L"2147483648", L"1.5"}) {
        EXPECT_FALSE(this->Set(L"KORVOQLB", L"CurrUser", text)) << testing::PrintToString(text);
    }
    EXPECT_EQ(this->Value(L"", L"CurrSetting"), std::nullopt);
    EXPECT_TRUE(this->Set(L"KORVOQLB", L"CurrUser", L" 5 "));
    EXPECT_THAT(this->Value(L"", L"CurrSetting"), Optional(Number(5)));
}

TYPED_TEST(StoreOnRegistry, TextIsReadAsTheNumberItStartsWith) {
    this->rig_.PutValue(kUser, std::wstring(kProductKey) + L"\\Setting\\Set1", L"SetName", kRegistryString,
                        "12 apples\0"s);
    EXPECT_EQ(this->rig_.store.IniGetInt(L"USER1", L"UserName", 9, kOwnIniFile), 12);
    EXPECT_TRUE(this->Set(L"USER1", L"UserName", L"apples"));
    EXPECT_EQ(this->rig_.store.IniGetInt(L"USER1", L"UserName", 9, kOwnIniFile), 0);
}

TYPED_TEST(StoreOnRegistry, AnUnknownSectionIsEmptyAndTakesNothing) {
    EXPECT_EQ(this->Get(L"OTHER", L"UserName", L"fallback"), L"");
    EXPECT_FALSE(this->Set(L"OTHER", L"UserName", L"text"));
    EXPECT_EQ(this->Get(L"OTHER", L"UserName", L"fallback"), L"");
    EXPECT_EQ(this->rig_.Line(kOwnIniFile, L"OTHER", L"UserName"), std::nullopt);
}

TYPED_TEST(StoreOnRegistry, OnlyAPatternsSectionCanBeDeleted) {
    ASSERT_TRUE(this->Set(L"KORVOQLB", L"NumUser", L"3"));
    ASSERT_TRUE(this->Set(L"ONSCREEN", L"FontName", L"kept"));
    ASSERT_TRUE(this->Set(L"USER1", L"UserName", L"kept"));
    for (const wchar_t* section : {L"KORVOQLB", L"ONSCREEN", L"OTHER", L"USER", L"USER0", L"USER01", L""}) {
        EXPECT_FALSE(this->rig_.store.IniDeleteSection(section, kOwnIniFile))
            << testing::PrintToString(section);
    }
    EXPECT_THAT(this->Value(L"", L"NumSetting"), Optional(Number(3)));
    EXPECT_THAT(this->Value(L"\\OnScreen", L"FontFace"), Optional(Text("kept")));
    EXPECT_THAT(this->Value(L"\\Setting\\Set1", L"SetName"), Optional(Text("kept")));
}

TYPED_TEST(StoreOnRegistry, ThePatternsBeyondTenCanBeDeletedToo) {
    ASSERT_TRUE(this->Set(L"USER1", L"UserName", L"kept"));
    ASSERT_TRUE(this->Set(L"USER12", L"Btn1_Name", L"deleted"));
    EXPECT_TRUE(this->rig_.store.IniDeleteSection(L"USER12", kOwnIniFile));
    EXPECT_EQ(this->Value(L"\\Setting\\Set12\\AppKey1", L"DispTitle"), std::nullopt);
    EXPECT_THAT(this->Value(L"\\Setting\\Set1", L"SetName"), Optional(Text("kept")));
}

TYPED_TEST(StoreOnRegistry, ADeletedSectionTakesValuesAlongThatAreNotOurs) {
    const std::wstring path = std::wstring(kProductKey) + L"\\Setting\\Set1";
    this->rig_.PutValue(kUser, path, L"Foreign", kRegistryString, "x\0"s);
    this->rig_.PutValue(kUser, path + L"\\AppKey9", L"Foreign", kRegistryString, "x\0"s);
    EXPECT_TRUE(this->rig_.store.IniDeleteSection(L"USER1", kOwnIniFile));
    EXPECT_EQ(this->rig_.Value(path, L"Foreign"), std::nullopt);
    EXPECT_EQ(this->rig_.Value(path + L"\\AppKey9", L"Foreign"), std::nullopt);
}

TYPED_TEST(StoreOnRegistry, TheOwnIniFileIsNotTouched) {
    this->rig_.PutLine(kOwnIniFile, L"KORVOQLB", L"CurrUser", "7");
    EXPECT_EQ(this->Get(L"KORVOQLB", L"CurrUser", L"1"), L"1");
    EXPECT_TRUE(this->Set(L"KORVOQLB", L"CurrUser", L"3"));
    EXPECT_EQ(this->rig_.Line(kOwnIniFile, L"KORVOQLB", L"CurrUser"), "7");
}

TYPED_TEST(StoreOnRegistry, AFileNameInOtherLettersIsAnotherFile) {
    std::wstring lower = kOwnIniFile;
    lower.replace(lower.size() - 3, 3, L"ini");
    EXPECT_TRUE(this->rig_.store.IniSetString(L"USER1", L"UserName", L"text", lower));
    EXPECT_EQ(this->rig_.Line(lower, L"USER1", L"UserName"), "text");
    EXPECT_EQ(this->Value(L"\\Setting\\Set1", L"SetName"), std::nullopt);
}

TYPED_TEST(StoreOnRegistry, TheMakersValuesAreNotTheUsers) {
    this->Put(kMachine, L"CurrSetting", Number(3));
    EXPECT_EQ(this->rig_.store.ReadCurrentPatternNumber(), 1);
    EXPECT_TRUE(this->Set(L"KORVOQLB", L"CurrUser", L"5"));
    EXPECT_EQ(this->rig_.store.RegGetDword(kMachine, kProductKey, L"CurrSetting"), 3);
}

/// The registry keeps text in UTF-16: what programs that read it so will see.
TEST(WindowsStoreOnRegistry, OtherProgramsSeeTheTextInUtf16) {
    WindowsStoreRig rig;
    ASSERT_TRUE(rig.store.IniSetString(L"USER1", L"UserName", LocalText(), kOwnIniFile));
    ASSERT_TRUE(rig.store.IniSetString(L"USER1", L"Btn1_Name", L"", kOwnIniFile));
    const std::wstring path = std::wstring(kProductKey) + L"\\Setting\\Set1";
    EXPECT_THAT(RawRegistry::StoredValue(kUser, path, L"SetName"),
                Optional(RegistryValue{kRegistryString, RawRegistry::StoredBytes(LocalText() + L'\0')}));
    EXPECT_THAT(RawRegistry::StoredValue(kUser, path + L"\\AppKey1", L"DispTitle"),
                Optional(RegistryValue{kRegistryString, RawRegistry::StoredBytes(L"\0\0"s)}));
}

TEST(WindowsStoreOnRegistry, TheUsersOwnSettingsAreOutOfReachOfTheseTests) {
    // A key of the test's own stands for the user's settings: those are not to be touched even here.
    struct OutsideKey {
        const wchar_t* path = L"Software\\QLBUtlContractOutside";
        OutsideKey() { RawRegistry::Put(kUser, path, L"Value", kRegistryString, "the user's\0"s); }
        OutsideKey(const OutsideKey&) = delete;
        OutsideKey& operator=(const OutsideKey&) = delete;
        ~OutsideKey() { RegDeleteTreeW(HKEY_CURRENT_USER, path); }
    };
    const OutsideKey outside;
    {
        WindowsStoreRig rig;
        EXPECT_EQ(RawRegistry::Value(kUser, outside.path, L"Value"), std::nullopt);
        ASSERT_TRUE(rig.store.RegSetDword(kUser, outside.path, L"Value", 1));
        ASSERT_TRUE(rig.store.RegSetDword(kUser, outside.path, L"Another", 1));
        EXPECT_THAT(RawRegistry::Value(kUser, outside.path, L"Value"), Optional(Number(1)));
    }
    EXPECT_THAT(RawRegistry::Value(kUser, outside.path, L"Value"), Optional(Text("the user's")));
    EXPECT_EQ(RawRegistry::Value(kUser, outside.path, L"Another"), std::nullopt);
}

} // namespace
