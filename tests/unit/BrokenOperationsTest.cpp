#include "BrokenStore.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <set>

namespace {

/// The logic as the user has left it when the operation begins. Can be copied back without a call to the store.
struct Running {
    std::optional<MainSettings> dialog; ///< with everything edited
    std::optional<PatternList> list;
};

/// One of the program's operations that write.
struct WritingOperation {
    const char* name;
    bool ofManager; ///< of the pattern manager, else of the dialog
    int current;    ///< number of the current Pattern
    std::function<void(Running&, const BrokenStore&)> run;
    std::set<int> patterns; ///< those that it may change
};

const std::vector<WritingOperation>& Operations() {
    static const std::vector<WritingOperation> operations{
        {"Apply",
         false,
         2,
         [](Running& program, const BrokenStore& /*store*/) {
             program.dialog->WritePatternNumbers();
             program.dialog->Save();
         },
         {2}},
        {"SwitchAndSave",
         false,
         2,
         [](Running& program, const BrokenStore& /*store*/) { program.dialog->SwitchPattern(3, true); },
         {2}},
        {"SwitchAlone",
         false,
         2,
         [](Running& program, const BrokenStore& /*store*/) { program.dialog->SwitchPattern(3, false); },
         {}},
        {"WizardFromTheDialog",
         false,
         2,
         [](Running& program, const BrokenStore& store) {
             program.dialog->SaveButton(4, store.EditedSlot());
         },
         {2}},
        {"WizardAlone",
         false,
         4,
         [](Running& program, const BrokenStore& store) {
             program.dialog->SaveButton(program.dialog->StorageSlot(2), store.EditedSlot());
         },
         {4}},
        {"Add",
         true,
         2,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Add(L"New"); },
         {5}},
        {"Copy",
         true,
         2,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Copy(2, L"New"); },
         {5}},
        {"Rename",
         true,
         2,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Rename(2, L"New"); },
         {3}},
        {"DeleteBeforeTheCurrent",
         true,
         3,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Delete(0); },
         {1, 2, 3, 4}},
        {"DeleteAfterTheCurrent",
         true,
         1,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Delete(1); },
         {2, 3, 4}},
        {"DeleteTheLast",
         true,
         1,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Delete(3); },
         {4}},
        {"DeleteWithTheLastAsCurrent",
         true,
         4,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Delete(2); },
         {3, 4}}};
    return operations;
}

class BrokenOperation : public testing::TestWithParam<std::tuple<bool, std::size_t>> {
public:
    [[nodiscard]] static bool IsIniFile() { return std::get<0>(GetParam()); }
    [[nodiscard]] static const WritingOperation& Operation() {
        return Operations().at(std::get<1>(GetParam()));
    }
    [[nodiscard]] static int Buttons() {
        return Operation().ofManager ? BrokenStore::kListButtons : BrokenStore::kDialogButtons;
    }

    BrokenOperation() {
        Running whole = Begin(after);
        after.ForgetOperations();
        Operation().run(whole, after);
        // Looking at what is stored will count as calls too.
        registryCalls = after.Calls(false);
        fileCalls = after.Calls(true);
    }

    static Running Begin(BrokenStore& fresh) {
        Running program;
        if (Operation().ofManager) {
            program.list.emplace(fresh.store, *fresh.patterns, fresh.defaults).Load();
        } else {
            program.dialog.emplace(fresh.store, fresh.notification, fresh.fonts).Load();
            fresh.EditEverything(*program.dialog);
        }
        return program;
    }

    /// Runs the operation once for each call that can go wrong and once without, and looks at what is left.
    void BreakEachCall(Fault fault) {
        for (const bool ofFiles : {false, true}) {
            const int calls = ofFiles ? fileCalls : registryCalls;
            for (int number = 1; number <= calls + 1 && !HasFailure(); ++number) {
                SCOPED_TRACE((ofFiles ? "call of the file " : "call of the registry ") +
                             std::to_string(number));
                store.TakeContentsOf(before);
                Running program = begun;
                store.Arm(fault, ofFiles, number);
                const bool died = !Run(program);
                store.Disarm();
                EXPECT_EQ(died, fault == Fault::Death && number <= calls);
                EXPECT_EQ(store.windows.Events().size(), Operation().ofManager || died ? 0U : 1U);

                if (fault == Fault::Once || number == 1) {
                    expected.TakeContentsOf(before);
                    expected.ReplayAll(after, !ofFiles);
                }
                if (fault == Fault::Once) {
                    expected.ReplayAll(after, ofFiles, number);
                } else if (number > 1) {
                    expected.Replay(after, ofFiles, number - 1);
                }
                EXPECT_TRUE(store.SameContents(expected));
                ExpectUsableNumbers();
                if (number % 7 == 1) {
                    ExpectUsableByTheNextStart();
                }
            }
        }
    }

    bool Run(Running& program) const {
        try {
            Operation().run(program, store);
            return true;
        } catch (const KilledInCall&) {
            return false;
        }
    }

    /// Each number is the old or the new one, and only a Pattern that comes or goes can lack its section.
    void ExpectUsableNumbers() const {
        const int count = store.Number(L"NumUser");
        EXPECT_TRUE(count == before.Number(L"NumUser") || count == after.Number(L"NumUser"));
        const int current = store.Number(L"CurrUser");
        EXPECT_TRUE(current == before.Number(L"CurrUser") || current == after.Number(L"CurrUser"));
        const bool sameCount = before.Number(L"NumUser") == after.Number(L"NumUser");
        const int last = std::max(before.Number(L"NumUser"), after.Number(L"NumUser"));
        for (int pattern = 1; pattern <= count; ++pattern) {
            EXPECT_TRUE(store.HasSection(pattern) || (!sameCount && pattern == last)) << pattern;
        }
    }

    /// What the next start makes of the store.
    void ExpectUsableByTheNextStart() {
        MainSettings next(store.store, store.notification, store.fonts);
        next.Load();
        EXPECT_EQ(next.CurrentPattern(), store.Number(L"CurrUser"));
        EXPECT_EQ(next.PatternNames().size(), static_cast<std::size_t>(store.Number(L"NumUser")));
        EXPECT_FALSE(next.AnythingChanged());
        PatternList list(store.store, *store.patterns, store.defaults);
        list.Load();
        EXPECT_EQ(list.Names(), next.PatternNames());
    }

    BrokenStore before{IsIniFile(), Operation().current, Buttons()};
    BrokenStore after{IsIniFile(), Operation().current, Buttons()}; ///< where all went well
    BrokenStore expected{IsIniFile(), Operation().current, Buttons()};
    BrokenStore store{IsIniFile(), Operation().current, Buttons()};
    Running begun = Begin(store);
    int registryCalls = 0;
    int fileCalls = 0;
};

TEST_P(BrokenOperation, ChangesNoOtherPattern_WhenNothingGoesWrong) {
    EXPECT_FALSE(before.SameContents(after));
    for (int pattern = 1; pattern <= BrokenStore::kPatterns; ++pattern) {
        if (!Operation().patterns.contains(pattern)) {
            EXPECT_EQ(after.Stored(pattern), before.Stored(pattern)) << pattern;
        }
    }
    EXPECT_EQ(after.UserDword(L"OnScreen", L"Time"), 5);
    EXPECT_EQ(after.Line(L"Other", L"Unknown"), "theirs");
}

// The values are those of the whole operation without the calls that went wrong: each is the old or the new one.

TEST_P(BrokenOperation, LeavesOneValueOld_WhicheverCallFails) {
    BreakEachCall(Fault::Once);
}

TEST_P(BrokenOperation, LeavesTheLaterValuesOld_WhenNothingSucceedsAnyMore) {
    BreakEachCall(Fault::FromThen);
}

TEST_P(BrokenOperation, LeavesTheLaterValuesOld_WhereverTheProcessIsKilled) {
    BreakEachCall(Fault::Death);
}

std::string CaseName(const testing::TestParamInfo<std::tuple<bool, std::size_t>>& each) {
    return std::string(Operations().at(std::get<1>(each.param)).name) +
           (std::get<0>(each.param) ? "InTheFile" : "InTheRegistry");
}

INSTANTIATE_TEST_SUITE_P(Every, BrokenOperation,
                         testing::Combine(testing::Bool(),
                                          testing::Range<std::size_t>(0, Operations().size())),
                         CaseName);

class BrokenOff : public testing::TestWithParam<bool> {
public:
    struct Rest {
        BrokenStore& store;
        int writes; ///< that were taken
        bool done;
    };

    /// Kills the pattern manager's operation in each of its calls in turn, and then lets it finish.
    static void KillInEachCall(int current, const std::function<void(PatternList&)>& run,
                               const std::function<void(const Rest&)>& check) {
        const BrokenStore before(GetParam(), current, BrokenStore::kListButtons);
        BrokenStore store(GetParam(), current, BrokenStore::kListButtons);
        PatternList begun(store.store, *store.patterns, store.defaults);
        begun.Load();
        bool done = false;
        for (int number = 1; !done && !HasFailure(); ++number) {
            SCOPED_TRACE("call " + std::to_string(number));
            store.TakeContentsOf(before);
            PatternList list = begun;
            store.Arm(Fault::Death, GetParam(), number);
            try {
                run(list);
                done = true;
            } catch (const KilledInCall&) {
                // Nothing happens any more.
            }
            store.Disarm();
            check({store, number - 1, done});
            ASSERT_LT(number, 1000);
        }
    }

    /// Whether a Pattern can be read in full under one of the numbers that count.
    static bool IsWhole(const BrokenStore& store, int pattern) {
        const Pattern wanted = store.FullPattern(BrokenStore::Word(pattern));
        for (int number = 1; number <= store.Number(L"NumUser"); ++number) {
            if (store.Stored(number) == wanted) {
                return true;
            }
        }
        return false;
    }
};

// The last section goes first and the others move up behind it: from then on the last Pattern is nowhere in full,
// until the last write has stored it in its new place. Every other one is always in full in one of two places.
TEST_P(BrokenOff, ADeletionLosesTheLastPatternAtMost_UntilItIsStoredInItsNewPlace) {
    constexpr int kLast = BrokenStore::kPatterns;
    for (int deleted = 1; deleted <= kLast; ++deleted) {
        SCOPED_TRACE("Pattern " + std::to_string(deleted));
        KillInEachCall(
            deleted == 1 ? 2 : 1, [&](PatternList& list) { list.Delete(deleted - 1); },
            [&](const Rest& rest) {
                for (int pattern = 1; pattern < kLast; ++pattern) {
                    EXPECT_TRUE(pattern == deleted || IsWhole(rest.store, pattern)) << pattern;
                }
                if (deleted != kLast) {
                    const bool underWay = rest.writes > 0 && !rest.done;
                    EXPECT_NE(IsWhole(rest.store, kLast), underWay);
                }
            });
    }
}

// The current Pattern's number goes down before the Patterns move up.
TEST_P(BrokenOff, ADeletionShowsTheCurrentPatternOrTheOneBefore) {
    KillInEachCall(
        3, [](PatternList& list) { list.Delete(0); },
        [](const Rest& rest) {
            const int current = rest.store.Number(L"CurrUser");
            EXPECT_TRUE(current == 2 || (current == 3 && rest.writes <= 1)) << current;
            EXPECT_LE(current, rest.store.Number(L"NumUser"));
            const std::wstring name = rest.store.Stored(current).UserName;
            EXPECT_TRUE(name == BrokenStore::Word(3) || (name == BrokenStore::Word(2) && !rest.done))
                << testing::PrintToString(name);
        });
}

// The count goes up before the new Pattern is stored.
TEST_P(BrokenOff, AnAdditionTakesWhatIsMissingOfTheNewPatternFromTheDefaults) {
    for (const bool copy : {false, true}) {
        KillInEachCall(
            2, [&](PatternList& list) { copy ? list.Copy(0, L"New") : list.Add(L"New"); },
            [&](const Rest& rest) {
                constexpr int kOld = BrokenStore::kPatterns;
                EXPECT_EQ(rest.store.Number(L"NumUser"), kOld + (rest.writes > 0 ? 1 : 0));
                for (int pattern = 1; pattern <= kOld; ++pattern) {
                    EXPECT_EQ(rest.store.Stored(pattern), rest.store.FullPattern(BrokenStore::Word(pattern)));
                }
                PatternList next(rest.store.store, *rest.store.patterns, rest.store.defaults);
                next.Load();
                ASSERT_EQ(next.Count(), kOld + (rest.writes > 0 ? 1 : 0));
                if (rest.writes > 0) {
                    EXPECT_EQ(next.Name(kOld), rest.writes > 1 ? L"New" : L"Standard");
                }
            });
    }
}

TEST_P(BrokenOff, ASaveIsCompletedByTheNextOne) {
    const BrokenStore before(GetParam(), 2, BrokenStore::kDialogButtons);
    BrokenStore whole(GetParam(), 2, BrokenStore::kDialogButtons);
    BrokenStore store(GetParam(), 2, BrokenStore::kDialogButtons);
    const auto edited = [](BrokenStore& program) {
        MainSettings dialog(program.store, program.notification, program.fonts);
        dialog.Load();
        program.EditEverything(dialog);
        program.ForgetOperations();
        return dialog;
    };
    edited(whole).Save();
    const MainSettings begun = edited(store);
    for (const Fault fault : {Fault::Once, Fault::FromThen}) {
        int incomplete = 0;
        for (int number = 1; number <= whole.Calls(GetParam()); number += 3) {
            store.TakeContentsOf(before);
            MainSettings dialog = begun;
            store.Arm(fault, GetParam(), number);
            dialog.Save();
            store.Disarm();
            incomplete += store.SameContents(whole) ? 0 : 1;
            dialog.Save();
            EXPECT_TRUE(store.SameContents(whole)) << number;
            EXPECT_EQ(store.windows.Events().size(), 2U);
        }
        EXPECT_GT(incomplete, BrokenStore::kDialogButtons);
    }
}

INSTANTIATE_TEST_SUITE_P(BackEnds, BrokenOff, testing::Bool(),
                         [](const auto& backEnd) { return backEnd.param ? "IniFile" : "Registry"; });

// Where the maker moved a button to is asked for when the settings are read, and not once more by each save.
TEST(MovedButtonsOfABrokenStore, StayWhereTheyWereReadFrom) {
    BrokenStore store(false, 2, BrokenStore::kDialogButtons);
    MainSettings dialog(store.store, store.notification, store.fonts);
    dialog.Load();
    const BrokenStore before(false, 2, BrokenStore::kDialogButtons);
    store.registry.refusesReads = true;
    dialog.WritePatternNumbers();
    dialog.Save();
    store.Disarm();
    EXPECT_EQ(store.Stored(2), before.Stored(2));
}

} // namespace
