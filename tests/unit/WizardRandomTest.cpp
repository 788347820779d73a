#include "WizardDialog.h"

#include <map>
#include <random>

namespace {

using testing::Test;

using Source = ProgramSource;

/// A user who does whatever can be done, and no more.
class RandomWizard : public Test, public WizardDialog {
public:
    void Run(unsigned seed, bool forButton, int steps) {
        random_.seed(seed);
        selected_.clear();
        for (const Source list : {Source::MediaCenter, Source::ShortcutKey}) {
            if (sources.Offers(list, SourceOffer::SingleProgram)) {
                selected_[list] = PickedRow(sources, list, 0);
            }
        }
        Globals().MediaCenterPicked = false;
        Globals().EditedButtonSlot = former_;
        added_.clear();
        singleLeft_ = false;
        mediaCenterPicked_ = false;
        Open(forButton);
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
                flow->PressFinish();
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
            single_ = selected_.at(flow->SourceForSingle());
        }
        if (page == WizardPage::SomePrograms) {
            singleLeft_ = false;
            added_.push_back(*selected_.at(flow->SourceForSeveral()));
        }
        flow->Next();
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
        flow->Back();
    }

    void DoOnPage() {
        switch (flow->Page()) {
        case WizardPage::SelectButton:
            flow->ChooseButton(Below(5));
            break;
        case WizardPage::SelectLaunchMethod:
            flow->ChooseLaunchMethod(Below(3));
            break;
        case WizardPage::SelectMenu:
            flow->ChooseSourceForSingle(AnySource(SourceOffer::SingleProgram));
            break;
        case WizardPage::ButtonName:
            flow->SetButtonName(Below(3) == 0 ? L"" : L"Name " + std::to_wstring(Below(9)));
            break;
        case WizardPage::SomePrograms:
            if (Below(2) == 0) {
                flow->ChooseSource(AnySource(SourceOffer::SeveralPrograms));
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
        const PickedItem item = AnyItem(*flow->ShownSource());
        selected_[item.source] = item;
        flow->Click(item);
        mediaCenterPicked_ = item.source == Source::MediaCenter;
    }

    /// A source that is shown may have something selected.
    void NotePick() {
        if (flow->ShownSource() && flow->NextEnabled()) {
            mediaCenterPicked_ = flow->ShownSource() == Source::MediaCenter;
        }
    }

    [[nodiscard]] Source AnySource(SourceOffer offer) {
        const std::vector<Source> offered = sources.Offered(offer);
        return offered[static_cast<std::size_t>(Below(static_cast<int>(offered.size())))];
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
        const WizardPage page = flow->Page();
        const ButtonSlot& slot = flow->Slot();
        ASSERT_GE(slot.NumAP, 0);
        ASSERT_LE(slot.NumAP, kMaxPrograms);
        CheckScreen(page, forButton);
        EXPECT_EQ(Globals().MediaCenterPicked, mediaCenterPicked_);
        CheckSlots(slot);
        if (flow->Committed()) {
            CheckResult();
        } else {
            EXPECT_EQ(Globals().EditedButtonSlot, former_);
        }
    }

    void CheckScreen(WizardPage page, bool forButton) const {
        const bool several = page == WizardPage::SomePrograms;
        const bool picks = several || page == WizardPage::SelectProgramForSingle;
        EXPECT_EQ(flow->ShownSource().has_value(), picks);
        if (picks) {
            const auto found = selected_.find(*flow->ShownSource());
            const bool program = found != selected_.end() && found->second && IsProgram(*found->second);
            EXPECT_EQ(flow->NextEnabled(), program);
        }
        EXPECT_EQ(flow->FinishVisible(), several);
        EXPECT_EQ(flow->FinishEnabled(), several && !added_.empty());
        EXPECT_EQ(flow->NextSaysFinish(), page == WizardPage::Finish);
        EXPECT_EQ(flow->BackEnabled(),
                  page != WizardPage::SelectButton && !(forButton && page == WizardPage::SelectLaunchMethod));
        EXPECT_FALSE(forButton && page == WizardPage::SelectButton);
    }

    /// Past the programs nothing is left, but of a single program whose closing page was left again.
    void CheckSlots(const ButtonSlot& slot) const {
        for (int number = slot.NumAP + 1; number <= kMaxPrograms; ++number) {
            EXPECT_EQ(flow->ProgramText(number - 1), L"");
            if (number == 1 && singleLeft_) {
                continue;
            }
            if (number != 1) {
                EXPECT_EQ(slot.Program(number).Param, L"");
            }
            EXPECT_EQ(slot.Program(number).AP, L"");
            EXPECT_EQ(slot.Program(number).Title, L"");
        }
    }

    void CheckResult() const {
        const ButtonSlot& result = Globals().EditedButtonSlot;
        EXPECT_EQ(result, flow->Slot());
        ASSERT_GE(result.NumAP, 1);
        for (int number = 1; number <= kMaxPrograms; ++number) {
            EXPECT_EQ(result.Program(number).AP.empty(), number > result.NumAP);
        }
        if (flow->LaunchOption() == 0) {
            EXPECT_EQ(result.NumAP, 1);
            EXPECT_EQ(result.Exec, single_->source == Source::ShortcutKey ? L"K" : L"M");
            EXPECT_EQ(result.Program(1).AP,
                      single_->source == Source::IeFavorites
                          ? L"iexplore.exe|" + shell.shortcutAddresses.at(single_->command)
                          : single_->command);
            return;
        }
        EXPECT_EQ(result.Exec, flow->LaunchOption() == 1 ? L"S" : L"P");
        EXPECT_EQ(result.Name, flow->ButtonName());
        ASSERT_EQ(added_.size(), static_cast<std::size_t>(result.NumAP));
        for (int number = 1; number <= result.NumAP; ++number) {
            const PickedItem& item = added_.at(static_cast<std::size_t>(number - 1));
            if (item.source == Source::IeFavorites) {
                const std::wstring address = shell.shortcutAddresses.at(item.command);
                EXPECT_EQ(result.Program(number).AP, L"iexplore.exe|" + address);
                EXPECT_EQ(result.Program(number).Param, address);
                EXPECT_EQ(result.Program(number).Title, item.name);
            } else {
                EXPECT_EQ(result.Program(number).AP, item.command);
                EXPECT_EQ(result.Program(number).Param, L"");
                EXPECT_EQ(result.Program(number).Title, L"");
            }
        }
    }

    std::mt19937 random_;
    const ButtonSlot former_ = Button(L"S", {L"C:\\Apps\\Former.exe"});
    std::map<Source, std::optional<PickedItem>> selected_;
    std::vector<PickedItem> added_;
    std::optional<PickedItem> single_; ///< the last one that was built
    bool singleLeft_ = false; ///< of a single program that was built, the first slot still holds what it held
    bool mediaCenterPicked_ = false;
};

TEST_F(RandomWizard, NeverLosesItsWay) {
    constexpr unsigned kWizardsEach = 80;
    constexpr int kSteps = 120;
    for (unsigned combination = 0; combination < 8; ++combination) {
        Offer((combination & 1) != 0, (combination & 2) != 0, (combination & 4) != 0);
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
