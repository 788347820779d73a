#include "RegisterUse.h"

namespace {

using UiDriver::Control;
using UiDriver::HoldsFor;
using UiDriver::Milliseconds;
using UiDriver::Picture;
namespace Keyboard = UiDriver::Keyboard;
namespace Mouse = UiDriver::Mouse;

class Pictures : public UiTest {
protected:
    /// The middle of a button's picture, inside the ring that marks the focus.
    static RECT MiddleOf(const Control& button) {
        const RECT rect = button.Rect();
        const LONG width = (rect.right - rect.left) / 4;
        const LONG height = (rect.bottom - rect.top) / 4;
        return {rect.left + width, rect.top + height, rect.right - width, rect.bottom - height};
    }

    Picture Look(int button) const { return Picture::CaptureRect(MiddleOf(PictureOf(button))); }

    /// Once painting is done.
    Picture LookStill(int button) const {
        const auto painted = [&] {
            const Picture look = Look(button);
            const auto pixels =
                static_cast<std::size_t>(look.Width()) * static_cast<std::size_t>(look.Height());
            return look.CountOf(look.Pixel(0, 0)) != pixels;
        };
        UiDriver::WaitUntil(painted, L"the picture of button " + std::to_wstring(button) + L" to be painted");
        Picture::CaptureStill(PictureOf(button).Hwnd());
        return Look(button);
    }

    void AwaitAlike(int a, int b) const {
        UiDriver::WaitUntil([&] { return LookStill(a) == LookStill(b); },
                            L"the pictures of buttons " + std::to_wstring(a) + L" and " + std::to_wstring(b) +
                                L" to be alike");
    }

    void AwaitChange(int button, const Picture& from) const {
        UiDriver::WaitUntil([&] { return Look(button) != from; },
                            L"the picture of button " + std::to_wstring(button) + L" to change");
    }

    void AwaitReturn(int button, const Picture& to) const {
        UiDriver::WaitUntil([&] { return Look(button) == to; },
                            L"the picture of button " + std::to_wstring(button) + L" to be as before");
    }

    static void ExpectAllDifferent(const std::vector<Picture>& looks) {
        for (std::size_t a = 0; a < looks.size(); ++a) {
            for (std::size_t b = a + 1; b < looks.size(); ++b) {
                EXPECT_NE(looks[a], looks[b]) << "looks " << a << " and " << b;
            }
        }
    }

    /// A point of the frame around the pictures that no control covers.
    POINT FramePoint() const {
        const RECT first = PictureOf(1).Rect();
        const RECT second = PictureOf(2).Rect();
        return {(first.right + second.left) / 2, (first.top + first.bottom) / 2};
    }

    void SelectQPictures() const { Machine().SetDword(L"QSTART", 1); }

    void SetMethod(int button, const std::wstring& method, DWORD count) const {
        WriteText(AppKey(1, button), L"Execute", method);
        AppKey(1, button).SetDword(L"NumAP", count);
    }
};

TEST_F(Pictures, AShortcutKeyLooksLikeASingleProgramAndAllElseDiffers) {
    // Single, shortcut key, sequence, simultaneous, none: as the first pattern has them.
    Start();
    AwaitAlike(1, 2);
    ExpectAllDifferent({LookStill(1), LookStill(3), LookStill(4), LookStill(5)});
}

TEST_F(Pictures, SmallMethodLettersCountToo) {
    SetMethod(5, L"s", 1);
    Start();
    AwaitAlike(5, 3);
}

TEST_F(Pictures, AnyMethodWithoutProgramsShowsTheEmptyPicture) {
    SetMethod(4, L"P", 0);
    Start();
    AwaitAlike(4, 5);
}

TEST_F(Pictures, AnUnknownMethodShowsTheEmptyPictureAndIsNoChange) {
    SetMethod(1, L"X", 1);
    const std::wstring before = StoreDump();
    Start();
    AwaitAlike(1, 5);
    Item(IDC_cmdOK).Press();
    ExpectEnd();
    EXPECT_EQ(StoreDump(), before);
}

TEST_F(Pictures, AnUnknownMethodShowsItsPictureOnceItsDialogWasOpen) {
    SetMethod(1, L"X", 1);
    Start();
    AwaitAlike(1, 5);
    PictureOf(1).Press();
    const UiDriver::Window dialog = UiDriver::WaitForForm(Program(), Text(kRegisterTitleText));
    dialog.WaitUntilAnswers();
    dialog.Control(IDC_cmdCancel).Press();
    dialog.WaitUntilGone();
    AwaitAlike(1, 2);
    Item(IDC_cmdOK).Press();
    ExpectEnd();
}

TEST_F(Pictures, AnUnknownMethodIsStoredAsSingleByApply) {
    SetMethod(1, L"X", 1);
    Start();
    Apply();
    EXPECT_EQ(AppKey(1, 1).String(L"Execute"), L"M");
}

TEST_F(Pictures, TheDefaultsChangeThePicture) {
    Start();
    const Picture before = LookStill(3);
    Item(IDC_cmdDefault0).Press();
    AwaitChange(3, before);
    AwaitAlike(3, 1);
}

TEST_F(Pictures, HoveringShowsTheHoverPictureAndTheFrameTakesItBack) {
    Start();
    const Picture before = LookStill(2);
    PictureOf(2).Hover();
    AwaitChange(2, before);
    Mouse::MoveTo(FramePoint());
    AwaitReturn(2, before);
}

TEST_F(Pictures, HoveringTheNextPictureTakesTheFirstOneBack) {
    Start();
    const Picture first = LookStill(1);
    const Picture second = LookStill(2);
    PictureOf(1).Hover();
    AwaitChange(1, first);
    PictureOf(2).Hover();
    AwaitChange(2, second);
    AwaitReturn(1, first);
}

TEST_F(Pictures, LeavingTheWindowTakesTheHoverPictureBack) {
    Start();
    const Picture before = LookStill(2);
    PictureOf(2).Hover();
    AwaitChange(2, before);
    Mouse::MoveTo({2, 2});
    AwaitReturn(2, before);
}

TEST_F(Pictures, EveryFamilyHasItsOwnHoverPicture) {
    Start();
    std::vector<Picture> hovered;
    for (const int button : {1, 3, 4, 5}) {
        const Picture before = LookStill(button);
        PictureOf(button).Hover();
        AwaitChange(button, before);
        hovered.push_back(LookStill(button));
        Mouse::MoveTo(FramePoint());
    }
    ExpectAllDifferent(hovered);
}

TEST_F(Pictures, TheQSetHasNoHoverPictures) {
    SelectQPictures();
    Start();
    const Picture before = LookStill(2);
    PictureOf(2).Hover();
    EXPECT_TRUE(HoldsFor([&] { return Look(2) == before; }, Milliseconds(400)));
}

TEST_F(Pictures, WithoutTheMakersHoverSetNothingChangesUnderTheMouse) {
    Machine().SetDword(L"BtnImage", 0);
    Start();
    const Picture before = LookStill(2);
    PictureOf(2).Hover();
    EXPECT_TRUE(HoldsFor([&] { return Look(2) == before; }, Milliseconds(400)));
}

TEST_F(Pictures, TheMouseButtonPressesThePictureWhileItIsHeld) {
    SelectQPictures();
    Start();
    const Picture before = LookStill(2);
    PictureOf(2).Hover();
    Mouse::Down();
    AwaitChange(2, before);
    // Off the picture the press is taken back, and letting go there is no click.
    Mouse::MoveTo(FramePoint());
    AwaitReturn(2, before);
    Mouse::Up();
    ExpectAlive();
}

TEST_F(Pictures, TheSpaceBarPressesThePictureWhileItIsHeld) {
    Start();
    const Picture before = LookStill(2);
    PictureOf(2).Focus();
    Keyboard::Down(VK_SPACE);
    AwaitChange(2, before);
    // The focus takes the press with it, and letting go elsewhere is no click.
    NameBox(2).Focus();
    Keyboard::Up(VK_SPACE);
    AwaitReturn(2, before);
    ExpectAlive();
}

TEST_F(Pictures, APressedPictureDiffersFromAHoveredOne) {
    Start();
    const Picture before = LookStill(2);
    PictureOf(2).Hover();
    AwaitChange(2, before);
    const Picture hovered = LookStill(2);
    Mouse::Down();
    AwaitChange(2, hovered);
    EXPECT_NE(LookStill(2), before);
    Mouse::MoveTo(FramePoint());
    Mouse::Up();
}

TEST_F(Pictures, OnTheFirstModelTheFnKeysHaveTheirOwnPictures) {
    SelectQPictures();
    Machine().SetDword(L"NTNumAPBtn", 3);
    for (const int button : {6, 7, 8}) {
        SetMethod(button, L"S", 2);
    }
    Start(L"/t:1");
    AwaitAlike(6, 7);
    EXPECT_NE(LookStill(6), LookStill(8));
    const Picture eighth = LookStill(8);
    OpenPage(0);
    // The third button has the same method on the desktop page.
    AwaitReturn(3, eighth);
}

TEST_F(Pictures, OnOtherModelsTheFnKeysLookLikeTheOthers) {
    Machine().SetDword(L"QSTART", 2);
    Machine().SetDword(L"NTNumAPBtn", 3);
    for (const int button : {6, 7, 8}) {
        SetMethod(button, L"S", 2);
    }
    Start(L"/t:1");
    AwaitAlike(6, 8);
    AwaitAlike(7, 8);
}

TEST_F(Pictures, EveryFamilyOfTheFnKeysHasItsOwnPicture) {
    SelectQPictures();
    std::vector<Picture> shown;
    const std::pair<const wchar_t*, DWORD> families[] = {{L"M", 1}, {L"S", 1}, {L"P", 1}, {L"M", 0}};
    for (const auto& [method, count] : families) {
        SetMethod(6, method, count);
        Start(L"/t:1");
        shown.push_back(LookStill(6));
        EndProgram();
    }
    ExpectAllDifferent(shown);
}

struct RoundCase : NamedCase {
    DWORD model;
    int lastRound; ///< button number
};

class RoundPictures : public Pictures, public testing::WithParamInterface<RoundCase> {
protected:
    void ExpectShape(int button) const {
        const Control picture = PictureOf(button);
        const RECT rect = picture.Rect();
        const LONG width = rect.right - rect.left;
        const LONG height = rect.bottom - rect.top;
        RECT box{};
        if (button > GetParam().lastRound) {
            EXPECT_EQ(picture.RegionBox(box), ERROR) << "button " << button << " has a region";
            return;
        }
        ASSERT_EQ(picture.RegionBox(box), COMPLEXREGION) << "button " << button;
        for (const POINT corner : {POINT{1, 1}, {width - 2, 1}, {1, height - 2}, {width - 2, height - 2}}) {
            EXPECT_FALSE(picture.RegionContains(corner)) << "button " << button;
        }
        for (const POINT inside : {POINT{width / 2, height / 2},
                                   {width / 2, 1},
                                   {width / 2, height - 3},
                                   {1, height / 2},
                                   {width - 3, height / 2}}) {
            EXPECT_TRUE(picture.RegionContains(inside)) << "button " << button;
        }
    }
};

TEST_P(RoundPictures, EndWhereTheModelSaysSo) {
    Machine().SetDword(L"QSTART", GetParam().model);
    Machine().SetDword(L"NTNumAPBtn", 3);
    Start(L"/t:0");
    for (int button = 1; button <= 5; ++button) {
        ExpectShape(button);
    }
    OpenPage(1);
    for (int button = 6; button <= 8; ++button) {
        ExpectShape(button);
    }
}

INSTANTIATE_TEST_SUITE_P(, RoundPictures,
                         testing::Values(RoundCase{{"AllWithoutModel"}, 0, 8},
                                         RoundCase{{"DesktopOnFirstModel"}, 1, 5},
                                         RoundCase{{"OneOnOtherModels"}, 2, 1}),
                         NameOfCase{});

TEST_F(Pictures, AClickOutsideTheRoundPictureDoesNotPressIt) {
    SelectQPictures();
    Start();
    const Picture before = LookStill(2);
    const RECT rect = PictureOf(2).Rect();
    Mouse::MoveTo({rect.left + 1, rect.top + 1});
    Mouse::Down();
    EXPECT_TRUE(HoldsFor([&] { return Look(2) == before; }, Milliseconds(200)));
    Mouse::Up();
}

} // namespace
