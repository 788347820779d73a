#include "browse/CSystemDrive.h"

#include "fakes/FakeDrives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <ostream>

void PrintTo(const DriveRecord& record, std::ostream* stream) {
    *stream << testing::PrintToString(record.drive) << ' ' << testing::PrintToString(record.label);
}

namespace {

using testing::ElementsAre;

DriveRecord Drive(const wchar_t* drive, const wchar_t* label) {
    return {drive, label};
}

TEST(DriveEntry, IsSplitIntoDriveAndLabel) {
    EXPECT_EQ(ParseDriveEntry(L"c: [SYSTEM]"), Drive(L"c:", L"SYSTEM"));
}

TEST(DriveEntry, IsTheDriveAlone_WithoutALabel) {
    EXPECT_EQ(ParseDriveEntry(L"a:"), Drive(L"a:", L""));
    EXPECT_EQ(ParseDriveEntry(L"c: []"), Drive(L"c:", L""));
}

TEST(DriveEntry, IsKeptWhole_WithoutABracket) {
    EXPECT_EQ(ParseDriveEntry(L" a: "), Drive(L" a: ", L""));
    EXPECT_EQ(ParseDriveEntry(L"a: DATA]"), Drive(L"a: DATA]", L""));
    EXPECT_EQ(ParseDriveEntry(L""), Drive(L"", L""));
}

TEST(DriveEntry, LosesTheBlanksAroundTheDrive_NeverThoseInTheLabel) {
    EXPECT_EQ(ParseDriveEntry(L"  c:   [ MY DATA ]"), Drive(L"c:", L" MY DATA "));
    EXPECT_EQ(ParseDriveEntry(L"c:[DATA]"), Drive(L"c:", L"DATA"));
}

TEST(DriveEntry, HasALabelFromTheFirstOpeningToTheLastClosingBracket) {
    EXPECT_EQ(ParseDriveEntry(L"c: [A[B]C]"), Drive(L"c:", L"A[B]C"));
    EXPECT_EQ(ParseDriveEntry(L"c: [A] [B] tail"), Drive(L"c:", L"A] [B"));
}

TEST(DriveEntry, HasTheRestAsItsLabel_WhenNoBracketClosesIt) {
    EXPECT_EQ(ParseDriveEntry(L"c: [DATA"), Drive(L"c:", L"DATA"));
    EXPECT_EQ(ParseDriveEntry(L"]c: [DATA"), Drive(L"]c:", L"DATA"));
    EXPECT_EQ(ParseDriveEntry(L"c: ["), Drive(L"c:", L""));
    EXPECT_EQ(ParseDriveEntry(L"["), Drive(L"", L""));
}

class SystemDrive : public testing::Test {
public:
    [[nodiscard]] std::vector<DriveRecord> Records() const {
        std::vector<DriveRecord> records;
        records.reserve(static_cast<std::size_t>(system.LocalDriveCount()));
        for (std::int32_t i = 0; i < system.LocalDriveCount(); ++i) {
            records.push_back({system.GetLocalDrive(i), system.GetLocalDriveVolume(i)});
        }
        return records;
    }

    FakeDrives drives;
    CSystemDrive system;
};

TEST_F(SystemDrive, KeepsRemovableFixedAndCdRomDrivesOnly) {
    drives.Add(L"a:", L"a:\\", kDriveRemovable);
    drives.Add(L"c: [SYSTEM]", L"c:\\", kDriveFixed);
    drives.Add(L"d: [MUSIC]", L"d:\\", kDriveCdRom);
    drives.Add(L"n: [SERVER]", L"n:\\", kDriveRemote);
    drives.Add(L"r: [RAM]", L"r:\\", FakeDrives::kRamDisk);
    drives.Add(L"u:", L"u:\\", 0);
    drives.Add(L"x:", L"x:\\", FakeDrives::kNoRoot);
    drives.Add(L"y:", L"y:\\", 7);
    system.DriveBoxControl(drives);
    EXPECT_THAT(Records(), ElementsAre(Drive(L"a:", L""), Drive(L"c:", L"SYSTEM"), Drive(L"d:", L"MUSIC")));
}

TEST_F(SystemDrive, AsksForTheTypeOfTheDrivesRoot_OnceEach) {
    drives.Add(L"c: [SYSTEM]", L"c:\\", kDriveFixed);
    drives.Add(L"n: [SERVER]", L"n:\\", kDriveRemote);
    system.DriveBoxControl(drives);
    EXPECT_THAT(drives.questions, ElementsAre(L"c:\\", L"n:\\"));
}

TEST_F(SystemDrive, KeepsTheOrderOfTheList) {
    drives.Add(L"d:", L"d:\\", kDriveCdRom);
    drives.Add(L"c:", L"c:\\", kDriveFixed);
    system.DriveBoxControl(drives);
    EXPECT_THAT(Records(), ElementsAre(Drive(L"d:", L""), Drive(L"c:", L"")));
}

TEST_F(SystemDrive, IsEmptyOutsideItsList) {
    drives.Add(L"c: [SYSTEM]", L"c:\\", kDriveFixed);
    system.DriveBoxControl(drives);
    ASSERT_EQ(system.LocalDriveCount(), 1);
    for (const std::int32_t index :
         {-1, 1, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(system.GetLocalDrive(index), L"") << index;
        EXPECT_EQ(system.GetLocalDriveVolume(index), L"") << index;
    }
}

TEST_F(SystemDrive, HasNoDrives_BeforeItReadsThemAndWhenThereAreNone) {
    EXPECT_EQ(system.LocalDriveCount(), 0);
    system.DriveBoxControl(drives);
    EXPECT_EQ(system.LocalDriveCount(), 0);
    EXPECT_EQ(system.GetLocalDrive(0), L"");
}

TEST_F(SystemDrive, ReadsTheDrivesAnew_EachTimeItIsGivenTheList) {
    drives.Add(L"c:", L"c:\\", kDriveFixed);
    system.DriveBoxControl(drives);
    FakeDrives changed;
    changed.Add(L"e: [STICK]", L"e:\\", kDriveRemovable);
    system.DriveBoxControl(changed);
    EXPECT_THAT(Records(), ElementsAre(Drive(L"e:", L"STICK")));
}

} // namespace
