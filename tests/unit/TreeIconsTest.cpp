#include "BrowserTree.h"

namespace {

using testing::ElementsAre;

constexpr const wchar_t* kUrlLibrary = L"C:\\WINDOWS\\system32\\url.dll";

class TreeIcons : public testing::Test, public BrowserTree {
public:
    TreeIcons() { picture.filesWithIcons.insert(Lowered(kUrlLibrary)); }
};

TEST_F(TreeIcons, TwoFilesOfOneTypeShareAnImage) {
    icons.Put(L"C:\\a.txt", 12, L"Text Document");
    icons.Put(L"C:\\b.txt", 12, L"Text Document");
    icons.Put(L"C:\\c.exe", 13, L"Application");
    EXPECT_EQ(tree.ImageOf(L"C:\\a.txt"), 0);
    EXPECT_EQ(tree.ImageOf(L"C:\\c.exe"), 1);
    EXPECT_EQ(tree.ImageOf(L"C:\\b.txt"), 0);
    EXPECT_THAT(images.Pictures(), ElementsAre(L"77:12", L"77:13"));
}

TEST_F(TreeIcons, AnInternetShortcutsImageIsNeverThatOfIconZero) {
    icons.Put(L"C:\\unknown", 0, L"File");
    icons.Put(L"C:\\News.url", 0, L"Internet Shortcut");
    icons.Put(L"C:\\Mail.url", 0, L"Internet Shortcut");
    EXPECT_EQ(tree.ImageOf(L"C:\\unknown"), 0);
    EXPECT_EQ(tree.ImageOf(L"C:\\News.url"), 1);
    EXPECT_EQ(tree.ImageOf(L"C:\\Mail.url"), 1);
    EXPECT_EQ(tree.ImageOf(L"C:\\unknown"), 0);
    EXPECT_THAT(images.Pictures(), ElementsAre(L"77:0", kUrlLibrary));
}

TEST_F(TreeIcons, AFailedQueryHasAnImageAllTheSame) {
    icons.fails = true;
    EXPECT_EQ(tree.ImageOf(L"C:\\gone"), 0);
    EXPECT_EQ(tree.ImageOf(L"C:\\gone too"), 0);
    EXPECT_THAT(images.Pictures(), ElementsAre(L"0:0"));
}

TEST_F(TreeIcons, EachTreeStartsWithoutImages) {
    (void)tree.ImageOf(L"C:\\a.txt");
    disk.AddFolder(L"C:\\top");
    tree.DrawItem(L"C:\\top", L"");
    EXPECT_THAT(images.Pictures(), testing::IsEmpty());
    EXPECT_EQ(tree.ImageOf(L"C:\\a.txt"), 0);
    EXPECT_THAT(images.Pictures(), ElementsAre(L"77:1"));
}

TEST_F(TreeIcons, ANodeHasNoImage_WhenTheListTakesNone) {
    images.refuses = true;
    EXPECT_EQ(tree.ImageOf(L"C:\\a.txt"), -1);
    images.refuses = false;
    EXPECT_EQ(tree.ImageOf(L"C:\\a.txt"), 0);
}

} // namespace
