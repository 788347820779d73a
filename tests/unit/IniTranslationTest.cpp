#include "settings/StoreLayout.h"

#include "TestStore.h"
#include "settings/PatternStore.h"

namespace {

const std::wstring kProduct = L"Software\\Korvo\\KORVOQLB";

struct Translation {
    const wchar_t* testName;
    std::wstring section;
    std::wstring key;
    std::wstring subkey;
    std::wstring name;
    bool isNumber;
};

void PrintTo(const Translation& translation, std::ostream* stream) {
    *stream << testing::PrintToString(translation.section) << ' ' << testing::PrintToString(translation.key);
}

class TableOfFields : public testing::Test, public TestStore {};

class IniName : public testing::TestWithParam<Translation> {};

TEST_P(IniName, HasItsPlaceInTheRegistry) {
    const auto place = TranslateIniName(GetParam().section, GetParam().key);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->path, kProduct + GetParam().subkey);
    EXPECT_EQ(place->name, GetParam().name);
    EXPECT_EQ(place->isNumber, GetParam().isNumber);
}

std::string TestName(const testing::TestParamInfo<Translation>& info) {
    const std::wstring name = info.param.testName;
    return {name.begin(), name.end()};
}

INSTANTIATE_TEST_SUITE_P(
    Product, IniName,
    testing::Values(Translation{L"Keyboard", L"KORVOQLB", L"QLBKeyboard", L"", L"QLBB", true},
                    Translation{L"CurrentPattern", L"KORVOQLB", L"CurrUser", L"", L"CurrSetting", true},
                    Translation{L"PatternCount", L"KORVOQLB", L"NumUser", L"", L"NumSetting", true},
                    Translation{L"AnyOtherKeyKeepsItsName", L"KORVOQLB", L"Other", L"", L"Other", true}),
    TestName);

INSTANTIATE_TEST_SUITE_P(
    OnScreen, IniName,
    testing::Values(Translation{L"Switch", L"ONSCREEN", L"OnScreen", L"\\OnScreen", L"OnScreen", true},
                    Translation{L"FaceIsText", L"ONSCREEN", L"FontName", L"\\OnScreen", L"FontFace", false},
                    Translation{L"FaceByItsOwnNameIsTextToo", L"ONSCREEN", L"fontface", L"\\OnScreen",
                                L"fontface", false},
                    Translation{L"SizeIsLowerCase", L"ONSCREEN", L"FontSize", L"\\OnScreen", L"size", true},
                    Translation{L"Color", L"ONSCREEN", L"Color", L"\\OnScreen", L"Color", true},
                    Translation{L"Time", L"ONSCREEN", L"DelayTime", L"\\OnScreen", L"Time", true}),
    TestName);

INSTANTIATE_TEST_SUITE_P(
    Pattern, IniName,
    testing::Values(
        Translation{L"PatternName", L"USER1", L"UserName", L"\\Setting\\Set1", L"SetName", false},
        Translation{L"TwoDigits", L"USER10", L"UserName", L"\\Setting\\Set10", L"SetName", false},
        Translation{L"SectionInLowerCase", L"user3", L"UserName", L"\\Setting\\Set3", L"SetName", false},
        Translation{L"SectionWithoutANumber", L"USER", L"UserName", L"\\Setting\\Set0", L"SetName", false},
        Translation{L"NumberStartsAtTheFifthCharacter", L"1USER2", L"UserName", L"\\Setting\\Set0",
                    L"SetName", false},
        Translation{L"ButtonName", L"USER2", L"Btn3_Name", L"\\Setting\\Set2\\AppKey3", L"DispTitle", false},
        Translation{L"LaunchMethod", L"USER2", L"Btn3_Exec", L"\\Setting\\Set2\\AppKey3", L"Execute", false},
        Translation{L"ProgramCountIsANumber", L"USER2", L"Btn3_NumAP", L"\\Setting\\Set2\\AppKey3", L"NumAP",
                    true},
        Translation{L"Program", L"USER2", L"Btn3_AP4", L"\\Setting\\Set2\\AppKey3", L"AP4", false},
        Translation{L"Title", L"USER2", L"Btn3_Title5", L"\\Setting\\Set2\\AppKey3", L"ProgName5", false},
        Translation{L"ButtonInLowerCase", L"USER2", L"btn8_Name", L"\\Setting\\Set2\\AppKey8", L"DispTitle",
                    false},
        Translation{L"ButtonNumberIsOneDigit", L"USER1", L"Btn12_Name", L"\\Setting\\Set1\\AppKey1",
                    L"DispTitle", false},
        Translation{L"ButtonNumberThatIsNone", L"USER1", L"BtnX_Exec", L"\\Setting\\Set1\\AppKey0",
                    L"Execute", false},
        Translation{L"ProgramNumberThatIsNone", L"USER1", L"Btn1_AP", L"\\Setting\\Set1\\AppKey1", L"AP0",
                    false},
        Translation{L"ButtonAnywhereInTheName", L"USER1", L"x2y4Btn_Title3", L"\\Setting\\Set1\\AppKey4",
                    L"ProgName3", false},
        Translation{L"ProgramNumberIsTheLastDigit", L"USER1", L"Btn1_AP12", L"\\Setting\\Set1\\AppKey1",
                    L"AP2", false}),
    TestName);

INSTANTIATE_TEST_SUITE_P(FirstTestThatMatches, IniName,
                         testing::Values(Translation{L"NameBeforeExec", L"USER1", L"Btn1_Exec_Name",
                                                     L"\\Setting\\Set1\\AppKey1", L"DispTitle", false},
                                         Translation{L"ExecBeforeNumAP", L"USER1", L"Btn1_NumAP_Exec",
                                                     L"\\Setting\\Set1\\AppKey1", L"Execute", false},
                                         Translation{L"NumAPBeforeAP", L"USER1", L"Btn1_AP_NumAP1",
                                                     L"\\Setting\\Set1\\AppKey1", L"NumAP", true},
                                         Translation{L"APBeforeTitle", L"USER1", L"Btn1_Title_AP2",
                                                     L"\\Setting\\Set1\\AppKey1", L"AP2", false}),
                         TestName);

INSTANTIATE_TEST_SUITE_P(
    UnnamedValue, IniName,
    testing::Values(
        Translation{L"OfTheButton", L"USER1", L"Btn1_Other", L"\\Setting\\Set1\\AppKey1", L"", false},
        Translation{L"OfThePattern", L"USER1", L"Other", L"\\Setting\\Set1", L"", false},
        Translation{L"OfAButtonWithoutANumber", L"USER1", L"Btn", L"\\Setting\\Set1\\AppKey0", L"", false},
        Translation{L"OfAPatternsNameInLowerCase", L"USER1", L"username", L"\\Setting\\Set1", L"", false},
        Translation{L"OfANameWithoutAButton", L"USER1", L"_Exec", L"\\Setting\\Set1", L"", false},
        Translation{L"OfAnEmptyKey", L"USER1", L"", L"\\Setting\\Set1", L"", false}),
    TestName);

TEST_F(TableOfFields, GivesEachEntryThePlaceOfItsOwnRow) {
    for (const PatternEntry& entry : PatternStore(store, kMaxButtons).Entries()) {
        const std::wstring subkey = entry.button == 0 ? L"" : L"\\AppKey" + std::to_wstring(entry.button);
        const std::wstring program = entry.program == 0 ? L"" : std::to_wstring(entry.program);
        const RegistryPlace place{kProduct + L"\\Setting\\Set3" + subkey,
                                  std::wstring(entry.field->registryName) + program,
                                  entry.field->kind == FieldKind::Count};
        EXPECT_EQ(TranslateIniName(L"USER3", entry.key), place) << testing::PrintToString(entry.key);
    }
}

TEST(IniTranslationTest, HasNoPlace_ForAnotherSection) {
    EXPECT_EQ(TranslateIniName(L"OTHER", L"UserName"), std::nullopt);
    EXPECT_EQ(TranslateIniName(L"", L"UserName"), std::nullopt);
    EXPECT_EQ(TranslateIniName(L"USE1", L"UserName"), std::nullopt);
}

} // namespace
