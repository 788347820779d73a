#include "driver/Scaling.h"
#include "LayoutUse.h"
#include "WizardUse.h"
#include "driver/Message.h"
#include "driver/RemoteMemory.h"

namespace {

using UiDriver::Picture;
using UiDriver::WaitUntil;
namespace Keyboard = UiDriver::Keyboard;
namespace Mouse = UiDriver::Mouse;

class Scaling : public UiTest {
protected:
    void Scale(UINT dpi) const { UiDriver::ScaleTo(Dialog().Hwnd(), dpi); }
};

TEST_F(Scaling, NothingStaysOnTheScreenOfTheFormerLayout) {
    Start();
    for (const int page : {1, 2, 0}) {
        OpenPage(page);
        const Picture before = Picture::CaptureStill(Dialog().Hwnd());
        Scale(120);
        Picture::CaptureStill(Dialog().Hwnd());
        Scale(96);
        EXPECT_EQ(UiDriver::DifferingPixels(before, Picture::CaptureStill(Dialog().Hwnd())), 0U)
            << "page " << page;
    }
}

TEST_F(Scaling, APageThatIsFirstShownAfterwardsLooksAsOneThatWasThere) {
    for (const int page : {1, 2}) {
        Start();
        OpenPage(page);
        Scale(120);
        const Picture scaled = Picture::CaptureStill(Dialog().Hwnd());
        EndProgram();
        Start();
        Scale(120);
        OpenPage(page);
        EXPECT_EQ(UiDriver::DifferingPixels(scaled, Picture::CaptureStill(Dialog().Hwnd())), 0U)
            << "page " << page;
        EndProgram();
    }
}

TEST_F(Scaling, TabsCanBeClickedAfterwards) {
    Start();
    for (const UINT dpi : {120U, 192U, 96U}) {
        Scale(dpi);
        for (const int page : {1, 2, 0}) {
            OpenPage(page);
        }
    }
}

TEST_F(Scaling, TabsCanBeClickedAfterARightClickOnThePage) {
    Start();
    OpenPage(1);
    for (const UINT dpi : {96U, 120U}) {
        Scale(dpi);
        Item(IDC_cmdUserManager1).Click(UiDriver::MouseButton::Right);
        Dialog().WaitUntilAnswers();
        OpenPage(0);
        OpenPage(1);
    }
}

/// What the form answers to the system's question for its size on a screen of that scaling.
SIZE ToldSize(const UiDriver::Window& form, UINT dpi) {
    const SIZE suggested{1, 1};
    const UiDriver::RemoteMemory memory(form.Hwnd(), sizeof suggested);
    memory.Write(0, &suggested, sizeof suggested);
    EXPECT_EQ(UiDriver::Send(form.Hwnd(), WM_GETDPISCALEDSIZE, dpi, memory.Param()), TRUE);
    SIZE told{};
    memory.Read(0, &told, sizeof told);
    return told;
}

TEST_F(Scaling, IsToldBeforehandInTheSizeThatTheFormThenHas) {
    Start();
    Dialog().BringToFrontForGood();
    for (const UINT dpi : {144U, 120U, 96U}) {
        const Picture before = Picture::CaptureStill(Dialog().Hwnd());
        const SIZE told = ToldSize(Dialog(), dpi);
        EXPECT_EQ(UiDriver::DifferingPixels(before, Picture::CaptureStill(Dialog().Hwnd())), 0U)
            << "asking alone changes nothing";
        Scale(dpi);
        const RECT rect = Dialog().Rect();
        EXPECT_EQ(told.cx, rect.right - rect.left) << dpi;
        EXPECT_EQ(told.cy, rect.bottom - rect.top) << dpi;
    }
}

// Near the border of two monitors the new size alone can bring a form to the other one.
TEST_F(Scaling, IsTheOneOfTheScreenThatTheFormIsOnAfterItsMove) {
    Start();
    Scale(120);
    const RECT expected = Dialog().Rect();
    const RECT apply = Item(IDC_cmdApply).Rect();
    Scale(96);
    UiDriver::FakeScaling(Dialog().Hwnd(), 120);
    UiDriver::TellScaling(Dialog().Hwnd(), 192);
    const RECT rect = Dialog().Rect();
    EXPECT_EQ(rect.right - rect.left, expected.right - expected.left);
    EXPECT_EQ(rect.bottom - rect.top, expected.bottom - expected.top);
    const RECT now = Item(IDC_cmdApply).Rect();
    EXPECT_EQ(now.right - now.left, apply.right - apply.left);
}

/// The wizard at 300 %, which is larger than the tests' screen.
class LargeForm : public WizardUse {
protected:
    static constexpr UINT kLarge = 288;

    void OpenLarge() {
        Open();
        UiDriver::ScaleTo(Wizard().Hwnd(), kLarge);
        Wizard().BringToFrontForGood();
    }

    RECT Work() const {
        MONITORINFO monitor{};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoW(MonitorFromWindow(Wizard().Hwnd(), MONITOR_DEFAULTTONEAREST), &monitor);
        return monitor.rcWork;
    }

    static bool Within(const RECT& inner, const RECT& outer) {
        RECT both{};
        UnionRect(&both, &inner, &outer);
        return EqualRect(&both, &outer) != FALSE;
    }

    bool Seen(int id) const { return Within(Part(id).Rect(), Wizard().ClientRect()); }
    bool Scrolls() const {
        return (GetWindowLongW(Wizard().Hwnd(), GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL)) != 0;
    }
};

TEST_F(LargeForm, IsNoLargerThanTheWorkArea) {
    OpenLarge();
    EXPECT_TRUE(Within(Wizard().Rect(), Work()));
    EXPECT_TRUE(Scrolls());
    EXPECT_FALSE(Seen(IDC_cmdCancel));
    EXPECT_TRUE(Seen(IDC_lblHeading) || Part(IDC_lblHeading).Rect().left >= Wizard().ClientRect().left);
}

TEST_F(LargeForm, FollowsTheTabKey) {
    OpenLarge();
    for (const int id : {IDC_cmdNext, IDC_cmdCancel}) {
        Keyboard::Press(VK_TAB);
        WaitUntil([&] { return GetDlgCtrlID(Wizard().FocusedHwnd()) == id && Seen(id); },
                  L"control " + std::to_wstring(id) + L" to have the focus in view");
    }
    Keyboard::Press(VK_TAB);
    const auto begin = [&] {
        const RECT option = Part(IDC_optMFButton0).Rect();
        const RECT view = Wizard().ClientRect();
        return option.left >= view.left && option.top >= view.top && option.bottom <= view.bottom;
    };
    WaitUntil(begin, L"the first option to come back into view");
}

TEST_F(LargeForm, FollowsAnAccessKeyToAnotherPage) {
    OpenLarge();
    Keyboard::Press(VK_RETURN);
    AwaitPage(IDC_fraSelectLaunchMethod);
    Keyboard::Press(VK_DOWN);
    Keyboard::Press(VK_RETURN);
    AwaitPage(IDC_fraButtonName);
    WaitUntil([&] { return Part(IDC_txtButtonName).Rect().top >= Wizard().ClientRect().top; },
              L"the name box to be in view");
}

TEST_F(LargeForm, IsScrolledByTheWheelAndThenClicked) {
    OpenLarge();
    const RECT view = Wizard().ClientRect();
    Mouse::MoveTo({view.left + 30, view.top + 30});
    Mouse::Turn(-20);
    WaitUntil([&] { return Part(IDC_cmdNext).Rect().bottom <= view.bottom; }, L"the wheel to go down");
    Keyboard::Down(VK_SHIFT);
    Mouse::Turn(-20);
    Keyboard::Up(VK_SHIFT);
    WaitUntil([&] { return Seen(IDC_cmdNext); }, L"the wheel to go to the right");
    Part(IDC_cmdNext).Click();
    AwaitPage(IDC_fraSelectLaunchMethod);
    Mouse::MoveTo({view.left + 30, view.top + 30});
    Mouse::Turn(20);
    WaitUntil([&] { return Part(IDC_lblHeading).Rect().top >= view.top; }, L"the wheel to show the heading");
}

TEST_F(LargeForm, IsScrolledByItsBars) {
    OpenLarge();
    const RECT view = Wizard().ClientRect();
    // Behind the thumbs.
    const POINT pageDown{view.right + 8, view.bottom - 30};
    const POINT pageRight{view.right - 30, view.bottom + 8};
    Mouse::Click(pageDown);
    Mouse::Click(pageRight);
    WaitUntil([&] { return Seen(IDC_cmdCancel); }, L"the scroll bars to show Cancel");
    Part(IDC_cmdCancel).Click();
    AwaitQuestion().Press(IDNO);
}

TEST_F(LargeForm, HasNoScrollBarsOnceItFitsAgain) {
    Open();
    const RECT before = Wizard().Rect();
    UiDriver::ScaleTo(Wizard().Hwnd(), kLarge);
    Keyboard::Press(VK_TAB);
    Keyboard::Press(VK_TAB);
    WaitUntil([&] { return Seen(IDC_cmdCancel); }, L"Cancel to be in view");
    UiDriver::ScaleTo(Wizard().Hwnd(), 96);
    EXPECT_FALSE(Scrolls());
    Part(IDC_optMFButton0).Focus();
    // The window manager's answer to the new size may come later.
    WaitUntil([&] { return Wizard().Rect().right - Wizard().Rect().left == before.right - before.left; },
              L"the form to be as wide as before");
    EXPECT_EQ(Part(IDC_lblHeading).Rect().left - Wizard().ClientRect().left, 16);
}

TEST_F(LargeForm, APageThatIsFirstShownAfterScrollingStandsInItsPlace) {
    Start();
    UiDriver::ScaleTo(Dialog().Hwnd(), kLarge);
    Dialog().BringToFrontForGood();
    Item(IDC_cmdCancel).Focus();
    Keyboard::Press(VK_TAB);
    WaitUntil([&] { return Item(IDC_cmdApply).Rect().right < Dialog().ClientRect().right; },
              L"the form to be scrolled to its last button");
    Keyboard::Press({VK_CONTROL}, VK_TAB);
    const auto corner = [&](int id) {
        const RECT tab = Tabs().Rect();
        const RECT frame = Item(id).Rect();
        return POINT{frame.left - tab.left, frame.top - tab.top};
    };
    WaitUntil([&] { return Dialog().HasControl(IDC_fraButtonSet1); }, L"the second page");
    EXPECT_EQ(corner(IDC_fraButtonSet1).x, corner(IDC_fraButtonSet0).x);
    EXPECT_EQ(corner(IDC_fraButtonSet1).y, corner(IDC_fraButtonSet0).y);
}

} // namespace
