#include "HiddenForm.h"
#include "Rigs.h"
#include "browse/CDrawIcon.h"
#include "browse/IconPicture.h"
#include "browse/NodeImageList.h"
#include "fakes/FakeNodeImages.h"
#include "platform/windows/WindowsShellIcons.h"

#include <gtest/gtest.h>

namespace {

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakePictureBox box;
    FakeNodeImages images;
};

class WindowsRig {
    HiddenForm form_;
    WindowsShellIcons icons_;

public:
    static constexpr const char* kName = "Windows";
    IconPicture box{form_.Add(L"Static", SS_ICON), icons_};
    NodeImageList images;

    WindowsRig() { images.Create(16); }
};

template <class Rig> class NodeImagesContract : public testing::Test {
protected:
    NodeImagesContract() { rig_.box.DrawSystemIcon(0, 0); }

    Rig rig_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(NodeImagesContract, Rigs, RigName);

TYPED_TEST(NodeImagesContract, ImagesAreNumberedInOrderAndFoundByIconNumber) {
    EXPECT_EQ(this->rig_.images.Find(7), -1);
    EXPECT_EQ(this->rig_.images.Add(this->rig_.box, 7), 0);
    EXPECT_EQ(this->rig_.images.Add(this->rig_.box, 1'000), 1);
    EXPECT_EQ(this->rig_.images.Add(this->rig_.box, 0), 2);
    EXPECT_EQ(this->rig_.images.Find(7), 0);
    EXPECT_EQ(this->rig_.images.Find(1'000), 1);
    EXPECT_EQ(this->rig_.images.Find(0), 2);
    EXPECT_EQ(this->rig_.images.Find(1), -1);
}

TYPED_TEST(NodeImagesContract, ClearedItStartsAnew) {
    EXPECT_EQ(this->rig_.images.Add(this->rig_.box, 7), 0);
    this->rig_.images.Clear();
    EXPECT_EQ(this->rig_.images.Find(7), -1);
    EXPECT_EQ(this->rig_.images.Add(this->rig_.box, 8), 0);
    EXPECT_EQ(this->rig_.images.Find(8), 0);
}

TYPED_TEST(NodeImagesContract, TheImageStaysWhenThePictureChanges) {
    EXPECT_EQ(this->rig_.images.Add(this->rig_.box, 7), 0);
    this->rig_.box.Clear();
    EXPECT_EQ(this->rig_.images.Find(7), 0);
}

class WindowsNodeImages : public testing::Test {
protected:
    WindowsRig rig_;
};

TEST_F(WindowsNodeImages, TheSystemsListHoldsAsManyImages) {
    rig_.box.DrawSystemIcon(0, 0);
    for (int number = 0; number < 100; ++number) {
        ASSERT_EQ(rig_.images.Add(rig_.box, number), number);
    }
    EXPECT_EQ(ImageList_GetImageCount(rig_.images.Handle()), 100);
    rig_.images.Clear();
    EXPECT_EQ(ImageList_GetImageCount(rig_.images.Handle()), 0);
}

TEST_F(WindowsNodeImages, AnEmptyPictureGivesNoImage) {
    EXPECT_EQ(rig_.images.Add(rig_.box, 7), -1);
    EXPECT_EQ(rig_.images.Find(7), -1);
    EXPECT_EQ(ImageList_GetImageCount(rig_.images.Handle()), 0);
}

TEST_F(WindowsNodeImages, ANewSizeIsAnEmptyListOfThatSize) {
    rig_.box.DrawSystemIcon(0, 0);
    EXPECT_EQ(rig_.images.Add(rig_.box, 7), 0);
    rig_.images.Create(24);
    EXPECT_EQ(rig_.images.Find(7), -1);
    int width = 0;
    int height = 0;
    ASSERT_NE(ImageList_GetIconSize(rig_.images.Handle(), &width, &height), FALSE);
    EXPECT_EQ(width, 24);
    EXPECT_EQ(height, 24);
    EXPECT_EQ(rig_.images.Add(rig_.box, 7), 0);
}

TEST_F(WindowsNodeImages, BeforeThereIsAListThereAreNoImages) {
    NodeImageList none;
    rig_.box.DrawSystemIcon(0, 0);
    EXPECT_EQ(none.Find(0), -1);
    EXPECT_EQ(none.Add(rig_.box, 0), -1);
    none.Clear();
    EXPECT_EQ(none.Find(0), -1);
}

TEST_F(WindowsNodeImages, MakingListsAgainAndAgainHoldsNoMoreObjects) {
    rig_.box.DrawSystemIcon(0, 0);
    const auto fill = [this] {
        rig_.images.Create(16);
        EXPECT_EQ(rig_.images.Add(rig_.box, 7), 0);
    };
    fill();
    const int before = GdiObjects();
    for (int i = 0; i < 100; ++i) {
        fill();
    }
    EXPECT_LT(GdiObjects(), before + 20);
}

} // namespace
