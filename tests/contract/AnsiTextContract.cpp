#include "Rigs.h"
#include "fakes/FakeAnsiText.h"
#include "platform/windows/Ansi.h"

namespace {

using namespace std::string_literals;

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakeAnsiText ansiText{GetACP()};
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";
    WindowsAnsiText ansiText;
};

bool Japanese() {
    return GetACP() == FakeAnsiText::kJapanese;
}

/// A character beyond ASCII, and its bytes.
std::wstring Beyond() {
    return Japanese() ? L"日" : L"é";
}
std::string BeyondBytes() {
    return Japanese() ? "\x93\xFA" : "\xE9";
}

bool IsSurrogate(wchar_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

template <class Rig> class AnsiTextContract : public testing::Test {
protected:
    [[nodiscard]] std::string Encode(std::wstring_view text) const { return rig_.ansiText.Encode(text); }
    [[nodiscard]] std::wstring Decode(std::string_view bytes) const { return rig_.ansiText.Decode(bytes); }

private:
    Rig rig_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(AnsiTextContract, Rigs, RigName);

TYPED_TEST(AnsiTextContract, NothingIsNothing) {
    EXPECT_EQ(this->Encode(L""), "");
    EXPECT_EQ(this->Decode(""), L"");
}

TYPED_TEST(AnsiTextContract, AsciiIsItself) {
    for (int c = 0; c < 0x80; ++c) {
        EXPECT_EQ(this->Encode(std::wstring(1, static_cast<wchar_t>(c))),
                  std::string(1, static_cast<char>(c)));
        EXPECT_EQ(this->Decode(std::string(1, static_cast<char>(c))),
                  std::wstring(1, static_cast<wchar_t>(c)));
    }
}

TYPED_TEST(AnsiTextContract, NulsInsideATextAreKept) {
    EXPECT_EQ(this->Encode(L"ab\0cd"s), "ab\0cd"s);
    EXPECT_EQ(this->Decode("ab\0cd"s), L"ab\0cd"s);
}

// Text of ASCII alone takes a short way, and must not take it with one character too many in it.

TYPED_TEST(AnsiTextContract, OneCharacterBeyondAsciiIsFoundWhereverItStands) {
    for (const std::size_t length : {1U, 15U, 16U, 17U, 126U, 127U, 128U, 129U, 255U, 256U}) {
        const std::wstring ascii(length, L'a');
        const std::string asciiBytes(length, 'a');
        EXPECT_EQ(this->Encode(ascii), asciiBytes);
        EXPECT_EQ(this->Decode(asciiBytes), ascii);
        for (const std::size_t position : {std::size_t{0}, length / 2, length - 1, length}) {
            SCOPED_TRACE(std::to_string(position) + " of " + std::to_string(length));
            std::wstring text = ascii;
            std::string bytes = asciiBytes;
            text.insert(position, Beyond());
            bytes.insert(position, BeyondBytes());
            EXPECT_EQ(this->Encode(text), bytes);
            EXPECT_EQ(this->Decode(bytes), text);
        }
    }
}

TYPED_TEST(AnsiTextContract, NulsAreKeptBesideCharactersBeyondAscii) {
    const std::string bytes = "\0ab\0"s + BeyondBytes() + "\0\0c\0"s;
    const std::wstring text = L"\0ab\0"s + Beyond() + L"\0\0c\0"s;
    EXPECT_EQ(this->Encode(text), bytes);
    EXPECT_EQ(this->Decode(bytes), text);
    EXPECT_EQ(this->Encode(L"\0"s), "\0"s);
    EXPECT_EQ(this->Decode("\0"s), L"\0"s);
}

TYPED_TEST(AnsiTextContract, AsciiEndsAt7F) {
    EXPECT_EQ(this->Encode(L"a\x7F"), "a\x7F");
    EXPECT_EQ(this->Decode("a\x7F"), L"a\x7F");
    EXPECT_EQ(this->Decode("\x7F\x80"), Japanese() ? L"\x7F\x80" : L"\x7F€");
    EXPECT_EQ(this->Encode(L"\x7F\x80"), Japanese() ? "\x7F\x80" : "\x7F?");
}

TYPED_TEST(AnsiTextContract, ACharacterWhoseLowByteIsAsciiIsNotThatLetter) {
    EXPECT_EQ(this->Encode(L"x\x0141"), "x?"); // in neither code page
    EXPECT_EQ(this->Encode(L"\x3042z"), Japanese() ? "\x82\xA0z" : "?z");
}

TYPED_TEST(AnsiTextContract, TheCodePageIsTheSystems) {
    if (Japanese()) {
        EXPECT_EQ(this->Encode(L"日本語ｱ"), "\x93\xFA\x96\x7B\x8C\xEA\xB1");
        EXPECT_EQ(this->Decode("\x93\xFA\x96\x7B\x8C\xEA\xB1"), L"日本語ｱ");
    } else {
        EXPECT_EQ(this->Encode(L"Größe €"), "Gr\xF6\xDF\x65 \x80");
        EXPECT_EQ(this->Decode("Gr\xF6\xDF\x65 \x80"), L"Größe €");
    }
}

TYPED_TEST(AnsiTextContract, ACharacterOfTwoBytesMayHoldABackslashOrABar) {
    if (Japanese()) {
        EXPECT_EQ(this->Encode(L"表"), "\x95\x5C");
        EXPECT_EQ(this->Encode(L"ポ"), "\x83\x7C");
        EXPECT_EQ(this->Decode("\x95\x5C\x83\x7C"), L"表ポ");
    } else {
        EXPECT_EQ(this->Decode("\x95\x5C\x83\x7C"), L"•\\ƒ|");
    }
}

TYPED_TEST(AnsiTextContract, ACharacterThatTheCodePageLacksIsAQuestionMark) {
    if (Japanese()) {
        EXPECT_EQ(this->Encode(L"aก한b"), "a??b");
    } else {
        EXPECT_EQ(this->Encode(L"a日本b"), "a??b");
    }
}

TYPED_TEST(AnsiTextContract, ACharacterIsNotReplacedByOneThatLooksLikeIt) {
    EXPECT_EQ(this->Encode(Japanese() ? L"¥" : L"Ā"), "?");
}

TYPED_TEST(AnsiTextContract, EachHalfOfASurrogatePairIsAQuestionMark) {
    EXPECT_EQ(this->Encode(L"a\U0001F600b"), "a??b");
}

TYPED_TEST(AnsiTextContract, TextOfTheCodePageSurvivesTheRoundTrip) {
    const std::wstring text = Japanese() ? L"アプリ 表示 ～①髙 abc" : L"Ünïcödé – “quoted” €";
    EXPECT_EQ(this->Decode(this->Encode(text)), text);
}

TYPED_TEST(AnsiTextContract, LongTextSurvivesTheRoundTrip) {
    std::wstring text;
    for (int i = 0; i < 50'000; ++i) {
        text += Japanese() ? L"表a" : L"ßa";
    }
    EXPECT_TRUE(this->Decode(this->Encode(text)) == text);
}

TYPED_TEST(AnsiTextContract, ALeadByteAtTheEndDoesNoHarmToTheTextBeforeIt) {
    EXPECT_EQ(this->Decode("ab\x93").substr(0, 2), L"ab");
    EXPECT_LE(this->Decode("ab\x93").size(), 3U);
}

/// What the fake says where the system's answer is certain: each text as one run, for speed.
TEST(AnsiTextFake, EncodesEveryCharacterOfTheCodePageLikeTheSystem) {
    const FakeAnsiText fake(GetACP());
    int characters = 0;
    for (int c = 1; c < 0x10000; ++c) {
        const std::wstring text(1, static_cast<wchar_t>(c));
        const std::string bytes = ToAnsi(text);
        // A character that comes back as another one was only replaced by something that looks like it.
        if (IsSurrogate(text[0]) || FromAnsi(bytes) != text) {
            continue;
        }
        ++characters;
        ASSERT_EQ(fake.Encode(text), bytes) << "character " << c;
    }
    EXPECT_GT(characters, Japanese() ? 7000 : 250);
}

TEST(AnsiTextFake, DecodesEveryPairOfBytesLikeTheSystem) {
    const FakeAnsiText fake(GetACP());
    for (int first = 1; first < 0x100; ++first) {
        for (int second = 1; second < 0x100; ++second) {
            const std::string bytes{static_cast<char>(first), static_cast<char>(second), '.'};
            ASSERT_EQ(fake.Decode(bytes), FromAnsi(bytes)) << "bytes " << first << ", " << second;
        }
    }
}

} // namespace
