#include "app/StringTable.h"

#include "fakes/FakeStrings.h"
#include "settings/GlobalValue.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <vector>

namespace {

struct Row {
    int id;
    std::wstring english;
    std::wstring japanese;
};

const std::vector<Row>& Table() {
    static const std::vector<Row> rows = {
#define QLB_STRING(id, english, japanese) {id, L##english, L##japanese},
#include "resources/StringTable.inc"
#undef QLB_STRING
    };
    return rows;
}

struct Range {
    int first;
    int last;
};

constexpr Range kRanges[] = {
    {1000, 1012}, {3000, 3018}, {3020, 3024}, {3030, 3035}, {3040, 3047}, {3050, 3058}, {3060, 3064},
    {3070, 3083}, {3100, 3107}, {3110, 3111}, {3120, 3125}, {3130, 3134}, {3200, 3205}, {3210, 3216},
    {3220, 3224}, {3230, 3236}, {3240, 3241}, {3250, 3252}, {3260, 3261}, {3270, 3280}, {3290, 3301}};

constexpr std::size_t kTexts = 142;
constexpr std::size_t kSpareTexts = 13;

std::vector<int> Ids() {
    std::vector<int> ids;
    for (const Range& range : kRanges) {
        for (int id = range.first; id <= range.last; ++id) {
            ids.push_back(id);
        }
    }
    return ids;
}

/// What follows each "&" of a text, "&" itself left out.
std::wstring AccessKeys(const std::wstring& text) {
    std::wstring keys;
    for (std::size_t pos = text.find(L'&'); pos != std::wstring::npos; pos = text.find(L'&', pos + 1)) {
        keys += text.substr(pos + 1, 1);
    }
    return keys;
}

std::size_t Count(const std::wstring& text, const std::wstring& part) {
    std::size_t count = 0;
    for (std::size_t pos = text.find(part); pos != std::wstring::npos; pos = text.find(part, pos + 1)) {
        ++count;
    }
    return count;
}

bool IsAscii(const std::wstring& text) {
    return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 0x80; });
}

TEST(StringTableTest, HoldsEveryIdOnce) {
    std::vector<int> ids;
    for (const Row& row : Table()) {
        ids.push_back(row.id);
    }
    EXPECT_EQ(ids.size(), kTexts + kSpareTexts);
    EXPECT_EQ(std::set<int>(ids.begin(), ids.end()).size(), ids.size());
    EXPECT_THAT(ids, testing::UnorderedElementsAreArray(Ids()));
}

TEST(StringTableTest, HoldsATextForEveryIdInBothLanguages) {
    for (const Language language : {Language::English, Language::Japanese}) {
        const FakeStrings strings(language);
        for (const int id : Ids()) {
            EXPECT_NE(strings.Load(id), L"") << id;
        }
    }
}

TEST(StringTableTest, KeepsEnglishTextsInAscii) {
    for (const Row& row : Table()) {
        EXPECT_TRUE(IsAscii(row.english)) << row.id;
    }
}

TEST(StringTableTest, TranslatesEveryTextThatIsNoName) {
    const std::set<int> alike = {3001, 3004, 3018, 3060, 3061, 3062, 3063, 3064,
                                 3130, 3131, 3132, 3133, 3134, 3275, 3291};
    for (const Row& row : Table()) {
        const bool same = row.id <= 1012 || alike.contains(row.id);
        EXPECT_EQ(row.english == row.japanese, same) << row.id;
    }
}

TEST(StringTableTest, GivesATextTheSameAccessKeyInBothLanguages) {
    for (const Row& row : Table()) {
        EXPECT_EQ(AccessKeys(row.english), AccessKeys(row.japanese)) << row.id;
    }
}

TEST(StringTableTest, ReplacesALabelInOneTextOnly) {
    for (const Row& row : Table()) {
        const std::size_t places = row.id == 3300 ? 1 : 0;
        EXPECT_EQ(Count(row.english, L"%s"), places) << row.id;
        EXPECT_EQ(Count(row.japanese, L"%s"), places) << row.id;
    }
}

TEST(StringTableTest, EndsInABlankWhereANumberFollows) {
    for (const Row& row : Table()) {
        const bool joined = row.id == 3016 || row.id == 3275;
        EXPECT_EQ(row.english.ends_with(L' '), joined) << row.id;
        EXPECT_EQ(row.japanese.ends_with(L' '), joined) << row.id;
    }
}

TEST(OwnTextsTest, StandBehindTheTableInBothLanguages) {
    constexpr int kFirstOwn = 4000;
    const FakeStrings english(Language::English);
    const FakeStrings japanese(Language::Japanese);
    for (const auto& [id, englishText, japaneseText] : {
#define QLB_STRING(id, english, japanese) Row{id, L##english, L##japanese},
#include "resources/OwnTexts.inc"
#undef QLB_STRING
         }) {
        EXPECT_GE(id, kFirstOwn);
        EXPECT_NE(englishText, japaneseText) << id;
        EXPECT_TRUE(IsAscii(englishText)) << id;
        EXPECT_EQ(Count(englishText, L"%d"), Count(japaneseText, L"%d")) << id;
        EXPECT_EQ(english.Load(id), englishText);
        EXPECT_EQ(japanese.Load(id), japaneseText);
    }
}

struct KnownText {
    int id;
    const wchar_t* english;
    const wchar_t* japanese;
};

void ExpectTexts(std::initializer_list<KnownText> known) {
    ResetGlobals(FakeStrings());
    const FakeStrings english(Language::English);
    const FakeStrings japanese(Language::Japanese);
    for (const KnownText& text : known) {
        EXPECT_EQ(StringTable(english).ResText(text.id - 3000), text.english) << text.id;
        EXPECT_EQ(StringTable(japanese).ResText(text.id - 3000), text.japanese) << text.id;
    }
}

TEST(StringTableTest, HasTheSpareTextsInEnglishInBothLanguages) {
    ExpectTexts({{1000, L"New", L"New"},
                 {1001, L"Open", L"Open"},
                 {1002, L"Save", L"Save"},
                 {1003, L"Print", L"Print"},
                 {1004, L"Cut", L"Cut"},
                 {1005, L"Copy", L"Copy"},
                 {1006, L"Paste", L"Paste"},
                 {1007, L"Bold", L"Bold"},
                 {1008, L"Italic", L"Italic"},
                 {1009, L"Underline", L"Underline"},
                 {1010, L"Align Left", L"Align Left"},
                 {1011, L"Center", L"Center"},
                 {1012, L"Align Right", L"Align Right"}});
}

TEST(StringTableTest, HasTheTextsThatTheProgramAndItsUsersRelyOn) {
    ExpectTexts({{3000, L"Quickfire Button Settings", L"クイックファイアボタンの設定"},
                 {3001, L"KORVOQLB.INI", L"KORVOQLB.INI"},
                 {3002, L"MS Shell Dlg 2", L"ＭＳ ゴシック"},
                 {3003, L" Help", L"ヘルプ"},
                 {3004, L"QLBCODE.DAT", L"QLBCODE.DAT"},
                 {3016, L"Button ", L"ボタン "},
                 {3018, L"QLBMCMNU.DAT", L"QLBMCMNU.DAT"},
                 {3030, L"Dislplay on Screen(&O)", L"オンスクリーンを表示する(&O)"},
                 {3110, L"Settings have changed.\nDo you want to save changes?",
                  L"データが変更されています。\n保存しますか？"},
                 {3200, L"Wizard", L"ウィザード"},
                 {3275, L"Fn + ", L"Fn + "},
                 {3300, L"Register the program to %s", L"%sにプログラムを登録する"},
                 {3301, L"Internet Shortcut", L"インターネット ショートカット"}});
}

TEST(StringTableTest, NamesTheFiveSizeSteps) {
    ExpectTexts({{3005, L"Minimum", L"最小"},
                 {3006, L"Small", L"小さい"},
                 {3007, L"Standard", L"標準"},
                 {3008, L"Large", L"大きい"},
                 {3009, L"Maximum", L"最大"}});
}

TEST(ResTextTest, IsEmpty_ForAnIdThatDoesNotExist) {
    ResetGlobals(FakeStrings());
    const FakeStrings strings;
    EXPECT_EQ(StringTable(strings).ResText(19), L"");
    EXPECT_EQ(StringTable(strings).ResText(302), L"");
}

TEST(ResTextTest, CountsFromTheResourceBase) {
    const FakeStrings strings;
    ResetGlobals(strings);
    Globals().ResourceBase = 1000;
    EXPECT_EQ(StringTable(strings).ResText(7), L"Bold");
    ResetGlobals(strings);
    EXPECT_EQ(StringTable(strings).ResText(7), L"Standard");
}

TEST(ResTextTest, HasAnOffsetForEachTextByItsName) {
    ResetGlobals(FakeStrings());
    const FakeStrings strings;
    const StringTable texts(strings);
    const std::vector<std::pair<int, const wchar_t*>> named = {
        {kTextTitle, L"Quickfire Button Settings"},
        {kTextIniFileName, L"KORVOQLB.INI"},
        {kTextDialogFontName, L"MS Shell Dlg 2"},
        {kTextHelp, L" Help"},
        {kTextCommandListFileName, L"QLBCODE.DAT"},
        {kTextFontStep1, L"Minimum"},
        {kTextButtonSettings, L"Button Settings"},
        {kTextOnScreenSettings, L"On-Screen Settings"},
        {kTextPatternName, L"Pattern Name(&N)"},
        {kTextSettingManager, L"Setting Manager(&M)..."},
        {kTextDefault, L"Default(&D)"},
        {kTextWizardButton, L"Wizard(&W)..."},
        {kTextButtonNumber, L"Button "},
        {kTextMenuFileName, L"QLBMCMNU.DAT"},
        {kTextOk, L"OK"},
        {kTextCancel, L"Cancel"},
        {kTextApply, L"Apply"},
        {kTextHelpButton, L"Help(&H)"},
        {kTextPrint, L"Print(&P)"},
        {kTextDisplayOnScreen, L"Dislplay on Screen(&O)"},
        {kTextFont, L"Font(&F)"},
        {kTextSize, L"Size(&S)"},
        {kTextColor, L"Color(&C)"},
        {kTextSelect, L"Select..."},
        {kTextPreview, L"Preview"},
        {kTextSettingsChanged, L"Settings have changed.\nDo you want to save changes?"},
        {kTextUpdateUserData, L"Update user data"},
        {kTextWizard, L"Wizard"},
        {kTextFnKey, L"Fn + "}};
    for (const auto& [offset, text] : named) {
        EXPECT_EQ(texts.ResText(offset), text) << offset;
    }
}

} // namespace
