#include "WizardUse.h"

using UiDriver::ModalBox;
using UiDriver::WaitUntil;

void WizardUse::TearDown() {
    alone_.reset();
    SourceUse::TearDown();
}

void WizardUse::AwaitWizard() {
    wizard_.emplace(UiDriver::WaitForForm(Running(), WizardTitle()));
    wizard_->WaitUntilAnswers();
    wizard_->BringToFront();
}

void WizardUse::Open() {
    StartHere();
    OpenFrom(IDC_cmdWizard0);
}

void WizardUse::OpenFrom(int wizardButton) {
    Item(wizardButton).Press();
    AwaitWizard();
    AwaitPage(IDC_fraSelectButton);
}

void WizardUse::StartAlone(const std::wstring& arguments) {
    CopyProgram();
    alone_.emplace(UiDriver::Process::Start(CopiedProgram(), arguments));
    AwaitWizard();
    AwaitPage(IDC_fraSelectLaunchMethod);
}

void WizardUse::AwaitPage(int frame) const {
    const auto shown = [&] {
        for (const int each :
             {IDC_fraSelectButton, IDC_fraSelectLaunchMethod, IDC_fraSelectMenu,
              IDC_fraSelectProgramForSingle, IDC_fraFinish, IDC_fraButtonName, IDC_fraSomePrograms}) {
            if (Part(each).Visible() != (each == frame)) {
                return false;
            }
        }
        const bool withList = frame == IDC_fraSelectProgramForSingle || frame == IDC_fraSomePrograms;
        return Part(IDC_fraProgramList).Visible() == withList;
    };
    WaitUntil(shown, L"the page with frame " + std::to_wstring(frame));
}

void WizardUse::Press(int button, int frameAfter) const {
    Part(button).Press();
    AwaitPage(frameAfter);
}

void WizardUse::Check(int option) const {
    Part(option).Click();
    WaitUntil([&] { return Part(option).Checked(); }, L"option " + std::to_wstring(option));
    Wizard().WaitUntilAnswers();
}

void WizardUse::GoToPick(Source source) const {
    Next(IDC_fraSelectMenu);
    Check(IDC_optSelectMenuForSingle0 + static_cast<int>(source));
    Next(IDC_fraSelectProgramForSingle);
    EXPECT_TRUE(Part(OfferOf(source).pane).Visible());
}

void WizardUse::GoToSeveral(int method, const std::wstring& name) const {
    Check(IDC_optSelectLaunchMethod0 + method);
    Next(IDC_fraButtonName);
    Part(IDC_txtButtonName).TypeOver(name);
    AwaitNext(true);
    Next(IDC_fraSomePrograms);
}

void WizardUse::Pick(const Offer& offer) const {
    if (IsTree(offer.pane)) {
        const UiDriver::TreeView tree = TreeIn(Wizard(), offer.pane);
        Reveal(tree, offer.node);
        tree.ClickNode(offer.node);
    } else {
        Wizard().List(offer.pane).ClickItem(offer.row);
        WaitUntil([&] { return Wizard().List(offer.pane).Selected() == offer.row; },
                  L"the row to be selected");
    }
    AwaitNext(true);
}

void WizardUse::PickFile(int number) const {
    Reveal(Menu(), MenuNode(MenuFile(number)));
    Menu().ClickNode(MenuNode(MenuFile(number)));
    AwaitNext(true);
}

void WizardUse::AddFile(int number, int count) const {
    PickFile(number);
    Part(IDC_cmdNext).Press();
    const auto added = [&] { return Part(IDC_txtProgram0 + count - 1).Text() == MenuFile(number); };
    WaitUntil(added, L"program " + std::to_wstring(count) + L" to be added");
}

void WizardUse::AwaitPrograms(const Names& texts) const {
    const auto shown = [&] {
        for (int i = 0; i < 5; ++i) {
            const auto index = static_cast<std::size_t>(i);
            if (Part(IDC_txtProgram0 + i).Text() != (index < texts.size() ? texts[index] : std::wstring())) {
                return false;
            }
        }
        return true;
    };
    WaitUntil(shown, L"the boxes to show " + std::to_wstring(texts.size()) + L" programs");
}

void WizardUse::AwaitNext(bool enabled) const {
    WaitUntil([&] { return Part(IDC_cmdNext).Enabled() == enabled; },
              enabled ? L"Next to be enabled" : L"Next to be disabled");
}

void WizardUse::Finish() const {
    AwaitPage(IDC_fraFinish);
    EXPECT_EQ(Part(IDC_cmdNext).Text(), Text(kFinishText));
    Part(IDC_cmdNext).Press();
    Wizard().WaitUntilGone();
}

ModalBox WizardUse::AwaitQuestion() const {
    const ModalBox box = ModalBox::Wait(Running());
    EXPECT_EQ(box.Title(), WizardTitle());
    EXPECT_EQ(box.Text(), Text(kCloseWizardText));
    return box;
}

StoredButton WizardUse::Several(const std::wstring& name, const std::wstring& method, int count) {
    StoredButton button{name, method, static_cast<DWORD>(count), {}, {}};
    for (int number = 1; number <= count; ++number) {
        button.programs.at(static_cast<std::size_t>(number) - 1) = MenuPath(MenuFile(number));
    }
    return button;
}
