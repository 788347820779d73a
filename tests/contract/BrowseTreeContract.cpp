#include "BrowseTreeRig.h"

#include "browse/CSystemDrive.h"
#include "platform/windows/WindowsDrives.h"

#include <algorithm>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const wchar_t* kPlaceholder = L"%$%$%$%$Dummy%$%$%$%$";

TEST_F(BrowseTreeTest, AFolderIsOpenedAtOnceFoldersFirstEachGroupSorted) {
    folder_.AddFile(L"beta.txt");
    folder_.AddFile(L"Alpha.txt");
    folder_.AddFile(L"hidden.txt", "x", kAttributeHidden);
    folder_.AddFolder(L"Zebra");
    folder_.AddFolder(L"ant");
    folder_.AddFolder(LocalName());
    view_.DrawItem(folder_.Path() + L'\\', L"Everything");
    EXPECT_EQ(tree_.Control().Text(Root()), L"Everything");
    EXPECT_EQ(tree_.Control().Key(Root()), folder_.Path());
    EXPECT_TRUE(IsExpanded(Root()));
    const auto folders = Sorted({L"Zebra", L"ant", LocalName()});
    EXPECT_THAT(Texts(Root()), ElementsAre(folders[0], folders[1], folders[2], L"Alpha.txt", L"beta.txt"));
    EXPECT_THAT(Keys(Root()), Contains(folder_.Path(LocalName())));
    EXPECT_EQ(Keys(Root()).back(), folder_.Path(L"beta.txt"));
}

TEST_F(BrowseTreeTest, WithoutATextTheRootShowsThePath) {
    view_.DrawItem(folder_.Path(), L"");
    EXPECT_EQ(tree_.Control().Text(Root()), folder_.Path());
}

TEST_F(BrowseTreeTest, AFolderHasAMarkAndAPlaceholderUntilItIsOpened) {
    folder_.AddFolder(L"Empty");
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    const NodeId empty = Named(Root(), L"Empty");
    EXPECT_TRUE(HasMark(empty));
    EXPECT_FALSE(HasMark(Named(Root(), L"a.txt")));
    EXPECT_TRUE(view_.IsUnopened(empty));
    EXPECT_THAT(Texts(empty), ElementsAre(kPlaceholder));
    EXPECT_THAT(Keys(empty), ElementsAre(folder_.Path(L"Empty") + L'\\' + kPlaceholder));
    EXPECT_TRUE(Open(empty));
    EXPECT_THAT(Texts(empty), IsEmpty());
    EXPECT_FALSE(HasMark(empty));
    EXPECT_FALSE(view_.IsUnopened(empty));
}

TEST_F(BrowseTreeTest, TheUsersKeyOpensAFolderWithWhatIsInIt) {
    folder_.AddFolder(L"Tools");
    folder_.AddFolder(L"Tools\\Deep");
    folder_.AddFile(L"Tools\\a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    const NodeId tools = Named(Root(), L"Tools");
    EXPECT_TRUE(Open(tools));
    EXPECT_TRUE(form_.PumpUntil([&] { return IsExpanded(tools); }));
    EXPECT_THAT(Texts(tools), ElementsAre(L"Deep", L"a.txt"));
    EXPECT_THAT(Keys(tools), ElementsAre(folder_.Path(L"Tools\\Deep"), folder_.Path(L"Tools\\a.txt")));
    EXPECT_TRUE(view_.IsUnopened(Named(tools, L"Deep")));
}

TEST_F(BrowseTreeTest, OpeningAgainAddsNothing) {
    folder_.AddFolder(L"Tools");
    folder_.AddFile(L"Tools\\a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    const NodeId tools = Named(Root(), L"Tools");
    ASSERT_TRUE(Open(tools));
    const std::size_t count = tree_.Control().Count();
    folder_.AddFile(L"Tools\\b.txt");
    for (int again = 0; again < 3; ++again) {
        Close(tools);
        EXPECT_TRUE(Open(tools));
        EXPECT_TRUE(form_.PumpUntil([&] { return IsExpanded(tools); }));
        EXPECT_TRUE(view_.Expand(tools));
    }
    EXPECT_EQ(tree_.Control().Count(), count);
    EXPECT_THAT(Texts(tools), ElementsAre(L"a.txt"));
}

TEST_F(BrowseTreeTest, AFolderThatIsGoneOpensEmpty) {
    folder_.AddFolder(L"Tools");
    view_.DrawItem(folder_.Path(), L"All");
    const NodeId tools = Named(Root(), L"Tools");
    ASSERT_NE(RemoveDirectoryW(folder_.Path(L"Tools").c_str()), FALSE);
    EXPECT_TRUE(Open(tools));
    EXPECT_THAT(Texts(tools), IsEmpty());
    EXPECT_FALSE(HasMark(tools));
}

TEST_F(BrowseTreeTest, AMissingFolderIsARootWithoutChildren) {
    view_.DrawItem(folder_.Path(L"missing"), L"Gone");
    EXPECT_EQ(tree_.Control().Text(Root()), L"Gone");
    EXPECT_THAT(Texts(Root()), IsEmpty());
    EXPECT_EQ(tree_.Control().Count(), 1U);
}

TEST_F(BrowseTreeTest, ALinkThatLoopsOpensLevelByLevel) {
    folder_.AddFile(L"a.txt");
    folder_.AddLinkToTheFolderItself(L"again");
    view_.DrawItem(folder_.Path(), L"All");
    NodeId node = Root();
    std::wstring path = folder_.Path();
    for (int depth = 0; depth < 6; ++depth) {
        EXPECT_THAT(Texts(node), ElementsAre(L"again", L"a.txt")) << depth;
        node = Named(node, L"again");
        path += L"\\again";
        ASSERT_EQ(tree_.Control().Key(node), path);
        ASSERT_TRUE(Open(node)) << depth;
    }
}

TEST_F(BrowseTreeTest, HundredsOfFilesAreAllThereInTheListBoxsOrder) {
    std::vector<std::wstring> names;
    for (int i = 0; i < 600; ++i) {
        names.push_back((i % 2 == 0 ? L"file " : L"File ") + std::to_wstring(i * 7'919 % 600) + L".txt");
        folder_.AddFile(names.back(), "");
    }
    view_.DrawItem(folder_.Path(), L"All");
    EXPECT_EQ(Texts(Root()), Sorted(names));
}

TEST_F(BrowseTreeTest, ClearedNothingIsLeft) {
    folder_.AddFile(L"a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    ASSERT_TRUE(form_.PumpUntil([this] { return ImageOf(Root()) >= 0; }));
    view_.Clear();
    EXPECT_EQ(Root(), 0U);
    EXPECT_EQ(tree_.Control().Count(), 0U);
    EXPECT_EQ(ImageList_GetImageCount(tree_.Control().Images().Handle()), 0);
    form_.Pump();
    EXPECT_EQ(ImageList_GetImageCount(tree_.Control().Images().Handle()), 0);
}

TEST_F(BrowseTreeTest, ClearedWhileItReadsNothingOfThatIsPutIn) {
    folder_.AddFile(L"a.txt");
    int cleared = 0;
    form_.whenPosted = [&](UINT) {
        view_.Clear();
        ++cleared;
    };
    form_.Post();
    view_.DrawItem(folder_.Path(), L"All");
    EXPECT_EQ(cleared, 1) << "while it read";
    EXPECT_EQ(tree_.Control().Count(), 0U);
}

TEST_F(BrowseTreeTest, AFolderThatIsOpenedWhileAnotherIsReadOpensAfterwardsOnce) {
    for (const wchar_t* name : {L"One", L"Two"}) {
        folder_.AddFolder(name);
        folder_.AddFile(std::wstring(name) + L"\\a.txt");
    }
    view_.DrawItem(folder_.Path(), L"All");
    const NodeId one = Named(Root(), L"One");
    const NodeId two = Named(Root(), L"Two");
    form_.Pump();
    form_.whenPosted = [&](UINT) {
        EXPECT_TRUE(view_.IsUnopened(one));
        PressToOpen(two);
        PressToOpen(one); // is being read
        PressToOpen(two);
        EXPECT_TRUE(view_.IsUnopened(two));
    };
    PressToOpen(one);
    form_.Post();
    EXPECT_TRUE(tree_.OnIdle());
    EXPECT_TRUE(IsExpanded(one));
    EXPECT_TRUE(view_.IsUnopened(two));
    EXPECT_TRUE(form_.PumpUntil([&] { return IsExpanded(two); }));
    form_.PumpUntil([&] { return ImageOf(Root()) >= 0; });
    EXPECT_THAT(Texts(one), ElementsAre(L"a.txt"));
    EXPECT_THAT(Texts(two), ElementsAre(L"a.txt"));
}

TEST_F(BrowseTreeTest, ANodeWaitsUntilNoEventDoes) {
    folder_.AddFolder(L"Tools");
    folder_.AddFile(L"Tools\\a.txt");
    view_.DrawItem(folder_.Path(), L"All");
    const NodeId tools = Named(Root(), L"Tools");
    PressToOpen(tools);
    form_.Pump();
    EXPECT_TRUE(view_.IsUnopened(tools));
    EXPECT_TRUE(tree_.OnIdle());
    EXPECT_TRUE(IsExpanded(tools));
}

TEST_F(BrowseTreeTest, ANodeThatWaitsGoesWithItsTree) {
    folder_.AddFolder(L"Tools");
    view_.DrawItem(folder_.Path(), L"All");
    PressToOpen(Named(Root(), L"Tools"));
    view_.Clear();
    EXPECT_FALSE(tree_.OnIdle());
    EXPECT_EQ(tree_.Control().Count(), 0U);
}

TEST_F(BrowseTreeTest, FavouritesLoseTheirExtensionInTheTextAloneAndKeepTheirAddress) {
    const std::string shortcut = "[InternetShortcut]\r\nURL=http://keyboard.example/\r\n";
    folder_.AddFolder(L"Links.url");
    folder_.AddFile(L"Help.url", shortcut);
    folder_.AddFile(LocalName() + L".URL", shortcut);
    folder_.AddFile(L"readme.txt");
    tree_.SetIeFavorites(folder_.Path(), L"Favourites");
    const auto names = Sorted({L"Help", LocalName(), L"readme.txt"});
    EXPECT_THAT(Texts(Root()), ElementsAre(L"Links.url", names[0], names[1], names[2]));
    for (const std::wstring& name : {std::wstring(L"Help"), LocalName()}) {
        const std::wstring key = tree_.Control().Key(Named(Root(), name));
        EXPECT_EQ(key, folder_.Path(name) + (name == L"Help" ? L".url" : L".URL"));
        EXPECT_EQ(view_.GetShortcutToURL(key), L"http://keyboard.example/");
    }
}

TEST_F(BrowseTreeTest, TheComputersDrivesOpenToWhatIsOnThem) {
    CSystemDrive drives;
    drives.DriveBoxControl(WindowsDrives());
    tree_.SetMyComputer(drives, L"My Computer");
    EXPECT_EQ(tree_.Control().Key(Root()), L"My Computer");
    EXPECT_EQ(Children(Root()).size(), static_cast<std::size_t>(drives.LocalDriveCount()));
    EXPECT_TRUE(IsExpanded(Root()));
    const auto keys = Keys(Root());
    const auto c = std::find(keys.begin(), keys.end(), L"c:");
    ASSERT_NE(c, keys.end());
    const NodeId drive = Children(Root())[static_cast<std::size_t>(c - keys.begin())];
    EXPECT_TRUE(view_.IsUnopened(drive));
    ASSERT_TRUE(Open(drive));
    const std::wstring windows = WindowsDirectory().substr(2);
    const auto below = Keys(drive);
    EXPECT_TRUE(std::any_of(below.begin(), below.end(), [&](const std::wstring& key) {
        return CompareStringOrdinal(key.c_str(), -1, (L"c:" + windows).c_str(), -1, TRUE) == CSTR_EQUAL;
    }));
}

/// A folder in one of the real Start Menus, gone with this object.
class MenuFolder {
public:
    MenuFolder(const WindowsShell& shell, std::int32_t menu)
        : path_(shell.SpecialFolderPath(menu).value_or(L"") + L"\\QLBUtlContract." +
                std::to_wstring(GetCurrentProcessId())) {
        made_ = CreateDirectoryW(path_.c_str(), nullptr) != FALSE;
    }
    ~MenuFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    MenuFolder(const MenuFolder&) = delete;
    MenuFolder& operator=(const MenuFolder&) = delete;

    [[nodiscard]] bool Made() const { return made_; }
    [[nodiscard]] std::wstring Path(const std::wstring& name) const { return path_ + L'\\' + name; }
    [[nodiscard]] std::wstring Name() const { return path_.substr(path_.rfind(L'\\') + 1); }

private:
    std::wstring path_;
    bool made_ = false;
};

TEST_F(BrowseTreeTest, TheTwoStartMenusAreOneAtEveryDepth) {
    constexpr std::int32_t kUsersStartMenu = 11; // CSIDL_STARTMENU
    const MenuFolder users(shell_, kUsersStartMenu);
    const MenuFolder all(shell_, kFolderAllUsersStartMenu);
    if (!users.Made() || !all.Made()) {
        GTEST_SKIP() << "this user may not add to the Start Menus";
    }
    for (const MenuFolder* menu : {&users, &all}) {
        CreateDirectoryW(menu->Path(L"Both").c_str(), nullptr);
    }
    WriteBytes(users.Path(L"mine.txt"), "x");
    WriteBytes(users.Path(L"Both\\mine.txt"), "x");
    WriteBytes(all.Path(L"all.txt"), "x");
    WriteBytes(all.Path(L"MINE.txt"), "x");
    WriteBytes(all.Path(L"Both\\all.txt"), "x");
    tree_.SetStartMenu(shell_.SpecialFolderPath(kUsersStartMenu).value_or(L""), L"Start Menu");
    const auto texts = Texts(Root());
    EXPECT_EQ(std::count(texts.begin(), texts.end(), users.Name()), 1);
    const NodeId folder = Named(Root(), users.Name());
    ASSERT_TRUE(Open(folder));
    EXPECT_THAT(Keys(folder),
                ElementsAre(users.Path(L"Both"), all.Path(L"all.txt"), users.Path(L"mine.txt")));
    const NodeId both = Named(folder, L"Both");
    ASSERT_TRUE(Open(both));
    EXPECT_THAT(Keys(both), ElementsAre(all.Path(L"Both\\all.txt"), users.Path(L"Both\\mine.txt")));
}

} // namespace
