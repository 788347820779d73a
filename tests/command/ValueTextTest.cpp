#include "exchange/ValueText.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

std::wstring TextIn(std::wstring_view written) {
    const ReadValue read = ReadWritten(written);
    EXPECT_EQ(read.problem, ValueProblem::None);
    return std::get<std::wstring>(read.value);
}

TEST(ValueText, StandsAsItIsWhereALineCanHoldIt) {
    for (const wchar_t* const text :
         {L"", L"C:\\a b\\c.exe|/x=1", L"a;b#c=d|e", L"a\"b", L"日本語", L"[x]", L";", L"#"}) {
        EXPECT_EQ(WrittenText(text), text);
        EXPECT_EQ(TextIn(text), text);
    }
}

TEST(ValueText, IsQuotedWhereItsEndsOrItsLinesWouldBeLost) {
    EXPECT_EQ(WrittenText(L" "), L"\" \"");
    EXPECT_EQ(WrittenText(L"a "), L"\"a \"");
    EXPECT_EQ(WrittenText(L"\"a\" b"), L"\"\\\"a\\\" b\"");
    EXPECT_EQ(WrittenText(L"a\r\n\tb"), L"\"a\\r\\n\\tb\"");
    EXPECT_EQ(WrittenText(L"hex(1):00"), L"\"hex(1):00\"");
    EXPECT_EQ(WrittenText(L"\x01"), L"\"\\u0001\"");
    EXPECT_EQ(WrittenText(L"\x2028"), L"\"\\u2028\"");
}

TEST(ValueText, AnyTextComesBack) {
    for (const wchar_t* const text : {L" ", L"a ", L"\"a\" b", L"a\r\n\tb", L"hex(1):00", L"\x01\x7F\x85",
                                      L"\\", L" \\", L"\"", L"\\u0041 "}) {
        EXPECT_EQ(TextIn(WrittenText(text)), text);
    }
}

TEST(ValueText, BytesComeBackWithTheirType) {
    for (const RegistryValue& value :
         {RegistryValue{1, "Hi\0"s}, RegistryValue{4, "\x07\0\0\0"s}, RegistryValue{0xDEADBEEF, "\xFF"s},
          RegistryValue{3, ""}, RegistryValue{1, "\0"s}, RegistryValue{0x10, "ab"}}) {
        const ReadValue read = ReadWritten(WrittenBytes(value));
        EXPECT_EQ(read.problem, ValueProblem::None);
        EXPECT_EQ(std::get<RegistryValue>(read.value), value);
    }
    EXPECT_EQ(WrittenBytes({1, "Hi\0"s}), L"hex(1):48,69,00");
    EXPECT_EQ(WrittenBytes({1, "\0"s}), L"\"\"");
}

TEST(ValueText, TellsWhatIsWrongWithIt) {
    EXPECT_EQ(ReadWritten(L"\"a").problem, ValueProblem::UnfinishedQuote);
    EXPECT_EQ(ReadWritten(L"\"a\\").problem, ValueProblem::UnfinishedQuote);
    EXPECT_EQ(ReadWritten(L"\"C:\\Programs\"").problem, ValueProblem::UnknownEscape);
    EXPECT_EQ(ReadWritten(L"\"\\u12\"").problem, ValueProblem::UnknownEscape);
    EXPECT_EQ(ReadWritten(L"\"a\" b").problem, ValueProblem::TextBehindQuote);
    for (const wchar_t* const text : {L"hex(", L"hex():00", L"hex(1)", L"hex(1):0", L"hex(1):00,",
                                      L"hex(1):0g", L"hex(1):00;01", L"hex(123456789):00", L"hex(x):00"}) {
        EXPECT_EQ(ReadWritten(text).problem, ValueProblem::WrongBytes) << testing::PrintToString(text);
    }
}

} // namespace
