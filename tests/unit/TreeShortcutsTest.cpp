#include "BrowserTree.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const wchar_t* kFile = L"C:\\Favorites\\News.url";
constexpr const wchar_t* kAddress = L"http://news.example/";

class TreeShortcuts : public testing::Test, public BrowserTree {};

TEST_F(TreeShortcuts, TheAutomationObjectTellsTheAddress) {
    shell.shortcutTargets[kFile] = kAddress;
    shell.shortcutAddresses[kFile] = L"http://other.example/";
    EXPECT_EQ(tree.GetShortcutToURL(kFile), kAddress);
    EXPECT_THAT(shell.shortcutQuestions, ElementsAre(std::wstring(L"target ") + kFile));
}

TEST_F(TreeShortcuts, TheShellsOwnObjectIsAsked_WhenTheAutomationObjectFails) {
    shell.shortcutAddresses[kFile] = kAddress;
    EXPECT_EQ(tree.GetShortcutToURL(kFile), kAddress);
    EXPECT_THAT(shell.shortcutQuestions,
                ElementsAre(std::wstring(L"target ") + kFile, std::wstring(L"address ") + kFile));
}

TEST_F(TreeShortcuts, TheAddressIsEmpty_WhenNeitherObjectTellsIt) {
    EXPECT_EQ(tree.GetShortcutToURL(kFile), L"");
    EXPECT_EQ(shell.shortcutQuestions.size(), 2U);
}

TEST_F(TreeShortcuts, AnEmptyTargetIsTheAnswer) {
    shell.shortcutTargets[kFile] = L"";
    shell.shortcutAddresses[kFile] = kAddress;
    EXPECT_EQ(tree.GetShortcutToURL(kFile), L"");
}

TEST_F(TreeShortcuts, TheAddressEndsAtItsFirstNul) {
    shell.shortcutTargets[kFile] = std::wstring(L"http://a/\0b", 11);
    EXPECT_EQ(tree.GetShortcutToURL(kFile), L"http://a/");
    shell.shortcutTargets.clear();
    shell.shortcutAddresses[kFile] = std::wstring(L"http://c/\0d", 11);
    EXPECT_EQ(tree.GetShortcutToURL(kFile), L"http://c/");
}

TEST_F(TreeShortcuts, TheFileIsNeverReadByTheProgram) {
    disk.AddFile(kFile, "[InternetShortcut]\r\nURL=http://news.example/\r\n");
    EXPECT_EQ(tree.GetShortcutToURL(kFile), L"");
    EXPECT_THAT(disk.reads, IsEmpty());
}

} // namespace
