#include "WizardWalk.h"

#include <random>

namespace {

using testing::Test;

using Source = ProgramSource;

/// A user who does whatever can be done, and no more.
class RandomWizard : public Test, public WizardWalk {
public:
    void Run(unsigned seed, bool forButton, int steps) {
        random_.seed(seed);
        SelectFirstRows();
        Globals().MediaCenterPicked = false;
        Globals().EditedButtonSlot = former_;
        added_.clear();
        singleLeft_ = false;
        mediaCenterPicked_ = false;
        Begin(forButton);
        for (int step = 0; step < steps && !flow->Committed() && !HasFailure(); ++step) {
            Step();
            Check(forButton);
            ++steps_;
        }
        committed_ += flow->Committed() ? 1 : 0;
        disk.Forget();
        shell.shortcutQuestions.clear();
    }

protected:
    long steps_ = 0;
    int committed_ = 0;

private:
    int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

    void Step() {
        switch (Below(8)) {
        case 0:
        case 1:
        case 2:
            if (flow->NextEnabled() && (flow->Page() != WizardPage::Finish || Below(3) == 0)) {
                PressNext();
            }
            break;
        case 3:
            if (flow->BackEnabled()) {
                PressBack();
            }
            break;
        case 4:
            if (flow->FinishVisible() && flow->FinishEnabled() && Below(3) == 0) {
                Finish();
            }
            break;
        default:
            DoOnPage();
            break;
        }
    }

    void PressNext() {
        const WizardPage page = flow->Page();
        if (page == WizardPage::SelectProgramForSingle) {
            singleLeft_ = true;
            singleKey_ = flow->CheckedForSingle() == Source::ShortcutKey;
        }
        if (page == WizardPage::SomePrograms) {
            singleLeft_ = false;
            added_.push_back(table->Picked());
        }
        Next();
        NotePick();
    }

    void PressBack() {
        const bool several = flow->LaunchOption() != 0;
        const WizardPage page = flow->Page();
        if (page == WizardPage::SomePrograms && !added_.empty()) {
            added_.pop_back();
        }
        if (page == WizardPage::Finish && several && added_.size() == kMaxPrograms) {
            added_.pop_back();
        }
        Back();
    }

    void DoOnPage() {
        switch (flow->Page()) {
        case WizardPage::SelectButton:
            flow->ChooseButton(Below(5));
            break;
        case WizardPage::SelectLaunchMethod:
            Method(Below(3));
            break;
        case WizardPage::SelectMenu:
            if (const auto source = static_cast<Source>(Below(5)); flow->OffersForSingle(source)) {
                SingleSource(source);
            }
            break;
        case WizardPage::ButtonName:
            Name(Below(3) == 0 ? L"" : L"Name " + std::to_wstring(Below(9)));
            break;
        case WizardPage::SomePrograms:
            if (const auto source = static_cast<Source>(Below(5));
                Below(2) == 0 && flow->OffersForSeveral(source)) {
                SeveralSource(source);
                NotePick();
                break;
            }
            PickAny();
            break;
        case WizardPage::SelectProgramForSingle:
            PickAny();
            break;
        default:
            break;
        }
    }

    void PickAny() {
        Pick(AnyItem(*flow->ShownSource()));
        mediaCenterPicked_ = flow->ShownSource() == Source::MediaCenter;
    }

    /// A source that is shown may have something selected.
    void NotePick() {
        const WizardPage page = flow->Page();
        if ((page == WizardPage::SelectProgramForSingle || page == WizardPage::SomePrograms) &&
            flow->NextEnabled()) {
            mediaCenterPicked_ = flow->ShownSource() == Source::MediaCenter;
        }
    }

    [[nodiscard]] PickedItem AnyItem(Source source) {
        switch (source) {
        case Source::MediaCenter:
            return MediaCenter(Below(2) == 0 ? kMusic : kFilms);
        case Source::ShortcutKey:
            return Key(Below(2) == 0 ? kCopyKey : kPasteKey);
        case Source::IeFavorites: {
            static const std::array<const wchar_t*, 4> kPaths{L"C:\\Favorites\\News.url",
                                                              L"C:\\Favorites\\MAPS.URL",
                                                              L"C:\\Favorites\\Travel", L"C:\\Favorites"};
            return Favorite(kPaths.at(static_cast<std::size_t>(Below(4))));
        }
        case Source::AllFiles:
            if (Below(4) == 0) {
                return MyComputer();
            }
            return File(L"C:\\Apps\\App" + std::to_wstring(Below(9)) + L".exe");
        default:
            return Below(4) == 0 ? Node(L"C:\\Menu\\News.url") : Node(kMail);
        }
    }

    void Check(bool forButton) const {
        const WizardScreen screen = ScreenOf(*flow);
        const ButtonSlot& slot = flow->Slot();
        ASSERT_GE(slot.NumAP, 0);
        ASSERT_LE(slot.NumAP, kMaxPrograms);
        CheckFrames(screen);
        if (screen.finishEnabled && screen.finishVisible) {
            EXPECT_GE(slot.NumAP, 1);
        }
        EXPECT_EQ(screen.finishVisible, screen.page == 7);
        EXPECT_EQ(screen.nextCaption == "Finish", screen.page == 5 || screen.committed);
        EXPECT_EQ(screen.back, screen.page != 1 && !(forButton && screen.page == 2));
        if (forButton) {
            EXPECT_NE(screen.page, 1);
        }
        EXPECT_EQ(Globals().MediaCenterPicked, mediaCenterPicked_);
        CheckSlots(slot);
        if (screen.committed) {
            CheckResult();
        } else {
            EXPECT_EQ(Globals().EditedButtonSlot, former_);
        }
    }

    static void CheckFrames(const WizardScreen& screen) {
        static const std::vector<std::set<std::string>> kFrames{
            {},
            {"fraSelectButton"},
            {"fraSelectLaunchMethod"},
            {"fraSelectMenu"},
            {"fraSelectProgramForSingle", "fraProgramList"},
            {"fraFinish"},
            {"fraButtonName"},
            {"fraSomePrograms", "fraProgramList"}};
        EXPECT_EQ(screen.frames, kFrames.at(static_cast<std::size_t>(screen.page)));
        EXPECT_EQ(screen.page == 0, screen.committed);
    }

    /// Past the programs nothing is left, but of a single program whose closing page was left again.
    void CheckSlots(const ButtonSlot& slot) const {
        for (int number = slot.NumAP + 1; number <= kMaxPrograms; ++number) {
            EXPECT_EQ(flow->ProgramText(number - 1), L"");
            if (number == 1 && singleLeft_) {
                continue;
            }
            if (number != 1) {
                EXPECT_EQ(slot.Param(number), L"");
            }
            EXPECT_EQ(slot.AP(number), L"");
            EXPECT_EQ(slot.Title(number), L"");
        }
    }

    void CheckResult() const {
        const ButtonSlot& result = Globals().EditedButtonSlot;
        EXPECT_EQ(result, flow->Slot());
        ASSERT_GE(result.NumAP, 1);
        for (int number = 1; number <= kMaxPrograms; ++number) {
            EXPECT_EQ(result.AP(number).empty(), number > result.NumAP);
        }
        if (flow->LaunchOption() == 0) {
            EXPECT_EQ(result.NumAP, 1);
            EXPECT_EQ(result.Exec, singleKey_ ? L"K" : L"M");
            EXPECT_EQ(result.AP(1), table->Command());
            return;
        }
        EXPECT_EQ(result.Exec, flow->LaunchOption() == 1 ? L"S" : L"P");
        EXPECT_EQ(result.Name, flow->ButtonName());
        ASSERT_EQ(added_.size(), static_cast<std::size_t>(result.NumAP));
        for (int number = 1; number <= result.NumAP; ++number) {
            const PickedItem& item = added_.at(static_cast<std::size_t>(number - 1));
            if (item.rootText == L"IE Favorites") {
                const std::wstring address = shell.shortcutAddresses.at(item.key);
                EXPECT_EQ(result.AP(number), L"iexplore.exe|" + address);
                EXPECT_EQ(result.Param(number), address);
                EXPECT_EQ(result.Title(number), item.text);
            } else {
                EXPECT_EQ(result.AP(number), item.key);
                EXPECT_EQ(result.Param(number), L"");
                EXPECT_EQ(result.Title(number), L"");
            }
        }
    }

    std::mt19937 random_;
    const ButtonSlot former_ = Button(L"S", {L"C:\\Apps\\Former.exe"});
    std::vector<PickedItem> added_;
    bool singleLeft_ = false; ///< of a single program that was built, the first slot still holds what it held
    bool singleKey_ = false;
    bool mediaCenterPicked_ = false;
};

TEST_F(RandomWizard, NeverLosesItsWay) {
    constexpr unsigned kWizardsEach = 40;
    constexpr int kSteps = 120;
    for (unsigned combination = 0; combination < 16; ++combination) {
        Offer((combination & 1) != 0, (combination & 2) != 0, (combination & 4) != 0, (combination & 8) != 0);
        for (unsigned seed = 1; seed <= kWizardsEach && !HasFailure(); ++seed) {
            SCOPED_TRACE("sources " + std::to_string(combination) + ", seed " + std::to_string(seed));
            Run(seed, false, kSteps);
            Run(seed, true, kSteps);
        }
    }
    EXPECT_GT(steps_, 50000);
    EXPECT_GT(committed_, 1000);
}

} // namespace
