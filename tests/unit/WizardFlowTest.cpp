#include "WizardDialog.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Test;

class Wizard : public Test, public WizardDialog {};

// Opened for one button

TEST_F(Wizard, ForOneButton_BeginsWithTheLaunchMethodAndWithoutBack) {
    Open(true);
    EXPECT_EQ(flow->Page(), WizardPage::SelectLaunchMethod);
    EXPECT_FALSE(flow->BackEnabled());
    EXPECT_TRUE(flow->NextEnabled());
}

TEST_F(Wizard, ForOneButton_HasBackFromTheSecondPageOn) {
    GoToMenu(true);
    EXPECT_TRUE(flow->BackEnabled());
    GoToButtonName(1, true);
    EXPECT_TRUE(flow->BackEnabled());
}

TEST_F(Wizard, ForOneButton_GoesBackFromTheSourcesToAPageWithoutBack) {
    GoToMenu(true);
    flow->Back();
    EXPECT_EQ(flow->Page(), WizardPage::SelectLaunchMethod);
    EXPECT_FALSE(flow->BackEnabled());
    EXPECT_TRUE(flow->NextEnabled());
}

TEST_F(Wizard, ForOneButton_GoesBackFromTheNameToAPageWithoutBack) {
    GoToButtonName(2, true);
    flow->Back();
    EXPECT_EQ(flow->Page(), WizardPage::SelectLaunchMethod);
    EXPECT_FALSE(flow->BackEnabled());
    EXPECT_TRUE(flow->NextEnabled());
    flow->Next();
    EXPECT_TRUE(flow->BackEnabled());
}

TEST_F(Wizard, ForTheDialog_HasBackOnEveryPageButTheFirst) {
    Open();
    EXPECT_FALSE(flow->BackEnabled());
    flow->Next();
    EXPECT_TRUE(flow->BackEnabled());
    flow->Next();
    EXPECT_TRUE(flow->BackEnabled());
    flow->Back();
    EXPECT_TRUE(flow->BackEnabled());
    flow->Back();
    EXPECT_EQ(flow->Page(), WizardPage::SelectButton);
    EXPECT_FALSE(flow->BackEnabled());
}

// The chosen button

TEST_F(Wizard, RemembersTheButton_FirstTheFirst) {
    Open();
    EXPECT_EQ(flow->ButtonOption(), 0);
    for (int option = 4; option >= 0; --option) {
        flow->ChooseButton(option);
        EXPECT_EQ(flow->ButtonOption(), option);
    }
    flow->ChooseButton(3);
    flow->Next();
    flow->Back();
    EXPECT_EQ(flow->ButtonOption(), 3);
}

// The name

TEST_F(Wizard, AsksForANameBeforeSeveralPrograms) {
    for (const int method : {1, 2}) {
        GoToButtonName(method);
        EXPECT_EQ(flow->Page(), WizardPage::ButtonName);
        EXPECT_FALSE(flow->NextEnabled());
    }
}

TEST_F(Wizard, AsksForNoNameOfASingleProgram) {
    GoToMenu();
    EXPECT_EQ(flow->Page(), WizardPage::SelectMenu);
    EXPECT_TRUE(flow->NextEnabled());
}

TEST_F(Wizard, HasNextAsLongAsThereIsAName) {
    GoToButtonName();
    flow->SetButtonName(L"M");
    EXPECT_TRUE(flow->NextEnabled());
    flow->SetButtonName(L"Mo");
    EXPECT_TRUE(flow->NextEnabled());
    flow->SetButtonName(L"");
    EXPECT_FALSE(flow->NextEnabled());
    flow->SetButtonName(L" ");
    EXPECT_TRUE(flow->NextEnabled());
}

TEST_F(Wizard, GivesNextBack_WhenANamelessPageIsLeft) {
    GoToButtonName();
    flow->Back();
    EXPECT_TRUE(flow->NextEnabled());
    flow->Next();
    EXPECT_FALSE(flow->NextEnabled()) << "still no name";
}

TEST_F(Wizard, KeepsTheName_WhenItIsLeftAndEnteredAgain) {
    GoToButtonName();
    flow->SetButtonName(L"Morning");
    flow->Back();
    flow->Next();
    EXPECT_EQ(flow->ButtonName(), L"Morning");
    EXPECT_TRUE(flow->NextEnabled());
}

// Several programs

TEST_F(Wizard, HasFinishButNotEnabled_WithoutAProgram) {
    GoToSeveral();
    EXPECT_TRUE(flow->FinishVisible());
    EXPECT_FALSE(flow->FinishEnabled());
    flow->Back();
    EXPECT_EQ(flow->Page(), WizardPage::ButtonName);
    EXPECT_FALSE(flow->FinishVisible());
    EXPECT_TRUE(flow->NextEnabled());
}

TEST_F(Wizard, EnablesFinishWithTheFirstProgram_AndDisablesItWithoutOne) {
    GoToSeveral();
    AddPrograms(2);
    EXPECT_TRUE(flow->FinishEnabled());
    flow->Back();
    EXPECT_TRUE(flow->FinishEnabled());
    flow->Back();
    EXPECT_FALSE(flow->FinishEnabled());
    EXPECT_EQ(flow->Page(), WizardPage::SomePrograms);
    EXPECT_EQ(flow->Slot().NumAP, 0);
    AddPrograms(1);
    EXPECT_TRUE(flow->FinishEnabled());
}

TEST_F(Wizard, HasFinishOnThePageOfSeveralProgramsAlone) {
    GoToSeveral();
    AddPrograms(1);
    flow->PressFinish();
    EXPECT_FALSE(flow->FinishVisible());
    flow->Back();
    EXPECT_TRUE(flow->FinishVisible());
    EXPECT_TRUE(flow->FinishEnabled());
}

TEST_F(Wizard, GoesFromFiveProgramsStraightToTheEnd) {
    GoToSeveral();
    AddPrograms(4);
    EXPECT_EQ(flow->Page(), WizardPage::SomePrograms);
    AddPrograms(1);
    EXPECT_EQ(flow->Page(), WizardPage::Finish);
    EXPECT_EQ(flow->Slot().NumAP, 5);
    EXPECT_FALSE(flow->FinishVisible());
}

TEST_F(Wizard, TakesTheFifthProgramAway_WhenItGoesBackFromTheEnd) {
    GoToSeveral();
    AddPrograms(4);
    AddFromItsSource(Favorite(kNews));
    ASSERT_EQ(flow->Slot().Program(5).AP, std::wstring(L"iexplore.exe|") + kNewsAddress);
    flow->Back();
    EXPECT_EQ(flow->Page(), WizardPage::SomePrograms);
    EXPECT_EQ(flow->Slot().NumAP, 4);
    EXPECT_EQ(flow->Slot().Program(5).AP, L"");
    EXPECT_EQ(flow->Slot().Program(5).Param, L"");
    EXPECT_EQ(flow->Slot().Program(5).Title, L"");
    EXPECT_EQ(flow->ProgramText(4), L"");
    EXPECT_EQ(flow->Slot().Program(4).AP, L"C:\\Apps\\App4.exe");
    EXPECT_EQ(flow->MarkedSlot(), 4);
    EXPECT_TRUE(flow->FinishEnabled());
}

TEST_F(Wizard, TakesNothingAway_WhenItGoesBackFromTheEndThatFinishReached) {
    for (int count = 1; count <= 4; ++count) {
        GoToSeveral();
        AddPrograms(count);
        const ButtonSlot before = flow->Slot();
        const std::vector<std::wstring> texts = ProgramTexts();
        flow->PressFinish();
        EXPECT_EQ(flow->Page(), WizardPage::Finish);
        flow->Back();
        EXPECT_EQ(flow->Page(), WizardPage::SomePrograms);
        EXPECT_EQ(flow->Slot(), before);
        EXPECT_EQ(ProgramTexts(), texts);
        EXPECT_EQ(flow->MarkedSlot(), count);
    }
}

TEST_F(Wizard, TakesTheProgramsBackOneByOne) {
    GoToSeveral();
    AddFromItsSource(Favorite(kNews));
    AddFromItsSource(Node(kMail));
    flow->Back();
    EXPECT_THAT(ProgramTexts(), ElementsAre(L"News.url", L"", L"", L"", L""));
    EXPECT_THAT(Texts(flow->Slot(), &ProgramEntry::AP),
                ElementsAre(L"iexplore.exe|http://news.example/", L"", L"", L"", L""));
    flow->Back();
    EXPECT_THAT(ProgramTexts(), Each(L""));
    EXPECT_THAT(Texts(flow->Slot(), &ProgramEntry::AP), Each(L""));
    EXPECT_THAT(Texts(flow->Slot(), &ProgramEntry::Param), Each(L""));
    EXPECT_THAT(Texts(flow->Slot(), &ProgramEntry::Title), Each(L""));
    EXPECT_EQ(flow->Slot().NumAP, 0);
}

TEST_F(Wizard, MarksTheSlotOfTheNextProgram) {
    GoToSeveral();
    for (int count = 0; count < 4; ++count) {
        EXPECT_EQ(flow->MarkedSlot(), count);
        AddPrograms(1);
    }
    EXPECT_EQ(flow->MarkedSlot(), 4);
    flow->Back();
    EXPECT_EQ(flow->MarkedSlot(), 3);
    AddPrograms(2);
    EXPECT_EQ(flow->Page(), WizardPage::Finish) << "there is no sixth";
}

// The closing page

TEST_F(Wizard, CallsNextFinishOnTheClosingPageAlone) {
    GoToSingle(Source::AllFiles);
    EXPECT_FALSE(flow->NextSaysFinish());
    Add(File(kMail));
    EXPECT_TRUE(flow->NextSaysFinish());
    EXPECT_FALSE(flow->FinishVisible());
    flow->Back();
    EXPECT_FALSE(flow->NextSaysFinish());
    flow->Back();
    EXPECT_FALSE(flow->NextSaysFinish());

    GoToSeveral();
    AddPrograms(1);
    EXPECT_FALSE(flow->NextSaysFinish());
    flow->PressFinish();
    EXPECT_TRUE(flow->NextSaysFinish());
    flow->Back();
    EXPECT_FALSE(flow->NextSaysFinish());
}

TEST_F(Wizard, CanFinish_ThoughTheLastSelectionIsNoProgram) {
    GoToSeveral();
    AddPrograms(1);
    flow->ChooseSource(Source::AllFiles);
    EXPECT_FALSE(flow->NextEnabled());
    flow->PressFinish();
    EXPECT_TRUE(flow->NextEnabled());
    flow->Back();
    EXPECT_FALSE(flow->NextEnabled()) << "as it was before";
    Click(File(kMail));
    flow->PressFinish();
    flow->Back();
    EXPECT_TRUE(flow->NextEnabled()) << "as it was before";
}

TEST_F(Wizard, ForgetsTheSingleProgramsCount_WhenItGoesBackFromTheEnd) {
    GoToSingle(Source::AllFiles);
    Add(File(kMail));
    EXPECT_EQ(flow->Slot().NumAP, 1);
    flow->Back();
    EXPECT_EQ(flow->Page(), WizardPage::SelectProgramForSingle);
    EXPECT_EQ(flow->Slot().NumAP, 0);
    EXPECT_TRUE(flow->NextEnabled());
    flow->Next();
    EXPECT_EQ(flow->Slot().NumAP, 1);
}

TEST_F(Wizard, CountsSeveralProgramsFromTheFirst_AfterASingleOne) {
    GoToSingle(Source::AllFiles);
    Add(File(kMail));
    flow->Back();
    flow->Back();
    flow->Back();
    flow->ChooseLaunchMethod(2);
    flow->Next();
    flow->SetButtonName(L"Morning");
    flow->Next();
    EXPECT_EQ(flow->MarkedSlot(), 0);
    EXPECT_FALSE(flow->FinishEnabled());
    AddPrograms(1);
    EXPECT_THAT(Texts(flow->Slot(), &ProgramEntry::AP),
                ElementsAre(L"C:\\Apps\\App1.exe", L"", L"", L"", L""));
    EXPECT_EQ(flow->Slot().NumAP, 1);
}

} // namespace
