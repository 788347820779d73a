#include "CommandRig.h"
#include "exchange/SettingsFile.h"
#include "settings/StdModule.h"

namespace {

using testing::HasSubstr;

constexpr const wchar_t* kFile = L"C:\\new.qlb";

/// Import and restore, with one write after the other refused.
class RefusedWrites : public testing::TestWithParam<StoreKind> {
protected:
    /// Two Patterns and the current number, and a file with others.
    static void SetUpRig(CommandRig& rig) {
        CommandRig other(GetParam());
        other.PutPattern(1, "Home", 3);
        other.PutPattern(2, "Work", 3);
        other.PutPattern(3, "Away", 3);
        other.store.IniSetString(L"USER2", L"Btn1_AP1", L"other.exe", TestStore::kOwnFile);
        other.store.IniSetString(kOnScreenSection, L"FontSize", L"4", TestStore::kOwnFile);
        other.Qlb({L"export", kFile});
        rig.wholeFiles.Put(kFile, *other.wholeFiles.Content(kFile));
        rig.PutPattern(1, "Home", 2);
        rig.PutPattern(2, "Office", 2);
        rig.store.IniSetString(kProgramSection, L"CurrUser", L"2", TestStore::kOwnFile);
        rig.store.IniSetString(L"USER1", L"Btn5_Title5", L"only here", TestStore::kOwnFile);
        rig.ForgetOperations();
    }
    static CallFaults& FaultsOf(CommandRig& rig) {
        return rig.iniFile ? static_cast<CallFaults&>(rig.files) : rig.registry;
    }
    static std::size_t WritesOf(const CommandRig& rig) {
        return rig.iniFile ? rig.files.Writes().size() : rig.registry.Writes().size();
    }

    /// The ini file is read entry by entry, which takes its time here.
    static int Step() { return GetParam().iniFile ? 7 : 1; }

    /// What was there is there again after each refusal; `writes` is their number.
    static void RefuseEach(const std::vector<std::wstring>& command, int& writes) {
        CommandRig whole(GetParam());
        SetUpRig(whole);
        ASSERT_EQ(whole.Qlb(command), kExitDone) << ToUtf8(whole.console.error);
        writes = static_cast<int>(WritesOf(whole));
        for (int number = 1; number <= writes; number += Step()) {
            CommandRig rig(GetParam());
            SetUpRig(rig);
            const Settings before = rig.Stored().Read();
            FaultsOf(rig).failingWrite = number;
            ASSERT_EQ(rig.Qlb(command), kExitRefused) << number;
            ASSERT_EQ(rig.Stored().Read(), before) << number;
            EXPECT_THAT(ToUtf8(rig.console.error), HasSubstr("the store refused ["));
            EXPECT_THAT(ToUtf8(rig.console.error), HasSubstr("what was there before is there again"));
            EXPECT_THAT(rig.windows.Events(), testing::IsEmpty());
        }
        EXPECT_GT(writes, 10);
    }
    /// From then on nothing is taken, not even what puts back: the backup that is named has it.
    static void RefuseFrom(const std::vector<std::wstring>& command, int writes) {
        for (int number = 1; number <= writes; number += Step()) {
            CommandRig rig(GetParam());
            SetUpRig(rig);
            const Settings before = rig.Stored().Read();
            FaultsOf(rig).writesUntilDeath = number - 1;
            ASSERT_EQ(rig.Qlb(command), kExitRefused) << number;
            FaultsOf(rig).ForgetFaults();
            const bool changed = rig.Stored().Read() != before;
            EXPECT_THAT(ToUtf8(rig.console.error),
                        HasSubstr(changed ? "could not be put back; it is in C:\\Users" : "is there again"));
            ASSERT_EQ(rig.Qlb({L"restore", rig.wholeFiles.localApplicationData + L"\\QLBUtl\\Backups\\" +
                                               rig.BackupNames().front()}),
                      kExitDone);
            ASSERT_EQ(rig.Stored().Read(), before) << number;
        }
    }
};

TEST_P(RefusedWrites, OfARestorePutBackWhatWasThere) {
    int writes = 0;
    RefuseEach({L"restore", kFile}, writes);
    RefuseFrom({L"restore", kFile}, writes);
}

TEST_P(RefusedWrites, OfAnImportPutBackWhatWasThere) {
    int writes = 0;
    RefuseEach({L"import", kFile, L"--replace"}, writes);
    RefuseFrom({L"import", kFile, L"--replace"}, writes);
}

TEST_P(RefusedWrites, OfASwitchIsTold) {
    CommandRig rig(GetParam());
    SetUpRig(rig);
    FaultsOf(rig).failingWrite = 1;
    EXPECT_EQ(rig.Qlb({L"use", L"1"}), kExitRefused);
    EXPECT_EQ(rig.store.ReadCurrentPatternNumber(), 2);
}

/// A program that dies: the store is the old one, the new one, or the backup is there.
TEST_P(RefusedWrites, ADeathInAnyCallLeavesTheOldTheNewOrABackup) {
    CommandRig whole(GetParam());
    SetUpRig(whole);
    ASSERT_EQ(whole.Qlb({L"restore", kFile}), kExitDone);
    const int calls = static_cast<int>(whole.iniFile ? whole.files.Operations().size()
                                                     : whole.registry.Operations().size());
    const Settings after = whole.Stored().Read();
    const int step = whole.iniFile ? calls / 40 : 3;
    for (int call = 1; call <= calls; call += step) {
        CommandRig rig(GetParam());
        SetUpRig(rig);
        const Settings before = rig.Stored().Read();
        rig.ForgetOperations();
        FaultsOf(rig).killingOperation = call;
        EXPECT_THROW(rig.Qlb({L"restore", kFile}), KilledInCall);
        FaultsOf(rig).ForgetFaults();
        const Settings left = rig.Stored().Read();
        if (left == before || left == after) {
            continue;
        }
        ASSERT_EQ(rig.Qlb({L"restore"}), kExitDone) << call;
        ASSERT_EQ(rig.Stored().Read(), before) << call;
    }
}

INSTANTIATE_TEST_SUITE_P(Stores, RefusedWrites,
                         testing::Values(StoreKind{false, FakeAnsiText::kWestern},
                                         StoreKind{true, FakeAnsiText::kJapanese}),
                         KindName);

} // namespace
