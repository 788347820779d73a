#pragma once

#include "TestStore.h"
#include "app/LauncherNotification.h"
#include "dialogs/main/EnumFont.h"
#include "dialogs/main/MainSettings.h"
#include "dialogs/patterns/PatternList.h"
#include "fakes/FakeFonts.h"
#include "fakes/FakeWindows.h"

#include <set>

/// How one call of the store goes wrong.
enum class Fault {
    Once,     ///< that call fails and changes nothing; the others succeed
    FromThen, ///< that call and all later ones fail
    Death     ///< the process ends in that call
};

/// A keyboard with three Patterns of the user's, whose values all differ. Between the values lie some that the
/// program does not know.
struct BrokenStore : TestStore {
    static constexpr int kPatterns = 3;
    static constexpr int kDialogButtons = 6; ///< the fewest that a keyboard can have
    static constexpr const wchar_t* kEdited = L"by hand";
    static constexpr int kListButtons = 2; ///< enough where the pattern manager writes all of them again

    BrokenStore(bool iniFile, int current, int buttons);
    /// With nothing in it.
    explicit BrokenStore(bool iniFile);

    /// A Pattern with that name, and that word in every value.
    [[nodiscard]] Pattern FullPattern(const std::wstring& word) const;
    [[nodiscard]] static std::wstring Word(int pattern);

    /// Changes every value that the dialog can change, the on-screen settings too.
    void EditEverything(MainSettings& dialog) const;
    static void EditTheScreen(MainSettings& dialog) { dialog.SetOnScreen(EditedScreen()); }
    [[nodiscard]] static OnScreenSettings StoredScreen() { return {0, L"Arial", 1, 77}; }
    [[nodiscard]] static OnScreenSettings EditedScreen() { return {1, L"Verdana", 2, 99}; }
    [[nodiscard]] ButtonSlot EditedSlot() const;

    /// Number of calls of the back end since the last ForgetOperations.
    [[nodiscard]] int Calls() const;
    [[nodiscard]] int CallsOfTheOther() const;
    /// From now on no call is remembered, which is faster.
    void RememberNoCalls() { registry.remembersCalls = files.remembersCalls = false; }
    /// Call `number` of the back end from now on goes wrong.
    void Arm(Fault fault, int number);
    /// No write of this key is taken any more.
    void RefuseEach(const wchar_t* key);
    void RefuseWrites();
    /// Write `number` from now on, and all later ones.
    void RefuseWritesFrom(int number);
    void Disarm();

    [[nodiscard]] bool SameContents(const BrokenStore& other) const {
        return registry.SameValues(other.registry) && files.SameLines(other.files);
    }
    void TakeContentsOf(const BrokenStore& other);
    /// Where the two have another value, or one of them none.
    [[nodiscard]] std::set<std::wstring> Differences(const BrokenStore& other) const;

    [[nodiscard]] Pattern Stored(int pattern) const;
    [[nodiscard]] bool HasSection(int pattern) const;
    [[nodiscard]] int Number(const wchar_t* key) const;

    int buttons;
    std::optional<PatternStore> patterns;
    Pattern defaults;
    FakeFonts installed;
    FontList fonts{L"Arial"};
    FakeWindows windows;
    LauncherNotification notification{windows};

private:
    void PutDefaults();
};

/// The calls that an operation made to its back end, numbered from 1.
class RecordedCalls {
public:
    explicit RecordedCalls(const BrokenStore& store)
        : ofFiles_(store.store.IniFileExist), registry_(store.registry.Operations()),
          files_(store.files.Operations()) {}

    [[nodiscard]] int Count() const { return static_cast<int>(ofFiles_ ? files_.size() : registry_.size()); }
    [[nodiscard]] bool IsRead(int number) const;
    [[nodiscard]] std::wstring PlaceOf(int number) const;
    /// Does to the contents once more what the call did.
    void Replay(int number, BrokenStore& to) const;
    /// Makes the contents there what they were before.
    void Undo(int number, BrokenStore& to, const BrokenStore& before) const;

private:
    [[nodiscard]] static std::size_t Index(int number) { return static_cast<std::size_t>(number) - 1; }

    bool ofFiles_;
    std::vector<FakeRegistry::Operation> registry_;
    std::vector<FakeProfileFiles::Operation> files_;
};
