#include "UiTest.h"

namespace {

using UiDriver::HoldsFor;
using UiDriver::Milliseconds;
using UiDriver::Window;
namespace Mouse = UiDriver::Mouse;

constexpr Milliseconds kTipDelay{700}; // a little more than the system's

class Tips : public UiTest {
protected:
    std::optional<Window> FindTip() const {
        return UiDriver::FindFirstWindow({Program().Id(), L"tooltips_class32", std::nullopt});
    }

    void LeaveThePictures() const {
        Mouse::MoveTo({2, 2});
        UiDriver::WaitUntil([&] { return !FindTip(); }, L"the tip to go");
    }

    Window AwaitTip(int button) const {
        LeaveThePictures();
        PictureOf(button).Hover();
        return UiDriver::WaitForValue([&] { return FindTip(); },
                                      L"the tip of button " + std::to_wstring(button));
    }

    std::wstring TipOf(int button) const {
        std::wstring text;
        const Window tip = AwaitTip(button);
        UiDriver::WaitUntil(
            [&] {
                text = tip.Title();
                return !text.empty();
            },
            L"the tip's text");
        return text;
    }
};

TEST_F(Tips, NameTheProgramsOneALine) {
    Start();
    Dialog().BringToFrontForGood();
    EXPECT_EQ(TipOf(3), L"Words\r\nSheets\r\nStart page");
    const RECT three = FindTip()->Rect();
    EXPECT_EQ(TipOf(1), Local(L"Mail", L"メール"));
    const RECT one = FindTip()->Rect();
    EXPECT_GT(three.bottom - three.top, 2 * (one.bottom - one.top));
    LeaveThePictures();
}

TEST_F(Tips, NameWhatIsSetNow) {
    Start();
    Dialog().BringToFrontForGood();
    EXPECT_EQ(TipOf(4), L"A\r\nB");
    LeaveThePictures();
    Item(IDC_cmdDefault0).Press();
    EXPECT_NE(TipOf(4), L"A\r\nB");
}

TEST_F(Tips, AreNotThereForAButtonWithoutPrograms) {
    Start();
    Dialog().BringToFrontForGood();
    PictureOf(5).Hover();
    EXPECT_TRUE(HoldsFor([&] { return !FindTip(); }, kTipDelay));
}

} // namespace
