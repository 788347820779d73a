#pragma once

#include "TestStore.h"
#include "app/LauncherNotification.h"
#include "dialogs/main/EnumFont.h"
#include "dialogs/main/MainSettings.h"
#include "dialogs/patterns/PatternList.h"
#include "fakes/FakeFonts.h"
#include "fakes/FakeWindows.h"

/// How one call of the store goes wrong.
enum class Fault {
    Once,     ///< that call fails and changes nothing; the others succeed
    FromThen, ///< that call and all later ones fail
    Death     ///< the process ends in that call
};

/// A keyboard with four Patterns of the user's, whose values all differ. Between the values lie some that the
/// program does not know.
struct BrokenStore : TestStore {
    static constexpr int kPatterns = 4;
    static constexpr int kDialogButtons = 6; ///< the fewest that a keyboard can have
    static constexpr int kListButtons = 2;   ///< enough where the pattern manager writes all of them again

    BrokenStore(bool iniFile, int current, int buttons);

    /// A Pattern with that name, and that word in every value.
    [[nodiscard]] Pattern FullPattern(const std::wstring& word) const;
    [[nodiscard]] static std::wstring Word(int pattern);

    /// Changes every value that the dialog can change, the on-screen settings too.
    void EditEverything(MainSettings& dialog) const;
    [[nodiscard]] ButtonSlot EditedSlot() const;

    /// Number of calls since the last ForgetOperations; `ofFiles` counts those of the ini file.
    [[nodiscard]] int Calls(bool ofFiles) const;
    /// Call `number` from now on goes wrong. Calls of the registry and of the ini file are counted apart.
    void Arm(Fault fault, bool ofFiles, int number);
    void Disarm();

    [[nodiscard]] bool SameContents(const BrokenStore& other) const {
        return registry.SameValues(other.registry) && files.SameLines(other.files);
    }
    void TakeContentsOf(const BrokenStore& other);
    /// Does once more what a recorded call did to the contents.
    void Replay(const BrokenStore& recorded, bool ofFiles, int number);
    void ReplayAll(const BrokenStore& recorded, bool ofFiles, int butFor = 0);

    [[nodiscard]] Pattern Stored(int pattern) const;
    [[nodiscard]] bool HasSection(int pattern) const;
    [[nodiscard]] int Number(const wchar_t* key) const;

    int buttons;
    std::optional<PatternStore> patterns;
    Pattern defaults;
    FontList fonts{L"Arial"};
    FakeWindows windows;
    LauncherNotification notification{windows};

private:
    void PutDefaults();
};
