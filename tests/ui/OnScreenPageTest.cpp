#include "Fonts.h"
#include "UiTest.h"
#include "driver/Message.h"

#include <algorithm>
#include <set>

namespace {

using UiDriver::ColourDialog;
using UiDriver::Picture;

class OnScreenPage : public UiTest {
protected:
    static constexpr int kChoices[] = {IDC_lblFontName,  IDC_cmbFontName,  IDC_lblFontSize, IDC_cmbFontSize,
                                       IDC_lblFontColor, IDC_CmdFontColor, IDC_lblPreview,  IDC_picPreview};

    void StartOnPage() { Start(L"/t:2"); }

    void ExpectChoicesEnabled(bool enabled) const {
        for (const int id : kChoices) {
            EXPECT_EQ(Item(id).Enabled(), enabled) << "control " << id;
        }
    }

    void ToggleDisplay() const {
        Item(IDC_chkOnScreen).Press();
        Dialog().WaitUntilAnswers();
    }

    ColourDialog OpenColours() const {
        Item(IDC_CmdFontColor).Press();
        return ColourDialog::Wait(Program());
    }

    StoredOnScreen Stored() const { return ReadOnScreen(OnScreenKey()); }
};

TEST_F(OnScreenPage, ShowsTheStoredSettings) {
    StartOnPage();
    EXPECT_TRUE(Item(IDC_chkOnScreen).Checked());
    EXPECT_EQ(Combo(IDC_cmbFontName).SelectedText(), SeededOnScreen().face);
    EXPECT_EQ(Combo(IDC_cmbFontSize).SelectedText(), Text(kFirstSizeText + 1));
    ExpectChoicesEnabled(true);
}

TEST_F(OnScreenPage, OpensWithItsChoicesDisabledWhenTheDisplayIsOff) {
    OnScreenKey().SetDword(L"OnScreen", 0);
    StartOnPage();
    EXPECT_FALSE(Item(IDC_chkOnScreen).Checked());
    ExpectChoicesEnabled(false);
    EXPECT_TRUE(Item(IDC_cmdDefault2).Enabled());
}

TEST_F(OnScreenPage, TheCheckBoxDisablesAndEnablesTheChoices) {
    StartOnPage();
    ToggleDisplay();
    ExpectChoicesEnabled(false);
    ToggleDisplay();
    ExpectChoicesEnabled(true);
}

TEST_F(OnScreenPage, OffersTheUprightTrueTypeFacesOfItsCharacterSetsInTheSystemsOrder) {
    StartOnPage();
    EXPECT_EQ(Combo(IDC_cmbFontName).Items(), OfferedFaces());
}

TEST_F(OnScreenPage, OffersNoFaceTwice) {
    StartOnPage();
    std::set<std::wstring> seen;
    for (std::wstring face : Combo(IDC_cmbFontName).Items()) {
        CharLowerBuffW(face.data(), static_cast<DWORD>(face.size()));
        EXPECT_TRUE(seen.insert(face).second) << UiDriver::ToUtf8(face);
    }
    EXPECT_GT(seen.size(), 1U);
}

TEST_F(OnScreenPage, OffersFiveSizesThatStandForTheStepsOneToFive) {
    StartOnPage();
    const UiDriver::ComboBox sizes = Combo(IDC_cmbFontSize);
    ASSERT_EQ(sizes.Count(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(sizes.Item(i), Text(kFirstSizeText + i));
        EXPECT_EQ(sizes.ItemData(i), i + 1);
    }
}

TEST_F(OnScreenPage, TheWheelOverAClosedListChangesNothing) {
    StartOnPage();
    Dialog().BringToFrontForGood();
    for (const int id : {IDC_cmbFontName, IDC_cmbFontSize}) {
        const auto before = Combo(id).Selected();
        Combo(id).Focus();
        UiDriver::Mouse::MoveTo(Combo(id).Centre());
        for (const int lines : {-3, 2}) {
            UiDriver::Mouse::Turn(lines);
            EXPECT_TRUE(UiDriver::HoldsFor([&] { return Combo(id).Selected() == before; },
                                           UiDriver::Milliseconds(200)));
        }
    }
}

TEST_F(OnScreenPage, TheWheelScrollsAListThatIsOpen) {
    StartOnPage();
    Dialog().BringToFrontForGood();
    const HWND faces = Combo(IDC_cmbFontName).Hwnd();
    for (int i = 0; i < 60; ++i) { // more than any list shows at once
        UiDriver::Send(faces, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"Another"));
    }
    UiDriver::Send(faces, CB_SETCURSEL, 0);
    Combo(IDC_cmbFontName).Click();
    UiDriver::WaitUntil([&] { return UiDriver::Send(faces, CB_GETDROPPEDSTATE) != 0; }, L"the list to open");
    ASSERT_EQ(UiDriver::Send(faces, CB_GETTOPINDEX), 0);
    const RECT box = Combo(IDC_cmbFontName).Rect();
    UiDriver::Mouse::MoveTo({box.left + 20, box.bottom + 20});
    UiDriver::Mouse::Turn(-1);
    UiDriver::WaitUntil([&] { return UiDriver::Send(faces, CB_GETTOPINDEX) > 0; }, L"the list to scroll");
}

TEST_F(OnScreenPage, ApplyStoresFaceSizeAndSwitch) {
    const auto& launcher = StartLauncher();
    StartOnPage();
    Combo(IDC_cmbFontName).Choose(2);
    Combo(IDC_cmbFontSize).Choose(Text(kFirstSizeText + 4));
    ToggleDisplay();
    Apply();
    const StoredOnScreen expected{0, OfferedFaces().at(2), 5, SeededOnScreen().color};
    EXPECT_EQ(Stored(), expected);
    EXPECT_EQ(SeenOnScreen(launcher.WaitForEntries(1)[0]), expected);
    EXPECT_EQ(OnScreenKey().Dword(L"Time"), 5U);
}

TEST_F(OnScreenPage, ChoicesAreNotStoredBeforeApply) {
    const std::wstring before = StoreDump();
    StartOnPage();
    Combo(IDC_cmbFontName).Choose(2);
    Combo(IDC_cmbFontSize).Choose(0);
    Dialog().WaitUntilAnswers();
    EXPECT_EQ(StoreDump(), before);
}

TEST_F(OnScreenPage, AFaceChosenByMouseIsStoredByApply) {
    StartOnPage();
    Combo(IDC_cmbFontName).ChooseByMouse(3);
    Apply();
    EXPECT_EQ(Stored().face, OfferedFaces().at(3));
}

TEST_F(OnScreenPage, TheColourChooserKeepsTheCurrentColour_WhenNoneIsChosen) {
    StartOnPage();
    const ColourDialog dialog = OpenColours();
    EXPECT_EQ(dialog.Form().Owner(), Dialog().Hwnd());
    dialog.Ok();
    Apply();
    EXPECT_EQ(Stored().color, SeededOnScreen().color);
}

TEST_F(OnScreenPage, AChosenColourIsStoredByApplyAsItsNumber) {
    constexpr COLORREF kChosen = RGB(250, 120, 3);
    StartOnPage();
    const ColourDialog dialog = OpenColours();
    dialog.Enter(kChosen);
    dialog.Ok();
    EXPECT_EQ(Stored(), SeededOnScreen());
    Apply();
    EXPECT_EQ(Stored().color, kChosen);
}

TEST_F(OnScreenPage, ACancelledColourChooserChangesNothing) {
    StartOnPage();
    const ColourDialog dialog = OpenColours();
    dialog.Enter(RGB(250, 120, 3));
    dialog.Cancel();
    Item(IDC_cmdOK).Press();
    ExpectEnd();
    EXPECT_EQ(Stored(), SeededOnScreen());
}

TEST_F(OnScreenPage, ThePreviewShowsTheColour) {
    constexpr COLORREF kChosen = RGB(255, 0, 0);
    constexpr std::uint32_t kRedPixel = 0x00FF0000;
    // Large strokes have pixels that no smoothing touches.
    OnScreenKey().SetDword(L"size", 5);
    StartOnPage();
    const HWND preview = Item(IDC_picPreview).Hwnd();
    EXPECT_EQ(Picture::CaptureStill(preview).CountOf(kRedPixel), 0U);
    const ColourDialog dialog = OpenColours();
    dialog.Enter(kChosen);
    dialog.Ok();
    EXPECT_GT(Picture::CaptureStill(preview).CountOf(kRedPixel), 0U);
}

TEST_F(OnScreenPage, ThePreviewOfADisplayThatIsOffIsGrey) {
    const auto colourful = [](std::uint32_t pixel) {
        const auto channel = [&](int shift) { return static_cast<int>(pixel >> shift & 0xFFU); };
        const auto [least, most] = std::minmax({channel(0), channel(8), channel(16)});
        return most - least > 24;
    };
    const auto anyColour = [&] {
        const Picture look = Picture::CaptureStill(Item(IDC_picPreview).Hwnd());
        for (int y = 0; y < look.Height(); ++y) {
            for (int x = 0; x < look.Width(); ++x) {
                if (colourful(look.Pixel(x, y))) {
                    return true;
                }
            }
        }
        return false;
    };
    StartOnPage();
    EXPECT_TRUE(anyColour());
    ToggleDisplay();
    UiDriver::WaitUntil([&] { return !anyColour(); }, L"the preview to lose its colours");
    ToggleDisplay();
    UiDriver::WaitUntil(anyColour, L"the preview to get its colours back");
}

TEST_F(OnScreenPage, ThePreviewFollowsTheSize) {
    StartOnPage();
    const HWND preview = Item(IDC_picPreview).Hwnd();
    const Picture before = Picture::CaptureStill(preview);
    Combo(IDC_cmbFontSize).Choose(4);
    UiDriver::WaitUntil([&] { return Picture::Capture(preview) != before; }, L"the preview to change");
}

struct BadSize : NamedCase {
    DWORD size;
};

class StoredSize : public OnScreenPage, public testing::WithParamInterface<BadSize> {};

TEST_P(StoredSize, OutOfRangeShowsTheMakersDefault) {
    OnScreenKey().SetDword(L"size", GetParam().size);
    StartOnPage();
    EXPECT_EQ(Combo(IDC_cmbFontSize).SelectedText(), Text(kFirstSizeText + 3));
}

TEST_P(StoredSize, OutOfRangeShowsStandardWhenTheMakerSaysNothing) {
    OnScreenKey().SetDword(L"size", GetParam().size);
    Machine().Sub(L"Default\\OnScreen").EraseTree();
    StartOnPage();
    EXPECT_EQ(Combo(IDC_cmbFontSize).SelectedText(), Text(kFirstSizeText + 2));
}

INSTANTIATE_TEST_SUITE_P(, StoredSize, testing::Values(BadSize{{"Zero"}, 0}, BadSize{{"Six"}, 6}),
                         NameOfCase{});

TEST_F(OnScreenPage, AFaceThatIsNotInstalledGivesWayToTheDialogFontIfThatIs) {
    const std::wstring missing = L"Not Installed Anywhere";
    WriteText(OnScreenKey(), L"FontFace", missing);
    StartOnPage();
    // Whether the dialog font is itself in the list differs from system to system.
    const std::wstring dialogFont = Text(kDialogFontText);
    const bool fallback = IsOffered(dialogFont);
    EXPECT_EQ(Combo(IDC_cmbFontName).SelectedText(), fallback ? dialogFont : L"");
    Apply();
    EXPECT_EQ(Stored().face, fallback ? dialogFont : missing);
}

TEST_F(OnScreenPage, AFaceIsFoundHoweverItIsSpelled) {
    std::wstring shouted = SeededOnScreen().face;
    CharUpperBuffW(shouted.data(), static_cast<DWORD>(shouted.size()));
    WriteText(OnScreenKey(), L"FontFace", shouted);
    StartOnPage();
    EXPECT_EQ(Combo(IDC_cmbFontName).SelectedText(), SeededOnScreen().face);
}

struct DefaultColor : NamedCase {
    DWORD stored;
    DWORD read;
};

class StoredDefaultColor : public OnScreenPage, public testing::WithParamInterface<DefaultColor> {};

TEST_P(StoredDefaultColor, IsReadAsHexadecimalDigits) {
    OnScreenKey().Erase(L"Color");
    Machine().Sub(L"Default\\OnScreen").SetDword(L"Color", GetParam().stored);
    StartOnPage();
    Apply();
    EXPECT_EQ(Stored().color, GetParam().read);
}

INSTANTIATE_TEST_SUITE_P(, StoredDefaultColor,
                         testing::Values(DefaultColor{{"Two55"}, 255, 0x255}, DefaultColor{{"Zero"}, 0, 0},
                                         DefaultColor{{"SixDigits"}, 123456, 0x123456},
                                         DefaultColor{{"NegativeIsGreen"}, 0xFFFFFFFF, 0xFF00}),
                         NameOfCase{});

} // namespace
