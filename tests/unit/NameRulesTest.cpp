#include "dialogs/patterns/NameRules.h"

#include "fakes/FakeAnsiText.h"

#include <gtest/gtest.h>

namespace {

const FakeAnsiText kWesternText(FakeAnsiText::kWestern);
const FakeAnsiText kJapaneseText(FakeAnsiText::kJapanese);

std::wstring FullWidth(std::size_t count) {
    return std::wstring(count, L'\x8A2D');
}

NameProblem CheckJapanese(const std::wstring& name) {
    return CheckPatternName(name, {}, kJapaneseText);
}

TEST(PatternName, CannotBeEmpty) {
    EXPECT_EQ(CheckPatternName(L"", {}, kWesternText), NameProblem::Empty);
}

TEST(PatternName, MayBeABlank) {
    EXPECT_EQ(CheckPatternName(L" ", {}, kWesternText), NameProblem::None);
}

TEST(PatternName, CannotBeUsedTwice) {
    EXPECT_EQ(CheckPatternName(L"Home", {L"Work", L"Home"}, kWesternText), NameProblem::Used);
}

TEST(PatternName, DiffersByCaseAlone) {
    EXPECT_EQ(CheckPatternName(L"ABC", {L"abc"}, kWesternText), NameProblem::None);
}

TEST(PatternName, DiffersByATrailingBlank) {
    EXPECT_EQ(CheckPatternName(L"Home ", {L"Home"}, kWesternText), NameProblem::None);
}

TEST(PatternName, CannotBeStoredAsOneThatIsUsed) {
    const std::wstring japanese = L"\x65E5";
    const std::wstring chinese = L"\x4F60";
    EXPECT_EQ(CheckPatternName(japanese, {L"?"}, kWesternText), NameProblem::Used);
    EXPECT_EQ(CheckPatternName(japanese, {chinese}, kWesternText), NameProblem::Used);
    EXPECT_EQ(CheckPatternName(chinese, {L"Home", L"?"}, kJapaneseText), NameProblem::Used);
    EXPECT_EQ(CheckPatternName(japanese, {L"?", chinese}, kJapaneseText), NameProblem::None);
}

TEST(PatternName, HasUpTo20HalfWidthCharacters) {
    for (const FakeAnsiText* text : {&kWesternText, &kJapaneseText}) {
        EXPECT_EQ(CheckPatternName(std::wstring(20, L'x'), {}, *text), NameProblem::None);
        EXPECT_EQ(CheckPatternName(std::wstring(21, L'x'), {}, *text), NameProblem::TooLong);
    }
}

TEST(PatternName, HasUpTo10FullWidthCharactersInJapanese) {
    EXPECT_EQ(CheckJapanese(FullWidth(10)), NameProblem::None);
    EXPECT_EQ(CheckJapanese(FullWidth(11)), NameProblem::TooLong);
}

TEST(PatternName, CannotHave10FullWidthAndOneHalfWidthCharacter) {
    EXPECT_EQ(CheckJapanese(FullWidth(10) + L"x"), NameProblem::TooLong);
}

TEST(PatternName, CountsHalfWidthKatakanaOnce) {
    EXPECT_EQ(CheckJapanese(std::wstring(20, L'\xFF71')), NameProblem::None);
}

TEST(PatternName, IsUsedBeforeItIsTooLong) {
    const std::wstring longName(21, L'x');
    EXPECT_EQ(CheckPatternName(longName, {longName}, kWesternText), NameProblem::Used);
}

TEST(PatternName, IsEmptyBeforeItIsUsed) {
    EXPECT_EQ(CheckPatternName(L"", {L""}, kWesternText), NameProblem::Empty);
}

} // namespace
