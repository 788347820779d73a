#include "settings/Pattern.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

constexpr int kButtons = 7;

Pattern SomePattern() {
    Pattern pattern;
    pattern.UserName = L"Home";
    for (int button = 1; button <= kMaxButtons; ++button) {
        ButtonSlot& slot = pattern.Btn(button);
        slot.Name = L"Name " + std::to_wstring(button);
        slot.Exec = L"S";
        slot.NumAP = 2;
        for (int k = 1; k <= kMaxPrograms; ++k) {
            slot.Program(k).AP = L"C:\\Program" + std::to_wstring(k) + L".exe";
            slot.Program(k).Param = L"/x" + std::to_wstring(k);
            slot.Program(k).Title = L"Title " + std::to_wstring(k);
        }
    }
    return pattern;
}

TEST(LaunchMethodTest, IsOneLetterInEitherCase) {
    const std::pair<const wchar_t*, LaunchMethod> texts[] = {
        {L"M", LaunchMethod::Single},       {L"m", LaunchMethod::Single},
        {L"K", LaunchMethod::ShortcutKey},  {L"k", LaunchMethod::ShortcutKey},
        {L"S", LaunchMethod::Sequential},   {L"s", LaunchMethod::Sequential},
        {L"P", LaunchMethod::Simultaneous}, {L"p", LaunchMethod::Simultaneous},
        {L"", LaunchMethod::Unknown},       {L"X", LaunchMethod::Unknown},
        {L" M", LaunchMethod::Unknown},     {L"MM", LaunchMethod::Unknown},
        {L"\xFF2D", LaunchMethod::Unknown}};
    for (const auto& [text, method] : texts) {
        EXPECT_EQ(LaunchMethodFromText(text), method) << testing::PrintToString(text);
    }
}

struct Change {
    const char* testName;
    std::function<void(Pattern&)> make;
};

void PrintTo(const Change& change, std::ostream* stream) {
    *stream << change.testName;
}

std::string TestName(const testing::TestParamInfo<Change>& info) {
    return info.param.testName;
}

class ChangeThatCounts : public testing::TestWithParam<Change> {};

TEST_P(ChangeThatCounts, MakesPatternsDifferent) {
    const Pattern unchanged = SomePattern();
    Pattern changed = unchanged;
    GetParam().make(changed);
    EXPECT_FALSE(PatternsEqual(changed, unchanged, kButtons));
    EXPECT_FALSE(PatternsEqual(unchanged, changed, kButtons));
}

INSTANTIATE_TEST_SUITE_P(
    Fields, ChangeThatCounts,
    testing::Values(Change{"Name", [](Pattern& p) { p.Btn(1).Name = L"Other"; }},
                    Change{"CaseOfAName", [](Pattern& p) { p.Btn(1).Name = L"name 1"; }},
                    Change{"BlankBehindAName", [](Pattern& p) { p.Btn(1).Name += L" "; }},
                    Change{"LaunchMethod", [](Pattern& p) { p.Btn(1).Exec = L"P"; }},
                    Change{"ProgramCount", [](Pattern& p) { p.Btn(1).NumAP = 3; }},
                    Change{"FirstCommand", [](Pattern& p) { p.Btn(1).Program(1).AP = L"x"; }},
                    Change{"LastCommand", [](Pattern& p) { p.Btn(1).Program(5).AP.clear(); }},
                    Change{"FirstParameters", [](Pattern& p) { p.Btn(1).Program(1).Param = L"x"; }},
                    Change{"LastParameters", [](Pattern& p) { p.Btn(1).Program(5).Param = L"x"; }},
                    Change{"LastButton", [](Pattern& p) { p.Btn(kButtons).Name = L"Other"; }}),
    TestName);

class ChangeThatDoesNotCount : public testing::TestWithParam<Change> {};

TEST_P(ChangeThatDoesNotCount, LeavesPatternsEqual) {
    const Pattern unchanged = SomePattern();
    Pattern changed = unchanged;
    GetParam().make(changed);
    ASSERT_NE(changed, unchanged);
    EXPECT_TRUE(PatternsEqual(changed, unchanged, kButtons));
}

INSTANTIATE_TEST_SUITE_P(
    Fields, ChangeThatDoesNotCount,
    testing::Values(Change{"PatternName", [](Pattern& p) { p.UserName = L"Other"; }},
                    Change{"Title", [](Pattern& p) { p.Btn(1).Program(1).Title = L"Other"; }},
                    Change{"CaseOfALaunchMethod", [](Pattern& p) { p.Btn(1).Exec = L"s"; }},
                    Change{"CaseOfACommand",
                           [](Pattern& p) { p.Btn(1).Program(1).AP = L"c:\\PROGRAM1.EXE"; }},
                    Change{"CaseOfParameters", [](Pattern& p) { p.Btn(1).Program(1).Param = L"/X1"; }},
                    Change{"ButtonThatIsNotShown", [](Pattern& p) { p.Btn(kButtons + 1).Name = L"Other"; }}),
    TestName);

TEST(PatternsEqualTest, ComparesAllEightButtons_WhenThereAreEight) {
    const Pattern unchanged = SomePattern();
    Pattern changed = unchanged;
    changed.Btn(8).NumAP = 5;
    EXPECT_TRUE(PatternsEqual(changed, unchanged, 7));
    EXPECT_FALSE(PatternsEqual(changed, unchanged, 8));
}

TEST(ButtonPictureTest, FollowsTheMethod_WhenThereAreProgramsAndElseIsNoApp) {
    const std::pair<const wchar_t*, ButtonPicture> methods[] = {
        {L"M", kPictureSingle},   {L"m", kPictureSingle},   {L"K", kPictureSingle}, {L"k", kPictureSingle},
        {L"S", kPictureSequence}, {L"s", kPictureSequence}, {L"P", kPictureSimul},  {L"p", kPictureSimul}};
    for (const auto& [exec, picture] : methods) {
        Pattern working = SomePattern();
        Pattern unchanged = working;
        working.Btn(3).Exec = exec;
        EXPECT_EQ(ButtonPictureIndex(working, unchanged, 3), picture) << testing::PrintToString(exec);
        working.Btn(3).NumAP = 0;
        EXPECT_EQ(ButtonPictureIndex(working, unchanged, 3), kPictureNoApp) << testing::PrintToString(exec);
        EXPECT_EQ(working.Btn(3).Exec, exec);
    }
}

TEST(ButtonPictureTest, IsNumberedAsTheListIs) {
    EXPECT_EQ(kPictureNoApp, 1);
    EXPECT_EQ(kPictureSingle, 3);
    EXPECT_EQ(kPictureSequence, 5);
    EXPECT_EQ(kPictureSimul, 7);
}

TEST(UnknownMethodTest, ShowsNoAppOnceAndIsReplacedInBothCopies_WithoutAChange) {
    for (const wchar_t* text : {L"", L"X", L"MM", L"1"}) {
        SCOPED_TRACE(testing::PrintToString(text));
        Pattern working = SomePattern();
        working.Btn(3).Exec = text;
        Pattern unchanged = working;
        EXPECT_EQ(ButtonPictureIndex(working, unchanged, 3), kPictureNoApp);
        EXPECT_EQ(working.Btn(3).Exec, L"M");
        EXPECT_EQ(unchanged.Btn(3).Exec, L"M");
        EXPECT_TRUE(PatternsEqual(working, unchanged, kButtons));
        EXPECT_EQ(ButtonPictureIndex(working, unchanged, 3), kPictureSingle);
    }
}

TEST(UnknownMethodTest, LeavesEveryOtherButtonAlone) {
    Pattern working = SomePattern();
    working.Btn(3).Exec = L"?";
    working.Btn(4).Exec = L"?";
    Pattern unchanged = working;
    EXPECT_EQ(ButtonPictureIndex(working, unchanged, 3), kPictureNoApp);
    EXPECT_EQ(working.Btn(4).Exec, L"?");
    EXPECT_EQ(unchanged.Btn(4).Exec, L"?");
}

TEST(ButtonPictureTest, LeavesAKnownMethodOfTheUnchangedCopyAlone) {
    Pattern working = SomePattern();
    Pattern unchanged = working;
    working.Btn(3).Exec = L"P";
    EXPECT_EQ(ButtonPictureIndex(working, unchanged, 3), kPictureSimul);
    EXPECT_EQ(unchanged.Btn(3).Exec, L"S");
    EXPECT_FALSE(PatternsEqual(working, unchanged, kButtons));
}

} // namespace
