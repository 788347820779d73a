#include "BrowseUse.h"
#include "TestDrive.h"
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

TEST_F(Tips, LookAtNothingOnANetwork) {
    const ScratchFolder folder;
    const TestDrive network(L'n', DRIVE_REMOTE, "SHARE");
    const TestDrive stick(L'k', DRIVE_REMOVABLE, "STICK");
    for (const TestDrive* drive : {&network, &stick}) {
        UiDriver::WriteBytes(drive->Folder() + L"\\Report.xls", {});
    }
    AppKey(1, 3).SetString(L"AP1", L"n:\\Report.xls");
    AppKey(1, 3).SetString(L"AP2", L"k:\\Report.xls");
    AppKey(1, 3).SetString(L"AP3", L"\\\\server\\share\\Report.xls");
    for (const wchar_t* title : {L"ProgName1", L"ProgName2", L"ProgName3"}) {
        AppKey(1, 3).SetString(title, L"");
    }
    Start();
    Dialog().BringToFrontForGood();
    EXPECT_EQ(TipOf(3), L"Report.xls\r\nReport\r\nReport.xls");
}

TEST_F(Tips, AreNotThereForAButtonWithoutPrograms) {
    Start();
    Dialog().BringToFrontForGood();
    PictureOf(5).Hover();
    EXPECT_TRUE(HoldsFor([&] { return !FindTip(); }, kTipDelay));
}

} // namespace
