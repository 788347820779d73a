#include "FileSystemRigs.h"
#include "Rigs.h"
#include "browse/CEnumFileMinor.h"
#include "browse/FolderLevel.h"
#include "fakes/FakeNameOrder.h"
#include "fakes/FakePendingEvents.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// What lists folders, on folders in memory and on disk.
template <class Rig> class FolderListingContract : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::wstring> Folders() const {
        std::vector<std::wstring> names;
        for (std::int32_t i = 0; i < list_.GetDirCount(); ++i) {
            names.push_back(list_.GetDirName(i));
        }
        return names;
    }
    [[nodiscard]] std::vector<std::wstring> Files() const {
        std::vector<std::wstring> names;
        for (std::int32_t i = 0; i < list_.GetFileCount(); ++i) {
            names.push_back(list_.GetFileName(i));
        }
        return names;
    }
    [[nodiscard]] bool HasSubfolders(const std::wstring& folder) {
        for (std::int32_t i = 0; i < list_.GetDirCount(); ++i) {
            if (list_.GetDirName(i) == folder) {
                return list_.GetSubDirCheck(i);
            }
        }
        ADD_FAILURE() << "not listed";
        return false;
    }
    [[nodiscard]] FolderLevel Level(const std::vector<std::wstring>& places) {
        return ReadFolderLevel(rig_.files, events_, order_, places).value();
    }
    [[nodiscard]] static std::vector<std::wstring> Paths(const FolderLevel& level,
                                                         const std::vector<LevelEntry>& entries) {
        std::vector<std::wstring> paths;
        for (const LevelEntry& entry : entries) {
            paths.push_back(level.PathOf(entry));
        }
        return paths;
    }

    Rig rig_;
    FakePendingEvents events_;
    FakeNameOrder order_;
    CEnumFileMinor list_{rig_.files, events_};
};

using Rigs = testing::Types<FakeFilesRig, WindowsFilesRig>;
TYPED_TEST_SUITE(FolderListingContract, Rigs, RigName);

TYPED_TEST(FolderListingContract, FoldersAndFilesAreListedApart) {
    this->rig_.AddFolder(L"Tools");
    this->rig_.AddFolder(LocalName());
    this->rig_.AddFile(L"a.txt");
    this->rig_.AddFile(L"no extension");
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path()));
    EXPECT_THAT(this->Folders(), UnorderedElementsAre(L"Tools", LocalName()));
    EXPECT_THAT(this->Files(), UnorderedElementsAre(L"a.txt", L"no extension"));
}

TYPED_TEST(FolderListingContract, APathWithATrailingBackslashListsTheSame) {
    this->rig_.AddFolder(L"Tools");
    this->rig_.AddFile(L"a.txt");
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path() + L"\\"));
    EXPECT_THAT(this->Folders(), ElementsAre(L"Tools"));
    EXPECT_THAT(this->Files(), ElementsAre(L"a.txt"));
    EXPECT_TRUE(this->list_.CheckSubDirectory(this->rig_.Path() + L"\\"));
}

TYPED_TEST(FolderListingContract, HiddenEntriesAreNotListedButAHiddenFolderCountsAsSubfolder) {
    this->rig_.AddFolder(L"Tools");
    this->rig_.AddFolder(L"Tools\\Secret", kAttributeHidden);
    this->rig_.AddFile(L"Tools\\secret.txt", "x", kAttributeHidden);
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path(L"Tools")));
    EXPECT_THAT(this->Folders(), IsEmpty());
    EXPECT_THAT(this->Files(), IsEmpty());
    EXPECT_TRUE(this->list_.CheckSubDirectory(this->rig_.Path(L"Tools")));
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path()));
    EXPECT_TRUE(this->HasSubfolders(L"Tools"));
}

TYPED_TEST(FolderListingContract, AFileIsNoSubfolder) {
    this->rig_.AddFolder(L"Tools");
    this->rig_.AddFile(L"Tools\\a.txt");
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path()));
    EXPECT_FALSE(this->HasSubfolders(L"Tools"));
    EXPECT_FALSE(this->list_.CheckSubDirectory(this->rig_.Path(L"Tools")));
    EXPECT_FALSE(this->list_.CheckSubDirectory(this->rig_.Path(L"Tools\\a.txt")));
}

TYPED_TEST(FolderListingContract, ARecycleBinIsSkippedInAnyCaseButAFileOfThatNameIsListed) {
    this->rig_.AddFolder(L"One");
    this->rig_.AddFolder(L"One\\Recycled");
    this->rig_.AddFolder(L"Two");
    this->rig_.AddFolder(L"Two\\RECYCLED");
    this->rig_.AddFolder(L"Three");
    this->rig_.AddFile(L"Three\\RECYCLED");
    for (const wchar_t* folder : {L"One", L"Two"}) {
        EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path(folder)));
        EXPECT_THAT(this->Folders(), IsEmpty());
        EXPECT_FALSE(this->list_.CheckSubDirectory(this->rig_.Path(folder)));
    }
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path(L"Three")));
    EXPECT_THAT(this->Files(), ElementsAre(L"RECYCLED"));
}

TYPED_TEST(FolderListingContract, OnlyAFileIsNoFolder) {
    this->rig_.AddFile(L"a.txt");
    EXPECT_TRUE(this->list_.EnumDisk(this->rig_.Path(L"a.txt")));
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path(L"missing")));
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path(L"missing\\deeper\\")));
    EXPECT_FALSE(this->list_.EnumDisk(L""));
    EXPECT_THAT(this->Files(), IsEmpty());
    EXPECT_THAT(this->Folders(), IsEmpty());
}

TYPED_TEST(FolderListingContract, AFilterAndAMaskChoose) {
    this->rig_.AddFile(L"a.txt");
    this->rig_.AddFile(L"b.exe");
    this->rig_.AddFile(L"c.exe", "x", kAttributeReadOnly);
    this->list_.FindFilter(L"*.exe");
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path()));
    EXPECT_THAT(this->Files(), UnorderedElementsAre(L"b.exe", L"c.exe"));
    this->list_.Clear();
    this->list_.FileAttribute(kAttributeReadOnly);
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path()));
    EXPECT_THAT(this->Files(), ElementsAre(L"c.exe"));
}

TYPED_TEST(FolderListingContract, AnotherFolderIsAppended) {
    this->rig_.AddFolder(L"One");
    this->rig_.AddFolder(L"Two");
    this->rig_.AddFile(L"One\\a.txt");
    this->rig_.AddFile(L"Two\\b.txt");
    this->rig_.AddFolder(L"Two\\Deep");
    this->rig_.AddFolder(L"Two\\Deep\\Deeper");
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path(L"One")));
    EXPECT_FALSE(this->list_.EnumDisk(this->rig_.Path(L"Two")));
    EXPECT_THAT(this->Files(), ElementsAre(L"a.txt", L"b.txt"));
    EXPECT_TRUE(this->HasSubfolders(L"Deep"));
    this->list_.Clear();
    EXPECT_EQ(this->list_.GetFileCount(), 0);
    EXPECT_EQ(this->list_.GetDirCount(), 0);
}

TYPED_TEST(FolderListingContract, ALinkThatLoopsIsListedLevelByLevel) {
    this->rig_.AddFile(L"a.txt");
    this->rig_.AddLinkToTheFolderItself(L"again");
    std::wstring path = this->rig_.Path();
    for (int depth = 0; depth < 6; ++depth) {
        const FolderLevel level = this->Level({path});
        path += L"\\again";
        EXPECT_THAT(this->Paths(level, level.folders), ElementsAre(path)) << depth;
        EXPECT_EQ(level.files.size(), 1U) << depth;
    }
}

TYPED_TEST(FolderListingContract, ALevelIsSortedFoldersAndFilesApart) {
    for (const wchar_t* name : {L"b.txt", L"A.txt", L"c.txt"}) {
        this->rig_.AddFile(name);
    }
    for (const wchar_t* name : {L"beta", L"Alpha"}) {
        this->rig_.AddFolder(name);
    }
    const FolderLevel level = this->Level({this->rig_.Path() + L"\\"});
    EXPECT_THAT(this->Paths(level, level.folders),
                ElementsAre(this->rig_.Path(L"Alpha"), this->rig_.Path(L"beta")));
    EXPECT_THAT(this->Paths(level, level.files),
                ElementsAre(this->rig_.Path(L"A.txt"), this->rig_.Path(L"b.txt"), this->rig_.Path(L"c.txt")));
}

TYPED_TEST(FolderListingContract, TwoFoldersAreShownAsOne) {
    for (const wchar_t* folder :
         {L"user", L"user\\Games", L"user\\Own", L"all", L"all\\GAMES", L"all\\Tools"}) {
        this->rig_.AddFolder(folder);
    }
    this->rig_.AddFile(L"user\\z.txt");
    this->rig_.AddFile(L"all\\Z.TXT");
    this->rig_.AddFile(L"all\\a.txt");
    const FolderLevel level =
        this->Level({this->rig_.Path(L"user"), this->rig_.Path(L"missing"), this->rig_.Path(L"all")});
    EXPECT_THAT(this->Paths(level, level.folders),
                ElementsAre(this->rig_.Path(L"user\\Games"), this->rig_.Path(L"user\\Own"),
                            this->rig_.Path(L"all\\Tools")));
    EXPECT_THAT(this->Paths(level, level.files),
                ElementsAre(this->rig_.Path(L"all\\a.txt"), this->rig_.Path(L"user\\z.txt")));
}

} // namespace
