#include "FileSystemRigs.h"
#include "Rigs.h"
#include "browse/CDrawIcon.h"
#include "fakes/FakePictureBox.h"
#include "fakes/FakeShellIcons.h"
#include "platform/windows/WindowsShellIcons.h"
#include "platform/windows/WindowsStringSource.h"

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <gmock/gmock.h>

#include <bit>
#include <thread>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kDefaultFlags = CDrawIcon::kDefaultFlags;
constexpr std::uint32_t kWithoutExecutableType = 0x4605;
constexpr int kInternetShortcutTypeId = 3301;

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakeShellIcons icons;

    FakeRig() { icons.Put(Folder(), 3, L"Folder", L"Contract"); }
    [[nodiscard]] static std::wstring Folder() { return L"C:\\Contract"; }
    std::wstring AddText(const std::wstring& name) {
        const std::wstring path = Folder() + L'\\' + name;
        icons.Put(path, 4, L"Text Document", name);
        return path;
    }
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";
    WindowsShellIcons icons;

    [[nodiscard]] std::wstring Folder() const { return files_.Path(); }
    std::wstring AddText(const std::wstring& name) {
        files_.AddFile(name);
        return files_.Path(name);
    }

private:
    WindowsFilesRig files_;
};

template <class Rig> class ShellIconsContract : public testing::Test {
protected:
    [[nodiscard]] ShellFileInfo Ask(const std::wstring& path) const {
        return CDrawIcon::AskShell(rig_.icons, path, kDefaultFlags);
    }

    Rig rig_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(ShellIconsContract, Rigs, RigName);

TYPED_TEST(ShellIconsContract, AFileHasAnIconAndNames) {
    const ShellFileInfo info = this->Ask(this->rig_.AddText(L"readme.txt"));
    EXPECT_NE(info.imageList, 0U);
    EXPECT_GE(info.iconIndex, 0);
    EXPECT_TRUE(info.displayName.starts_with(L"readme"));
    EXPECT_FALSE(info.typeName.empty());
}

TYPED_TEST(ShellIconsContract, AFolderHasAnotherTypeThanAFile) {
    const ShellFileInfo folder = this->Ask(this->rig_.Folder());
    const ShellFileInfo file = this->Ask(this->rig_.AddText(L"readme.txt"));
    EXPECT_EQ(folder.imageList, file.imageList);
    EXPECT_NE(folder.iconIndex, file.iconIndex);
    EXPECT_NE(folder.typeName, file.typeName);
}

TYPED_TEST(ShellIconsContract, FilesOfOneTypeShareIconAndTypeName) {
    const ShellFileInfo one = this->Ask(this->rig_.AddText(L"one.txt"));
    const ShellFileInfo two = this->Ask(this->rig_.AddText(L"two.txt"));
    EXPECT_EQ(one.iconIndex, two.iconIndex);
    EXPECT_EQ(one.typeName, two.typeName);
    EXPECT_NE(one.displayName, two.displayName);
}

TYPED_TEST(ShellIconsContract, AnAnswerStaysTheSame) {
    const std::wstring path = this->rig_.AddText(L"readme.txt");
    EXPECT_EQ(this->Ask(path).imageList, this->Ask(path).imageList);
    EXPECT_EQ(this->Ask(path).iconIndex, this->Ask(path).iconIndex);
}

class WindowsShellIconsTest : public testing::Test {
protected:
    [[nodiscard]] std::wstring AddUrl(const std::wstring& name) {
        files_.AddFile(name, "[InternetShortcut]\r\nURL=http://keyboard.example/\r\n");
        return files_.Path(name);
    }
    /// Whether the whole query failed: then nothing in it may be half filled.
    static bool IsNothing(const ShellFileInfo& info) {
        return info.imageList == 0 && info.iconIndex == 0 && info.displayName.empty() &&
               info.typeName.empty();
    }

    WindowsFilesRig files_;
    WindowsShellIcons icons_;
};

TEST_F(WindowsShellIconsTest, EveryPathIsAnsweredOnceTheExecutableTypeIsLeftOut) {
    files_.AddFile(L"readme.txt");
    files_.AddFile(LocalName() + L".txt");
    for (const std::wstring& path :
         {std::wstring(L"c:\\"), files_.Path(), files_.Path(L"readme.txt"),
          files_.Path(LocalName() + L".txt"), WindowsDirectory() + L"\\explorer.exe", AddUrl(L"Help.url")}) {
        const ShellFileInfo plain = icons_.Query(path, kWithoutExecutableType);
        ASSERT_FALSE(IsNothing(plain)) << testing::PrintToString(path);
        EXPECT_FALSE(plain.displayName.empty());
        EXPECT_FALSE(plain.typeName.empty());
        // A system may refuse the default flags, but not answer them by halves.
        const ShellFileInfo full = icons_.Query(path, kDefaultFlags);
        EXPECT_TRUE(IsNothing(full) || full.imageList == plain.imageList) << testing::PrintToString(path);
        EXPECT_FALSE(IsNothing(CDrawIcon::AskShell(icons_, path, kDefaultFlags)))
            << testing::PrintToString(path);
    }
}

TEST_F(WindowsShellIconsTest, AMissingPathIsNothing) {
    for (const std::uint32_t flags : {kDefaultFlags, kWithoutExecutableType}) {
        EXPECT_TRUE(IsNothing(icons_.Query(files_.Path(L"missing.txt"), flags)));
        EXPECT_TRUE(IsNothing(icons_.Query(files_.Path(L"missing\\readme.txt"), flags)));
    }
}

TEST_F(WindowsShellIconsTest, TheAnswerIsAnImageListOfSmallIcons) {
    const ShellFileInfo info = CDrawIcon::AskShell(icons_, L"c:\\", kDefaultFlags);
    int width = 0;
    int height = 0;
    ASSERT_NE(ImageList_GetIconSize(std::bit_cast<HIMAGELIST>(info.imageList), &width, &height), FALSE);
    EXPECT_EQ(width, GetSystemMetrics(SM_CXSMICON));
    EXPECT_LT(info.iconIndex, ImageList_GetImageCount(std::bit_cast<HIMAGELIST>(info.imageList)));
}

TEST_F(WindowsShellIconsTest, NamesAreWithinTheCodePage) {
    files_.AddFile(LocalName() + L".txt");
    const ShellFileInfo info = CDrawIcon::AskShell(icons_, files_.Path(LocalName() + L".txt"), kDefaultFlags);
    EXPECT_TRUE(info.displayName.starts_with(LocalName())) << testing::PrintToString(info.displayName);
}

TEST_F(WindowsShellIconsTest, LongPathsAreHarmless) {
    for (const std::size_t length : {std::size_t{260}, std::size_t{5'000}}) {
        const std::wstring path = L"C:\\" + std::wstring(length, L'q') + L".txt";
        EXPECT_TRUE(IsNothing(icons_.Query(path, kWithoutExecutableType))) << length;
    }
}

TEST_F(WindowsShellIconsTest, AThreadOfItsOwnMayAsk) {
    files_.AddFile(L"readme.txt");
    const std::wstring path = files_.Path(L"readme.txt");
    const ShellFileInfo here = icons_.Query(path, kWithoutExecutableType);
    ShellFileInfo there;
    std::jthread([&] { there = icons_.Query(path, kWithoutExecutableType); }).join();
    EXPECT_EQ(there.imageList, here.imageList);
    EXPECT_EQ(there.iconIndex, here.iconIndex);
    EXPECT_EQ(there.typeName, here.typeName);
}

TEST_F(WindowsShellIconsTest, TheThreadMayHaveTheSystemsBoxesAsBefore) {
    DWORD former = 0;
    ASSERT_NE(SetThreadErrorMode(0, &former), FALSE);
    EXPECT_FALSE(IsNothing(icons_.Query(L"c:\\", kWithoutExecutableType)));
    EXPECT_EQ(GetThreadErrorMode(), 0U);
    SetThreadErrorMode(former, nullptr);
}

class WindowsDrawIconTest : public WindowsShellIconsTest {
protected:
    WindowsDrawIconTest() { draw_.PictureControl(box_); }
    std::int32_t Draw(const std::wstring& path, std::int32_t mode) {
        draw_.FileName(path);
        return draw_.SHDrawIcon(mode);
    }

    std::wstring shortcutType_ = WindowsStringSource().Load(kInternetShortcutTypeId);
    CDrawIcon draw_{icons_, shortcutType_};
    FakePictureBox box_;
};

TEST_F(WindowsDrawIconTest, TheShellsIconIsDrawnAndItsNamesAreKept) {
    files_.AddFile(L"readme.txt");
    const ShellFileInfo info = CDrawIcon::AskShell(icons_, files_.Path(L"readme.txt"), kDefaultFlags);
    EXPECT_EQ(Draw(files_.Path(L"readme.txt"), 1), info.iconIndex);
    EXPECT_EQ(draw_.IconHandle(), info.iconIndex);
    EXPECT_EQ(draw_.FileText(), info.displayName);
    EXPECT_EQ(draw_.FileType(), info.typeName);
    EXPECT_THAT(box_.Layers(),
                ElementsAre(std::to_wstring(info.imageList) + L':' + std::to_wstring(info.iconIndex)));
}

TEST_F(WindowsDrawIconTest, AFailingQueryDrawsTheFirstIcon) {
    EXPECT_EQ(Draw(files_.Path(L"missing.txt"), 1), 0);
    EXPECT_THAT(box_.Layers(), ElementsAre(L"0:0"));
    EXPECT_EQ(draw_.FileText(), L"");
    EXPECT_EQ(draw_.FileType(), L"");
}

TEST_F(WindowsDrawIconTest, AnInternetShortcutIsReplacedExactlyWhenTheShellHasNoIconForIt) {
    box_.filesWithIcons.insert(L"c:\\windows\\system32\\url.dll");
    const std::wstring file = AddUrl(L"Help.url");
    const ShellFileInfo info = CDrawIcon::AskShell(icons_, file, kDefaultFlags);
    const bool replaced =
        info.iconIndex == 0 &&
        CompareStringOrdinal(info.typeName.c_str(), -1, shortcutType_.c_str(), -1, TRUE) == CSTR_EQUAL;
    EXPECT_EQ(Draw(file, 1), replaced ? 1000 : info.iconIndex);
    EXPECT_EQ(box_.Layers().size(), replaced ? 2U : 1U);
    EXPECT_EQ(Draw(file, 0), info.iconIndex);
    EXPECT_EQ(box_.Layers().size(), 1U);
}

TEST_F(WindowsDrawIconTest, AShortcutOfTheTypeThatTheShellNamesIsReplaced) {
    const std::wstring file = AddUrl(L"Help.url");
    const ShellFileInfo info = CDrawIcon::AskShell(icons_, file, kDefaultFlags);
    if (info.iconIndex != 0) {
        GTEST_SKIP() << "this system's shell has an icon for Internet shortcuts";
    }
    box_.filesWithIcons.insert(L"c:\\windows\\system32\\url.dll");
    CDrawIcon draw(icons_, info.typeName);
    draw.PictureControl(box_);
    draw.FileName(file);
    EXPECT_EQ(draw.SHDrawIcon(1), 1000);
    EXPECT_EQ(draw.SHDrawIcon(0), 0);
}

TEST_F(WindowsDrawIconTest, TheProgramNamesTheTypeAsAShellOfItsLanguageDoes) {
    // Where the shell speaks another language than the program, the name is simply not found.
    const ShellFileInfo info = CDrawIcon::AskShell(icons_, AddUrl(L"Help.url"), kDefaultFlags);
    ASSERT_FALSE(info.typeName.empty());
    const bool shellSpeaksEnglish = info.typeName == L"Internet Shortcut";
    const bool programSpeaksEnglish = shortcutType_ == L"Internet Shortcut";
    EXPECT_EQ(info.typeName == shortcutType_, shellSpeaksEnglish == programSpeaksEnglish)
        << testing::PrintToString(info.typeName);
    if (GetACP() == 1252) {
        EXPECT_EQ(info.typeName, shortcutType_);
    }
}

} // namespace
