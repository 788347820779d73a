#include "WizardDialog.h"

#include <map>

namespace {

using testing::Test;

/// Page, number of programs, and what can be pressed; a button in brackets is there but disabled.
std::string Seen(const WizardFlow& flow) {
    static const std::map<WizardPage, std::string> kNames{
        {WizardPage::SelectButton, "button"},  {WizardPage::SelectLaunchMethod, "method"},
        {WizardPage::SelectMenu, "source"},    {WizardPage::SelectProgramForSingle, "single"},
        {WizardPage::Finish, "end"},           {WizardPage::ButtonName, "name"},
        {WizardPage::SomePrograms, "several"}, {WizardPage::NotShown, "gone"}};
    std::string seen = kNames.at(flow.Page());
    if (flow.Committed()) {
        return seen;
    }
    seen += ' ' + std::to_string(flow.Slot().NumAP) + (flow.BackEnabled() ? ": Back" : ":");
    const std::string next = flow.NextSaysFinish() ? "Finish" : "Next";
    seen += flow.NextEnabled() ? ' ' + next : " (" + next + ')';
    if (flow.FinishVisible()) {
        seen += flow.FinishEnabled() ? " Finish" : " (Finish)";
    }
    return seen;
}

/// N, B and F press Next, Back and Finish; 0, 1 and 2 choose the launch method; n types a name and e empties it;
/// p picks a program, and r the root of all files, which is none.
struct Row {
    const char* before;
    char action;
    const char* after;
};

// All begin on the page of the launch method, with the first one chosen.
const std::vector<Row> kRows{
    {"", 'N', "source 0: Back Next"},
    {"", 'F', "method 0: Back Next"},
    {"2", '0', "method 0: Back Next"},
    {"1", 'N', "name 0: Back (Next)"},
    {"2", 'N', "name 0: Back (Next)"},

    // One program.
    {"N", 'B', "method 0: Back Next"},
    {"N", 'F', "source 0: Back Next"},
    {"N", 'N', "single 0: Back (Next)"},
    {"NN", 'B', "source 0: Back Next"},
    {"NN", 'N', "single 0: Back (Next)"},
    {"NN", 'F', "single 0: Back (Next)"},
    {"NN", 'p', "single 0: Back Next"},
    {"NNp", 'r', "single 0: Back (Next)"},
    {"NNp", 'B', "source 0: Back Next"},
    {"NNpB", 'N', "single 0: Back Next"},
    {"NNp", 'N', "end 1: Back Finish"},
    {"NNpN", 'B', "single 0: Back Next"},
    {"NNpN", 'F', "end 1: Back Finish"},
    {"NNpNB", 'B', "source 0: Back Next"},
    {"NNpNB", 'N', "end 1: Back Finish"},
    {"NNpN", 'N', "gone"},

    // The name.
    {"1N", 'B', "method 0: Back Next"},
    {"1N", 'N', "name 0: Back (Next)"},
    {"1N", 'F', "name 0: Back (Next)"},
    {"1N", 'n', "name 0: Back Next"},
    {"1Nn", 'e', "name 0: Back (Next)"},
    {"1Nn", 'B', "method 0: Back Next"},
    {"1NnB", 'N', "name 0: Back Next"},
    {"1Nne", 'B', "method 0: Back Next"},
    {"1NneB", 'N', "name 0: Back (Next)"},
    {"1NneB0", 'N', "source 0: Back Next"},

    // Several programs.
    {"1Nn", 'N', "several 0: Back (Next) (Finish)"},
    {"1NnN", 'B', "name 0: Back Next"},
    {"1NnN", 'N', "several 0: Back (Next) (Finish)"},
    {"1NnN", 'F', "several 0: Back (Next) (Finish)"},
    {"1NnN", 'p', "several 0: Back Next (Finish)"},
    {"1NnNp", 'F', "several 0: Back Next (Finish)"},
    {"1NnNp", 'N', "several 1: Back Next Finish"},
    {"1NnNpN", 'B', "several 0: Back Next (Finish)"},
    {"1NnNpNB", 'B', "name 0: Back Next"},
    {"1NnNpNBB", 'N', "several 0: Back Next (Finish)"},
    {"1NnNpN", 'N', "several 2: Back Next Finish"},
    {"1NnNpN", 'r', "several 1: Back (Next) Finish"},
    {"1NnNpNNN", 'N', "several 4: Back Next Finish"},

    // To the end by Finish, which Back undoes.
    {"1NnNpN", 'F', "end 1: Back Finish"},
    {"1NnNpNF", 'B', "several 1: Back Next Finish"},
    {"1NnNpNr", 'F', "end 1: Back Finish"},
    {"1NnNpNrF", 'B', "several 1: Back (Next) Finish"},
    {"1NnNpNrFB", 'p', "several 1: Back Next Finish"},
    {"2NnNpNNNN", 'F', "end 4: Back Finish"},
    {"2NnNpNNNNF", 'B', "several 4: Back Next Finish"},
    {"1NnNpNrF", 'N', "gone"},

    // To the end by the fifth program, which Back takes away.
    {"1NnNpNNNN", 'N', "end 5: Back Finish"},
    {"1NnNpNNNNN", 'F', "end 5: Back Finish"},
    {"1NnNpNNNNN", 'B', "several 4: Back Next Finish"},
    {"1NnNpNNNNNB", 'N', "end 5: Back Finish"},
    {"1NnNpNNNNNB", 'F', "end 4: Back Finish"},
    {"1NnNpNNNNNBF", 'B', "several 4: Back Next Finish"},
    {"1NnNpNNNNNBBBB", 'B', "several 0: Back Next (Finish)"},
    {"2NnNpNNNNN", 'N', "gone"},

    // From one path to the other.
    {"NNpNBBB1NnN", 'p', "several 0: Back Next (Finish)"},
    {"NNpNBBB1NnNp", 'N', "several 1: Back Next Finish"},
    {"1NnNpNBBB0NNp", 'N', "end 1: Back Finish"},
    {"1NnNpNNNNNBBBBBBB0NNpN", 'B', "single 0: Back Next"},
};

class WizardPages : public Test, public WizardDialog {
public:
    void Begin(bool forButton) {
        Open(forButton);
        flow->ChooseSourceForSingle(Source::AllFiles);
        flow->ChooseSource(Source::AllFiles);
    }
    void Do(char action) {
        switch (action) {
        case 'N':
            return flow->Next();
        case 'B':
            return flow->Back();
        case 'F':
            return flow->PressFinish();
        case 'n':
            return flow->SetButtonName(L"Morning");
        case 'e':
            return flow->SetButtonName(L"");
        case 'p':
            return Click(File(kMail));
        case 'r':
            return Click(MyComputer());
        default:
            return flow->ChooseLaunchMethod(action - '0');
        }
    }
    void Do(const std::string& actions) {
        for (const char action : actions) {
            Do(action);
        }
    }
};

TEST_F(WizardPages, BeginWithTheButton) {
    for (const auto& [actions, after] : std::map<std::string, std::string>{{"", "button 0: Next"},
                                                                           {"B", "button 0: Next"},
                                                                           {"F", "button 0: Next"},
                                                                           {"N", "method 0: Back Next"},
                                                                           {"NB", "button 0: Next"},
                                                                           {"NBN", "method 0: Back Next"}}) {
        Begin(false);
        Do(actions);
        EXPECT_EQ(Seen(*flow), after) << actions;
    }
}

TEST_F(WizardPages, BeginWithTheLaunchMethod_ForOneButton) {
    for (const char* actions : {"", "B", "F", "NB", "1NB", "2NnBB"}) {
        Begin(true);
        Do(actions);
        EXPECT_EQ(Seen(*flow), "method 0: Next") << actions;
    }
}

TEST_F(WizardPages, FollowEachOther) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(std::string(row.before) + ", " + row.action);
        Begin(false);
        Do('N');
        Do(row.before);
        Do(row.action);
        EXPECT_EQ(Seen(*flow), row.after);
    }
}

TEST_F(WizardPages, FollowEachOther_ForOneButton) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(std::string(row.before) + ", " + row.action);
        Begin(true);
        Do(row.before);
        Do(row.action);
        const std::string after = row.after;
        EXPECT_EQ(Seen(*flow), after == "method 0: Back Next" ? "method 0: Next" : after);
    }
}

} // namespace
