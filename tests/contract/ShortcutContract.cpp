#include "FileSystemRigs.h"
#include "Rigs.h"
#include "browse/CTreeView.h"
#include "fakes/FakePendingEvents.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeShellIcons.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/WindowsShell.h"

#include <gtest/gtest.h>

namespace {

constexpr const wchar_t* kAddress = L"http://keyboard.example/help?page=1&lang=en#top";

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakeShell shell;

    std::wstring AddShortcut(const std::wstring& name, const std::wstring& address) {
        const std::wstring file = Path(name);
        shell.AddFile(file);
        shell.shortcutAddresses[file] = address;
        return file;
    }
    std::wstring AddFile(const std::wstring& name, const std::string& /*bytes*/) {
        shell.AddFile(Path(name));
        return Path(name);
    }
    [[nodiscard]] static std::wstring Path(const std::wstring& name) { return L"C:\\Favorites\\" + name; }
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";
    WindowsShell shell;

    std::wstring AddShortcut(const std::wstring& name, const std::wstring& address) {
        return AddFile(name, "[InternetShortcut]\r\nURL=" + ToAnsi(address) + "\r\nIconIndex=0\r\n");
    }
    std::wstring AddFile(const std::wstring& name, const std::string& bytes) {
        WriteBytes(Path(name), bytes);
        return Path(name);
    }
    [[nodiscard]] std::wstring Path(const std::wstring& name) const { return folder_.File(name); }

private:
    ScratchFolder folder_;
};

/// Reading Internet shortcuts, by the shell's object and by the tree that asks it.
template <class Rig> class ShortcutContract : public testing::Test {
protected:
    [[nodiscard]] std::optional<std::wstring> Address(const std::wstring& file) const {
        return rig_.shell.InternetShortcutAddress(file);
    }
    [[nodiscard]] std::wstring ShortcutToUrl(const std::wstring& file) {
        return CTreeView({files_, rig_.shell, icons_, events_}, L"Internet Shortcut").GetShortcutToURL(file);
    }

    Rig rig_;
    FakeFileSystem files_;
    FakeShellIcons icons_;
    FakePendingEvents events_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(ShortcutContract, Rigs, RigName);

TYPED_TEST(ShortcutContract, AShortcutHasItsAddress) {
    const std::wstring file = this->rig_.AddShortcut(L"Help.url", kAddress);
    EXPECT_EQ(this->Address(file), kAddress);
    EXPECT_EQ(this->ShortcutToUrl(file), kAddress);
}

TYPED_TEST(ShortcutContract, AFileNameMayUseTheWholeCodePage) {
    const std::wstring file = this->rig_.AddShortcut(LocalName() + L".URL", kAddress);
    EXPECT_EQ(this->Address(file), kAddress);
    EXPECT_EQ(this->ShortcutToUrl(file), kAddress);
}

TYPED_TEST(ShortcutContract, AMissingFileHasNone) {
    const std::wstring file = this->rig_.Path(L"missing.url");
    EXPECT_EQ(this->Address(file).value_or(L""), L"");
    EXPECT_EQ(this->ShortcutToUrl(file), L"");
    EXPECT_EQ(this->ShortcutToUrl(L""), L"");
}

TYPED_TEST(ShortcutContract, AFileWithoutAnAddressHasNone) {
    int number = 0;
    for (const char* bytes : {"[InternetShortcut]\r\n", "", "URL=http://outside.example/\r\n",
                              "[Other]\r\nURL=http://other.example/\r\n", "\xFF\xFE\0\0\r\n"}) {
        const std::wstring file = this->rig_.AddFile(std::to_wstring(++number) + L".url", bytes);
        EXPECT_EQ(this->Address(file).value_or(L""), L"") << number;
        EXPECT_EQ(this->ShortcutToUrl(file), L"") << number;
    }
}

TYPED_TEST(ShortcutContract, ReadingLeavesTheFileAsItWas) {
    const std::wstring file = this->rig_.AddShortcut(L"Help.url", kAddress);
    EXPECT_EQ(this->ShortcutToUrl(file), kAddress);
    EXPECT_EQ(this->ShortcutToUrl(file), kAddress);
    EXPECT_TRUE(this->rig_.shell.FileExists(file));
}

TEST(WindowsShortcutTest, TheBytesOfAReadShortcutStayTheSame) {
    WindowsRig rig;
    const std::wstring file = rig.AddShortcut(L"Help.url", kAddress);
    const std::string before = ReadBytes(file);
    EXPECT_EQ(rig.shell.InternetShortcutAddress(file), kAddress);
    (void)rig.shell.ShortcutTarget(file);
    EXPECT_EQ(ReadBytes(file), before);
}

TEST(WindowsShortcutTest, TheAutomationObjectTellsTheSameAddressOrNothing) {
    WindowsRig rig;
    const std::wstring file = rig.AddShortcut(L"Help.url", kAddress);
    const std::wstring target = rig.shell.ShortcutTarget(file).value_or(L"");
    EXPECT_TRUE(target.empty() || target == kAddress) << ToAnsi(target);
}

TEST(WindowsShortcutTest, TheAutomationObjectTellsNothingOfWhatIsNoShortcut) {
    WindowsRig rig;
    const std::wstring file = rig.AddFile(L"readme.txt", "[InternetShortcut]\r\nURL=http://x.example/\r\n");
    EXPECT_EQ(rig.shell.ShortcutTarget(file).value_or(L""), L"");
    EXPECT_EQ(rig.shell.ShortcutTarget(rig.Path(L"missing.url")).value_or(L""), L"");
    EXPECT_EQ(rig.shell.ShortcutTarget(L"").value_or(L""), L"");
}

TEST(WindowsShortcutTest, ALongAddressIsToldInFull) {
    WindowsRig rig;
    const std::wstring address = L"http://keyboard.example/" + std::wstring(1'500, L'p') + L"/end";
    EXPECT_EQ(rig.shell.InternetShortcutAddress(rig.AddShortcut(L"Long.url", address)), address);
}

TEST(WindowsShortcutTest, ManyShortcutsAreReadOneAfterAnother) {
    WindowsRig rig;
    for (int i = 0; i < 100; ++i) {
        const std::wstring address = L"http://keyboard.example/" + std::to_wstring(i);
        ASSERT_EQ(rig.shell.InternetShortcutAddress(rig.AddShortcut(std::to_wstring(i) + L".url", address)),
                  address);
    }
}

} // namespace
