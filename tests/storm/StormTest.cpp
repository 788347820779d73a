#include "Actor.h"
#include "StormUse.h"
#include "driver/Message.h"
#include "driver/RemoteMemory.h"

#include <array>
#include <iostream>

namespace {

constexpr int kRounds = 2;
constexpr int kSeed = 1;
constexpr int kActions = 25;
/// The tips' window is made for the first tip.
constexpr std::size_t kMoreWindows = 1;
/// What the system keeps for later: menus' and lists' windows, brushes, drawn fonts, freed memory.
constexpr std::size_t kMoreObjects = 40;
constexpr std::size_t kMoreHandles = 10;
constexpr std::size_t kMoreBytes = 4 << 20;

class Storm : public StormUse {
protected:
    void Begin() {
        StartWarm();
        start_ = Held();
        std::cout << "start: " << start_ << '\n' << std::flush;
    }

    /// Fails with what was done last.
    void Run(int round, std::uint64_t seed) {
        Random random(seed);
        Actor actor(random, Program(), Dialog(), CopiedProgram());
        try {
            Rage(random, actor);
            if (Program().Running()) {
                ExpectStartLevel();
                std::cout << "round " << round << " (seed " << seed << "): " << Held() << '\n' << std::flush;
            } else {
                std::cout << "round " << round << " (seed " << seed << "): ended by its user\n" << std::flush;
                EndProgram();
                Begin();
            }
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        if (HasFailure()) {
            std::cout << "round " << round << ", seed " << seed << "; the last actions:\n";
            for (const std::string& action : actor.Log()) {
                std::cout << "  " << action << '\n';
            }
        }
    }

private:
    /// By chance alone most of the time would pass in the settings dialog.
    void OpenSomething(Random& random, Actor& actor) {
        struct Way {
            int page;
            int control; ///< 0: none
        };
        static constexpr auto kWays = std::to_array<Way>({{0, 0},
                                                          {1, 0},
                                                          {2, 0},
                                                          {0, IDC_picButton0},
                                                          {0, IDC_picButton2},
                                                          {0, IDC_picButton3},
                                                          {1, IDC_picButton5},
                                                          {0, IDC_cmdUserManager0},
                                                          {0, IDC_cmdWizard0},
                                                          {1, IDC_cmdWizard1},
                                                          {2, IDC_CmdFontColor},
                                                          {0, IDC_cmdPrint}});
        const Way& way = random.Of(kWays);
        actor.Note("open page " + std::to_string(way.page) + ", " + std::to_string(way.control));
        ShowPage(way.page);
        if (way.control != 0 && Item(way.control).Enabled()) {
            PressIn(Dialog(), way.control);
        }
        Settle();
        const UiDriver::Window form = AwaitScene().Active();
        if (form.HasControl(IDC_tabMenu)) {
            const int tab = random.Below(form.Tab(IDC_tabMenu).Count());
            actor.Note("select tab " + std::to_string(tab));
            form.Tab(IDC_tabMenu).Select(tab);
            Settle();
        }
    }

    /// What tells of the printing closes by itself, under its user's hand.
    static void TryToAct(Actor& actor, const Scene& scene) {
        try {
            actor.Act(scene);
        } catch (const std::exception&) {
            if (Stays(scene.Active())) {
                throw;
            }
            actor.Note("(it was just closing)");
        }
    }

    void Rage(Random& random, Actor& actor) {
        OpenSomething(random, actor);
        Scene scene;
        for (int i = 0; i < kActions; ++i) {
            const Scene before = scene;
            scene = AwaitScene();
            if (!Program().Running()) {
                ExpectGoodEnd(before);
                return;
            }
            TryToAct(actor, scene);
            Settle();
        }
        BackToDialog();
        RestoreScaling();
        if (random.OneIn(8)) {
            actor.Leave();
            Settle();
            BackToDialog();
        }
        if (!Program().Running()) {
            EXPECT_EQ(Program().ExitCode(), 0U);
        }
    }

    /// Exactly one dialog takes input, as long as the program runs. For a moment, when one opens or closes, it
    /// may be none or two.
    Scene AwaitScene() const {
        Scene scene;
        const auto one = [&] {
            scene = Scene::Of(Program());
            return scene.active.size() == 1 || !Program().Running();
        };
        const bool found = !UiDriver::HoldsFor([&] { return !one(); }, UiDriver::Milliseconds(2000));
        if (!found) {
            UiDriver::Fail(L"not exactly one dialog is enabled: " + UiDriver::FromUtf8(Description(scene)));
        }
        return scene;
    }

    /// The settings dialog was closed, or the question before its end answered.
    void ExpectGoodEnd(const Scene& before) const {
        EXPECT_EQ(Program().WaitForExit(), 0U);
        const bool questionOverDialog = before.dialogs.size() == 2 && !before.activeIsForm;
        EXPECT_TRUE(before.dialogs.size() == 1 || questionOverDialog) << "another form was open";
    }

    void RestoreScaling() const {
        const RECT place{100, 100, 700, 600};
        const UiDriver::RemoteMemory memory(Dialog().Hwnd(), sizeof place);
        memory.Write(0, &place, sizeof place);
        UiDriver::Send(Dialog().Hwnd(), WM_DPICHANGED, MAKEWPARAM(96, 96), memory.Param());
        Settle();
    }

    void ExpectStartLevel() const {
        const Figures now = Held();
        EXPECT_LE(now.windows, start_.windows + kMoreWindows);
        EXPECT_LE(now.gdiObjects, start_.gdiObjects + kMoreObjects);
        EXPECT_LE(now.kernelHandles, start_.kernelHandles + kMoreHandles);
        EXPECT_LE(now.privateBytes, start_.privateBytes + kMoreBytes);
    }

    Figures start_;
};

TEST_F(Storm, LeavesTheProgramAliveAndAsItWas) {
    const int rounds = Number("QLB_STORM_ROUNDS", kRounds);
    const int seed = Number("QLB_STORM_SEED", kSeed);
    Begin();
    for (int round = 1; round <= rounds && !HasFailure(); ++round) {
        Run(round, static_cast<std::uint64_t>(seed + round - 1));
    }
}

} // namespace
