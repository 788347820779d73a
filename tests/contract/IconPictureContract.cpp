#include "FileSystemRigs.h"
#include "HiddenForm.h"
#include "Rigs.h"
#include "browse/CDrawIcon.h"
#include "browse/IconPicture.h"
#include "fakes/FakePictureBox.h"
#include "fakes/FakeShellIcons.h"
#include "platform/windows/WindowsShellIcons.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <bit>
#include <limits>

namespace {

std::wstring IconLibrary() {
    return WindowsDirectory() + L"\\system32\\shell32.dll";
}

ImageListId SystemImages() {
    return CDrawIcon::AskShell(WindowsShellIcons(), L"c:\\", CDrawIcon::kDefaultFlags).imageList;
}

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakePictureBox box;

    FakeRig() { box.filesWithIcons.insert(Lowered(IconLibrary())); }
    [[nodiscard]] bool ShowsSomething() const { return !box.Shown().empty(); }
};

class WindowsRig {
    HiddenForm form_;
    HWND control_ = form_.Add(L"Static", SS_ICON);
    WindowsShellIcons icons_;

public:
    static constexpr const char* kName = "Windows";
    IconPicture box{control_, icons_};

    [[nodiscard]] bool ShowsSomething() const { return ShownByControl() != nullptr; }
    [[nodiscard]] HICON ShownByControl() const {
        return std::bit_cast<HICON>(SendMessageW(control_, STM_GETICON, 0, 0));
    }
    [[nodiscard]] HWND Control() const { return control_; }
};

template <class Rig> class PictureBoxContract : public testing::Test {
protected:
    Rig rig_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(PictureBoxContract, Rigs, RigName);

TYPED_TEST(PictureBoxContract, AnIconOfTheSystemIsShownUntilTheBoxIsCleared) {
    EXPECT_FALSE(this->rig_.ShowsSomething());
    this->rig_.box.DrawSystemIcon(SystemImages(), 0);
    EXPECT_TRUE(this->rig_.ShowsSomething());
    this->rig_.box.Clear();
    EXPECT_FALSE(this->rig_.ShowsSomething());
    this->rig_.box.Clear();
    EXPECT_FALSE(this->rig_.ShowsSomething());
}

TYPED_TEST(PictureBoxContract, WithoutAnImageListSomethingIsDrawn) {
    this->rig_.box.DrawSystemIcon(0, 0);
    EXPECT_TRUE(this->rig_.ShowsSomething());
}

TYPED_TEST(PictureBoxContract, ALibrarysFirstIconIsShown) {
    EXPECT_TRUE(this->rig_.box.DrawFirstIconOf(IconLibrary()));
    EXPECT_TRUE(this->rig_.ShowsSomething());
}

TYPED_TEST(PictureBoxContract, AFileWithoutAnIconLeavesThePicture) {
    const std::wstring missing = WindowsDirectory() + L"\\system32\\missing.dll";
    EXPECT_FALSE(this->rig_.box.DrawFirstIconOf(missing));
    EXPECT_FALSE(this->rig_.box.DrawFirstIconOf(L""));
    EXPECT_FALSE(this->rig_.ShowsSomething());
    this->rig_.box.DrawSystemIcon(SystemImages(), 0);
    EXPECT_FALSE(this->rig_.box.DrawFirstIconOf(missing));
    EXPECT_TRUE(this->rig_.ShowsSomething());
}

class WindowsPictureBox : public testing::Test {
protected:
    [[nodiscard]] static SIZE SizeOf(HICON icon) {
        ICONINFO info{};
        EXPECT_NE(GetIconInfo(icon, &info), FALSE);
        BITMAP bitmap{};
        EXPECT_NE(GetObjectW(info.hbmMask, sizeof bitmap, &bitmap), 0);
        const LONG height = info.hbmColor == nullptr ? bitmap.bmHeight / 2 : bitmap.bmHeight;
        DeleteObject(info.hbmMask);
        if (info.hbmColor != nullptr) {
            DeleteObject(info.hbmColor);
        }
        return {bitmap.bmWidth, height};
    }

    WindowsRig rig_;
};

TEST_F(WindowsPictureBox, TheControlShowsTheIconThatTheBoxHolds) {
    rig_.box.DrawSystemIcon(SystemImages(), 2);
    ASSERT_NE(rig_.box.Shown(), nullptr);
    EXPECT_EQ(rig_.ShownByControl(), rig_.box.Shown());
    rig_.box.DrawFirstIconOf(IconLibrary());
    EXPECT_EQ(rig_.ShownByControl(), rig_.box.Shown());
}

TEST_F(WindowsPictureBox, AnIndexThatTheListDoesNotHaveShowsNothing) {
    rig_.box.DrawSystemIcon(SystemImages(), 0);
    for (const std::int32_t index :
         {100'000, -1, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
        rig_.box.DrawSystemIcon(SystemImages(), index);
        EXPECT_EQ(rig_.box.Shown(), nullptr) << index;
        EXPECT_EQ(rig_.ShownByControl(), nullptr) << index;
    }
}

TEST_F(WindowsPictureBox, AShellThatNeverAnswersStillHasAnIconToShow) {
    FakeShellIcons silent;
    silent.fails = true;
    IconPicture box(rig_.Control(), silent);
    box.DrawSystemIcon(0, 0);
    EXPECT_NE(box.Shown(), nullptr);
    EXPECT_EQ(rig_.ShownByControl(), box.Shown());
}

TEST_F(WindowsPictureBox, IconsAreSmallAtFirst) {
    rig_.box.DrawSystemIcon(SystemImages(), 0);
    ASSERT_NE(rig_.box.Shown(), nullptr);
    EXPECT_EQ(SizeOf(rig_.box.Shown()).cx, GetSystemMetrics(SM_CXSMICON));
    EXPECT_EQ(SizeOf(rig_.box.Shown()).cy, GetSystemMetrics(SM_CYSMICON));
}

TEST_F(WindowsPictureBox, ALargerSizeTakesALargerPicture) {
    rig_.box.SetIconSize(GetSystemMetrics(SM_CXSMICON) * 3 / 2);
    rig_.box.DrawSystemIcon(SystemImages(), 0);
    ASSERT_NE(rig_.box.Shown(), nullptr);
    EXPECT_GE(SizeOf(rig_.box.Shown()).cx, GetSystemMetrics(SM_CXSMICON) * 3 / 2);
}

TEST_F(WindowsPictureBox, ASizeThatNoIconHasTakesTheLargest) {
    rig_.box.SetIconSize(10'000);
    rig_.box.DrawSystemIcon(SystemImages(), 0);
    ASSERT_NE(rig_.box.Shown(), nullptr);
    EXPECT_GT(SizeOf(rig_.box.Shown()).cx, GetSystemMetrics(SM_CXSMICON));
}

TEST_F(WindowsPictureBox, ItsEndTakesTheIconOffTheControl) {
    WindowsShellIcons icons;
    {
        IconPicture box(rig_.Control(), icons);
        box.DrawSystemIcon(SystemImages(), 0);
        EXPECT_NE(rig_.ShownByControl(), nullptr);
    }
    EXPECT_EQ(rig_.ShownByControl(), nullptr);
}

TEST_F(WindowsPictureBox, TheControlMayEndFirst) {
    WindowsShellIcons icons;
    IconPicture box(rig_.Control(), icons);
    box.DrawSystemIcon(SystemImages(), 0);
    DestroyWindow(rig_.Control());
    box.DrawSystemIcon(SystemImages(), 1);
    EXPECT_NE(box.Shown(), nullptr);
}

TEST_F(WindowsPictureBox, DrawingAgainAndAgainHoldsNoMoreObjects) {
    const auto drawAll = [this] {
        rig_.box.DrawSystemIcon(SystemImages(), 0);
        rig_.box.DrawSystemIcon(0, 2);
        rig_.box.DrawFirstIconOf(IconLibrary());
        rig_.box.DrawSystemIcon(SystemImages(), 100'000);
        rig_.box.Clear();
    };
    for (int i = 0; i < 5; ++i) {
        drawAll();
    }
    const int before = GdiObjects();
    ASSERT_GT(before, 0);
    for (int i = 0; i < 70; ++i) {
        drawAll();
    }
    EXPECT_LT(GdiObjects(), before + 20);
}

TEST_F(WindowsPictureBox, TheCountNoticesIconsThatStay) {
    const int before = GdiObjects();
    std::vector<Icon> icons;
    for (int i = 0; i < 50; ++i) {
        icons.emplace_back(ImageList_GetIcon(std::bit_cast<HIMAGELIST>(SystemImages()), 0, ILD_TRANSPARENT));
    }
    EXPECT_GE(GdiObjects(), before + 50);
}

} // namespace
