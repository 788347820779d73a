#include "TestStore.h"
#include "app/LauncherNotification.h"
#include "dialogs/main/EnumFont.h"
#include "dialogs/main/MainSettings.h"
#include "fakes/FakeFonts.h"
#include "fakes/FakeWindows.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kButtons = 7;

std::string BackEndName(const testing::TestParamInfo<bool>& info) {
    return info.param ? "IniFile" : "Registry";
}

Pattern FullPattern(const std::wstring& word, int count) {
    Pattern pattern;
    pattern.UserName = word;
    for (int button = 1; button <= kButtons; ++button) {
        ButtonSlot& slot = pattern.Btn(button);
        slot.Name = word + std::to_wstring(button);
        slot.Exec = count % 2 == 0 ? L"S" : L"P";
        slot.NumAP = static_cast<std::int16_t>(count);
        for (int k = 1; k <= kMaxPrograms; ++k) {
            slot.Program(k).AP = word + L".exe";
            slot.Program(k).Param = L"/" + word;
            slot.Program(k).Title = word + L" program";
        }
    }
    return pattern;
}

constexpr std::int32_t kOldColor = 1;
constexpr std::int32_t kNewColor = 2;

OnScreenSettings OldScreen() {
    return {0, L"Arial", 1, kOldColor};
}
OnScreenSettings NewScreen() {
    return {1, L"Verdana", 2, kNewColor};
}

/// A dialog whose first and second Patterns are stored as "old", and whose user made everything "new".
struct EditedDialog : TestStore {
    explicit EditedDialog(bool iniFile) {
        store.IniFileExist = iniFile;
        FakeFonts installed;
        installed.Add(L"Arial");
        installed.Add(L"Verdana");
        fonts.EnumerateFonts(installed);
        windows.Add(L"KORVOQLBCLASS");

        // The maker's defaults become the edits: they are the one way to set every field at once.
        store.IniFileExist = false;
        Pattern edits = FullPattern(L"new", 3);
        PutDefaults(edits);
        store.IniFileExist = iniFile;

        Pattern stored = FullPattern(L"old", 2);
        PatternStore(store, kButtons).SavePattern(1, stored);
        PatternStore(store, kButtons).SavePattern(2, stored);
        SaveOnScreen(store, OldScreen());
        store.IniSetString(kProgramSection, L"NumUser", L"2", kOwnFile);
        settings.Load();
        settings.RestoreDefaults(MainPage::Desktop);
        settings.RestoreDefaults(MainPage::Notebook);
        settings.SetOnScreen(NewScreen());
        ForgetOperations();
    }

    void PutDefaults(const Pattern& pattern) {
        for (int button = 1; button <= kButtons; ++button) {
            const ButtonSlot& slot = pattern.Btn(button);
            const std::wstring number = std::to_wstring(button);
            const std::wstring subkey = L"Default\\Setting\\Set1\\AppKey" + number;
            const std::wstring prefix = L"Btn" + number + L"_";
            PutText(subkey, L"Execute", prefix + L"Exec", slot.Exec);
            PutText(subkey, L"DispTitle", prefix + L"Name", slot.Name);
            PutMachine(subkey, L"NumAP", slot.NumAP);
            PutMachine(L"Default\\USER1", prefix + L"NumAP", std::to_string(slot.NumAP).c_str());
            for (int k = 1; k <= kMaxPrograms; ++k) {
                const std::wstring program = L"AP" + std::to_wstring(k);
                PutText(subkey, program, prefix + program, slot.Program(k).AP + L"|" + slot.Program(k).Param);
            }
        }
    }

    void PutText(const std::wstring& subkey, const std::wstring& name, const std::wstring& iniName,
                 const std::wstring& text) {
        PutMachine(subkey, name, ansiText.Encode(text).c_str());
        PutMachine(L"Default\\USER1", iniName, ansiText.Encode(text).c_str());
    }

    void FailWrite(int number) {
        registry.failingWrite = number;
        files.failingWrite = number;
    }
    /// False when there were not that many writes.
    [[nodiscard]] bool WriteFailed() const {
        return (store.IniFileExist ? files.failingWrite : registry.failingWrite) == 0;
    }

    FontList fonts{L"Arial"};
    FakeWindows windows;
    LauncherNotification notification{windows};
    MainSettings settings{store, notification, fonts};
};

class RefusedWrite : public testing::TestWithParam<bool> {
public:
    /// Everything that is stored for the user, read back by a store of its own.
    struct Stored {
        Pattern first;
        Pattern second;
        OnScreenSettings screen;
        std::int32_t current = 0;
    };

    static Stored ReadBack(EditedDialog& dialog) {
        const PatternStore patterns(dialog.store, kButtons);
        return {patterns.LoadPattern(1, Pattern{}), patterns.LoadPattern(2, Pattern{}),
                LoadOnScreen(dialog.store, dialog.fonts, OnScreenSettings{}),
                dialog.store.ReadCurrentPatternNumber()};
    }

    /// The user edited all but the numbers, the Pattern's name and the titles.
    static bool IsEdited(const std::string& write) {
        return std::ranges::none_of(std::array{"CurrSetting", "CurrUser", "NumSetting", "NumUser", "SetName",
                                               "UserName", "ProgName", "_Title"},
                                    [&](const char* name) { return write.find(name) != std::string::npos; });
    }

    /// Number of fields that hold their old value; a field that holds neither is a failure.
    static int CountOld(const ButtonSlot& slot, const ButtonSlot& old, const ButtonSlot& edited) {
        int count = 0;
        const auto check = [&](const auto& value, const auto& oldValue, const auto& newValue) {
            EXPECT_TRUE(value == oldValue || value == newValue) << testing::PrintToString(value);
            count += value == oldValue && value != newValue ? 1 : 0;
        };
        check(slot.Name, old.Name, edited.Name);
        check(slot.Exec, old.Exec, edited.Exec);
        check(slot.NumAP, old.NumAP, edited.NumAP);
        for (int k = 1; k <= kMaxPrograms; ++k) {
            check(slot.Program(k).AP, old.Program(k).AP, edited.Program(k).AP);
            EXPECT_EQ(slot.Program(k).Param, L"/" + slot.Program(k).AP.substr(0, 3));
        }
        return count;
    }

    static int CountOld(const Pattern& pattern) {
        static const Pattern old = FullPattern(L"old", 2);
        static const Pattern edited = FullPattern(L"new", 3);
        int count = 0;
        for (int button = 1; button <= kButtons; ++button) {
            count += CountOld(pattern.Btn(button), old.Btn(button), edited.Btn(button));
        }
        return count;
    }

    static int CountOld(const OnScreenSettings& screen) {
        const OnScreenSettings old = OldScreen();
        const OnScreenSettings edited = NewScreen();
        EXPECT_TRUE(screen.FontName == old.FontName || screen.FontName == edited.FontName);
        return (screen.OnScreen == old.OnScreen ? 1 : 0) + (screen.FontName == old.FontName ? 1 : 0) +
               (screen.FontSize == old.FontSize ? 1 : 0) + (screen.Color == old.Color ? 1 : 0);
    }
};

TEST_P(RefusedWrite, LeavesThatOneValueOld_WhicheverWriteOfASaveItIs) {
    int number = 1;
    for (bool failed = true; failed; ++number) {
        SCOPED_TRACE(number);
        EditedDialog dialog(GetParam());
        dialog.FailWrite(number);
        dialog.settings.Apply();
        failed = dialog.WriteFailed();

        const std::string refused = failed ? dialog.Written().at(static_cast<std::size_t>(number - 1)) : "";
        dialog.FailWrite(0);
        const Stored stored = ReadBack(dialog);
        const bool edited = failed && IsEdited(refused);
        EXPECT_EQ(CountOld(stored.first) + CountOld(stored.screen), edited ? 1 : 0) << refused;
        EXPECT_EQ(CountOld(stored.second), kButtons * (3 + kMaxPrograms));
        EXPECT_EQ(dialog.windows.Events().size(), 1U);
    }
    // Two numbers, the name, 13 values of each button, 4 of the screen, and the run without a failure.
    EXPECT_EQ(number - 1, 2 + 1 + kButtons * 13 + 4 + 1);
}

TEST_P(RefusedWrite, LeavesThatOneValueOld_WhicheverWriteOfASwitchItIs) {
    int number = 1;
    for (bool failed = true; failed; ++number) {
        SCOPED_TRACE(number);
        EditedDialog dialog(GetParam());
        dialog.FailWrite(number);
        dialog.settings.SwitchPattern(2, [] { return SaveAnswer::Yes; });
        failed = dialog.WriteFailed();

        const std::string refused = failed ? dialog.Written().at(static_cast<std::size_t>(number - 1)) : "";
        dialog.FailWrite(0);
        const Stored stored = ReadBack(dialog);
        const bool current = refused.find("Curr") != std::string::npos;
        const bool edited = failed && IsEdited(refused);
        EXPECT_EQ(CountOld(stored.first), edited ? 1 : 0) << refused;
        EXPECT_EQ(CountOld(stored.second), kButtons * (3 + kMaxPrograms));
        EXPECT_EQ(stored.current, current ? 1 : 2);
        EXPECT_EQ(CountOld(stored.screen), 4);
        EXPECT_EQ(dialog.settings.CurrentPattern(), 2);
        EXPECT_EQ(dialog.windows.Events().size(), 1U);
    }
    EXPECT_EQ(number - 1, 1 + kButtons * 13 + 1 + 1);
}

TEST_P(RefusedWrite, ChangesNothingInTheStore_WhenEveryWriteIsRefused) {
    EditedDialog dialog(GetParam());
    dialog.registry.refusesWrites = true;
    dialog.files.refusesWrites = true;
    dialog.settings.Apply();
    dialog.settings.SwitchPattern(2, [] { return SaveAnswer::Yes; });
    const Stored stored = ReadBack(dialog);
    EXPECT_EQ(CountOld(stored.first), kButtons * (3 + kMaxPrograms));
    EXPECT_EQ(CountOld(stored.second), kButtons * (3 + kMaxPrograms));
    EXPECT_EQ(CountOld(stored.screen), 4);
    EXPECT_EQ(stored.current, 1);
    EXPECT_EQ(dialog.settings.CurrentPattern(), 2);
    EXPECT_EQ(dialog.windows.Events().size(), 2U);
}

TEST_P(RefusedWrite, IsTriedAgain_ByTheNextSave) {
    EditedDialog dialog(GetParam());
    dialog.FailWrite(4);
    dialog.settings.Apply();
    dialog.FailWrite(0);
    dialog.settings.Apply();
    const Stored stored = ReadBack(dialog);
    EXPECT_EQ(CountOld(stored.first), 0);
    EXPECT_EQ(CountOld(stored.screen), 0);
}

TEST_P(RefusedWrite, OfANumberLeavesTheOtherNumberWritten) {
    for (const int number : {1, 2}) {
        EditedDialog dialog(GetParam());
        dialog.settings.SwitchPattern(2, [] { return SaveAnswer::No; });
        const int count = static_cast<int>(dialog.settings.PatternNames().size());
        dialog.store.IniSetString(kProgramSection, L"CurrUser", L"7", TestStore::kOwnFile);
        dialog.store.IniSetString(kProgramSection, L"NumUser", L"9", TestStore::kOwnFile);
        dialog.FailWrite(number);
        EXPECT_TRUE(dialog.settings.Ok([] { return SaveAnswer::No; }));
        EXPECT_EQ(dialog.store.ReadCurrentPatternNumber(), number == 1 ? 7 : 2);
        EXPECT_EQ(dialog.store.ReadPatternCount(), number == 2 ? 9 : count);
    }
}

INSTANTIATE_TEST_SUITE_P(BackEnds, RefusedWrite, testing::Bool(), BackEndName);

class RefusedRead : public testing::TestWithParam<bool> {};

TEST_P(RefusedRead, GivesThatOneValueItsDefault_WhicheverReadItIs) {
    // The Pattern that the user stored is "old"; the maker's defaults are "new".
    const Pattern stored = FullPattern(L"old", 2);
    const Pattern defaults = FullPattern(L"new", 3);
    const auto isOneOf = [](const auto& value, const auto& a, const auto& b) {
        return value == a || value == b;
    };
    int number = 1;
    int takenInAll = 0;
    for (bool failed = true; failed; ++number) {
        SCOPED_TRACE(number);
        EditedDialog dialog(GetParam());
        int& failing = GetParam() ? dialog.files.failingOperation : dialog.registry.failingOperation;
        failing = number;
        dialog.settings.Load();
        failed = failing == 0;
        int taken = 0;
        for (int button = 1; button <= kButtons; ++button) {
            const ButtonSlot& slot = dialog.settings.Slot(button);
            const ButtonSlot& own = stored.Btn(button);
            const ButtonSlot& other = defaults.Btn(button);
            ASSERT_TRUE(isOneOf(slot.Name, own.Name, other.Name));
            ASSERT_TRUE(isOneOf(slot.Exec, own.Exec, other.Exec));
            ASSERT_TRUE(isOneOf(slot.NumAP, own.NumAP, other.NumAP));
            taken += (slot.Name != own.Name ? 1 : 0) + (slot.Exec != own.Exec ? 1 : 0) +
                     (slot.NumAP != own.NumAP ? 1 : 0);
            for (int k = 1; k <= kMaxPrograms; ++k) {
                ASSERT_TRUE(isOneOf(slot.Program(k).AP, own.Program(k).AP, other.Program(k).AP));
                ASSERT_EQ(slot.Program(k).Param, slot.Program(k).AP == own.Program(k).AP
                                                     ? own.Program(k).Param
                                                     : other.Program(k).Param);
                taken += slot.Program(k).AP != own.Program(k).AP ? 1 : 0;
            }
        }
        EXPECT_LE(taken, failed ? 1 : 0);
        takenInAll += taken;
        EXPECT_EQ(dialog.settings.CurrentPattern(), 1);
        EXPECT_FALSE(dialog.settings.AnythingChanged());
    }
    // Each value whose default is another one; titles have none.
    EXPECT_EQ(takenInAll, kButtons * (3 + kMaxPrograms));
    EXPECT_GT(number, kButtons * 13);
}

INSTANTIATE_TEST_SUITE_P(BackEnds, RefusedRead, testing::Bool(), BackEndName);

} // namespace
