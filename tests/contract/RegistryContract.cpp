#include "RawRegistry.h"
#include "RegistryValues.h"
#include "Rigs.h"
#include "fakes/FakeRegistry.h"
#include "platform/windows/WindowsRegistry.h"

#include <windows.h>

#include <gmock/gmock.h>

using testing::Optional;
using testing::StartsWith;

namespace {

using namespace std::string_literals;

constexpr auto kUser = RegistryHive::CurrentUser;
constexpr auto kMachine = RegistryHive::LocalMachine;
const std::wstring kPath = L"Software\\QLBUtlContract";
using Types = std::initializer_list<std::uint32_t>;

class FakeRig {
public:
    static constexpr const char* kName = "Fake";

    FakeRegistry registry;

    void Put(RegistryHive hive, const std::wstring& name, std::uint32_t type, std::string_view bytes) {
        registry.PutRaw(hive, kPath, name, type, bytes);
    }
    [[nodiscard]] std::optional<RegistryValue> Stored(RegistryHive hive, const std::wstring& path,
                                                      const std::wstring& name) const {
        return registry.Stored(hive, path, name);
    }
    void DenyReading() { registry.refusesReads = true; }
    void DenyWriting() { registry.refusesWrites = true; }
    void DenyDeleting() { registry.refusesWrites = true; }
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";

    WindowsRegistry registry{kPath};

    static void Put(RegistryHive hive, const std::wstring& name, std::uint32_t type, std::string_view bytes) {
        RawRegistry::Put(hive, kPath, name, type, bytes);
    }
    [[nodiscard]] static std::optional<RegistryValue> Stored(RegistryHive hive, const std::wstring& path,
                                                             const std::wstring& name) {
        return RawRegistry::Value(hive, path, name);
    }
    void DenyReading() { denied_.emplace(kUser, kPath, KeyRight::Read); }
    void DenyWriting() { denied_.emplace(kUser, kPath, KeyRight::Write); }
    void DenyDeleting() { denied_.emplace(kUser, kPath, KeyRight::Delete); }

private:
    ScratchHives hives_;
    std::optional<DeniedRight> denied_;
};

template <class Rig> class RegistryContract : public testing::Test {
protected:
    Rig rig_;

    [[nodiscard]] std::optional<RegistryValue> Query(const std::wstring& name) {
        return rig_.registry.Query(kUser, kPath, name);
    }
    bool Set(const std::wstring& name, const RegistryValue& value) {
        return rig_.registry.Set(kUser, kPath, name, value);
    }
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(RegistryContract, Rigs, RigName);

TYPED_TEST(RegistryContract, AMissingKeyHasNoValues) {
    EXPECT_EQ(this->Query(L"Name"), std::nullopt);
    EXPECT_EQ(this->Query(L""), std::nullopt);
}

TYPED_TEST(RegistryContract, AMissingValueOfAnExistingKeyIsNone) {
    this->rig_.Put(kUser, L"Other", kRegistryString, "x\0"s);
    EXPECT_EQ(this->Query(L"Name"), std::nullopt);
}

TYPED_TEST(RegistryContract, AKeyWithoutDefaultValueHasNone) {
    this->rig_.Put(kUser, L"Other", kRegistryString, "x\0"s);
    EXPECT_EQ(this->Query(L""), std::nullopt);
}

TYPED_TEST(RegistryContract, TheDefaultValueHasNoName) {
    EXPECT_TRUE(this->Set(L"", {kRegistryString, "default\0"s}));
    EXPECT_THAT(this->Query(L""), Optional(RegistryValue{kRegistryString, "default\0"s}));
    EXPECT_THAT(this->rig_.Stored(kUser, kPath, L""), Optional(RegistryValue{kRegistryString, "default\0"s}));
}

TYPED_TEST(RegistryContract, ATextComesWithItsNul) {
    this->rig_.Put(kUser, L"Text", kRegistryString, "abc\0"s);
    EXPECT_THAT(this->Query(L"Text"), Optional(RegistryValue{kRegistryString, "abc\0"s}));
}

TYPED_TEST(RegistryContract, ATextSetWithItsNulIsStoredAsItIs) {
    EXPECT_TRUE(this->Set(L"Text", {kRegistryString, "abc\0"s}));
    EXPECT_THAT(this->rig_.Stored(kUser, kPath, L"Text"), Optional(RegistryValue{kRegistryString, "abc\0"s}));
}

TYPED_TEST(RegistryContract, ATextOfAnyKindSetWithoutItsNulGetsOne) {
    for (const std::uint32_t type : Types{REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ}) {
        SCOPED_TRACE(type);
        EXPECT_TRUE(this->Set(L"Text", {type, "abcd"}));
        EXPECT_THAT(this->Query(L"Text"), Optional(RegistryValue{type, "abcd\0"s}));
    }
}

TYPED_TEST(RegistryContract, BytesThatAreNoTextGetNoNul) {
    EXPECT_TRUE(this->Set(L"Bytes", {REG_BINARY, "abcd"}));
    EXPECT_THAT(this->Query(L"Bytes"), Optional(RegistryValue{REG_BINARY, "abcd"}));
}

TYPED_TEST(RegistryContract, AnOddNumberOfBytesIsKept) {
    EXPECT_TRUE(this->Set(L"Text", {kRegistryString, "ab\0"s}));
    EXPECT_THAT(this->Query(L"Text"), Optional(RegistryValue{kRegistryString, "ab\0"s}));
    EXPECT_TRUE(this->Set(L"Bytes", {REG_BINARY, "\1\2\3"}));
    EXPECT_THAT(this->Query(L"Bytes"), Optional(RegistryValue{REG_BINARY, "\1\2\3"}));
}

TYPED_TEST(RegistryContract, EmptyTextOfOneAndOfTwoNulsKeepsItsLength) {
    EXPECT_TRUE(this->Set(L"One", {kRegistryString, "\0"s}));
    EXPECT_TRUE(this->Set(L"Two", {kRegistryString, "\0\0"s}));
    EXPECT_THAT(this->Query(L"One"), Optional(RegistryValue{kRegistryString, "\0"s}));
    EXPECT_THAT(this->Query(L"Two"), Optional(RegistryValue{kRegistryString, "\0\0"s}));
}

TYPED_TEST(RegistryContract, AValueOfNoBytesIsAValue) {
    for (const std::uint32_t type : Types{REG_SZ, REG_BINARY, REG_DWORD}) {
        SCOPED_TRACE(type);
        EXPECT_TRUE(this->Set(L"Nothing", {type, ""}));
        EXPECT_THAT(this->Query(L"Nothing"), Optional(RegistryValue{type, ""}));
    }
}

TYPED_TEST(RegistryContract, TextBehindANulIsKept) {
    EXPECT_TRUE(this->Set(L"Text", {kRegistryString, "ab\0cd\0"s}));
    EXPECT_THAT(this->Query(L"Text"), Optional(RegistryValue{kRegistryString, "ab\0cd\0"s}));
}

TYPED_TEST(RegistryContract, EveryLengthIsReadWhole) {
    for (const std::size_t length : {1U, 255U, 256U, 257U, 512U, 2047U, 2048U, 2049U, 70'000U, 1'000'000U}) {
        SCOPED_TRACE(length);
        std::string bytes(length, 'x');
        for (std::size_t i = 0; i < length; i += 7) {
            bytes[i] = static_cast<char>('a' + i % 26);
        }
        EXPECT_TRUE(this->Set(L"Bytes", {REG_BINARY, bytes}));
        EXPECT_TRUE(this->Query(L"Bytes") == (RegistryValue{REG_BINARY, bytes}));
        bytes.back() = '\0';
        EXPECT_TRUE(this->Set(L"Text", {kRegistryString, bytes}));
        EXPECT_TRUE(this->Query(L"Text") == (RegistryValue{kRegistryString, bytes}));
    }
}

TYPED_TEST(RegistryContract, ANumberIsFourBytesLowestFirst) {
    EXPECT_TRUE(this->Set(L"Number", {kRegistryDword, "\x78\x56\x34\x12"}));
    EXPECT_THAT(this->Query(L"Number"), Optional(RegistryValue{kRegistryDword, "\x78\x56\x34\x12"}));
    EXPECT_THAT(this->rig_.Stored(kUser, kPath, L"Number"),
                Optional(RegistryValue{kRegistryDword, "\x78\x56\x34\x12"}));
}

TYPED_TEST(RegistryContract, ANumberOfAnotherLengthComesAsItIs) {
    for (const std::string& bytes : {"\1\2"s, "\1\2\3\4\5\6\7\x8"s}) {
        this->rig_.Put(kUser, L"Number", kRegistryDword, bytes);
        EXPECT_THAT(this->Query(L"Number"), Optional(RegistryValue{kRegistryDword, bytes}));
    }
}

TYPED_TEST(RegistryContract, ValuesOfOtherTypesComeAsTheyAre) {
    constexpr std::uint32_t kNoTypeOfWindows = 0x1234;
    for (const std::uint32_t type :
         Types{REG_NONE, REG_BINARY, REG_DWORD_BIG_ENDIAN, REG_QWORD, kNoTypeOfWindows}) {
        SCOPED_TRACE(type);
        this->rig_.Put(kUser, L"Value", type, "\0\xFF\0\x80\1\0\0\0"s);
        EXPECT_THAT(this->Query(L"Value"), Optional(RegistryValue{type, "\0\xFF\0\x80\1\0\0\0"s}));
    }
}

TYPED_TEST(RegistryContract, VariablesInATextAreNotExpanded) {
    this->rig_.Put(kUser, L"Text", REG_EXPAND_SZ, "%windir%\\x\0"s);
    EXPECT_THAT(this->Query(L"Text"), Optional(RegistryValue{REG_EXPAND_SZ, "%windir%\\x\0"s}));
}

TYPED_TEST(RegistryContract, SeveralTextsInOneValueComeWhole) {
    this->rig_.Put(kUser, L"Texts", REG_MULTI_SZ, "one\0two\0\0"s);
    EXPECT_THAT(this->Query(L"Texts"), Optional(RegistryValue{REG_MULTI_SZ, "one\0two\0\0"s}));
}

TYPED_TEST(RegistryContract, JapaneseTextKeepsItsBytes) {
    const RegistryValue japanese{kRegistryString, "\x93\xFA\x96\x7B\x8C\xEA\0"s};
    EXPECT_TRUE(this->Set(L"Text", japanese));
    EXPECT_THAT(this->Query(L"Text"), Optional(japanese));
    EXPECT_THAT(this->rig_.Stored(kUser, kPath, L"Text"), Optional(japanese));
}

TYPED_TEST(RegistryContract, SettingCreatesTheKeysOnTheWay) {
    const std::wstring deep = kPath + L"\\One\\Two\\Three";
    EXPECT_TRUE(this->rig_.registry.Set(kUser, deep, L"Name", {kRegistryString, "x\0"s}));
    EXPECT_THAT(this->rig_.Stored(kUser, deep, L"Name"), Optional(RegistryValue{kRegistryString, "x\0"s}));
    EXPECT_THAT(this->rig_.registry.Query(kUser, deep, L"Name"),
                Optional(RegistryValue{kRegistryString, "x\0"s}));
    EXPECT_EQ(this->rig_.registry.Query(kUser, kPath + L"\\One\\Two", L"Name"), std::nullopt);
}

TYPED_TEST(RegistryContract, SettingReplacesValueAndType) {
    EXPECT_TRUE(this->Set(L"Name", {kRegistryString, "a long text\0"s}));
    EXPECT_TRUE(this->Set(L"Name", {kRegistryDword, "\1\0\0\0"s}));
    EXPECT_THAT(this->Query(L"Name"), Optional(RegistryValue{kRegistryDword, "\1\0\0\0"s}));
}

TYPED_TEST(RegistryContract, SettingLeavesOtherValuesAlone) {
    this->rig_.Put(kUser, L"Other", kRegistryString, "kept\0"s);
    EXPECT_TRUE(this->Set(L"Name", {kRegistryString, "x\0"s}));
    EXPECT_THAT(this->Query(L"Other"), Optional(RegistryValue{kRegistryString, "kept\0"s}));
}

TYPED_TEST(RegistryContract, NamesCountWithoutRegardToCase) {
    EXPECT_TRUE(this->Set(L"FontFace", {kRegistryString, "x\0"s}));
    EXPECT_THAT(this->rig_.registry.Query(kUser, L"SOFTWARE\\qlbutlCONTRACT", L"FONTFACE"),
                Optional(RegistryValue{kRegistryString, "x\0"s}));
}

TYPED_TEST(RegistryContract, TheHivesAreApart) {
    this->rig_.Put(kMachine, L"Name", kRegistryString, "machine\0"s);
    EXPECT_EQ(this->Query(L"Name"), std::nullopt);
    this->rig_.Put(kUser, L"Name", kRegistryString, "user\0"s);
    EXPECT_THAT(this->rig_.registry.Query(kMachine, kPath, L"Name"),
                Optional(RegistryValue{kRegistryString, "machine\0"s}));
    EXPECT_THAT(this->Query(L"Name"), Optional(RegistryValue{kRegistryString, "user\0"s}));
}

TYPED_TEST(RegistryContract, AKeyThatMayNotBeWrittenRefuses) {
    this->rig_.Put(kUser, L"Name", kRegistryString, "old\0"s);
    this->rig_.DenyWriting();
    EXPECT_FALSE(this->Set(L"Name", {kRegistryString, "new\0"s}));
    EXPECT_FALSE(this->Set(L"Another", {kRegistryDword, "\1\0\0\0"s}));
    EXPECT_THAT(this->Query(L"Name"), Optional(RegistryValue{kRegistryString, "old\0"s}));
    EXPECT_EQ(this->Query(L"Another"), std::nullopt);
}

TYPED_TEST(RegistryContract, AKeyThatMayNotBeReadHasNoValues) {
    this->rig_.Put(kUser, L"Name", kRegistryString, "secret\0"s);
    this->rig_.DenyReading();
    EXPECT_EQ(this->Query(L"Name"), std::nullopt);
}

TYPED_TEST(RegistryContract, ADeletedKeyIsGoneWithEverythingBelowIt) {
    const RegistryValue text{kRegistryString, "x\0"s};
    for (const wchar_t* below : {L"", L"\\AppKey1", L"\\AppKey2", L"\\AppKey2\\Deep"}) {
        ASSERT_TRUE(this->rig_.registry.Set(kUser, kPath + L"\\Set1" + below, L"Name", text));
    }
    EXPECT_TRUE(this->rig_.registry.DeleteKey(kUser, kPath + L"\\Set1"));
    for (const wchar_t* below : {L"", L"\\AppKey1", L"\\AppKey2", L"\\AppKey2\\Deep"}) {
        EXPECT_EQ(this->rig_.Stored(kUser, kPath + L"\\Set1" + below, L"Name"), std::nullopt);
    }
}

TYPED_TEST(RegistryContract, DeletingLeavesParentSiblingsAndOtherHiveAlone) {
    const RegistryValue text{kRegistryString, "kept\0"s};
    const auto kept = {std::pair{kUser, kPath},
                       {kUser, kPath + L"\\Set10"},
                       {kUser, kPath + L"\\Set"},
                       {kUser, kPath + L"\\Set2\\Set1"},
                       {kMachine, kPath + L"\\Set1"}};
    for (const auto& [hive, path] : kept) {
        ASSERT_TRUE(this->rig_.registry.Set(hive, path, L"Name", text));
    }
    ASSERT_TRUE(this->rig_.registry.Set(kUser, kPath + L"\\Set1", L"Name", text));
    EXPECT_TRUE(this->rig_.registry.DeleteKey(kUser, kPath + L"\\Set1"));
    for (const auto& [hive, path] : kept) {
        EXPECT_THAT(this->rig_.Stored(hive, path, L"Name"), Optional(text)) << testing::PrintToString(path);
    }
    EXPECT_EQ(this->rig_.Stored(kUser, kPath + L"\\Set1", L"Name"), std::nullopt);
}

TYPED_TEST(RegistryContract, AKeyIsDeletedWithoutRegardToCase) {
    this->rig_.Put(kUser, L"Name", kRegistryString, "x\0"s);
    EXPECT_TRUE(this->rig_.registry.DeleteKey(kUser, L"SOFTWARE\\qlbutlCONTRACT"));
    EXPECT_EQ(this->rig_.Stored(kUser, kPath, L"Name"), std::nullopt);
}

TYPED_TEST(RegistryContract, AMissingKeyCountsAsDeleted) {
    EXPECT_TRUE(this->rig_.registry.DeleteKey(kUser, kPath));
    EXPECT_TRUE(this->rig_.registry.DeleteKey(kUser, kPath + L"\\No\\Such\\Key"));
}

TYPED_TEST(RegistryContract, TheWholeHiveIsNotDeleted) {
    this->rig_.Put(kUser, L"Name", kRegistryString, "kept\0"s);
    EXPECT_FALSE(this->rig_.registry.DeleteKey(kUser, L""));
    EXPECT_THAT(this->rig_.Stored(kUser, kPath, L"Name"),
                Optional(RegistryValue{kRegistryString, "kept\0"s}));
}

TYPED_TEST(RegistryContract, AKeyThatMayNotBeDeletedStays) {
    this->rig_.Put(kUser, L"Name", kRegistryString, "kept\0"s);
    this->rig_.DenyDeleting();
    EXPECT_FALSE(this->rig_.registry.DeleteKey(kUser, kPath));
    EXPECT_THAT(this->rig_.Stored(kUser, kPath, L"Name"),
                Optional(RegistryValue{kRegistryString, "kept\0"s}));
}

class WindowsRegistryTest : public testing::Test {
protected:
    ScratchHives hives_;
    WindowsRegistry registry_{kPath};
};

TEST_F(WindowsRegistryTest, AKeyThatMayNotBeCreatedRefuses) {
    RawRegistry::CreateVolatile(kUser, L"Software\\Passing");
    EXPECT_FALSE(registry_.Set(kUser, L"Software\\Passing\\Lasting", L"Name", {kRegistryString, "x\0"s}));
    EXPECT_TRUE(registry_.Set(kUser, L"Software\\Passing", L"Name", {kRegistryString, "x\0"s}));
}

TEST_F(WindowsRegistryTest, TextIsStoredInUtf16ByTheCodePage) {
    ASSERT_TRUE(registry_.Set(kUser, kPath, L"Text", {kRegistryString, "\x83\x41.\0"s}));
    const std::wstring text = GetACP() == 932 ? L"ア." : L"ƒA.";
    EXPECT_THAT(RawRegistry::StoredValue(kUser, kPath, L"Text"),
                Optional(RegistryValue{kRegistryString, RawRegistry::StoredBytes(text + L'\0')}));
}

TEST_F(WindowsRegistryTest, TextComesInTheCodePage) {
    RawRegistry::PutStored(kUser, kPath, L"Text", kRegistryString, RawRegistry::StoredBytes(L"日本語\0"s));
    const std::string bytes = GetACP() == 932 ? "\x93\xFA\x96\x7B\x8C\xEA\0"s : "???\0"s;
    EXPECT_THAT(registry_.Query(kUser, kPath, L"Text"), Optional(RegistryValue{kRegistryString, bytes}));
}

TEST_F(WindowsRegistryTest, TextThatAnotherProgramLeftWithoutNulIsReadToItsEnd) {
    // The buffer behind `text` holds no NUL, so that the system has none to add.
    const std::string text = RawRegistry::StoredBytes(L"abcdef");
    RawRegistry::PutStored(kUser, kPath, L"Text", kRegistryString, std::string_view(text).substr(0, 8));
    const auto value = registry_.Query(kUser, kPath, L"Text");
    ASSERT_TRUE(value);
    EXPECT_EQ(value->bytes.substr(0, value->bytes.find('\0')), "abcd");
}

TEST_F(WindowsRegistryTest, HalfACharacterAtTheEndOfATextDoesNoHarm) {
    const std::string text = RawRegistry::StoredBytes(L"abcdef");
    RawRegistry::PutStored(kUser, kPath, L"Text", kRegistryString, std::string_view(text).substr(0, 5));
    const auto value = registry_.Query(kUser, kPath, L"Text");
    ASSERT_TRUE(value);
    EXPECT_THAT(value->bytes, StartsWith("ab"));
    EXPECT_LE(value->bytes.size(), 4U);
}

TEST_F(WindowsRegistryTest, NamesAreInTheCodePageToo) {
    const bool japanese = GetACP() == 932;
    const std::wstring path = kPath + (japanese ? L"\\設定" : L"\\Größe");
    const std::wstring name = japanese ? L"名前" : L"Übung";
    ASSERT_TRUE(registry_.Set(kUser, path, name, {kRegistryString, "x\0"s}));
    EXPECT_TRUE(RawRegistry::StoredValue(kUser, path, name));
    EXPECT_TRUE(registry_.Query(kUser, path, name));
}

TEST(WindowsRegistryOfTheMachine, IsRead) {
    std::string windowsDirectory(MAX_PATH, '\0');
    windowsDirectory.resize(GetWindowsDirectoryA(windowsDirectory.data(), MAX_PATH));
    const auto value = WindowsRegistry(kPath).Query(
        RegistryHive::LocalMachine, L"Software\\Microsoft\\Windows NT\\CurrentVersion", L"SystemRoot");
    ASSERT_TRUE(value);
    EXPECT_EQ(value->type, kRegistryString);
    EXPECT_STRCASEEQ(value->bytes.c_str(), windowsDirectory.c_str());
}

} // namespace
