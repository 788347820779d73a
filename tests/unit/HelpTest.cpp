#include "app/Help.h"

#include "app/StringTable.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeStrings.h"
#include "fakes/FakeWindows.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr WindowId kOwner = 7;

class Help : public testing::Test {
public:
    explicit Help(Language language = Language::English) : strings(language) { ResetGlobals(strings); }

    FakeStrings strings;
    StringTable texts{strings};
    FakeShell shell;
    FakeWindows windows;
};

class JapaneseHelp : public Help {
public:
    JapaneseHelp() : Help(Language::Japanese) {}
};

TEST_F(Help, OpensTheFileBesideTheProgram) {
    shell.programDirectory = L"C:\\Tools";
    EXPECT_TRUE(ShowHelp(shell, windows, texts, kOwner));
    EXPECT_THAT(shell.opened, ElementsAre(FakeShell::Opened{L"C:\\Tools\\QLBUTL.CHM", L"C:\\Tools", kOwner}));
}

TEST_F(Help, OpensTheFileInTheRootOfADrive) {
    shell.programDirectory = L"C:\\";
    EXPECT_TRUE(ShowHelp(shell, windows, texts, kOwner));
    EXPECT_THAT(shell.opened, ElementsAre(FakeShell::Opened{L"C:\\QLBUTL.CHM", L"C:\\", kOwner}));
}

TEST_F(Help, SaysSo_WhenTheFileCannotBeOpened) {
    shell.opens = false;
    EXPECT_FALSE(ShowHelp(shell, windows, texts, kOwner));
}

TEST_F(Help, BringsItsOpenWindowForward) {
    const WindowId help = windows.Add(L"HH Parent", L"Quickfire Button Settings Help");
    EXPECT_TRUE(ShowHelp(shell, windows, texts, kOwner));
    EXPECT_THAT(windows.Events(),
                ElementsAre(FakeWindows::Event{FakeWindows::Deed::BroughtForward, help, 0, 0, {}}));
    EXPECT_THAT(shell.opened, IsEmpty());
}

TEST_F(Help, IgnoresTheHelpOfAnotherProgram) {
    windows.Add(L"HH Parent", L"Notepad Help");
    windows.Add(L"Notepad", L"Quickfire Button Settings Help");
    EXPECT_TRUE(ShowHelp(shell, windows, texts, kOwner));
    EXPECT_THAT(windows.Events(), IsEmpty());
    EXPECT_EQ(shell.opened.size(), 1U);
}

TEST_F(JapaneseHelp, LooksForItsJapaneseTitle) {
    const WindowId help = windows.Add(L"HH Parent", strings.Load(3000) + strings.Load(3003));
    EXPECT_TRUE(ShowHelp(shell, windows, texts, kOwner));
    EXPECT_THAT(windows.Events(),
                ElementsAre(FakeWindows::Event{FakeWindows::Deed::BroughtForward, help, 0, 0, {}}));
}

TEST_F(Help, IsThereWhenItsFileLiesBesideTheProgram) {
    shell.programDirectory = L"C:\\Tools";
    shell.AddFile(L"C:\\QLBUTL.CHM");
    EXPECT_FALSE(HasHelpFile(shell));
    shell.AddFile(L"C:\\Tools\\qlbutl.chm");
    EXPECT_TRUE(HasHelpFile(shell));
}

} // namespace
