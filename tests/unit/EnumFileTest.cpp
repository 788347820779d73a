#include "browse/CEnumFileMinor.h"

#include "fakes/FakeFileSystem.h"
#include "fakes/FakePendingEvents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kHiddenFolder = kAttributeDirectory | kAttributeHidden;
constexpr std::uint32_t kSystem = 0x04;

class EnumFile : public testing::Test {
public:
    [[nodiscard]] std::vector<std::wstring> Folders() const {
        std::vector<std::wstring> names;
        names.reserve(static_cast<std::size_t>(folder.GetDirCount()));
        for (std::int32_t i = 0; i < folder.GetDirCount(); ++i) {
            names.push_back(folder.GetDirName(i));
        }
        return names;
    }
    [[nodiscard]] std::vector<std::wstring> Files() const {
        std::vector<std::wstring> names;
        names.reserve(static_cast<std::size_t>(folder.GetFileCount()));
        for (std::int32_t i = 0; i < folder.GetFileCount(); ++i) {
            names.push_back(folder.GetFileName(i));
        }
        return names;
    }

    FakeFileSystem disk;
    FakePendingEvents events;
    CEnumFileMinor folder{disk, events};
};

TEST_F(EnumFile, ListsFoldersAndFilesApart_InTheFileSystemsOrder) {
    disk.AddFile(L"C:\\top\\zebra.txt");
    disk.AddFolder(L"C:\\top\\Music");
    disk.AddFile(L"C:\\top\\ant.txt");
    disk.AddFolder(L"C:\\top\\Art");
    EXPECT_FALSE(folder.EnumDisk(L"C:\\top"));
    EXPECT_THAT(Folders(), ElementsAre(L"Music", L"Art"));
    EXPECT_THAT(Files(), ElementsAre(L"zebra.txt", L"ant.txt"));
}

TEST_F(EnumFile, ListsOneLevelOnly) {
    disk.AddFile(L"C:\\top\\sub\\deep.txt");
    folder.EnumDisk(L"C:\\top");
    EXPECT_THAT(Folders(), ElementsAre(L"sub"));
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(EnumFile, ListsNeitherTheFolderItselfNorTheOneAboveIt) {
    disk.AddFolder(L"C:\\top");
    folder.EnumDisk(L"C:\\top");
    EXPECT_EQ(disk.reportedEntries, 2U) << "the disk must report both";
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(EnumFile, NeverListsHiddenEntries_ThoughTheMaskHoldsTheirBit) {
    disk.AddFolder(L"C:\\top\\secret", kHiddenFolder);
    disk.AddFile(L"C:\\top\\secret.txt", "", kAttributeArchive | kAttributeHidden);
    disk.AddFile(L"C:\\top\\open.txt");
    ASSERT_NE(folder.FileAttribute() & kAttributeHidden, 0U);
    folder.EnumDisk(L"C:\\top");
    folder.FileAttribute(0xFFFFFFFF);
    folder.EnumDisk(L"C:\\top");
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_THAT(Files(), ElementsAre(L"open.txt", L"open.txt"));
}

TEST_F(EnumFile, AHiddenFolderIsNotListed_ButCountsAsASubfolderOfItsParent) {
    disk.AddFolder(L"C:\\top\\secret", kHiddenFolder);
    folder.EnumDisk(L"C:\\top");
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_TRUE(folder.CheckSubDirectory(L"C:\\top"));
}

TEST_F(EnumFile, SkipsFoldersNamedRecycled_InAnyCase) {
    for (const wchar_t* name : {L"a\\RECYCLED", L"b\\Recycled", L"c\\recycled", L"d\\rEcYcLeD"}) {
        disk.AddFolder(std::wstring(L"C:\\") + name);
        const std::wstring parent = std::wstring(L"C:\\") + name[0];
        folder.EnumDisk(parent);
        EXPECT_THAT(Folders(), IsEmpty()) << testing::PrintToString(parent);
        EXPECT_FALSE(folder.CheckSubDirectory(parent)) << testing::PrintToString(parent);
    }
}

TEST_F(EnumFile, ListsFoldersWhoseNamesOnlyBeginLikeTheRecycleBins) {
    disk.AddFolder(L"C:\\top\\RECYCLED2");
    disk.AddFolder(L"C:\\top\\RECYCLE");
    folder.EnumDisk(L"C:\\top");
    EXPECT_THAT(Folders(), ElementsAre(L"RECYCLED2", L"RECYCLE"));
}

TEST_F(EnumFile, ListsAFileNamedRecycled) {
    disk.AddFile(L"C:\\top\\RECYCLED");
    folder.EnumDisk(L"C:\\top");
    EXPECT_THAT(Files(), ElementsAre(L"RECYCLED"));
}

TEST_F(EnumFile, GivesTheSameLists_WithAndWithoutATrailingBackslash) {
    disk.AddFolder(L"C:\\top\\sub\\deep");
    disk.AddFile(L"C:\\top\\a.txt");
    folder.EnumDisk(L"C:\\top");
    const auto folders = Folders();
    const auto files = Files();
    ASSERT_THAT(folders, ElementsAre(L"sub"));
    ASSERT_THAT(files, ElementsAre(L"a.txt"));
    ASSERT_TRUE(folder.GetSubDirCheck(0));
    folder.Clear();
    folder.EnumDisk(L"C:\\top\\");
    EXPECT_EQ(Folders(), folders);
    EXPECT_EQ(Files(), files);
    EXPECT_TRUE(folder.GetSubDirCheck(0));
    EXPECT_EQ(disk.searches[0], L"C:\\top\\*.*");
    EXPECT_EQ(disk.searches[2], disk.searches[0]);
}

TEST_F(EnumFile, ListsADrivesRoot_WithAndWithoutABackslash) {
    disk.AddFolder(L"C:\\top\\sub");
    folder.EnumDisk(L"c:");
    folder.EnumDisk(L"c:\\");
    EXPECT_THAT(Folders(), ElementsAre(L"top", L"top"));
    EXPECT_TRUE(folder.CheckSubDirectory(L"c:"));
    EXPECT_TRUE(folder.CheckSubDirectory(L"c:\\"));
}

TEST_F(EnumFile, AnswersTrueAndListsNothing_ForAFile) {
    disk.AddFile(L"C:\\top\\a.txt");
    EXPECT_TRUE(folder.EnumDisk(L"C:\\top\\a.txt"));
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_THAT(disk.searches, IsEmpty());
}

TEST_F(EnumFile, TakesAMissingPathForAnEmptyFolder) {
    disk.AddFolder(L"C:\\top");
    EXPECT_FALSE(folder.EnumDisk(L"C:\\missing"));
    EXPECT_FALSE(folder.EnumDisk(L"Z:\\"));
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_FALSE(folder.CheckSubDirectory(L"C:\\missing"));
}

TEST_F(EnumFile, ListsAFolderWhoseAttributesCannotBeRead) {
    disk.AddFolder(L"C:\\top\\sub");
    disk.HideAttributes(L"C:\\top");
    ASSERT_EQ(disk.Attributes(L"C:\\top"), kAttributesUnknown);
    EXPECT_FALSE(folder.EnumDisk(L"C:\\top"));
    EXPECT_THAT(Folders(), ElementsAre(L"sub"));
    EXPECT_TRUE(folder.CheckSubDirectory(L"C:\\top"));
}

TEST_F(EnumFile, ListsNothing_WhenTheFolderCannotBeRead) {
    disk.AddFolder(L"C:\\top\\sub");
    disk.MakeUnreadable(L"C:\\top");
    EXPECT_FALSE(folder.EnumDisk(L"C:\\top"));
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_FALSE(folder.CheckSubDirectory(L"C:\\top"));
}

TEST_F(EnumFile, AnEmptyPathDoesNotListTheCurrentDrive) {
    disk.AddFolder(L"C:\\top");
    EXPECT_FALSE(folder.EnumDisk(L""));
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_FALSE(folder.CheckSubDirectory(L""));
}

TEST_F(EnumFile, AtFirstTakesEntriesThatAreReadOnlyHiddenFolderArchiveOrNormal) {
    EXPECT_EQ(folder.FileAttribute(), 179U);
    disk.AddFile(L"C:\\top\\system", "", kSystem);
    disk.AddFile(L"C:\\top\\none", "", 0);
    disk.AddFile(L"C:\\top\\normal", "", kAttributeNormal);
    disk.AddFile(L"C:\\top\\readonly", "", kAttributeReadOnly | kSystem);
    disk.AddFile(L"C:\\top\\archive", "", kAttributeArchive);
    folder.EnumDisk(L"C:\\top");
    EXPECT_THAT(Files(), ElementsAre(L"normal", L"readonly", L"archive"));
}

TEST_F(EnumFile, TakesOnlyEntriesThatShareABitWithTheMask) {
    disk.AddFolder(L"C:\\top\\plain");
    disk.AddFolder(L"C:\\top\\readonly", kAttributeDirectory | kAttributeReadOnly);
    disk.AddFile(L"C:\\top\\archive.txt");
    disk.AddFile(L"C:\\top\\system.txt", "", kSystem);
    folder.FileAttribute(kAttributeReadOnly | kSystem);
    EXPECT_EQ(folder.FileAttribute(), kAttributeReadOnly | kSystem);
    folder.EnumDisk(L"C:\\top");
    EXPECT_THAT(Folders(), ElementsAre(L"readonly"));
    EXPECT_THAT(Files(), ElementsAre(L"system.txt"));
}

TEST_F(EnumFile, AFolderOutsideTheMaskIsNoSubfolder) {
    disk.AddFolder(L"C:\\top\\sub");
    EXPECT_TRUE(folder.CheckSubDirectory(L"C:\\top"));
    folder.FileAttribute(kAttributeArchive);
    EXPECT_FALSE(folder.CheckSubDirectory(L"C:\\top"));
}

TEST_F(EnumFile, SearchesWithItsFilter) {
    disk.AddFile(L"C:\\top\\a.url");
    disk.AddFile(L"C:\\top\\a.txt");
    disk.AddFolder(L"C:\\top\\sub");
    folder.FindFilter(L"*.url");
    folder.EnumDisk(L"C:\\top");
    EXPECT_THAT(Files(), ElementsAre(L"a.url"));
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_FALSE(folder.CheckSubDirectory(L"C:\\top"));
    EXPECT_THAT(disk.searches, ElementsAre(L"C:\\top\\*.url", L"C:\\top\\*.url"));
}

TEST_F(EnumFile, CutsNamesAtTheirFirstNul) {
    disk.AddFile(std::wstring(L"C:\\top\\a.txt\0rest", 17));
    disk.AddFolder(std::wstring(L"C:\\top\\Recycled\0x", 17));
    disk.AddFolder(std::wstring(L"C:\\top\\..\0x", 11));
    folder.EnumDisk(L"C:\\top");
    EXPECT_THAT(Files(), ElementsAre(L"a.txt"));
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_FALSE(folder.CheckSubDirectory(L"C:\\top"));
}

TEST_F(EnumFile, AddsToItsLists_UntilTheyAreCleared) {
    disk.AddFile(L"C:\\one\\1.txt");
    disk.AddFolder(L"C:\\one\\1");
    disk.AddFile(L"C:\\two\\2.txt");
    disk.AddFolder(L"C:\\two\\2\\deep");
    folder.EnumDisk(L"C:\\one");
    folder.EnumDisk(L"C:\\two");
    EXPECT_THAT(Files(), ElementsAre(L"1.txt", L"2.txt"));
    EXPECT_THAT(Folders(), ElementsAre(L"1", L"2"));
    EXPECT_FALSE(folder.GetSubDirCheck(0));
    EXPECT_TRUE(folder.GetSubDirCheck(1)) << "looked for in its own parent";
    folder.Clear();
    EXPECT_EQ(folder.GetFileCount(), 0);
    EXPECT_EQ(folder.GetDirCount(), 0);
    EXPECT_FALSE(folder.GetSubDirCheck(1));
}

TEST_F(EnumFile, IsEmptyOutsideItsLists) {
    disk.AddFile(L"C:\\top\\a.txt");
    disk.AddFolder(L"C:\\top\\sub\\deep");
    folder.EnumDisk(L"C:\\top");
    for (const std::int32_t index :
         {-1, 1, 2, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(folder.GetFileName(index), L"") << index;
        EXPECT_EQ(folder.GetDirName(index), L"") << index;
        EXPECT_FALSE(folder.GetSubDirCheck(index)) << index;
    }
    EXPECT_TRUE(folder.GetSubDirCheck(0));
}

TEST_F(EnumFile, KnowsWhichFoldersHaveSubfolders) {
    disk.AddFolder(L"C:\\top\\empty");
    disk.AddFile(L"C:\\top\\files\\a.txt");
    disk.AddFolder(L"C:\\top\\nested\\deep");
    disk.AddFolder(L"C:\\top\\hiding\\secret", kHiddenFolder);
    disk.AddFolder(L"C:\\top\\bin\\Recycled");
    disk.AddFolder(L"C:\\top\\locked\\deep");
    disk.MakeUnreadable(L"C:\\top\\locked");
    folder.EnumDisk(L"C:\\top");
    std::vector<bool> checks;
    checks.reserve(static_cast<std::size_t>(folder.GetDirCount()));
    for (std::int32_t i = 0; i < folder.GetDirCount(); ++i) {
        checks.push_back(folder.GetSubDirCheck(i));
    }
    EXPECT_THAT(checks, ElementsAre(false, false, true, true, false, false));
}

TEST_F(EnumFile, LooksForSubfoldersOnlyWhenAsked) {
    disk.AddFolder(L"C:\\top\\a\\deep");
    disk.AddFolder(L"C:\\top\\b\\deep");
    folder.EnumDisk(L"C:\\top");
    EXPECT_THAT(disk.searches, ElementsAre(L"C:\\top\\*.*"));
    EXPECT_TRUE(folder.GetSubDirCheck(1));
    EXPECT_THAT(disk.searches, ElementsAre(L"C:\\top\\*.*", L"C:\\top\\b\\*.*"));
}

TEST_F(EnumFile, StopsAtTheFirstSubfolder) {
    for (int i = 0; i < 50; ++i) {
        disk.AddFolder(L"C:\\top\\" + std::to_wstring(i));
    }
    EXPECT_TRUE(folder.CheckSubDirectory(L"C:\\top"));
    EXPECT_EQ(disk.reportedEntries, 3U) << "the folder itself, the one above, and the first one below";
}

TEST_F(EnumFile, AFileHasNoSubfolders) {
    disk.AddFile(L"C:\\top\\a.txt");
    EXPECT_FALSE(folder.CheckSubDirectory(L"C:\\top\\a.txt"));
    EXPECT_FALSE(folder.CheckSubDirectory(L"C:\\top")) << "a file is no subfolder";
}

TEST_F(EnumFile, FindsSubfolders_WithAndWithoutATrailingBackslash) {
    disk.AddFolder(L"C:\\top\\sub");
    EXPECT_TRUE(folder.CheckSubDirectory(L"C:\\top\\"));
    EXPECT_TRUE(folder.CheckSubDirectory(L"C:\\top"));
}

TEST_F(EnumFile, LetsPendingEventsRunBeforeItLooksAtTheDisk) {
    disk.AddFolder(L"C:\\top\\sub");
    std::size_t looksBefore = 99;
    events.whenProcessed = [&] { looksBefore = disk.questions.size() + disk.searches.size(); };
    folder.EnumDisk(L"C:\\top");
    EXPECT_EQ(events.processed, 1);
    EXPECT_EQ(looksBefore, 0U);

    disk.Forget();
    looksBefore = 99;
    EXPECT_TRUE(folder.CheckSubDirectory(L"C:\\top"));
    EXPECT_EQ(events.processed, 2);
    EXPECT_EQ(looksBefore, 0U);
}

TEST_F(EnumFile, LetsPendingEventsRunAgainEverySoManyEntries) {
    const auto many = static_cast<int>(CEnumFileMinor::kEntriesAtOnce);
    for (int i = 0; i < 3 * many; ++i) {
        disk.AddFile(L"C:\\top\\" + std::to_wstring(i), "",
                     i % 2 == 0 ? kAttributeArchive : kAttributeHidden);
    }
    std::size_t seen = 0;
    std::size_t longest = 0;
    events.whenProcessed = [&] {
        longest = std::max(longest, disk.reportedEntries - seen);
        seen = disk.reportedEntries;
    };
    folder.EnumDisk(L"C:\\top");
    EXPECT_EQ(events.processed, 4) << "hidden entries take their time too";
    EXPECT_LE(longest, CEnumFileMinor::kEntriesAtOnce);
}

TEST_F(EnumFile, EndsWhenAPendingEventMakesItUnwanted) {
    const auto many = static_cast<int>(CEnumFileMinor::kEntriesAtOnce);
    for (int i = 0; i < 3 * many; ++i) {
        disk.AddFile(L"C:\\top\\" + std::to_wstring(i));
    }
    events.whenProcessed = [&] { events.wanted = events.processed < 2; };
    EXPECT_FALSE(folder.EnumDisk(L"C:\\top"));
    EXPECT_EQ(disk.reportedEntries, CEnumFileMinor::kEntriesAtOnce);

    disk.Forget();
    EXPECT_FALSE(folder.EnumDisk(L"C:\\top"));
    EXPECT_FALSE(folder.CheckSubDirectory(L"C:\\top"));
    EXPECT_THAT(disk.questions, IsEmpty());
    EXPECT_THAT(disk.searches, IsEmpty());
}

TEST_F(EnumFile, MayBeClearedByAPendingEvent) {
    const auto many = static_cast<int>(CEnumFileMinor::kEntriesAtOnce);
    for (int i = 0; i < 2 * many; ++i) {
        disk.AddFolder(L"C:\\top\\" + std::to_wstring(i) + L"\\deep");
    }
    events.whenProcessed = [&] { folder.Clear(); };
    folder.EnumDisk(L"C:\\top");
    EXPECT_LT(folder.GetDirCount(), many + 2);
    EXPECT_FALSE(folder.GetSubDirCheck(folder.GetDirCount()));
    const std::wstring last = folder.GetDirName(folder.GetDirCount() - 1);
    EXPECT_EQ(last, std::to_wstring(2 * many - 1));
    EXPECT_TRUE(folder.GetSubDirCheck(folder.GetDirCount() - 1));
    EXPECT_EQ(folder.GetDirCount(), 0);
}

TEST_F(EnumFile, ItsReservedMemberChangesNothing) {
    disk.AddFolder(L"C:\\top\\sub\\deep");
    disk.AddFile(L"C:\\top\\a.txt");
    folder.FileAttribute(0xFF);
    folder.EnumDisk(L"C:\\top");
    disk.Forget();
    const int processed = events.processed;
    EXPECT_EQ(CEnumFileMinor::SearchDiskInfo(1, 2, 3, 4, 5), CEnumFileMinor::SearchDiskInfo(0, 0, 0, 0, 0));
    EXPECT_THAT(disk.questions, IsEmpty());
    EXPECT_THAT(disk.searches, IsEmpty());
    EXPECT_EQ(events.processed, processed);
    EXPECT_EQ(folder.FileAttribute(), 0xFFU);
    EXPECT_THAT(Folders(), ElementsAre(L"sub"));
    EXPECT_THAT(Files(), ElementsAre(L"a.txt"));
    EXPECT_TRUE(folder.GetSubDirCheck(0));
}

TEST_F(EnumFile, AFolderThatContainsItselfIsReadOneLevelAtATime) {
    disk.AddFile(L"C:\\top\\a.txt");
    disk.AddLink(L"C:\\top\\loop", L"C:\\top");
    folder.EnumDisk(L"C:\\top\\loop\\loop\\loop");
    EXPECT_THAT(Folders(), ElementsAre(L"loop"));
    EXPECT_THAT(Files(), ElementsAre(L"a.txt"));
    EXPECT_TRUE(folder.GetSubDirCheck(0));
    EXPECT_THAT(disk.searches,
                ElementsAre(L"C:\\top\\loop\\loop\\loop\\*.*", L"C:\\top\\loop\\loop\\loop\\loop\\*.*"));
}

} // namespace
