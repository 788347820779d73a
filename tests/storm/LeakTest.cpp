#include "StormUse.h"

#include <dlgs.h>

#include <algorithm>
#include <iostream>
#include <numeric>

namespace {

using UiDriver::Window;

constexpr int kTimes = 15;

class Leak;

struct LeakCase : NamedCase {
    void (Leak::*open)();
};

class Leak : public StormUse, public testing::WithParamInterface<LeakCase> {
public:
    void Register() { OpenFromDialog(IDC_picButton0); }
    void RegisterWithAllSources() {
        const Window form = OpenFromDialog(IDC_picButton0);
        const UiDriver::TabControl tabs = form.Tab(IDC_tabMenu);
        for (int tab = 0; tab < tabs.Count(); ++tab) {
            tabs.Select(tab);
        }
        Settle();
    }
    void Manager() { OpenFromDialog(IDC_cmdUserManager0); }
    void NameQuestion() { OpenOver(OpenFromDialog(IDC_cmdUserManager0), IDC_cmdAdd); }
    void Wizard() { OpenFromDialog(IDC_cmdWizard0); }
    void WizardsQuestion() { OpenOver(OpenFromDialog(IDC_cmdWizard0), IDC_cmdCancel); }
    void SaveQuestion() {
        NameBox(1).SetText(NameBox(1).Text() == L"x" ? L"y" : L"x");
        OpenFromDialog(IDC_cmdOK);
    }
    void Colour() {
        OpenPage(2);
        OpenFromDialog(IDC_CmdFontColor);
    }
    void Printer() { OpenFromDialog(IDC_cmdPrint); }
    void Printing() { Print(); }

protected:
    /// How much more there is in the last third than in the one before, on the average.
    template <class Member> static double Growth(const std::vector<Figures>& held, Member member) {
        const std::size_t third = held.size() / 3;
        const auto mean = [&](std::size_t first) {
            const auto begin = held.begin() + static_cast<std::ptrdiff_t>(first);
            const double sum = std::accumulate(begin, begin + static_cast<std::ptrdiff_t>(third), 0.0,
                                               [&](double before, const Figures& each) {
                                                   return before + static_cast<double>(each.*member);
                                               });
            return sum / static_cast<double>(third);
        };
        return mean(held.size() - third) - mean(held.size() - 2 * third);
    }

private:
    Window OpenFromDialog(int control) { return OpenOver(Dialog(), control); }
    Window OpenOver(const Window& owner, int control) {
        owner.Control(control).Press();
        return AwaitOver(owner);
    }
};

TEST_P(Leak, NothingStaysBehind) {
    const int times = Number("QLB_LEAK_TIMES", kTimes);
    StartHere(L"/t:0");
    std::vector<Figures> held;
    for (int i = 0; i < times; ++i) {
        (this->*GetParam().open)();
        CloseAll();
        held.push_back(Held());
    }
    const double windows = Growth(held, &Figures::windows);
    const double gdiObjects = Growth(held, &Figures::gdiObjects);
    const double kernelHandles = Growth(held, &Figures::kernelHandles);
    const double privateBytes = Growth(held, &Figures::privateBytes);
    std::cout << GetParam().name << ", " << times << " times: " << held.front() << " … " << held.back()
              << "; growth " << windows << ", " << gdiObjects << ", " << kernelHandles << ", "
              << privateBytes / 1024 << " KB\n";
    EXPECT_LT(windows, 1);
    EXPECT_LT(gdiObjects, 1);
    EXPECT_LT(kernelHandles, 1);
    EXPECT_LT(privateBytes, 65536);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, Leak,
    testing::Values(LeakCase{{"Register"}, &Leak::Register},
                    LeakCase{{"RegisterWithAllSources"}, &Leak::RegisterWithAllSources},
                    LeakCase{{"Manager"}, &Leak::Manager}, LeakCase{{"NameQuestion"}, &Leak::NameQuestion},
                    LeakCase{{"Wizard"}, &Leak::Wizard},
                    LeakCase{{"WizardsQuestion"}, &Leak::WizardsQuestion},
                    LeakCase{{"SaveQuestion"}, &Leak::SaveQuestion}, LeakCase{{"Colour"}, &Leak::Colour},
                    LeakCase{{"Printer"}, &Leak::Printer}, LeakCase{{"Printing"}, &Leak::Printing}),
    NameOfCase());

} // namespace
