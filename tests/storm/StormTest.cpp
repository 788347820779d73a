#include "Actor.h"
#include "StormUse.h"
#include "driver/Message.h"
#include "driver/Scaling.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <optional>

namespace {

constexpr int kRounds = 2;
constexpr int kSeed = 1;
constexpr int kActions = 25;
/// The tips' window is made for the first tip, and the last form's empty frame stays.
constexpr std::size_t kMoreWindows = 2;
/// What the system keeps for later: menus' and lists' windows, brushes, drawn fonts, freed memory.
constexpr std::size_t kMoreObjects = 40;
constexpr std::size_t kMoreHandles = 10;
constexpr std::size_t kMoreBytes = 4 << 20;

constexpr UiDriver::Milliseconds kLeaving{3000};

std::size_t More(std::size_t now, std::size_t before) {
    return now > before ? now - before : 0;
}

auto Ms(Watch::Clock::duration duration) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(duration).count();
}

/// Of all rounds.
struct Totals {
    int rounds = 0;
    int ended = 0; ///< by their user
    std::map<std::string, int> kinds;
    Watch::Clock::duration answer{};
    Watch::Clock::duration doubt{};
    Figures more;

    void Add(const Journal& journal) {
        ++rounds;
        for (const auto& [kind, count] : journal.Kinds()) {
            kinds[kind] += count;
        }
    }
    void Add(const Watch& watch) {
        answer = std::max(answer, watch.LongestAnswer());
        doubt = std::max(doubt, watch.LongestDoubt());
    }
    void Add(const Figures& now, const Figures& start) {
        more.windows = std::max(more.windows, More(now.windows, start.windows));
        more.gdiObjects = std::max(more.gdiObjects, More(now.gdiObjects, start.gdiObjects));
        more.kernelHandles = std::max(more.kernelHandles, More(now.kernelHandles, start.kernelHandles));
        more.privateBytes = std::max(more.privateBytes, More(now.privateBytes, start.privateBytes));
    }
    void Print() const {
        int actions = 0;
        for (const auto& [kind, count] : kinds) {
            std::cout << "  " << count << " x " << kind << '\n';
            actions += count;
        }
        std::cout << rounds << " rounds (" << ended << " ended by their user), " << actions
                  << " actions; longest answer " << Ms(answer) << " ms, longest with two dialogs enabled "
                  << Ms(doubt) << " ms; at most over the start " << more << '\n'
                  << std::flush;
    }
};

/// One round is a program of its own, started on the same store and the same folders as every other.
class Storm : public StormUse, public testing::WithParamInterface<int> {
protected:
    static void TearDownTestSuite() { totals_.Print(); }

    void Run() {
        const int seed = Wanted("QLB_STORM_SEED", kSeed);
        Random random(seed, GetParam());
        cancelsPrinting_ = random.OneIn(2);
        EmptyClipboardText();
        try {
            StartWarm();
            start_ = Held();
            Actor actor(random, journal_, Dialog(), CopiedProgram());
            Rage(random, actor);
            EndRound();
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        totals_.Add(journal_);
        if (TheWatch() != nullptr) {
            totals_.Add(*TheWatch());
        }
        std::cout << ", fingerprint " << journal_.Fingerprint() << '\n' << std::flush;
        if (HasFailure()) {
            std::cout << "round " << GetParam() << " of seed " << seed << "; the last actions:\n";
            for (const std::string& line : journal_.Last()) {
                std::cout << "  " << line << '\n';
            }
        }
    }

private:
    /// What one round copied, the next would insert.
    static void EmptyClipboardText() {
        const auto emptied = [] {
            const bool opened = OpenClipboard(nullptr) != FALSE;
            const bool done = opened && EmptyClipboard() != FALSE;
            if (opened) {
                CloseClipboard();
            }
            return done;
        };
        UiDriver::WaitUntil(emptied, L"the clipboard to be emptied");
    }

    /// By chance alone most of the time would pass in the settings dialog.
    void OpenSomething(Random& random) {
        struct Way {
            int page;
            int control;  ///< 0: none
            int then = 0; ///< a button of the form that this opens
        };
        static constexpr auto kWays = std::to_array<Way>({{0, 0},
                                                          {1, 0},
                                                          {2, 0},
                                                          {0, IDC_picButton0},
                                                          {0, IDC_picButton2},
                                                          {0, IDC_picButton3},
                                                          {1, IDC_picButton5},
                                                          {0, IDC_cmdUserManager0},
                                                          {0, IDC_cmdUserManager0, IDC_cmdAdd},
                                                          {0, IDC_cmdWizard0},
                                                          {1, IDC_cmdWizard1},
                                                          {2, IDC_CmdFontColor},
                                                          {0, IDC_cmdPrint},
                                                          {0, IDC_picButton0, IDC_txtApplication0}});
        const Way& way = random.Of(kWays);
        journal_.Act("open", std::to_string(way.page) + ", " + std::to_string(way.control) + ", " +
                                 std::to_string(way.then));
        if (way.then == IDC_txtApplication0) {
            AskParameter();
        } else {
            Open(way.page, way.control, way.then);
        }
        const UiDriver::Window form = AwaitScene().value().Active();
        if (form.HasControl(IDC_tabMenu)) {
            const int tab = random.Below(form.Tab(IDC_tabMenu).Count());
            journal_.Act("select tab", std::to_string(tab));
            form.Tab(IDC_tabMenu).Select(tab);
        }
        StepAside();
    }

    void Open(int page, int control, int then) const {
        ShowPage(page);
        if (control != 0) {
            PressIn(Dialog(), control);
        }
        if (then != 0) {
            PressIn(AwaitScene().value().Active(), then);
        }
    }

    /// Where the mouse rests, tips and pictures change in their own time.
    void StepAside() const {
        UiDriver::Mouse::MoveTo({2, 2});
        const auto noTip = [this] {
            return UiDriver::FindWindows({Program().Id(), TOOLTIPS_CLASSW, {}}).empty();
        };
        UiDriver::WaitUntil(noTip, L"the tip to go");
        Settle();
    }

    /// What closes by itself does it under its user's hand.
    void TryToAct(Actor& actor, const Scene& scene) {
        try {
            actor.Act(scene);
        } catch (const std::exception&) {
            if (Stays(scene.Active())) {
                throw;
            }
            journal_.See("it was just closing");
        }
    }

    void Rage(Random& random, Actor& actor) {
        const int actions = Wanted("QLB_STORM_ACTIONS", kActions);
        OpenSomething(random);
        std::optional<Scene> scene = AwaitScene();
        for (int i = 0; i < actions; ++i) {
            const Scene before = scene.value();
            TryToAct(actor, before);
            StepAside();
            scene = AwaitScene();
            if (!scene) {
                ExpectGoodEnd(before);
                return;
            }
            journal_.See(Outcome(*scene));
        }
        BackToDialog();
        RestoreScaling();
        if (random.OneIn(8)) {
            actor.Leave();
            const auto nothingHappens = [this] {
                return Program().Running() && Scene::Of(Program().Id()).dialogs.size() == 1;
            };
            static_cast<void>(UiDriver::HoldsFor(nothingHappens, kLeaving));
            BackToDialog();
        }
    }

    void EndRound() {
        journal_.See("store " + Hex(Hash(UiDriver::ToUtf8(StoreDump()))));
        std::cout << "round " << GetParam() << ": " << start_ << " … ";
        if (Program().Running()) {
            const Figures now = Held();
            std::cout << now;
            ExpectStartLevel(now);
            totals_.Add(now, start_);
        } else {
            std::cout << "ended by its user";
            ++totals_.ended;
            EXPECT_EQ(Program().ExitCode(), 0U);
        }
    }

    /// Exactly one dialog takes input, as long as the program runs: then there is none. For a moment, when one
    /// opens or closes, it may be none too. How long the printing takes is not the round's to say: its form is
    /// waited for.
    std::optional<Scene> AwaitScene() const {
        Scene scene;
        const auto one = [&] {
            scene = Scene::Of(Program().Id());
            return scene.active.size() == 1 || !Program().Running();
        };
        for (;;) {
            UiDriver::WaitUntil(one, L"one dialog to be enabled");
            if (!Program().Running()) {
                return std::nullopt;
            }
            if (!scene.Active().HasControl(IDC_lblPrinting)) {
                return scene;
            }
            const UiDriver::Window printing = scene.Active();
            if (cancelsPrinting_) {
                PostMessageW(printing.Hwnd(), WM_CLOSE, 0, 0);
            }
            printing.WaitUntilGone();
            Settle();
        }
    }

    /// The settings dialog was closed, or the question before its end answered.
    void ExpectGoodEnd(const Scene& before) const {
        EXPECT_EQ(Program().WaitForExit(), 0U);
        const bool questionOverDialog = before.dialogs.size() == 2 && !before.activeIsForm;
        EXPECT_TRUE(before.dialogs.size() == 1 || questionOverDialog) << "another form was open";
    }

    void RestoreScaling() const {
        UiDriver::ScaleTo(Dialog().Hwnd(), 96);
        Settle();
    }

    void ExpectStartLevel(const Figures& now) const {
        EXPECT_LE(now.windows, start_.windows + kMoreWindows);
        EXPECT_LE(now.gdiObjects, start_.gdiObjects + kMoreObjects);
        EXPECT_LE(now.kernelHandles, start_.kernelHandles + kMoreHandles);
        EXPECT_LE(now.privateBytes, start_.privateBytes + kMoreBytes);
    }

    static Totals totals_;

    Journal journal_;
    Figures start_;
    bool cancelsPrinting_ = false;
};

Totals Storm::totals_;

TEST_P(Storm, LeavesTheProgramAliveAndAsItWas) {
    Run();
}

auto WantedRounds() {
    const int first = Wanted("QLB_STORM_FIRST", 1);
    return testing::Range(first, first + Wanted("QLB_STORM_ROUNDS", kRounds));
}

INSTANTIATE_TEST_SUITE_P(Rounds, Storm, WantedRounds(), testing::PrintToStringParamName());

} // namespace
