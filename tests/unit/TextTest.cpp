#include "settings/StdModule.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();

using Halves = std::pair<std::wstring, std::wstring>;

TEST(SplitAtBarTest, SplitsAtTheFirstBar) {
    EXPECT_EQ(SplitAtBar(L"a.exe|/x|/y"), Halves(L"a.exe", L"/x|/y"));
}

TEST(SplitAtBarTest, LeavesTheRightHalfEmpty_WithoutABar) {
    EXPECT_EQ(SplitAtBar(L"a.exe"), Halves(L"a.exe", L""));
    EXPECT_EQ(SplitAtBar(L""), Halves(L"", L""));
}

TEST(SplitAtBarTest, GivesEmptyHalves_WhenTheBarIsAtAnEnd) {
    EXPECT_EQ(SplitAtBar(L"|/x"), Halves(L"", L"/x"));
    EXPECT_EQ(SplitAtBar(L"a.exe|"), Halves(L"a.exe", L""));
    EXPECT_EQ(SplitAtBar(L"|"), Halves(L"", L""));
}

TEST(SplitAtBarTest, KeepsBlanks) {
    EXPECT_EQ(SplitAtBar(L" a | b "), Halves(L" a ", L" b "));
}

TEST(CutAtNulTest, CutsAtTheFirstNul) {
    EXPECT_EQ(CutAtNul(std::wstring(L"ab\0cd\0", 6)), L"ab");
    EXPECT_EQ(CutAtNul(std::wstring(L"\0ab", 3)), L"");
}

TEST(CutAtNulTest, KeepsTextWithoutANul) {
    EXPECT_EQ(CutAtNul(L"ab"), L"ab");
    EXPECT_EQ(CutAtNul(L""), L"");
}

TEST(TrimBlanksTest, RemovesBlanksAtBothEndsOnly) {
    EXPECT_EQ(TrimBlanks(L"  a b  "), L"a b");
    EXPECT_EQ(TrimBlanks(L"   "), L"");
    EXPECT_EQ(TrimBlanks(L""), L"");
}

TEST(TrimBlanksTest, KeepsOtherWhiteSpace) {
    EXPECT_EQ(TrimBlanks(L"\ta\t"), L"\ta\t");
    EXPECT_EQ(TrimBlanks(L"\x3000"), L"\x3000") << "full-width blank";
    EXPECT_EQ(TrimBlanks(L"a\n"), L"a\n");
}

TEST(NumberFromTextTest, TakesDigitsWithASignAndBlanksAround) {
    EXPECT_EQ(NumberFromText(L"0"), 0);
    EXPECT_EQ(NumberFromText(L"42"), 42);
    EXPECT_EQ(NumberFromText(L"+42"), 42);
    EXPECT_EQ(NumberFromText(L"-42"), -42);
    EXPECT_EQ(NumberFromText(L" 42  "), 42);
    EXPECT_EQ(NumberFromText(L"007"), 7);
}

TEST(NumberFromTextTest, TakesAllOf32SignedBits) {
    EXPECT_EQ(NumberFromText(L"2147483647"), kMax);
    EXPECT_EQ(NumberFromText(L"-2147483648"), kMin);
}

TEST(NumberFromTextTest, RefusesNumbersBeyond32SignedBits) {
    EXPECT_EQ(NumberFromText(L"2147483648"), std::nullopt);
    EXPECT_EQ(NumberFromText(L"-2147483649"), std::nullopt);
    EXPECT_EQ(NumberFromText(L"99999999999999999999999999"), std::nullopt);
    EXPECT_EQ(NumberFromText(L"-99999999999999999999999999"), std::nullopt);
}

TEST(NumberFromTextTest, RefusesEverythingElse) {
    for (const wchar_t* text :
         {L"",    L" ",   L"x",     L"5x",  L"x5",   L"1 2",  L"-",   L"+",   L"- 5",    L"--5",
          L"+-5", L"1.5", L"1,000", L"1e3", L"0x10", L"&H10", L"\t5", L"5\n", L"\xFF15", L"\x0665"}) {
        EXPECT_EQ(NumberFromText(text), std::nullopt) << testing::PrintToString(text);
    }
}

TEST(LeadingNumberTest, TakesTheNumberAtTheStart) {
    EXPECT_EQ(LeadingNumber(L"12abc"), 12);
    EXPECT_EQ(LeadingNumber(L"  -7 x"), -7);
    EXPECT_EQ(LeadingNumber(L"+3.9"), 3);
}

TEST(LeadingNumberTest, IsZero_WithoutANumber) {
    EXPECT_EQ(LeadingNumber(L""), 0);
    EXPECT_EQ(LeadingNumber(L"   "), 0);
    EXPECT_EQ(LeadingNumber(L"abc12"), 0);
    EXPECT_EQ(LeadingNumber(L"- 5"), 0);
    EXPECT_EQ(LeadingNumber(L"-"), 0);
}

TEST(LeadingNumberTest, StaysAtTheLimit_BeyondIt) {
    EXPECT_EQ(LeadingNumber(L"2147483648x"), kMax);
    EXPECT_EQ(LeadingNumber(L"-99999999999999999999999999"), kMin);
}

TEST(IsNumericInRangeTest, IncludesBothEnds) {
    EXPECT_TRUE(IsNumericInRange(L"1", 1, 10));
    EXPECT_TRUE(IsNumericInRange(L"10", 1, 10));
    EXPECT_FALSE(IsNumericInRange(L"0", 1, 10));
    EXPECT_FALSE(IsNumericInRange(L"11", 1, 10));
    EXPECT_FALSE(IsNumericInRange(L"-5", 1, 10));
}

TEST(IsNumericInRangeTest, IsFalse_WhenTheTextIsNoNumber) {
    EXPECT_FALSE(IsNumericInRange(L"", 0, 10));
    EXPECT_FALSE(IsNumericInRange(L"x", 0, 10));
    EXPECT_FALSE(IsNumericInRange(L"99999999999", 0, kMax));
}

TEST(NumberInRangeOrTest, GivesTheNumberInRangeAndElseTheFallback) {
    EXPECT_EQ(NumberInRangeOr(L" 5 ", 1, 5, 3), 5);
    EXPECT_EQ(NumberInRangeOr(L"6", 1, 5, 3), 3);
    EXPECT_EQ(NumberInRangeOr(L"x", 1, 5, 3), 3);
    EXPECT_EQ(NumberInRangeOr(L"", 0, 5, -1), -1);
}

struct LetterPair {
    wchar_t upper;
    wchar_t lower;
};

TEST(EqualsIgnoreCaseTest, TakesCasedLettersAsTheSame) {
    constexpr LetterPair kPairs[] = {{L'A', L'a'},     {L'Z', L'z'},     {0x00C0, 0x00E0}, {0x00DE, 0x00FE},
                                     {0x0100, 0x0101}, {0x0136, 0x0137}, {0x0139, 0x013A}, {0x0141, 0x0142},
                                     {0x014A, 0x014B}, {0x0176, 0x0177}, {0x0178, 0x00FF}, {0x0179, 0x017A},
                                     {0x017D, 0x017E}, {0x0391, 0x03B1}, {0x03A9, 0x03C9}, {0x0401, 0x0451},
                                     {0x0410, 0x0430}, {0x042F, 0x044F}, {0x0490, 0x0491}, {0xFF21, 0xFF41},
                                     {0xFF3A, 0xFF5A}};
    for (const LetterPair& pair : kPairs) {
        const std::wstring upper{L'x', pair.upper};
        const std::wstring lower{L'X', pair.lower};
        EXPECT_TRUE(EqualsIgnoreCase(upper, lower)) << testing::PrintToString(upper);
        EXPECT_TRUE(EqualsIgnoreCase(lower, upper)) << testing::PrintToString(upper);
    }
}

TEST(EqualsIgnoreCaseTest, TellsOtherLettersApart) {
    constexpr LetterPair kPairs[] = {{L'A', L'b'},     {L'@', L'`'},    {L'[', L'{'},   {0x00D7, 0x00F7},
                                     {L'e', 0x00E9},   {L'i', 0x0131},  {L'A', 0xFF21}, {0x30A2, 0x3042},
                                     {0x30A2, 0xFF71}, {0x3042, 0x3041}};
    for (const LetterPair& pair : kPairs) {
        const std::wstring one(1, pair.upper);
        EXPECT_FALSE(EqualsIgnoreCase(one, std::wstring(1, pair.lower))) << testing::PrintToString(one);
    }
}

TEST(EqualsIgnoreCaseTest, TellsLengthsApart) {
    EXPECT_TRUE(EqualsIgnoreCase(L"", L""));
    EXPECT_FALSE(EqualsIgnoreCase(L"ab", L"abc"));
    EXPECT_FALSE(EqualsIgnoreCase(L"abc", L"ab"));
    EXPECT_FALSE(EqualsIgnoreCase(L"", L"a"));
}

TEST(FindIgnoreCaseTest, FindsTheFirstPlace) {
    EXPECT_EQ(FindIgnoreCase(L"xAbab", L"aB"), 1U);
    EXPECT_EQ(FindIgnoreCase(L"ab", L"AB"), 0U);
}

TEST(FindIgnoreCaseTest, SaysSo_WhenThePartIsAbsent) {
    EXPECT_EQ(FindIgnoreCase(L"abc", L"x"), std::wstring_view::npos);
    EXPECT_EQ(FindIgnoreCase(L"ab", L"abc"), std::wstring_view::npos);
    EXPECT_EQ(FindIgnoreCase(L"", L"a"), std::wstring_view::npos);
    EXPECT_FALSE(ContainsIgnoreCase(L"abc", L"x"));
}

TEST(FindIgnoreCaseTest, FindsTheEmptyTextAtTheStart) {
    EXPECT_EQ(FindIgnoreCase(L"abc", L""), 0U);
    EXPECT_EQ(FindIgnoreCase(L"", L""), 0U);
}

TEST(LessIgnoreCaseTest, OrdersTextsThatDifferInMoreThanCase) {
    EXPECT_TRUE(LessIgnoreCase{}(L"ab", L"B"));
    EXPECT_TRUE(LessIgnoreCase{}(L"AB", L"abc"));
    EXPECT_TRUE(LessIgnoreCase{}(L"", L"a"));
    EXPECT_FALSE(LessIgnoreCase{}(L"B", L"ab"));
    EXPECT_FALSE(LessIgnoreCase{}(L"ab", L"AB"));
    EXPECT_FALSE(LessIgnoreCase{}(L"AB", L"ab"));
}

TEST(FromUtf8Test, DecodesEveryLength) {
    EXPECT_EQ(FromUtf8(""), L"");
    EXPECT_EQ(FromUtf8("abc\x7F"), L"abc\x7F");
    EXPECT_EQ(FromUtf8("\xC2\x80\xDF\xBF"), L"\x0080\x07FF");
    EXPECT_EQ(FromUtf8("\xE0\xA0\x80\xE6\x97\xA5\xEF\xBF\xBF"), L"\x0800\x65E5\xFFFF");
    EXPECT_EQ(FromUtf8("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), L"\U00010000\U0010FFFF");
    EXPECT_EQ(FromUtf8(std::string_view("a\0b", 3)), std::wstring(L"a\0b", 3));
}

TEST(FromUtf8Test, KeepsTheCodesOnBothSidesOfTheSurrogates) {
    EXPECT_EQ(FromUtf8("\xED\x9F\xBF\xEE\x80\x80"), L"\xD7FF\xE000");
}

TEST(FromUtf8Test, ReplacesEachByteThatIsNoText) {
    struct Case {
        const char* bytes;
        std::size_t replaced;
    };
    // Stray and missing continuations, over-long forms, surrogates, codes beyond the last.
    for (const Case& wrong :
         {Case{"\x80", 1}, Case{"\xBF\xBF", 2}, Case{"\xC2", 1}, Case{"\xE6\x97", 2}, Case{"\xF0\x90\x80", 3},
          Case{"\xC0\x80", 2}, Case{"\xC1\xBF", 2}, Case{"\xE0\x9F\xBF", 3}, Case{"\xF0\x8F\xBF\xBF", 4},
          Case{"\xED\xA0\x80", 3}, Case{"\xED\xBF\xBF", 3}, Case{"\xF4\x90\x80\x80", 4},
          Case{"\xF5\x80\x80\x80", 4}, Case{"\xFE\xFF", 2}}) {
        EXPECT_EQ(FromUtf8(wrong.bytes), std::wstring(wrong.replaced, L'\xFFFD'))
            << testing::PrintToString(wrong.bytes);
    }
}

TEST(FromUtf8Test, GoesOnBehindWhatIsNoText) {
    EXPECT_EQ(FromUtf8("a\xC2z"), L"a\xFFFDz");
    EXPECT_EQ(FromUtf8("\xE6\x97\xE6\x97\xA5"), L"\xFFFD\xFFFD\x65E5");
}

TEST(DecimalTextTest, IsTheDigits_WithAMinusInFrontOfNegativeNumbers) {
    EXPECT_EQ(DecimalText(0), L"0");
    EXPECT_EQ(DecimalText(10), L"10");
    EXPECT_EQ(DecimalText(-7), L"-7");
    EXPECT_EQ(DecimalText(std::size_t{4294967296}), L"4294967296");
}

TEST(DecimalTextTest, HasRoomForTheLongestNumbers) {
    EXPECT_EQ(DecimalText(std::numeric_limits<std::int64_t>::max()), L"9223372036854775807");
    EXPECT_EQ(DecimalText(std::numeric_limits<std::int64_t>::min()), L"-9223372036854775808");
}

TEST(DecimalTextTest, IsReadBackAsTheSameNumber) {
    for (const std::int32_t number : {0, 1, -1, 9, 10, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(NumberFromText(DecimalText(number)), number);
    }
}

} // namespace
