#include "WizardWalk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Test;

class PageTable : public Test, public WizardWalk {
public:
    /// N, B and F press Next, Back and Finish; 0, 1 and 2 choose the launch method; n types a name and e empties
    /// it; p picks a program and u a folder of the favourites, which is none.
    void Play(const std::string& events) {
        for (const char event : events) {
            SCOPED_TRACE("at " + std::string(1, event));
            Play(event);
        }
    }
    void Follow(bool forButton, const std::string& events) {
        SCOPED_TRACE((forButton ? "for a button: " : "for the dialog: ") + events);
        SelectFirstRows();
        Begin(forButton);
        Play(forButton ? events.substr(1) : events);
        done.insert(table->Done().begin(), table->Done().end());
    }

    [[nodiscard]] static std::vector<std::string> Missing(const std::set<std::size_t>& rows) {
        std::vector<std::string> missing;
        for (std::size_t i = 0; i < WizardTable::Rows().size(); ++i) {
            const WizardTable::Row& row = WizardTable::Rows()[i];
            if (!rows.contains(i)) {
                missing.push_back(std::to_string(row.page) + " " + row.action + " " + row.condition);
            }
        }
        return missing;
    }

    std::set<std::size_t> done;

private:
    void Play(char event) {
        switch (event) {
        case 'N':
            return Next();
        case 'B':
            return Back();
        case 'F':
            return Finish();
        case 'n':
            return Name(L"Morning");
        case 'e':
            return Name(L"");
        case 'p':
            return Pick(Node(kMail));
        case 'u':
            return Pick(Favorite(L"C:\\Favorites\\Travel"));
        default:
            return Method(event - '0');
        }
    }
};

// Every way begins with the Next of the first page, which a wizard for one button does not have.
const std::vector<std::string> kWays{
    // Single, forth and back.
    "N", "NB", "NBN", "N0N", "N0NB", "N0NBN", "N0NN", "N0NNB", "N0NNBN", "N0NNp", "N0NNpN", "N0NNpNB",
    "N0NNpNBN", "N0NNpNBB", "N0NNpNBBBN", "N0NNpNN",
    // The name.
    "N1N", "N2N", "N1NB", "N1NBN", "N1Nn", "N1NnB", "N1NnBN", "N1NneB", "N1NneBN", "N1NneB0NB",
    // Several, with the first programs.
    "N1NnN", "N1NnNB", "N1NnNBN", "N1NnNp", "N1NnNpN", "N1NnNpNB", "N1NnNpNBB", "N1NnNpNN", "N1NnNpNNBB",
    "N1NnNpNNBBBN",
    // Several, to the closing page by Finish, with Next enabled and disabled.
    "N1NnNpNF", "N1NnNpNFB", "N1NnNpNFBB", "N1NnNpNFBN", "N1NnNpNuF", "N1NnNpNuFB", "N1NnNpNuFBpN",
    "N2NnNpNNNNF", "N2NnNpNNNNFB", "N2NnNpNNNNFBN", "N1NnNpNFN", "N1NnNpNuFN",
    // Several, to the closing page by the fifth program.
    "N1NnNpNNNNN", "N1NnNpNNNNNB", "N1NnNpNNNNNBN", "N1NnNpNNNNNBNBN", "N1NnNpNNNNNBF", "N1NnNpNNNNNBFB",
    "N1NnNpNNNNNBBBBBBB", "N2NnNpNNNNNN",
    // From one path to the other.
    "N0NNpNBBB1NnNpNBBB0N", "N1NnNpNBBB0NNpNN", "N0NNpNBBB2NnNpNNF", "N1NnNpNNNNNBBBBBBB0NNpNB"};

TEST_F(PageTable, IsFollowedRowByRow_OnEveryWay) {
    for (const std::string& way : kWays) {
        Follow(false, way);
        if (way != "NB" && way != "NBN") { // Back is off there
            Follow(true, way);
        }
    }
    EXPECT_THAT(Missing(done), IsEmpty()) << "rows that no way goes through";
}

TEST_F(PageTable, DoesNothingForAButtonThatIsHiddenOrDisabled) {
    const auto expectNothing = [this](const std::string& way, void (WizardFlow::*press)()) {
        for (const bool forButton : {false, true}) {
            Follow(forButton, way);
            ((*flow).*press)();
            Compare();
        }
    };
    for (const char* way : {"N", "N0N", "N0NN", "N0NNpN", "N1N", "N1NnN", "N1NnNpNB", "N1NnNpNF"}) {
        expectNothing(way, &WizardFlow::PressFinish);
    }
    for (const char* way : {"N0NN", "N1N", "N1Nne", "N1NnN", "N1NnNpNu"}) {
        expectNothing(way, &WizardFlow::Next);
    }
    Follow(false, "");
    flow->PressFinish();
    flow->Back();
    Compare();
    Follow(true, "N");
    flow->Back();
    Compare();
}

TEST_F(PageTable, HasTheRowsThatAWizardForTheDialogTakes) {
    for (const std::string& way : kWays) {
        Follow(false, way);
    }
    EXPECT_THAT(Missing(done), ElementsAre("0 any for a button", "2 Next for a button",
                                           "3 not Next for a button", "6 not Next for a button"));
}

// What each page looks like, at first sight

TEST_F(PageTable, BeginsWithTheButtons) {
    Open();
    EXPECT_EQ(ScreenOf(*flow), (WizardScreen{.page = 1, .frames = {"fraSelectButton"}, .next = true}));
}

TEST_F(PageTable, BeginsWithTheLaunchMethod_ForOneButton) {
    Open(true);
    EXPECT_EQ(ScreenOf(*flow),
              (WizardScreen{.page = 2, .frames = {"fraSelectLaunchMethod"}, .back = false, .next = true}));
}

TEST_F(PageTable, HasNoPage_BeforeItStarts) {
    const WizardFlow idle({sources, disk, nullptr, nullptr, L"", L""}, false);
    EXPECT_EQ(ScreenOf(idle), WizardScreen());
}

TEST_F(PageTable, StartsOnce_HoweverOftenTheFormIsActivated) {
    for (const bool forButton : {false, true}) {
        GoToMenu(forButton);
        const WizardScreen before = ScreenOf(*flow);
        flow->Start();
        EXPECT_EQ(ScreenOf(*flow), before);
    }
}

TEST_F(PageTable, EndsWithoutAPage) {
    GoToSeveral();
    AddPrograms(1);
    flow->PressFinish();
    flow->Next();
    EXPECT_EQ(flow->Page(), WizardPage::NotShown);
    EXPECT_THAT(ScreenOf(*flow).frames, IsEmpty());
    flow->Start();
    EXPECT_EQ(flow->Page(), WizardPage::NotShown);
}

TEST_F(PageTable, ShowsTheProgramListBesideThePagesThatPickPrograms) {
    GoToSingle(Source::AllFiles);
    EXPECT_THAT(ScreenOf(*flow).frames, ElementsAre("fraProgramList", "fraSelectProgramForSingle"));
    Add(File(kMail));
    EXPECT_THAT(ScreenOf(*flow).frames, ElementsAre("fraFinish"));
    flow->Back();
    EXPECT_THAT(ScreenOf(*flow).frames, ElementsAre("fraProgramList", "fraSelectProgramForSingle"));

    GoToSeveral();
    EXPECT_THAT(ScreenOf(*flow).frames, ElementsAre("fraProgramList", "fraSomePrograms"));
    AddPrograms(2);
    flow->Back();
    EXPECT_THAT(ScreenOf(*flow).frames, ElementsAre("fraProgramList", "fraSomePrograms"));
    flow->PressFinish();
    EXPECT_THAT(ScreenOf(*flow).frames, ElementsAre("fraFinish"));
    flow->Back();
    EXPECT_THAT(ScreenOf(*flow).frames, ElementsAre("fraProgramList", "fraSomePrograms"));
}

} // namespace
