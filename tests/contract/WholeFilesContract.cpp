#include "Rigs.h"
#include "ScratchFolder.h"
#include "fakes/FakeWholeFiles.h"
#include "platform/windows/Handles.h"
#include "platform/windows/WindowsWholeFiles.h"

#include <windows.h>

#include <gmock/gmock.h>

using testing::UnorderedElementsAre;

namespace {

constexpr std::size_t kAny = 1'000'000;

class FakeRig {
public:
    static constexpr const char* kName = "Fake";

    FakeWholeFiles files;

    [[nodiscard]] static std::wstring Path(const std::wstring& name) { return L"C:\\Contract\\" + name; }
    void Forbid(const std::wstring& /*name*/) { files.refusesWrites = true; }
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";

    WindowsWholeFiles files;

    [[nodiscard]] std::wstring Path(const std::wstring& name) const { return folder_.File(name); }
    /// A file that another program has open for itself alone, and so can't be replaced.
    void Forbid(const std::wstring& name) {
        held_ =
            OwnedFile(CreateFileW(Path(name).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    }

private:
    ScratchFolder folder_;
    KernelHandle held_;
};

template <class Rig> class WholeFilesContract : public testing::Test {
protected:
    Rig rig_;

    FileWriting Write(const std::wstring& name, std::string_view bytes, bool mayReplace = false) {
        return rig_.files.Write(rig_.Path(name), bytes, mayReplace);
    }
    std::optional<std::string> Read(const std::wstring& name, std::size_t longest = kAny) {
        return rig_.files.Read(rig_.Path(name), longest);
    }
    std::vector<std::wstring> Names() {
        return rig_.files.Names(rig_.Path(L"x").substr(0, rig_.Path(L"x").size() - 2));
    }
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(WholeFilesContract, Rigs, RigName);

TYPED_TEST(WholeFilesContract, AFileIsReadAsItWasWritten) {
    const std::string bytes = std::string("a\0b\r\n\x1A", 6) + std::string(200'000, 'x');
    EXPECT_EQ(this->Write(L"a.qlb", bytes), FileWriting::Done);
    EXPECT_EQ(this->Read(L"a.qlb"), bytes);
    EXPECT_EQ(this->Write(L"empty.qlb", ""), FileWriting::Done);
    EXPECT_EQ(this->Read(L"empty.qlb"), "");
    EXPECT_THAT(this->Names(), UnorderedElementsAre(L"a.qlb", L"empty.qlb"));
}

TYPED_TEST(WholeFilesContract, AMissingFileIsNone) {
    EXPECT_EQ(this->Read(L"none.qlb"), std::nullopt);
    EXPECT_FALSE(this->rig_.files.Exists(this->rig_.Path(L"none.qlb")));
    EXPECT_TRUE(this->rig_.files.Names(this->rig_.Path(L"none")).empty());
}

TYPED_TEST(WholeFilesContract, AFileThatIsTooLongIsNone) {
    EXPECT_EQ(this->Write(L"a.qlb", "12345"), FileWriting::Done);
    EXPECT_EQ(this->Read(L"a.qlb", 4), std::nullopt);
    EXPECT_EQ(this->Read(L"a.qlb", 5), "12345");
}

TYPED_TEST(WholeFilesContract, AFileThatIsThereStaysUnlessItMayBeReplaced) {
    EXPECT_EQ(this->Write(L"a.qlb", "old"), FileWriting::Done);
    EXPECT_EQ(this->Write(L"A.QLB", "new"), FileWriting::AlreadyThere);
    EXPECT_EQ(this->Read(L"a.qlb"), "old");
    EXPECT_EQ(this->Write(L"a.qlb", "new", true), FileWriting::Done);
    EXPECT_EQ(this->Read(L"a.qlb"), "new");
    EXPECT_EQ(this->Names().size(), 1U);
}

TYPED_TEST(WholeFilesContract, ARefusalLeavesTheOldFileAndNothingBeside) {
    EXPECT_EQ(this->Write(L"a.qlb", "old"), FileWriting::Done);
    this->rig_.Forbid(L"a.qlb");
    const FileWriting outcome = this->Write(L"a.qlb", "new", true);
    if (outcome == FileWriting::Done) {
        EXPECT_EQ(this->Read(L"a.qlb"), "new"); // systems differ in what may be replaced
    } else {
        EXPECT_EQ(outcome, FileWriting::Failed);
    }
    EXPECT_THAT(this->Names(), testing::ElementsAre(L"a.qlb"));
}

TYPED_TEST(WholeFilesContract, ARemovedFileIsGone) {
    EXPECT_EQ(this->Write(L"a.qlb", "old"), FileWriting::Done);
    EXPECT_TRUE(this->rig_.files.Exists(this->rig_.Path(L"a.qlb")));
    EXPECT_TRUE(this->rig_.files.Remove(this->rig_.Path(L"a.qlb")));
    EXPECT_FALSE(this->rig_.files.Remove(this->rig_.Path(L"a.qlb")));
    EXPECT_FALSE(this->rig_.files.Exists(this->rig_.Path(L"a.qlb")));
}

TYPED_TEST(WholeFilesContract, AFolderIsMadeWithThoseAboveIt) {
    EXPECT_TRUE(this->rig_.files.MakeFolder(this->rig_.Path(L"one\\two\\three")));
    EXPECT_TRUE(this->rig_.files.MakeFolder(this->rig_.Path(L"one\\two\\three")));
    EXPECT_EQ(this->Write(L"one\\two\\three\\a.qlb", "x"), FileWriting::Done);
    EXPECT_EQ(this->rig_.files.Names(this->rig_.Path(L"one\\two\\three")),
              std::vector<std::wstring>{L"a.qlb"});
}

TEST(WindowsWholeFilesTest, NamesMayHaveAnyCharacters) {
    const ScratchFolder folder;
    WindowsWholeFiles files;
    const std::wstring path = folder.File(L"日本 Größe \xD83D\xDE00.qlb");
    EXPECT_EQ(files.Write(path, "x", false), FileWriting::Done);
    EXPECT_EQ(files.Read(path, kAny), "x");
}

TEST(WindowsWholeFilesTest, NamesMayBeLong) {
    const ScratchFolder folder;
    WindowsWholeFiles files;
    std::wstring deep = folder.File(std::wstring(100, L'a'));
    for (int i = 0; i < 3; ++i) {
        deep += L"\\" + std::wstring(100, L'b');
    }
    EXPECT_TRUE(files.MakeFolder(deep));
    EXPECT_EQ(files.Write(deep + L"\\a.qlb", "x", false), FileWriting::Done);
    EXPECT_EQ(files.Read(deep + L"\\a.qlb", kAny), "x");
    EXPECT_EQ(files.Names(deep), std::vector<std::wstring>{L"a.qlb"});

    // Too long for what removes the scratch folder.
    EXPECT_TRUE(files.Remove(deep + L"\\a.qlb"));
    for (; deep != folder.File(L"").substr(0, folder.File(L"").size() - 1); deep.resize(deep.rfind(L'\\'))) {
        EXPECT_NE(RemoveDirectoryW((L"\\\\?\\" + deep).c_str()), FALSE);
    }
}

TEST(WindowsWholeFilesTest, AFileThatMayNotBeWrittenStays) {
    const ScratchFolder folder;
    WindowsWholeFiles files;
    const std::wstring path = folder.File(L"a.qlb");
    EXPECT_EQ(files.Write(path, "old", false), FileWriting::Done);
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(files.Write(path, "new", true), FileWriting::Failed);
    EXPECT_EQ(files.Read(path, kAny), "old");
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(files.Write(folder.File(L"none\\a.qlb"), "x", false), FileWriting::Failed);
    EXPECT_EQ(files.Write(folder.File(L""), "x", true), FileWriting::Failed);
}

TEST(WindowsWholeFilesTest, AFileMayBeReplacedWhileItIsRead) {
    const ScratchFolder folder;
    WindowsWholeFiles files;
    const std::wstring path = folder.File(L"a.qlb");
    EXPECT_EQ(files.Write(path, "old", false), FileWriting::Done);
    const KernelHandle reader = OwnedFile(CreateFileW(path.c_str(), GENERIC_READ,
                                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                                      nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader);
    EXPECT_EQ(files.Write(path, "new", true), FileWriting::Done);
    EXPECT_EQ(files.Read(path, kAny), "new");
}

TEST(WindowsWholeFilesTest, TheUsersOwnFolderIsThere) {
    const std::wstring path = WindowsWholeFiles().LocalApplicationData();
    EXPECT_NE(path, L"");
    EXPECT_TRUE(WindowsWholeFiles().Exists(path));
    EXPECT_NE(path.back(), L'\\');
}

} // namespace
