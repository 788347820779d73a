#include "RawProfile.h"
#include "Rigs.h"
#include "ScratchFolder.h"
#include "fakes/FakeAnsiText.h"
#include "fakes/FakeProfileFiles.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/WindowsProfileFiles.h"

#include <limits>

namespace {

constexpr const wchar_t* kSection = L"USER1";
constexpr const wchar_t* kBareFile = L"QLBUtlContract.ini";
constexpr std::size_t kBuffer = 512;
constexpr std::int32_t kFallback = -77;

class FakeRig {
public:
    static constexpr const char* kName = "Fake";

    FakeProfileFiles files{ansiText_};

    [[nodiscard]] static std::wstring File() { return L"C:\\Contract\\Test.ini"; }
    [[nodiscard]] static std::wstring WindowsDirectory() { return FakeProfileFiles::kWindowsDirectory; }
    void PutLine(const std::wstring& key, std::string_view bytes) {
        files.PutLine(kSection, key, File(), bytes);
    }
    [[nodiscard]] std::optional<std::string> Line(const std::wstring& key) const {
        return files.Line(kSection, key, File());
    }
    void MakeUnusable() {
        files.refusesReads = true;
        files.refusesWrites = true;
    }

private:
    FakeAnsiText ansiText_{GetACP()};
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";

    WindowsProfileFiles files;

    WindowsRig() { RemoveBareFile(); }
    WindowsRig(const WindowsRig&) = delete;
    WindowsRig& operator=(const WindowsRig&) = delete;
    ~WindowsRig() { RemoveBareFile(); }

    [[nodiscard]] std::wstring File() const { return folder_.File(L"Test.ini"); }
    [[nodiscard]] static std::wstring WindowsDirectory() { return ::WindowsDirectory(); }
    void PutLine(const std::wstring& key, std::string_view bytes) const {
        RawProfile::PutLine(File(), ToAnsi(kSection), ToAnsi(key), bytes);
    }
    [[nodiscard]] std::optional<std::string> Line(const std::wstring& key) const {
        return RawProfile::Line(File(), ToAnsi(kSection), ToAnsi(key));
    }
    void MakeUnusable() const {
        std::filesystem::remove(File());
        std::filesystem::create_directory(File());
    }

private:
    static void RemoveBareFile() { DeleteFileW((WindowsDirectory() + L'\\' + kBareFile).c_str()); }

    ScratchFolder folder_;
};

template <class Rig> class ProfileFilesContract : public testing::Test {
protected:
    Rig rig_;

    [[nodiscard]] std::wstring Get(const std::wstring& key, const std::wstring& fallback = L"fallback",
                                   std::size_t buffer = kBuffer) {
        return rig_.files.GetString(kSection, key, fallback, rig_.File(), buffer);
    }
    [[nodiscard]] std::int32_t GetInt(const std::wstring& key) {
        return rig_.files.GetInt(kSection, key, kFallback, rig_.File());
    }
    bool Set(const std::wstring& key, const std::wstring& value) {
        return rig_.files.SetString(kSection, key, value, rig_.File());
    }
    /// What a line of these bytes reads as.
    [[nodiscard]] std::wstring Read(std::string_view bytes) {
        const std::wstring key = NextKey();
        rig_.PutLine(key, bytes);
        return Get(key);
    }
    [[nodiscard]] std::int32_t ReadInt(std::string_view bytes) {
        const std::wstring key = NextKey();
        rig_.PutLine(key, bytes);
        return GetInt(key);
    }

private:
    [[nodiscard]] std::wstring NextKey() { return L"Key" + std::to_wstring(++keys_); }

    int keys_ = 0;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(ProfileFilesContract, Rigs, RigName);

TYPED_TEST(ProfileFilesContract, AMissingFileGivesTheFallback) {
    EXPECT_EQ(this->Get(L"Key"), L"fallback");
    EXPECT_EQ(this->GetInt(L"Key"), kFallback);
}

TYPED_TEST(ProfileFilesContract, AMissingSectionGivesTheFallback) {
    this->rig_.PutLine(L"Key", "text");
    EXPECT_EQ(this->rig_.files.GetString(L"USER2", L"Key", L"fallback", this->rig_.File(), kBuffer),
              L"fallback");
    EXPECT_EQ(this->rig_.files.GetInt(L"USER2", L"Key", kFallback, this->rig_.File()), kFallback);
}

TYPED_TEST(ProfileFilesContract, AMissingKeyGivesTheFallback) {
    this->rig_.PutLine(L"Key", "text");
    EXPECT_EQ(this->Get(L"Other"), L"fallback");
    EXPECT_EQ(this->Get(L"Other", L""), L"");
    EXPECT_EQ(this->GetInt(L"Other"), kFallback);
}

TYPED_TEST(ProfileFilesContract, AFileThatCannotBeOpenedGivesTheFallback) {
    this->rig_.PutLine(L"Key", "text");
    this->rig_.MakeUnusable();
    EXPECT_EQ(this->Get(L"Key"), L"fallback");
    EXPECT_EQ(this->GetInt(L"Key"), kFallback);
}

TYPED_TEST(ProfileFilesContract, BlanksAtTheEndOfTheFallbackGo) {
    EXPECT_EQ(this->Get(L"Key", L" fall back  "), L" fall back");
}

TYPED_TEST(ProfileFilesContract, ALineIsReadAsItStands) {
    EXPECT_EQ(this->Read("C:\\Program Files\\App\\app.exe|/a \"b c\" /d"),
              L"C:\\Program Files\\App\\app.exe|/a \"b c\" /d");
    EXPECT_EQ(this->Read("a=b;c#d[e]"), L"a=b;c#d[e]");
    EXPECT_EQ(this->Read("M"), L"M");
}

TYPED_TEST(ProfileFilesContract, ALineWithoutTextIsEmptyAndNotMissing) {
    EXPECT_EQ(this->Read(""), L"");
    EXPECT_EQ(this->Read("   "), L"");
}

TYPED_TEST(ProfileFilesContract, BlanksAroundTheTextGo) {
    EXPECT_EQ(this->Read("  two words  "), L"two words");
    EXPECT_EQ(this->Read("\ttabs\t"), L"tabs");
}

TYPED_TEST(ProfileFilesContract, OnePairOfQuotesAroundTheTextGoes) {
    EXPECT_EQ(this->Read("\"double\""), L"double");
    EXPECT_EQ(this->Read("'single'"), L"single");
    EXPECT_EQ(this->Read("  \" blanks inside \"  "), L" blanks inside ");
    EXPECT_EQ(this->Read("\"\"twice\"\""), L"\"twice\"");
    EXPECT_EQ(this->Read("\"\""), L"");
}

TYPED_TEST(ProfileFilesContract, QuotesThatAreNoPairStay) {
    EXPECT_EQ(this->Read("\"open"), L"\"open");
    EXPECT_EQ(this->Read("closed\""), L"closed\"");
    EXPECT_EQ(this->Read("\"mixed'"), L"\"mixed'");
    EXPECT_EQ(this->Read("in \"the\" middle"), L"in \"the\" middle");
    EXPECT_EQ(this->Read("\"a\" \"b"), L"\"a\" \"b");
    EXPECT_EQ(this->Read("\""), L"\"");
}

TYPED_TEST(ProfileFilesContract, TextLongerThanTheBufferIsCut) {
    EXPECT_EQ(this->Read(std::string(510, 'x')), std::wstring(510, L'x'));
    EXPECT_EQ(this->Read(std::string(511, 'x')), std::wstring(511, L'x'));
    EXPECT_EQ(this->Read(std::string(512, 'x')), std::wstring(511, L'x'));
    EXPECT_EQ(this->Read(std::string(70'000, 'x')), std::wstring(511, L'x'));
}

TYPED_TEST(ProfileFilesContract, TheBufferIsAsLongAsTheCallerSays) {
    this->rig_.PutLine(L"Key", "abcdef");
    EXPECT_EQ(this->Get(L"Key", L"", 4), L"abc");
    EXPECT_EQ(this->Get(L"Key", L"", 7), L"abcdef");
}

TYPED_TEST(ProfileFilesContract, QuotesGoBeforeTheTextIsCut) {
    EXPECT_EQ(this->Read('"' + std::string(600, 'x') + '"'), std::wstring(511, L'x'));
}

TYPED_TEST(ProfileFilesContract, AFallbackLongerThanTheBufferIsCut) {
    EXPECT_EQ(this->Get(L"Key", std::wstring(600, L'f')), std::wstring(511, L'f'));
}

TYPED_TEST(ProfileFilesContract, BytesAreReadInTheCodePage) {
    const std::string japanese = "\x93\xFA\x96\x7B\x8C\xEA";
    EXPECT_EQ(this->Read(japanese), FromAnsi(japanese));
    EXPECT_EQ(FromAnsi(japanese), GetACP() == 932 ? L"日本語" : L"“ú–{Œê");
}

TYPED_TEST(ProfileFilesContract, WholeCharactersBeforeTheCutAreKept) {
    std::string bytes;
    for (int i = 0; i < 400; ++i) {
        bytes += "\x83\x41";
    }
    const std::wstring text = this->Read(bytes);
    const std::wstring whole = FromAnsi(bytes.substr(0, 510));
    EXPECT_EQ(text.substr(0, whole.size()), whole);
    EXPECT_LE(text.size(), whole.size() + 1);
}

TYPED_TEST(ProfileFilesContract, ANumberIsReadUpToItsLastDigit) {
    EXPECT_EQ(this->ReadInt("123"), 123);
    EXPECT_EQ(this->ReadInt("-5"), -5);
    EXPECT_EQ(this->ReadInt("+5"), 5);
    EXPECT_EQ(this->ReadInt("12abc"), 12);
    EXPECT_EQ(this->ReadInt("1 2"), 1);
    EXPECT_EQ(this->ReadInt("3.9"), 3);
    EXPECT_EQ(this->ReadInt("  7  "), 7);
    EXPECT_EQ(this->ReadInt("\"8\""), 8);
}

TYPED_TEST(ProfileFilesContract, TextThatIsNoNumberIsZero) {
    EXPECT_EQ(this->ReadInt("abc"), 0);
    EXPECT_EQ(this->ReadInt("-"), 0);
}

TYPED_TEST(ProfileFilesContract, AnEmptyLineGivesTheNumberFallback) {
    EXPECT_EQ(this->ReadInt(""), kFallback);
}

TYPED_TEST(ProfileFilesContract, NumbersAreThirtyTwoBits) {
    EXPECT_EQ(this->ReadInt("2147483647"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(this->ReadInt("-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(this->ReadInt("4294967297"), 1);
}

TYPED_TEST(ProfileFilesContract, WhatIsWrittenIsReadBack) {
    const std::wstring western = GetACP() == 932 ? L"日本語表示" : L"Größe ½";
    for (const std::wstring& text : {std::wstring(L"text"), std::wstring(L"C:\\a b\\c.exe|/x=1;y \"z\" w"),
                                     western, std::wstring(511, L'x')}) {
        EXPECT_TRUE(this->Set(L"Key", text));
        EXPECT_EQ(this->Get(L"Key"), text);
    }
}

TYPED_TEST(ProfileFilesContract, TextIsWrittenInTheCodePage) {
    const bool japanese = GetACP() == 932;
    EXPECT_TRUE(this->Set(L"Key", japanese ? L"日本語" : L"Größe"));
    EXPECT_EQ(this->rig_.Line(L"Key"), japanese ? "\x93\xFA\x96\x7B\x8C\xEA" : "Gr\xF6\xDF\x65");
}

TYPED_TEST(ProfileFilesContract, EmptyTextIsWrittenAndNotMissing) {
    EXPECT_TRUE(this->Set(L"Key", L"text"));
    EXPECT_TRUE(this->Set(L"Key", L""));
    EXPECT_EQ(this->Get(L"Key"), L"");
    EXPECT_EQ(this->rig_.Line(L"Key"), "");
}

TYPED_TEST(ProfileFilesContract, BlanksAndQuotesAreLostOnTheWay) {
    EXPECT_TRUE(this->Set(L"Key", L" "));
    EXPECT_EQ(this->Get(L"Key"), L"");
    EXPECT_TRUE(this->Set(L"Key", L"  text "));
    EXPECT_EQ(this->Get(L"Key"), L"text");
    EXPECT_TRUE(this->Set(L"Key", L"\"C:\\a b.exe\""));
    EXPECT_EQ(this->Get(L"Key"), L"C:\\a b.exe");
}

TYPED_TEST(ProfileFilesContract, WritingReplacesItsLineAndNoOther) {
    this->rig_.PutLine(L"Key", "old");
    this->rig_.PutLine(L"Other", "kept");
    EXPECT_TRUE(this->Set(L"Key", L"new"));
    EXPECT_EQ(this->rig_.Line(L"Key"), "new");
    EXPECT_EQ(this->rig_.Line(L"Other"), "kept");
    EXPECT_TRUE(this->rig_.files.SetString(L"USER2", L"Key", L"second", this->rig_.File()));
    EXPECT_EQ(this->Get(L"Key"), L"new");
    EXPECT_EQ(this->rig_.files.GetString(L"USER2", L"Key", L"", this->rig_.File(), kBuffer), L"second");
}

TYPED_TEST(ProfileFilesContract, NamesCountWithoutRegardToCase) {
    EXPECT_TRUE(this->rig_.files.SetString(L"OnScreen", L"FontName", L"text", this->rig_.File()));
    EXPECT_EQ(this->rig_.files.GetString(L"ONSCREEN", L"FONTNAME", L"", this->rig_.File(), kBuffer), L"text");
    std::wstring upper = this->rig_.File();
    for (wchar_t& c : upper) {
        c = c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
    }
    EXPECT_EQ(this->rig_.files.GetString(L"OnScreen", L"FontName", L"", upper, kBuffer), L"text");
}

TYPED_TEST(ProfileFilesContract, WhatAnotherProgramWritesIsSeenAtOnce) {
    EXPECT_TRUE(this->Set(L"Key", L"ours"));
    this->rig_.PutLine(L"Another", "theirs");
    EXPECT_EQ(this->Get(L"Another"), L"theirs");
}

TYPED_TEST(ProfileFilesContract, AFileThatCannotBeWrittenRefuses) {
    this->rig_.MakeUnusable();
    EXPECT_FALSE(this->Set(L"Key", L"text"));
}

TYPED_TEST(ProfileFilesContract, ADeletedSectionIsGone_AndTheOthersAreKept) {
    const std::initializer_list<const wchar_t*> others{L"USER", L"USER10", L"USER2", L"KORVOQLB"};
    EXPECT_TRUE(this->rig_.files.SetString(L"KORVOQLB", L"Key", L"kept", this->rig_.File()));
    this->rig_.PutLine(L"Key", "text");
    this->rig_.PutLine(L"Other", "text");
    for (const wchar_t* section : others) {
        EXPECT_TRUE(this->rig_.files.SetString(section, L"Key", L"kept", this->rig_.File()));
    }
    EXPECT_TRUE(this->rig_.files.DeleteSection(kSection, this->rig_.File()));
    EXPECT_EQ(this->rig_.Line(L"Key"), std::nullopt);
    EXPECT_EQ(this->rig_.Line(L"Other"), std::nullopt);
    EXPECT_EQ(this->Get(L"Key"), L"fallback");
    for (const wchar_t* section : others) {
        EXPECT_EQ(this->rig_.files.GetString(section, L"Key", L"", this->rig_.File(), kBuffer), L"kept")
            << testing::PrintToString(section);
    }
}

TYPED_TEST(ProfileFilesContract, ASectionIsDeletedWithoutRegardToCase) {
    this->rig_.PutLine(L"Key", "text");
    EXPECT_TRUE(this->rig_.files.DeleteSection(L"user1", this->rig_.File()));
    EXPECT_EQ(this->rig_.Line(L"Key"), std::nullopt);
}

TYPED_TEST(ProfileFilesContract, ADeletedEntryIsMissingAndTheOthersStay) {
    this->rig_.PutLine(L"One", "text");
    this->rig_.PutLine(L"Other", "kept");
    EXPECT_TRUE(this->rig_.files.DeleteEntry(kSection, L"ONE", this->rig_.File()));
    EXPECT_EQ(this->Get(L"One"), L"fallback");
    EXPECT_EQ(this->Get(L"Other"), L"kept");
    EXPECT_TRUE(this->rig_.files.DeleteEntry(kSection, L"One", this->rig_.File()));
}

TYPED_TEST(ProfileFilesContract, AnEntryThatCannotBeDeletedIsTold) {
    this->rig_.PutLine(L"Key", "text");
    this->rig_.MakeUnusable();
    EXPECT_FALSE(this->rig_.files.DeleteEntry(kSection, L"Key", this->rig_.File()));
}

TYPED_TEST(ProfileFilesContract, AMissingSectionCountsAsDeleted) {
    this->rig_.PutLine(L"Key", "kept");
    EXPECT_TRUE(this->rig_.files.DeleteSection(L"USER2", this->rig_.File()));
    EXPECT_EQ(this->rig_.Line(L"Key"), "kept");
}

TYPED_TEST(ProfileFilesContract, ASectionOfAMissingFileCountsAsDeleted) {
    EXPECT_TRUE(this->rig_.files.DeleteSection(kSection, this->rig_.File()));
    EXPECT_EQ(this->Get(L"Key"), L"fallback");
}

TYPED_TEST(ProfileFilesContract, AFileThatCannotBeWrittenKeepsItsSections) {
    this->rig_.PutLine(L"Key", "text");
    this->rig_.MakeUnusable();
    EXPECT_FALSE(this->rig_.files.DeleteSection(kSection, this->rig_.File()));
}

TYPED_TEST(ProfileFilesContract, AFileWithoutDirectoryIsInTheWindowsDirectory) {
    EXPECT_TRUE(this->rig_.files.SetString(kSection, L"Key", L"text", kBareFile));
    const std::wstring full = this->rig_.WindowsDirectory() + L'\\' + kBareFile;
    EXPECT_EQ(this->rig_.files.GetString(kSection, L"Key", L"", full, kBuffer), L"text");
    EXPECT_EQ(this->rig_.files.GetString(kSection, L"Key", L"", kBareFile, kBuffer), L"text");
}

TEST(WindowsProfileFilesTest, AFileInAFolderThatIsMissingRefuses) {
    const ScratchFolder folder;
    WindowsProfileFiles files;
    EXPECT_FALSE(files.SetString(kSection, L"Key", L"text", folder.File(L"missing\\Test.ini")));
}

TEST(WindowsProfileFilesTest, AFileNameMayUseTheWholeCodePage) {
    const ScratchFolder folder;
    const std::wstring file = folder.File(GetACP() == 932 ? L"設定表.ini" : L"Größe.ini");
    EXPECT_TRUE(WindowsProfileFiles().SetString(kSection, L"Key", L"text", file));
    EXPECT_EQ(RawProfile::Line(file, "USER1", "Key"), "text");
}

} // namespace
