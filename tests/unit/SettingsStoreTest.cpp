#include "TestStore.h"

#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Test;

constexpr RegistryHive kMachine = RegistryHive::LocalMachine;
constexpr RegistryHive kUser = RegistryHive::CurrentUser;
constexpr const wchar_t* kPath = L"Software\\Somewhere";
constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kQword = 11;
constexpr std::size_t kLongestText = 2048;

class RegistryLayer : public Test, public TestStore {};

TEST_F(RegistryLayer, ReadsANumberOfTheGivenHive) {
    registry.PutDword(kMachine, kPath, L"N", 7);
    registry.PutDword(kUser, kPath, L"N", -8);
    EXPECT_EQ(store.RegGetDword(kMachine, kPath, L"N"), 7);
    EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N"), -8);
}

TEST_F(RegistryLayer, ReadsTheDefaultNumber_WhenTheValueIsMissing) {
    EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N"), 0);
    EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N", -3), -3);
}

TEST_F(RegistryLayer, ReadsTheDefaults_WhenTheSystemRefuses) {
    registry.PutDword(kUser, kPath, L"N", 7);
    registry.PutString(kUser, kPath, L"S", "text");
    registry.refusesReads = true;
    EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N", 5), 5);
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S", L"other"), L"other");
}

TEST_F(RegistryLayer, ReadsFourBytesOfAnyTypeAsANumber) {
    registry.PutRaw(kUser, kPath, L"N", kBinary, FakeRegistry::BytesOf(1234));
    EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N", 5), 1234);
    registry.PutRaw(kUser, kPath, L"N", kRegistryString, std::string_view("abc\0", 4));
    EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N", 5), 0x00636261);
}

TEST_F(RegistryLayer, ReadsOneToThreeBytesOfAnyTypeAsTheLowBytesOfANumber) {
    const std::pair<std::string_view, std::int32_t> numbers[] = {
        {"\x01", 1}, {"\xFF", 0xFF}, {"\x02\x01", 0x0102}, {{"7\0", 2}, 0x37}, {"\xFF\xFE\xFD", 0xFDFEFF}};
    for (const auto& [bytes, number] : numbers) {
        for (const std::uint32_t type : {kRegistryString, kBinary, kRegistryDword}) {
            registry.PutRaw(kUser, kPath, L"N", type, bytes);
            EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N", 5), number) << testing::PrintToString(bytes);
        }
    }
}

TEST_F(RegistryLayer, ReadsNoBytesAsZero_NotAsTheDefaultNumber) {
    for (const std::uint32_t type : {kRegistryString, kBinary, kRegistryDword}) {
        registry.PutRaw(kUser, kPath, L"N", type, "");
        EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N", 5), 0) << type;
    }
}

TEST_F(RegistryLayer, ReadsTheDefaultNumber_WhenTheDataAreMoreThanFourBytes) {
    for (const std::size_t length : {5U, 8U, 70000U}) {
        for (const std::uint32_t type : {kRegistryDword, kQword}) {
            registry.PutRaw(kUser, kPath, L"N", type, std::string(length, '\x01'));
            EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N", 5), 5) << length;
        }
    }
}

TEST_F(RegistryLayer, ReadsTextUpToItsFirstNul) {
    registry.PutRaw(kUser, kPath, L"S", kRegistryString, std::string_view("ab\0cd\0", 6));
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S", L"other"), L"ab");
}

TEST_F(RegistryLayer, ReadsTextWithoutATerminator) {
    registry.PutRaw(kUser, kPath, L"S", kRegistryString, "abc");
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S", L"other"), L"abc");
}

TEST_F(RegistryLayer, ReadsTextOfAnOddNumberOfBytes) {
    registry.PutRaw(kUser, kPath, L"S", kRegistryString, std::string_view("ab\0", 3));
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S", L"other"), L"ab");
}

TEST_F(RegistryLayer, ReadsEmptyTextAsEmpty_NotAsTheDefault) {
    registry.PutRaw(kUser, kPath, L"none", kRegistryString, "");
    registry.PutRaw(kUser, kPath, L"one", kRegistryString, std::string_view("\0", 1));
    registry.PutRaw(kUser, kPath, L"two", kRegistryString, std::string_view("\0\0", 2));
    for (const wchar_t* name : {L"none", L"one", L"two"}) {
        EXPECT_EQ(store.RegGetString(kUser, kPath, name, L"other"), L"") << testing::PrintToString(name);
    }
}

TEST_F(RegistryLayer, ReadsTheDefaultText_WhenTheValueIsMissing) {
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S"), L"");
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S", L"other"), L"other");
}

TEST_F(RegistryLayer, ReadsBytesOfAnotherTypeAsText) {
    registry.PutRaw(kUser, kPath, L"S", kBinary, "raw");
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S", L"other"), L"raw");
    registry.PutDword(kUser, kPath, L"S", 0x00434241);
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S", L"other"), L"ABC");
}

TEST_F(RegistryLayer, CutsTextAt2048Bytes) {
    registry.PutString(kUser, kPath, L"fits", std::string(kLongestText, 'x'));
    registry.PutString(kUser, kPath, L"long", std::string(kLongestText, 'x') + "y");
    registry.PutString(kUser, kPath, L"huge", std::string(1'000'000, 'x'));
    for (const wchar_t* name : {L"fits", L"long", L"huge"}) {
        EXPECT_EQ(store.RegGetString(kUser, kPath, name), std::wstring(kLongestText, L'x'));
    }
}

class JapaneseRegistryLayer : public Test, public TestStore {
public:
    JapaneseRegistryLayer() : TestStore(FakeAnsiText::kJapanese) {}

    static std::string Hiragana(std::size_t count) {
        std::string bytes;
        for (std::size_t i = 0; i < count; ++i) {
            bytes += "\x82\xA0";
        }
        return bytes;
    }
};

TEST_F(JapaneseRegistryLayer, CutsBetweenCharacters_WhenAByteOfACharacterWouldRemain) {
    registry.PutString(kUser, kPath, L"S", "x" + Hiragana(1100));
    const std::wstring whole = L"x" + std::wstring(1023, L'\x3042');
    for (const wchar_t stray : {L'\x30FB', L'\0'}) {
        ansiText.strayLeadByte = stray;
        EXPECT_EQ(store.RegGetString(kUser, kPath, L"S"), whole);
    }
}

TEST_F(JapaneseRegistryLayer, CutsAt2048Bytes_WhenACharacterEndsThere) {
    registry.PutString(kUser, kPath, L"S", Hiragana(1100));
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S"), std::wstring(1024, L'\x3042'));
}

// Some characters have two codes in this code page, and only one of them is written.
TEST_F(JapaneseRegistryLayer, CutsBetweenCharacters_WhenTheTextHoldsACharacterInItsOtherCode) {
    registry.PutString(kUser, kPath, L"S", "\x87\x90" + Hiragana(1100));
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S"), L"\x2252" + std::wstring(1023, L'\x3042'));
}

TEST_F(JapaneseRegistryLayer, WritesAndReadsTextOfTheCodePage) {
    EXPECT_TRUE(store.RegSetString(kUser, kPath, L"S", L"\x65E5\x672C\x8A9E"));
    EXPECT_EQ(registry.Stored(kUser, kPath, L"S")->bytes, std::string("\x93\xFA\x96\x7B\x8C\xEA\0", 7));
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S"), L"\x65E5\x672C\x8A9E");
}

TEST_F(RegistryLayer, WritesAQuestionMark_ForACharacterThatTheCodePageLacks) {
    EXPECT_TRUE(store.RegSetString(kUser, kPath, L"S", L"a\x65E5z"));
    EXPECT_EQ(registry.StoredString(kUser, kPath, L"S"), "a?z");
}

TEST_F(RegistryLayer, SaysHowATextIsStored) {
    EXPECT_EQ(store.AsStored(L"a\x65E5z"), L"a?z");
    EXPECT_EQ(store.AsStored(L"caf\x00E9"), L"caf\x00E9");
    EXPECT_EQ(store.AsStored(L""), L"");
    EXPECT_THAT(registry.Operations(), IsEmpty());
}

TEST_F(JapaneseRegistryLayer, SaysHowATextIsStored) {
    EXPECT_EQ(store.AsStored(L"\x65E5\x672C"), L"\x65E5\x672C");
    EXPECT_EQ(store.AsStored(L"caf\x00E9"), L"caf?");
}

TEST_F(RegistryLayer, WritesANumberAsADwordOfFourBytes) {
    EXPECT_TRUE(store.RegSetDword(kUser, kPath, L"N", 258));
    const auto value = registry.Stored(kUser, kPath, L"N");
    ASSERT_TRUE(value);
    EXPECT_EQ(value->type, 4U);
    EXPECT_EQ(value->bytes, std::string("\x02\x01\0\0", 4));
}

TEST_F(RegistryLayer, ReadsBackEveryNumberItWrote) {
    for (const std::int32_t number :
         {0, 1, -1, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
        ASSERT_TRUE(store.RegSetDword(kUser, kPath, L"N", number));
        EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N", 5), number);
    }
}

TEST_F(RegistryLayer, CountsTheTerminatorInTheLengthOfAString) {
    EXPECT_TRUE(store.RegSetString(kUser, kPath, L"S", L"abc"));
    const auto writes = registry.Writes();
    ASSERT_EQ(writes.size(), 1U);
    EXPECT_EQ(writes[0].value.type, 1U);
    EXPECT_EQ(writes[0].value.bytes, std::string("abc\0", 4));
}

TEST_F(RegistryLayer, WritesAnEmptyStringAsTwoNulBytes) {
    EXPECT_TRUE(store.RegSetString(kUser, kPath, L"S", L""));
    const auto writes = registry.Writes();
    ASSERT_EQ(writes.size(), 1U);
    EXPECT_EQ(writes[0].value.type, 1U);
    EXPECT_EQ(writes[0].value.bytes, std::string(2, '\0'));
}

TEST_F(RegistryLayer, ReadsBackAnEmptyStringAsEmpty) {
    EXPECT_TRUE(store.RegSetString(kUser, kPath, L"S", L""));
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S", L"other"), L"");
}

TEST_F(RegistryLayer, WritesTextUpToItsFirstNul) {
    EXPECT_TRUE(store.RegSetString(kUser, kPath, L"S", std::wstring_view(L"ab\0cd", 5)));
    EXPECT_EQ(registry.Stored(kUser, kPath, L"S")->bytes, std::string("ab\0", 3));
    EXPECT_TRUE(store.RegSetString(kUser, kPath, L"E", std::wstring_view(L"\0cd", 3)));
    EXPECT_EQ(registry.Stored(kUser, kPath, L"E")->bytes, std::string(2, '\0'));
}

TEST_F(RegistryLayer, SaysSo_WhenTheSystemRefusesAWrite) {
    registry.refusesWrites = true;
    EXPECT_FALSE(store.RegSetDword(kUser, kPath, L"N", 1));
    EXPECT_FALSE(store.RegSetString(kUser, kPath, L"S", L"x"));
}

TEST_F(RegistryLayer, CachesNothing) {
    registry.PutDword(kUser, kPath, L"N", 1);
    EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N"), 1);
    registry.PutDword(kUser, kPath, L"N", 2);
    EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N"), 2);
    registry.Remove(kUser, kPath, L"N");
    EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N", 3), 3);
}

TEST_F(RegistryLayer, MakesOneAccessForEachCall) {
    store.RegSetString(kUser, kPath, L"S", L"x");
    EXPECT_EQ(store.RegGetString(kUser, kPath, L"S"), L"x");
    EXPECT_EQ(store.RegGetDword(kUser, kPath, L"N"), 0);
    EXPECT_THAT(Written(), ElementsAre("Software\\Somewhere S = \"x\""));
    EXPECT_THAT(Asked(), ElementsAre("HKCU Software\\Somewhere S", "HKCU Software\\Somewhere N"));
    EXPECT_THAT(files.Operations(), IsEmpty());
}

} // namespace
