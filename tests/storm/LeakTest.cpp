#include "StormUse.h"
#include "TestWindow.h"

#include <commctrl.h>
#include <dlgs.h>

#include <algorithm>
#include <iostream>
#include <numeric>

namespace {

using UiDriver::Window;

constexpr int kTimes = 15;
/// What the last third of the openings may hold more than the middle third. With n openings in a third, a leak of
/// one object in each opening shows as n.
constexpr double kMoreObjects = 4.5; // what the system keeps for later comes in small steps
constexpr double kMoreBytes = 64.0 * 1024;
constexpr double kMoreBytesOfTrees = 3 * kMoreBytes; // their threads' memory comes and goes at its own time

constexpr double kBytesOfSystemDialog = 900;

class Leak;

struct LeakCase : NamedCase {
    void (Leak::*open)();
    double moreBytes = kMoreBytes;
    double bytesEachTime = 0; ///< that the system's print or colour dialog keeps, in an empty program too
};

class Leak : public StormUse, public testing::WithParamInterface<LeakCase> {
public:
    void Register() { OpenFromDialog(IDC_picButton0); }
    void RegisterWithAllSources() { // the favourites' and the files' trees too
        const Window form = OpenFromDialog(IDC_picButton0);
        const UiDriver::TabControl tabs = form.Tab(IDC_tabMenu);
        for (int tab = 0; tab < tabs.Count(); ++tab) {
            tabs.Select(tab);
        }
        Settle();
    }
    void Manager() { OpenFromDialog(IDC_cmdUserManager0); }
    void DeleteQuestion() {
        const Window manager = OpenFromDialog(IDC_cmdUserManager0);
        manager.Control(IDC_lstUserList).Focus();
        UiDriver::Keyboard::Press(VK_END); // the first one is current and stays
        OpenOver(manager, IDC_cmdDelete);
    }
    void NameQuestion() { OpenOver(OpenFromDialog(IDC_cmdUserManager0), IDC_cmdAdd); }
    void NameProblem() {
        const Window question = OpenOver(OpenFromDialog(IDC_cmdUserManager0), IDC_cmdAdd);
        question.Control(IDC_txtInputBox).SetText({});
        OpenOver(question, IDC_cmdOK);
    }
    void ParameterQuestion() { AskParameter(); }
    void SlotMenu() { OpenMenu(IDC_txtApplication0); }
    void SendMenu() { static_cast<void>(OpenMenu(IDC_tvTreeView0).OpenByKeys(0)); }
    void Wizard() { OpenFromDialog(IDC_cmdWizard0); }
    void WizardsQuestion() { OpenOver(OpenFromDialog(IDC_cmdWizard0), IDC_cmdCancel); }
    void SaveQuestion() {
        NameBox(1).SetText(NameBox(1).Text() == L"x" ? L"y" : L"x");
        OpenFromDialog(IDC_cmdOK);
    }
    void Colour() {
        ShowPage(2);
        OpenFromDialog(IDC_CmdFontColor);
    }
    void Printer() { OpenFromDialog(IDC_cmdPrint); }
    void Printing() { Print(); }
    void Tip() {
        Dialog().BringToFront();
        PictureOf(1).Hover();
        const Window tip = UiDriver::WaitForWindow({Program().Id(), TOOLTIPS_CLASSW, {}});
        UiDriver::Mouse::MoveTo({2, 2});
        UiDriver::WaitUntil([&] { return !tip.Visible(); }, L"the tip to go");
    }
    void HelpThatIsOpen() {
        TestWindow help(L"HH Parent", Text(kTitleText) + Text(kHelpText));
        help.GiveWayTo(Dialog());
        Item(IDC_cmdHelp).Press();
        help.WaitUntilItComesForward();
    }
    void HelpThatStarts() {
        Item(IDC_cmdHelp).Press();
        Dialog().WaitUntilAnswers();
    }

protected:
    using Third = std::vector<Figures>;

    static Third Last(const Third& held) { return {held.end() - Size(held), held.end()}; }
    static Third Middle(const Third& held) { return {held.end() - 2 * Size(held), held.end() - Size(held)}; }

    template <class Member> static double Mean(const Third& third, Member member) {
        const auto add = [&](double sum, const Figures& each) {
            return sum + static_cast<double>(each.*member);
        };
        return std::accumulate(third.begin(), third.end(), 0.0, add) / static_cast<double>(third.size());
    }

    /// Memory goes up and down by what the system holds back before it frees it.
    static double LeastBytes(const Third& third) {
        const auto less = [](const Figures& a, const Figures& b) { return a.privateBytes < b.privateBytes; };
        return static_cast<double>(std::min_element(third.begin(), third.end(), less)->privateBytes);
    }

private:
    static std::ptrdiff_t Size(const Third& held) { return static_cast<std::ptrdiff_t>(held.size() / 3); }

    Window OpenFromDialog(int control) { return OpenOver(Dialog(), control); }
    UiDriver::PopupMenu OpenMenu(int control) {
        const Window form = OpenFromDialog(IDC_picButton0);
        Settle();
        form.BringToFront();
        form.Control(control).Focus();
        UiDriver::Keyboard::Press(VK_DOWN); // to the first program in a tree
        UiDriver::Keyboard::Press(VK_APPS);
        return UiDriver::PopupMenu::Wait(Program());
    }
    Window OpenOver(const Window& owner, int control) {
        owner.Control(control).Press();
        return AwaitOver(owner);
    }
};

TEST_P(Leak, NothingStaysBehind) {
    const int times = Wanted("QLB_LEAK_TIMES", kTimes);
    // The help program finds nothing in it and ends.
    UiDriver::WriteBytes(ScratchFolder::Path() + L"\\program\\QLBUTL.CHM", "ITSF");
    StartWatched(L"/t:0");
    std::vector<Figures> held;
    for (int i = 0; i < times; ++i) {
        (this->*GetParam().open)();
        CloseAll();
        held.push_back(Held());
    }
    const Third middle = Middle(held);
    const Third last = Last(held);
    const double windows = Mean(last, &Figures::windows) - Mean(middle, &Figures::windows);
    const double gdiObjects = Mean(last, &Figures::gdiObjects) - Mean(middle, &Figures::gdiObjects);
    const double kernelHandles = Mean(last, &Figures::kernelHandles) - Mean(middle, &Figures::kernelHandles);
    const double privateBytes = LeastBytes(last) - LeastBytes(middle);
    std::cout << GetParam().name << ", " << times << " times: " << held.front() << " … " << held.back()
              << "; growth " << windows << ", " << gdiObjects << ", " << kernelHandles << ", "
              << privateBytes / 1024 << " KB\n"
              << std::flush;
    if (std::getenv("QLB_STORM_LOG") != nullptr) {
        for (const Figures& each : held) {
            std::cout << "  " << each << '\n';
        }
    }
    EXPECT_LT(windows, kMoreObjects);
    EXPECT_LT(gdiObjects, kMoreObjects);
    EXPECT_LT(kernelHandles, kMoreObjects);
    EXPECT_LT(privateBytes, GetParam().moreBytes + GetParam().bytesEachTime * times / 3);
}

/// The short run leaves out what others open on their way, and what takes long.
std::vector<LeakCase> Cases() {
    std::vector<LeakCase> cases = {
        {{"RegisterWithAllSources"}, &Leak::RegisterWithAllSources, kMoreBytesOfTrees},
        {{"NameProblem"}, &Leak::NameProblem},
        {{"DeleteQuestion"}, &Leak::DeleteQuestion},
        {{"WizardsQuestion"}, &Leak::WizardsQuestion, kMoreBytesOfTrees},
        {{"SaveQuestion"}, &Leak::SaveQuestion},
        {{"Colour"}, &Leak::Colour, kMoreBytes, kBytesOfSystemDialog},
        {{"Printing"}, &Leak::Printing, kMoreBytes, kBytesOfSystemDialog},
        {{"HelpThatIsOpen"}, &Leak::HelpThatIsOpen}};
    const std::vector<LeakCase> others = {
        {{"Register"}, &Leak::Register, kMoreBytesOfTrees},
        {{"ParameterQuestion"}, &Leak::ParameterQuestion, kMoreBytesOfTrees},
        {{"SendMenu"}, &Leak::SendMenu, kMoreBytesOfTrees},
        {{"SlotMenu"}, &Leak::SlotMenu, kMoreBytesOfTrees},
        {{"Manager"}, &Leak::Manager},
        {{"NameQuestion"}, &Leak::NameQuestion},
        {{"Wizard"}, &Leak::Wizard, kMoreBytesOfTrees},
        {{"Printer"}, &Leak::Printer, kMoreBytes, kBytesOfSystemDialog},
        {{"Tip"}, &Leak::Tip},
        {{"HelpThatStarts"}, &Leak::HelpThatStarts}};
    if (Wanted("QLB_LEAK_TIMES", 0) != 0) {
        cases.insert(cases.end(), others.begin(), others.end());
    }
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Forms, Leak, testing::ValuesIn(Cases()), NameOfCase());

constexpr int kStarts = 5;
constexpr std::size_t kMoreOfSystem = 8; // its own programs come and go

class StartLeak : public StormUse {};

TEST_F(StartLeak, NothingStaysInTheSystem) {
    const int times = Wanted("QLB_LEAK_TIMES", kStarts);
    CopyProgram();
    std::vector<Figures> held;
    for (int i = 0; i < times; ++i) {
        StartFrom(CopiedProgram(), L"/t:0");
        Dialog().Close();
        EXPECT_EQ(Program().WaitForExit(), 0U);
        EndProgram();
        held.push_back(Figures::OfSystem());
    }
    std::cout << "Start, " << times << " times, in the whole system: " << held.at(1) << " … " << held.back()
              << '\n';
    EXPECT_LE(held.back().windows, held.at(1).windows + kMoreOfSystem);
    EXPECT_LE(held.back().kernelHandles, held.at(1).kernelHandles + kMoreOfSystem);
}

} // namespace
