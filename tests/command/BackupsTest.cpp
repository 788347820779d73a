#include "exchange/Backups.h"
#include "CommandRig.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BackupsTest : public testing::Test, public CommandRig {
protected:
    Backups::Taken Take() {
        const StoredSettings stored = Stored();
        return Backups(stored, wholeFiles, clock).TakeIfChanged();
    }
    /// Another setting each time.
    Backups::Taken TakeChanged() {
        PutUser(L"OnScreen", L"Color", ++color_);
        return Take();
    }
    std::vector<std::wstring> List() {
        const StoredSettings stored = Stored();
        return Backups(stored, wholeFiles, clock).List();
    }
    const std::wstring kFolder = wholeFiles.localApplicationData + L"\\QLBUtl\\Backups\\";

private:
    std::int32_t color_ = 0;
};

TEST_F(BackupsTest, AreNamedByDateAndTime) {
    const auto taken = Take();
    EXPECT_TRUE(taken.isNew);
    EXPECT_EQ(taken.path, kFolder + L"2026-11-22 031502.qlb");
    EXPECT_TRUE(wholeFiles.Content(taken.path));
}

TEST_F(BackupsTest, AreTakenOnlyWhenSomethingDiffersFromTheNewest) {
    const auto first = TakeChanged();
    clock.now.second = 40;
    const auto again = Take();
    EXPECT_FALSE(again.isNew);
    EXPECT_EQ(again.path, first.path);
    EXPECT_TRUE(TakeChanged().isNew);
    EXPECT_EQ(BackupNames().size(), 2U);
}

TEST_F(BackupsTest, OfOneSecondHaveDifferentNames) {
    TakeChanged();
    TakeChanged();
    TakeChanged();
    EXPECT_THAT(List(),
                ElementsAre(kFolder + L"2026-11-22 031502-03.qlb", kFolder + L"2026-11-22 031502-02.qlb",
                            kFolder + L"2026-11-22 031502.qlb"));
}

TEST_F(BackupsTest, TakenAfterTheClockWasSetBackAreTheNewestAllTheSame) {
    TakeChanged();
    clock.now.year = 2020;
    const auto later = TakeChanged();
    EXPECT_EQ(List().front(), later.path);
}

TEST_F(BackupsTest, KeepTheNewestFiftyAndTheNewestOfEachOfTheLastTwelveMonths) {
    // Two a month for two years, then sixty within the last hour.
    for (int month = 0; month < 24; ++month) {
        for (const int day : {5, 20}) {
            clock.now = {2024 + (month + 11) / 12, (month + 11) % 12 + 1, day, 12, 0, 0};
            TakeChanged();
        }
    }
    for (int minute = 0; minute < 60; ++minute) {
        clock.now = {2026, 11, 22, 3, minute, 0};
        TakeChanged();
    }
    const std::vector<std::wstring> list = List();
    ASSERT_EQ(list.size(), 50U + 11U);
    EXPECT_EQ(list.front(), kFolder + L"2026-11-22 035900.qlb");
    EXPECT_EQ(list[49], kFolder + L"2026-11-22 031000.qlb");
    EXPECT_EQ(list[50], kFolder + L"2026-10-20 120000.qlb");
    EXPECT_EQ(list.back(), kFolder + L"2025-12-20 120000.qlb");
}

TEST_F(BackupsTest, LeaveOtherFilesOfTheirFolderAlone) {
    for (const wchar_t* const name :
         {L"mine.qlb", L"2026-11-22.qlb", L"2026-11-22 031502.txt", L"2026-11-22 031502-1.qlb"}) {
        wholeFiles.Put(kFolder + name, "theirs");
    }
    for (int i = 0; i < 60; ++i) {
        clock.now = {2026, 11, 22, 4, i, 0};
        TakeChanged();
    }
    EXPECT_EQ(List().size(), 50U);
    EXPECT_EQ(BackupNames().size(), 54U);
}

TEST_F(BackupsTest, ThatCantBeWrittenAreNone) {
    wholeFiles.refusesWrites = true;
    EXPECT_EQ(Take().path, L"");
    wholeFiles.refusesWrites = false;
    wholeFiles.localApplicationData.clear();
    EXPECT_EQ(Take().path, L"");
    EXPECT_THAT(List(), IsEmpty());
}

TEST_F(BackupsTest, WithoutOneNothingIsRestored) {
    PutPattern(1, "Home", 1);
    wholeFiles.Put(L"C:\\empty.qlb", "; QLBUtl settings, format 1\n[END]\n");
    wholeFiles.refusesWrites = true;
    EXPECT_EQ(Qlb({L"restore", L"C:\\empty.qlb"}), kExitFile);
    EXPECT_THAT(Written(), IsEmpty());
    wholeFiles.refusesWrites = false;
    EXPECT_EQ(Qlb({L"restore", L"C:\\empty.qlb"}), kExitDone);
    EXPECT_THAT(Stored().Read(), IsEmpty());
}

} // namespace
