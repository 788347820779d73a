#include "BrowseUse.h"

namespace {

using UiDriver::Picture;

class BrowseIcons : public BrowseUse {
protected:
    /// Waits until the tree shows an image before the node's text, on the screen.
    void AwaitImageOnScreen(const Path& node) const {
        const RECT place = StartMenu().ImageRect(node);
        const auto drawn = [&] {
            const Picture picture = Picture::CaptureRect(place);
            const auto pixels = static_cast<std::size_t>(picture.Width() * picture.Height());
            return picture.CountOf(picture.Pixel(0, 0)) < pixels * 9 / 10;
        };
        UiDriver::WaitUntil(drawn, L"an image before \"" + node.back() + L'"');
    }
};

TEST_F(BrowseIcons, AppearForTheNodesInViewAndAreNotFetchedForTheOthers) {
    MakeFolder(UserMenu() + L"\\Folder");
    MakeFiles(UserMenu(), 100);
    Start();
    for (const Path& node : {InMenu(), InMenu({L"Folder"}), InMenu({L"0.txt"})}) {
        ASSERT_TRUE(StartMenu().InView(node));
        AwaitImageOnScreen(node);
        EXPECT_TRUE(StartMenu().Image(node).has_value());
    }
    ASSERT_FALSE(StartMenu().InView(InMenu({L"99.txt"})));
    EXPECT_FALSE(StartMenu().Image(InMenu({L"99.txt"})).has_value());
}

TEST_F(BrowseIcons, FilesOfOneTypeShareAnImageThatFoldersDoNotHave) {
    MakeFolder(UserMenu() + L"\\First folder");
    MakeFolder(UserMenu() + L"\\Second folder");
    MakeFile(UserMenu() + L"\\a.txt");
    MakeFile(UserMenu() + L"\\b.txt");
    Start();
    const auto imageOf = [&](const std::wstring& name) {
        return UiDriver::WaitForValue([&] { return StartMenu().Image(InMenu({name})); },
                                      L"an image for \"" + name + L'"');
    };
    EXPECT_EQ(imageOf(L"a.txt"), imageOf(L"b.txt"));
    EXPECT_EQ(imageOf(L"First folder"), imageOf(L"Second folder"));
    EXPECT_NE(imageOf(L"a.txt"), imageOf(L"First folder"));
}

} // namespace
