#include "RegisterUse.h"
#include "TestPrinter.h"
#include "driver/DisplayKeyboard.h"

namespace {

namespace DisplayKeyboard = UiDriver::DisplayKeyboard;
using UiDriver::PopupMenu;
using UiDriver::WaitUntil;
using UiDriver::Window;

/// Keys that open one window over another, and those that close them; the last one may close more than one.
struct WayThere : NamedCase {
    const wchar_t* arguments;
    int from; ///< the control that the user comes from
    std::vector<std::string> open;
    std::vector<std::string> close;
    int times = 4;
};

class DisplayKeys : public RegisterUse {
protected:
    Window Opened(const Window& over) const {
        const auto look = [&]() -> std::optional<Window> {
            for (const Window& window : UiDriver::FindWindows({Program().Id(), std::nullopt, std::nullopt})) {
                if (window.Owner() == over.Hwnd() && window.Enabled()) {
                    return window;
                }
            }
            return std::nullopt;
        };
        return UiDriver::WaitForValue(look, L"a window over \"" + over.Title() + L'"');
    }

    /// What the user types next goes to this control of the window, and moves the focus.
    static void ExpectAt(const Window& window, int control) {
        DisplayKeyboard::AwaitWith(window);
        const HWND focused = window.FocusedHwnd();
        EXPECT_EQ(GetDlgCtrlID(focused), control);
        DisplayKeyboard::Press("Tab");
        WaitUntil([&] { return window.FocusedHwnd() != focused; }, L"the Tab key to arrive");
        DisplayKeyboard::Press("shift+Tab");
        WaitUntil([&] { return window.FocusedHwnd() == focused; }, L"the Tab key to arrive once more");
    }
};

class KeyboardReturns : public DisplayKeys, public testing::WithParamInterface<WayThere> {};

TEST_P(KeyboardReturns, ToTheControlThatHadIt) {
    const WayThere& way = GetParam();
    const TestPrinter printer(L"cat >/dev/null");
    Start(way.arguments);
    Item(way.from).Focus();
    if (way.from == IDC_txtButtonName0) {
        DisplayKeyboard::AwaitWith(Dialog());
        DisplayKeyboard::Press("End x"); // so that there is a question
    }
    for (int round = 0; round < way.times; ++round) {
        SCOPED_TRACE(round);
        std::vector<Window> windows{Dialog()};
        for (const std::string& keys : way.open) {
            DisplayKeyboard::AwaitWith(windows.back());
            DisplayKeyboard::Press(keys);
            windows.push_back(Opened(windows.back()));
        }
        for (const std::string& keys : way.close) {
            DisplayKeyboard::AwaitWith(windows.back());
            DisplayKeyboard::Press(keys);
            windows.back().WaitUntilGone();
            windows.pop_back();
        }
        WaitUntil([&] { return Dialog().Enabled(); }, L"the settings dialog to be used again");
        ExpectAt(Dialog(), way.from);
    }
}

INSTANTIATE_TEST_SUITE_P(
    After, KeyboardReturns,
    testing::Values(
        WayThere{{"TheWizardIsCancelled"}, L"/t:0", IDC_cmdWizard0, {"alt+w", "Escape"}, {"y"}, 16},
        WayThere{{"AQuestion"}, L"/t:0", IDC_txtButtonName0, {"Return"}, {"Escape"}},
        WayThere{{"TheManager"}, L"/t:0", IDC_cmdUserManager0, {"alt+m"}, {"Escape"}},
        WayThere{{"AComplaint"},
                 L"/t:0",
                 IDC_cmdUserManager0,
                 {"alt+m", "Tab space", "BackSpace Return"},
                 {"Return", "Escape", "Escape"}},
        WayThere{{"TheRegistration"}, L"/t:0", IDC_picButton0, {"space"}, {"Escape"}},
        WayThere{{"TheColours"}, L"/t:2", IDC_CmdFontColor, {"space"}, {"Escape"}},
        WayThere{{"ThePrinters"}, L"/t:0", IDC_cmdPrint, {"alt+p"}, {"Escape"}},
        WayThere{{"Printing"}, L"/t:0", IDC_cmdPrint, {"alt+p"}, {"Return"}}),
    NameOfCase());

using KeyboardReturnsFromMenus = DisplayKeys;

TEST_F(KeyboardReturnsFromMenus, ToTheControlThatHadIt) {
    Open(Sequence(1));
    for (const int control : {IDC_txtApplication0, IDC_tvTreeView0}) {
        for (int round = 0; round < 4; ++round) {
            Form().Control(control).Focus();
            DisplayKeyboard::AwaitWith(Form());
            DisplayKeyboard::Press(control == IDC_tvTreeView0 ? "Home Menu" : "Menu");
            PopupMenu::Wait(Program());
            DisplayKeyboard::Press("Escape");
            WaitUntil([&] { return !PopupMenu::IsOpen(Program()); }, L"the menu to close");
            ExpectAt(Form(), control);
        }
    }
}

} // namespace
