#include "FileSystemRigs.h"
#include "Rigs.h"
#include "platform/windows/Ansi.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

template <class Rig> class FileSystemContract : public testing::Test {
protected:
    Rig rig_;

    [[nodiscard]] std::uint32_t Attributes(const std::wstring& name) const {
        return rig_.files.Attributes(rig_.Path(name));
    }
    /// The names without "." and ".."; nothing when the search can't start.
    [[nodiscard]] std::vector<std::wstring> Found(const std::wstring& pattern) {
        std::vector<std::wstring> names;
        started_ = rig_.files.Find(rig_.Path(pattern), [&](const FoundFile& found) {
            if (found.name != L"." && found.name != L"..") {
                names.push_back(found.name);
            }
            return true;
        });
        return names;
    }
    [[nodiscard]] std::uint32_t AttributesFound(const std::wstring& name) const {
        std::uint32_t attributes = 0;
        (void)rig_.files.Find(rig_.Path(L"*.*"), [&](const FoundFile& found) {
            attributes |= found.name == name ? found.attributes : 0;
            return true;
        });
        return attributes;
    }
    [[nodiscard]] bool Read(const std::wstring& name) {
        read_.clear();
        return rig_.files.Read(rig_.Path(name), [&](std::string_view block) {
            EXPECT_FALSE(block.empty());
            read_ += block;
            return true;
        });
    }

    bool started_ = false;
    std::string read_;
};

using Rigs = testing::Types<FakeFilesRig, WindowsFilesRig>;
TYPED_TEST_SUITE(FileSystemContract, Rigs, RigName);

TYPED_TEST(FileSystemContract, AFolderHasTheDirectoryBit) {
    this->rig_.AddFolder(L"Tools");
    EXPECT_EQ(this->Attributes(L"Tools") & kAttributeDirectory, kAttributeDirectory);
    EXPECT_EQ(this->Attributes(L"Tools\\") & kAttributeDirectory, kAttributeDirectory);
    EXPECT_TRUE(IsFolder(this->rig_.files, this->rig_.Path(L"Tools")));
    EXPECT_NE(this->Attributes(L"Tools"), kAttributesUnknown);
}

TYPED_TEST(FileSystemContract, AFileHasNoDirectoryBit) {
    this->rig_.AddFile(L"a.txt");
    EXPECT_EQ(this->Attributes(L"a.txt") & kAttributeDirectory, 0U);
    EXPECT_FALSE(IsFolder(this->rig_.files, this->rig_.Path(L"a.txt")));
}

TYPED_TEST(FileSystemContract, WhatCanNotBeReadHasAllAttributes) {
    EXPECT_EQ(this->Attributes(L"missing"), kAttributesUnknown);
    EXPECT_EQ(this->Attributes(L"missing\\a.txt"), kAttributesUnknown);
    EXPECT_EQ(this->rig_.files.Attributes(L""), kAttributesUnknown);
    EXPECT_TRUE(IsFolder(this->rig_.files, this->rig_.Path(L"missing")));
}

TYPED_TEST(FileSystemContract, HiddenAndReadOnlyAreToldBothWays) {
    this->rig_.AddFile(L"secret.txt", "x", kAttributeHidden | kAttributeArchive);
    this->rig_.AddFolder(L"Secret", kAttributeHidden);
    this->rig_.AddFile(L"fixed.txt", "x", kAttributeReadOnly | kAttributeArchive);
    for (const wchar_t* name : {L"secret.txt", L"Secret"}) {
        EXPECT_NE(this->Attributes(name) & kAttributeHidden, 0U);
        EXPECT_NE(this->AttributesFound(name) & kAttributeHidden, 0U);
        EXPECT_EQ(this->Attributes(name) & kAttributeReadOnly, 0U);
    }
    EXPECT_NE(this->Attributes(L"fixed.txt") & kAttributeReadOnly, 0U);
    EXPECT_NE(this->AttributesFound(L"fixed.txt") & kAttributeReadOnly, 0U);
    EXPECT_EQ(this->AttributesFound(L"fixed.txt") & kAttributeHidden, 0U);
    EXPECT_NE(this->AttributesFound(L"Secret") & kAttributeDirectory, 0U);
    EXPECT_EQ(this->AttributesFound(L"secret.txt") & kAttributeDirectory, 0U);
}

TYPED_TEST(FileSystemContract, EveryEntryIsFound) {
    this->rig_.AddFolder(L"Tools");
    this->rig_.AddFile(L"a.txt");
    this->rig_.AddFile(L"no extension");
    this->rig_.AddFile(L"hidden.txt", "x", kAttributeHidden);
    this->rig_.AddFolder(L"Tools\\deeper");
    EXPECT_THAT(this->Found(L"*.*"),
                UnorderedElementsAre(L"Tools", L"a.txt", L"no extension", L"hidden.txt"));
    EXPECT_TRUE(this->started_);
}

TYPED_TEST(FileSystemContract, TheFolderItselfAndTheOneAboveAreFoundToo) {
    std::vector<std::wstring> dots;
    EXPECT_TRUE(this->rig_.files.Find(this->rig_.Path(L"*.*"), [&](const FoundFile& found) {
        if ((found.attributes & kAttributeDirectory) != 0) {
            dots.push_back(found.name);
        }
        return true;
    }));
    EXPECT_THAT(dots, ElementsAre(L".", L".."));
}

TYPED_TEST(FileSystemContract, NamesMayUseTheWholeCodePage) {
    this->rig_.AddFolder(LocalName());
    this->rig_.AddFile(LocalName() + L"\\" + LocalName() + L".txt", "inside");
    EXPECT_THAT(this->Found(L"*.*"), ElementsAre(LocalName()));
    EXPECT_THAT(this->Found(LocalName() + L"\\*.*"), ElementsAre(LocalName() + L".txt"));
    EXPECT_EQ(this->Attributes(LocalName()) & kAttributeDirectory, kAttributeDirectory);
    EXPECT_TRUE(this->Read(LocalName() + L"\\" + LocalName() + L".txt"));
    EXPECT_EQ(this->read_, "inside");
}

TYPED_TEST(FileSystemContract, APatternChoosesAmongThem) {
    for (const wchar_t* name : {L"QLBCODE.DAT", L"QLBCODE2.DAT", L"QLBMCMNU.DAT", L"QLBCODE.TXT"}) {
        this->rig_.AddFile(name);
    }
    EXPECT_THAT(this->Found(L"QLBCODE.DAT"), ElementsAre(L"QLBCODE.DAT"));
    EXPECT_THAT(this->Found(L"qlbcode*.dat"), UnorderedElementsAre(L"QLBCODE.DAT", L"QLBCODE2.DAT"));
    EXPECT_THAT(this->Found(L"QLBCODE?.DAT"), Contains(L"QLBCODE2.DAT"));
    EXPECT_THAT(this->Found(L"*.TXT"), ElementsAre(L"QLBCODE.TXT"));
}

TYPED_TEST(FileSystemContract, ASearchThatFindsNothingDoesNotStart) {
    this->rig_.AddFile(L"a.txt");
    for (const wchar_t* pattern : {L"*.exe", L"missing\\*.*", L"a.txt\\*.*", L"missing"}) {
        EXPECT_THAT(this->Found(pattern), IsEmpty());
        EXPECT_FALSE(this->started_);
    }
}

TYPED_TEST(FileSystemContract, TheOrderIsTheSameEachTime) {
    for (const wchar_t* name : {L"c", L"a", L"b", L"Z", L"0"}) {
        this->rig_.AddFile(name);
    }
    const auto first = this->Found(L"*.*");
    EXPECT_EQ(first.size(), 5U);
    EXPECT_EQ(this->Found(L"*.*"), first);
}

TYPED_TEST(FileSystemContract, ASearchEndsWhenEnoughWasFound) {
    for (int i = 0; i < 20; ++i) {
        this->rig_.AddFile(std::to_wstring(i));
    }
    int found = 0;
    EXPECT_TRUE(
        this->rig_.files.Find(this->rig_.Path(L"*.*"), [&](const FoundFile&) { return ++found < 7; }));
    EXPECT_EQ(found, 7);
}

TYPED_TEST(FileSystemContract, SearchesMayBeNested) {
    this->rig_.AddFile(L"Tools.txt");
    this->rig_.AddFolder(L"Tools");
    this->rig_.AddFile(L"Tools\\a.txt");
    int inner = 0;
    std::vector<std::wstring> outer;
    EXPECT_TRUE(this->rig_.files.Find(this->rig_.Path(L"Tools*"), [&](const FoundFile& found) {
        outer.push_back(found.name);
        inner +=
            this->rig_.files.Find(this->rig_.Path(L"Tools\\a.txt"), [](const FoundFile&) { return true; });
        return true;
    }));
    EXPECT_THAT(outer, UnorderedElementsAre(L"Tools", L"Tools.txt"));
    EXPECT_EQ(inner, 2);
}

TYPED_TEST(FileSystemContract, AFileIsReadToItsEnd) {
    const std::string bytes("one\r\ntwo\0three\x82\xA0", 16);
    this->rig_.AddFile(L"a.dat", bytes);
    EXPECT_TRUE(this->Read(L"a.dat"));
    EXPECT_EQ(this->read_, bytes);
}

TYPED_TEST(FileSystemContract, AnEmptyFileIsReadWithoutABlock) {
    this->rig_.AddFile(L"empty.dat", "");
    EXPECT_TRUE(this->Read(L"empty.dat"));
    EXPECT_EQ(this->read_, "");
}

TYPED_TEST(FileSystemContract, ALargeFileComesInBlocks) {
    std::string bytes;
    for (int i = 0; bytes.size() < 200'000; ++i) {
        bytes += std::to_string(i) + ',';
    }
    this->rig_.AddFile(L"large.dat", bytes);
    int blocks = 0;
    std::string read;
    EXPECT_TRUE(this->rig_.files.Read(this->rig_.Path(L"large.dat"), [&](std::string_view block) {
        ++blocks;
        read += block;
        return true;
    }));
    EXPECT_EQ(read, bytes);
    EXPECT_GT(blocks, 1);
}

TYPED_TEST(FileSystemContract, ReadingEndsWhenEnoughWasRead) {
    this->rig_.AddFile(L"large.dat", std::string(300'000, 'q'));
    int blocks = 0;
    EXPECT_TRUE(this->rig_.files.Read(this->rig_.Path(L"large.dat"),
                                      [&](std::string_view /*block*/) { return ++blocks < 2; }));
    EXPECT_EQ(blocks, 2);
}

TYPED_TEST(FileSystemContract, WhatIsNoFileCanNotBeRead) {
    this->rig_.AddFolder(L"Tools");
    for (const wchar_t* name : {L"missing.dat", L"missing\\a.dat", L"Tools"}) {
        EXPECT_FALSE(this->Read(name));
        EXPECT_EQ(this->read_, "");
    }
}

TYPED_TEST(FileSystemContract, AFileThatAnotherHoldsForItselfCanNotBeRead) {
    this->rig_.AddLockedFile(L"locked.dat");
    EXPECT_FALSE(this->Read(L"locked.dat"));
    EXPECT_EQ(this->read_, "");
    EXPECT_THAT(this->Found(L"*.*"), ElementsAre(L"locked.dat"));
}

TYPED_TEST(FileSystemContract, ALinkThatLoopsIsAFolderAtEveryDepth) {
    this->rig_.AddFile(L"a.txt");
    this->rig_.AddLinkToTheFolderItself(L"again");
    std::wstring folder;
    for (int depth = 0; depth < 5; ++depth) {
        EXPECT_THAT(this->Found(folder + L"*.*"), UnorderedElementsAre(L"a.txt", L"again")) << depth;
        folder += L"again\\";
        EXPECT_NE(this->Attributes(folder) & kAttributeDirectory, 0U) << depth;
        EXPECT_NE(this->Attributes(folder), kAttributesUnknown) << depth;
    }
}

/// Other handles of a file in every way that leaves it readable.
TEST(WindowsFileSystemTest, AFileThatAnotherWritesCanBeRead) {
    WindowsFilesRig rig;
    rig.AddFile(L"open.dat", "so far");
    const KernelHandle writer =
        OwnedFile(CreateFileW(rig.Path(L"open.dat").c_str(), GENERIC_READ | GENERIC_WRITE,
                              FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(writer);
    std::string read;
    EXPECT_TRUE(rig.files.Read(rig.Path(L"open.dat"), [&](std::string_view block) {
        read += block;
        return true;
    }));
    EXPECT_EQ(read, "so far");
}

TEST(WindowsFileSystemTest, AReadThatFailsHandsOverWhatCameBefore) {
    // A pipe whose other end goes away is a file that breaks off.
    const std::wstring name = L"\\\\.\\pipe\\QLBUtlContract." + std::to_wstring(GetCurrentProcessId());
    const KernelHandle server = OwnedFile(CreateNamedPipeW(
        name.c_str(), PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE | PIPE_WAIT, 1, 4096, 4096, 0, nullptr));
    ASSERT_TRUE(server);
    std::jthread writer([&] {
        ConnectNamedPipe(server.get(), nullptr);
        DWORD written = 0;
        WriteFile(server.get(), "first", 5, &written, nullptr);
        FlushFileBuffers(server.get());
        DisconnectNamedPipe(server.get());
    });
    std::string read;
    EXPECT_FALSE(WindowsFileSystem().Read(name, [&](std::string_view block) {
        read += block;
        return true;
    }));
    EXPECT_EQ(read, "first");
}

TEST(WindowsFileSystemTest, PathsOfAnyLengthAreHarmless) {
    const WindowsFileSystem files;
    for (const std::size_t length :
         {std::size_t{259}, std::size_t{260}, std::size_t{5'000}, std::size_t{70'000}}) {
        const std::wstring path = L"C:\\" + std::wstring(length, L'q');
        EXPECT_EQ(files.Attributes(path), kAttributesUnknown) << length;
        EXPECT_FALSE(files.Find(path + L"\\*.*", [](const FoundFile&) { return true; })) << length;
        EXPECT_FALSE(files.Read(path, [](std::string_view) { return true; })) << length;
    }
}

TEST(WindowsFileSystemTest, SeveralThreadsMayAskAtOnce) {
    WindowsFilesRig rig;
    for (int i = 0; i < 100; ++i) {
        rig.AddFile(std::to_wstring(i));
    }
    std::atomic<int> found = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                (void)rig.files.Find(rig.Path(L"*.*"), [&](const FoundFile& file) {
                    found += (file.attributes & kAttributeDirectory) == 0;
                    return true;
                });
            });
        }
    }
    EXPECT_EQ(found, 400);
}

} // namespace
