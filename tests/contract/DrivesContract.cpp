#include "Rigs.h"
#include "browse/CSystemDrive.h"
#include "fakes/FakeDrives.h"
#include "platform/windows/WindowsDrives.h"

#include <windows.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <array>

namespace {

using testing::Contains;

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakeDrives drives;

    FakeRig() {
        drives.Add(L"a:", L"a:\\", kDriveRemovable);
        drives.Add(L"c: [SYSTEM]", L"c:\\", kDriveFixed);
        drives.Add(L"n:", L"n:\\", kDriveRemote);
    }
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";
    WindowsDrives drives;
};

template <class Rig> class DrivesContract : public testing::Test {
protected:
    Rig rig_;

    [[nodiscard]] std::vector<DriveRecord> Records() const {
        std::vector<DriveRecord> records;
        for (const std::wstring& entry : rig_.drives.Entries()) {
            records.push_back(ParseDriveEntry(entry));
        }
        return records;
    }
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(DrivesContract, Rigs, RigName);

TYPED_TEST(DrivesContract, EntriesAreLettersInOrderEachOnce) {
    const auto records = this->Records();
    ASSERT_FALSE(records.empty());
    for (std::size_t i = 0; i < records.size(); ++i) {
        const std::wstring& drive = records[i].drive;
        ASSERT_EQ(drive.size(), 2U);
        EXPECT_TRUE(drive[0] >= L'a' && drive[0] <= L'z');
        EXPECT_EQ(drive[1], L':');
        EXPECT_TRUE(i == 0 || records[i - 1].drive < drive);
    }
}

TYPED_TEST(DrivesContract, ALabelStandsInBracketsAfterABlank) {
    for (const std::wstring& entry : this->rig_.drives.Entries()) {
        const DriveRecord record = ParseDriveEntry(entry);
        EXPECT_EQ(entry, record.label.empty() ? record.drive : record.drive + L" [" + record.label + L"]");
    }
}

TYPED_TEST(DrivesContract, TheSystemDriveIsPresentAndFixed) {
    const auto records = this->Records();
    EXPECT_TRUE(std::any_of(records.begin(), records.end(),
                            [](const DriveRecord& record) { return record.drive == L"c:"; }));
    EXPECT_EQ(this->rig_.drives.Type(L"c:\\"), kDriveFixed);
    EXPECT_EQ(this->rig_.drives.Type(L"C:\\"), kDriveFixed);
}

TYPED_TEST(DrivesContract, WhatIsNoDriveHasNoTypeOfADrive) {
    constexpr std::uint32_t kNoRoot = 1;
    EXPECT_EQ(this->rig_.drives.Type(L"1:\\"), kNoRoot);
    EXPECT_EQ(this->rig_.drives.Type(L"c:\\no such folder\\"), kNoRoot);
}

TYPED_TEST(DrivesContract, TheLocalDrivesAreThoseOfThreeTypes) {
    CSystemDrive local;
    local.DriveBoxControl(this->rig_.drives);
    std::vector<std::wstring> kept;
    for (std::int32_t i = 0; i < local.LocalDriveCount(); ++i) {
        kept.push_back(local.GetLocalDrive(i));
    }
    EXPECT_THAT(kept, Contains(L"c:"));
    for (const DriveRecord& record : this->Records()) {
        const std::uint32_t type = this->rig_.drives.Type(record.drive + L'\\');
        const bool isLocal = type == kDriveRemovable || type == kDriveFixed || type == kDriveCdRom;
        EXPECT_EQ(std::count(kept.begin(), kept.end(), record.drive), isLocal ? 1 : 0);
    }
}

TYPED_TEST(DrivesContract, AskingAgainGivesTheSame) {
    EXPECT_EQ(this->rig_.drives.Entries(), this->rig_.drives.Entries());
}

TEST(WindowsDrivesTest, TheEntriesAreTheSystemsDrives) {
    DWORD listed = 0;
    for (const std::wstring& entry : WindowsDrives().Entries()) {
        listed |= 1U << (entry.at(0) - L'a');
    }
    EXPECT_EQ(listed, GetLogicalDrives());
}

TEST(WindowsDrivesTest, TheLabelsAreThoseOfTheVolumes) {
    const WindowsDrives drives;
    for (const std::wstring& entry : drives.Entries()) {
        const DriveRecord record = ParseDriveEntry(entry);
        const std::wstring root = record.drive + L'\\';
        std::array<wchar_t, MAX_PATH + 1> label{};
        if (drives.Type(root) == kDriveFixed &&
            GetVolumeInformationW(root.c_str(), label.data(), static_cast<DWORD>(label.size()), nullptr,
                                  nullptr, nullptr, nullptr, 0) != FALSE) {
            EXPECT_EQ(record.label, label.data());
        }
    }
}

TEST(WindowsDrivesTest, AThreadMayHaveTheSystemsBoxesAsBefore) {
    DWORD former = 0;
    ASSERT_NE(SetThreadErrorMode(0, &former), FALSE);
    const WindowsDrives drives;
    EXPECT_FALSE(drives.Entries().empty());
    EXPECT_EQ(GetThreadErrorMode(), 0U);
    EXPECT_NE(drives.Type(L"c:\\"), 0U);
    EXPECT_EQ(GetThreadErrorMode(), 0U);
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, nullptr);
    EXPECT_NE(drives.Type(L"c:\\"), 0U);
    EXPECT_EQ(GetThreadErrorMode(), DWORD{SEM_FAILCRITICALERRORS});
    SetThreadErrorMode(former, nullptr);
}

} // namespace
