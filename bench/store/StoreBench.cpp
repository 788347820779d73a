// Saving and switching Patterns in the registry, beside the bare calls that write and read the same values:
//
//   StoreBench.exe [/rounds:N]

#include "app/LauncherNotification.h"
#include "common/Comparison.h"
#include "common/FullPattern.h"
#include "common/ScratchKey.h"
#include "common/Statistics.h"
#include "dialogs/main/EnumFont.h"
#include "dialogs/main/MainSettings.h"
#include "platform/windows/WindowsPlatform.h"
#include "settings/RegIniFunc.h"
#include "store/RecordedRegistry.h"

#include <cstdio>

namespace {

constexpr int kButtons = 7;

class Bench {
public:
    Bench()
        : platform_(system_.Interfaces()), registry_(platform_.registry),
          recorded_(registry_, platform_.profileFiles, platform_.ansiText, kIniFile),
          store_(platform_.registry, platform_.profileFiles, platform_.ansiText, kIniFile),
          launcher_(platform_.windows), fonts_(L"Tahoma") {}

    void Save(Comparison& table, int patterns) {
        const auto save = [&](PatternStore& store) {
            for (int number = 1; number <= patterns; ++number) {
                store.SavePattern(number, pattern_);
            }
        };
        PatternStore recorded(recorded_, kButtons);
        PatternStore stored(store_, kButtons);
        registry_.Forget();
        save(recorded);
        table.Row(
            "save Patterns", patterns, [&] { return TimeOf([&] { return registry_.WriteBare(); }); },
            [&] {
                return TimeOf([&] {
                    save(stored);
                    return true;
                });
            });
    }

    void Switch(Comparison& table, bool saveOld) {
        store_.IniSetString(kProgramSection, L"NumUser", L"2", store_.OwnIniFile());
        MainSettings recorded(recorded_, launcher_, fonts_);
        MainSettings settings(store_, launcher_, fonts_);
        recorded.Load();
        settings.Load();
        registry_.Forget();
        int edits = 0;
        const auto switchTo = [&](MainSettings& dialog, int number) {
            if (saveOld) {
                dialog.SetButtonName(1, std::to_wstring(++edits));
            }
            dialog.SwitchPattern(number, [] { return SaveAnswer::Yes; });
        };
        int current = settings.CurrentPattern();
        switchTo(recorded, 3 - current);
        table.Row(
            saveOld ? "switch Patterns, saving the old one" : "switch Patterns", 0,
            [&] { return TimeOf([&] { return registry_.WriteBare() && registry_.ReadBare(); }); },
            [&] {
                current = 3 - current;
                return TimeOf([&] {
                    switchTo(settings, current);
                    return settings.Slot(1).NumAP == kMaxPrograms;
                });
            });
    }

    void Apply(Comparison& table) {
        MainSettings recorded(recorded_, launcher_, fonts_);
        MainSettings settings(store_, launcher_, fonts_);
        recorded.Load();
        settings.Load();
        registry_.Forget();
        recorded.Apply();
        table.Row(
            "Apply", 0, [&] { return TimeOf([&] { return registry_.WriteBare(); }); },
            [&] {
                return TimeOf([&] {
                    settings.Apply();
                    return true;
                });
            });
    }

private:
    template <class Work> static std::optional<double> TimeOf(Work work) {
        const double start = NowMilliseconds();
        const bool done = work();
        const double taken = NowMilliseconds() - start;
        return done ? std::optional(taken) : std::nullopt;
    }

    static constexpr const wchar_t* kIniFile = L"korvoqlb.ini";

    WindowsPlatform system_{kProductKey};
    Platform platform_;
    RecordedRegistry registry_;
    RegIniFunc recorded_;
    RegIniFunc store_;
    LauncherNotification launcher_;
    FontList fonts_;
    Pattern pattern_ = FullPattern(1);
};

} // namespace

int wmain(int count, wchar_t** arguments) {
    const ScratchUserKey scratch;
    if (!scratch.Works()) {
        std::printf("There is no key to work in.\n");
        return 1;
    }
    Comparison table(RoundsFrom(count, arguments, 50));
    Bench bench;
    bench.Save(table, 1);
    bench.Save(table, kMaxPatterns);
    bench.Apply(table);
    bench.Switch(table, false);
    bench.Switch(table, true);
    return table.Finish();
}
