#include "browse/CDrawIcon.h"

#include "fakes/FakePictureBox.h"
#include "fakes/FakeShellIcons.h"
#include "fakes/FakeStrings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

void PrintTo(const FakeShellIcons::Question& question, std::ostream* stream) {
    *stream << testing::PrintToString(question.path) << ' ' << std::hex << question.flags;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Question = FakeShellIcons::Question;

constexpr std::int32_t kPlain = 0;
constexpr std::int32_t kSubstituting = 1;
constexpr std::uint32_t kExecutableType = 0x2000;
constexpr int kInternetShortcutType = 3301;
constexpr const wchar_t* kUrlLibrary = L"C:\\WINDOWS\\system32\\url.dll";

class DrawIcon : public testing::Test {
public:
    DrawIcon() {
        picture.filesWithIcons.insert(Lowered(kUrlLibrary));
        icon.PictureControl(picture);
    }

    [[nodiscard]] std::int32_t Draw(const std::wstring& path, std::int32_t mode) {
        icon.FileName(path);
        return icon.SHDrawIcon(mode);
    }

    FakeShellIcons shell;
    FakePictureBox picture;
    CDrawIcon icon{shell, L"Internet Shortcut"};
};

TEST_F(DrawIcon, DrawsTheShellsIcon_AndReturnsItsNumber) {
    shell.Put(L"C:\\a.txt", 12, L"Text Document", L"a");
    EXPECT_EQ(Draw(L"C:\\a.txt", kSubstituting), 12);
    EXPECT_EQ(icon.IconHandle(), 12);
    EXPECT_THAT(picture.Layers(), ElementsAre(L"77:12"));
}

TEST_F(DrawIcon, TellsDisplayNameAndTypeName_CutAtTheirFirstNul) {
    shell.Put(L"C:\\a.txt", 12, std::wstring(L"Text\0Document", 13), std::wstring(L"a\0.txt", 6));
    (void)Draw(L"C:\\a.txt", kPlain);
    EXPECT_EQ(icon.FileText(), L"a");
    EXPECT_EQ(icon.FileType(), L"Text");
}

TEST_F(DrawIcon, ClearsThePictureBeforeItDraws) {
    shell.Put(L"C:\\a.txt", 12, L"Text Document");
    shell.Put(L"C:\\b.exe", 13, L"Application");
    (void)Draw(L"C:\\a.txt", kPlain);
    (void)Draw(L"C:\\b.exe", kPlain);
    EXPECT_THAT(picture.Layers(), ElementsAre(L"77:13"));
}

TEST_F(DrawIcon, GivesAnInternetShortcutWithoutAnIconTheLibrarysOne_And1000) {
    shell.Put(L"C:\\News.url", 0, L"Internet Shortcut");
    EXPECT_EQ(Draw(L"C:\\News.url", kSubstituting), 1000);
    EXPECT_EQ(icon.IconHandle(), 1000);
    EXPECT_EQ(picture.Shown(), kUrlLibrary);
}

TEST_F(DrawIcon, KeepsTheShellsIconOfAnInternetShortcut_InEveryOtherMode) {
    shell.Put(L"C:\\News.url", 0, L"Internet Shortcut");
    for (const std::int32_t mode : {0, 2, -1, 1000}) {
        EXPECT_EQ(Draw(L"C:\\News.url", mode), 0) << mode;
        EXPECT_EQ(picture.Shown(), L"77:0") << mode;
    }
    EXPECT_THAT(picture.AskedFor(), IsEmpty());
}

TEST_F(DrawIcon, KeepsTheShellsIconOfAnInternetShortcut_WhenThatHasANumber) {
    for (const std::int32_t index : {1, 1000, -1}) {
        shell.Put(L"C:\\News.url", index, L"Internet Shortcut");
        EXPECT_EQ(Draw(L"C:\\News.url", kSubstituting), index);
        EXPECT_EQ(picture.Shown(), L"77:" + std::to_wstring(index));
    }
    EXPECT_THAT(picture.AskedFor(), IsEmpty());
}

TEST_F(DrawIcon, KeepsIconZeroOfAFileOfAnotherType) {
    for (const wchar_t* type : {L"Shortcut", L"Internet Shortcuts", L"Internet", L""}) {
        shell.Put(L"C:\\a", 0, type);
        EXPECT_EQ(Draw(L"C:\\a", kSubstituting), 0) << testing::PrintToString(type);
        EXPECT_EQ(picture.Shown(), L"77:0");
    }
    EXPECT_THAT(picture.AskedFor(), IsEmpty());
}

TEST_F(DrawIcon, ComparesTheTypeNameWithoutRegardToCase) {
    shell.Put(L"C:\\News.url", 0, L"INTERNET shortcut");
    EXPECT_EQ(Draw(L"C:\\News.url", kSubstituting), 1000);
}

TEST_F(DrawIcon, KnowsTheTypeNameOfTheProgramsLanguage) {
    const std::wstring japanese = FakeStrings(Language::Japanese).Load(kInternetShortcutType);
    ASSERT_NE(japanese, FakeStrings(Language::English).Load(kInternetShortcutType));
    shell.Put(L"C:\\News.url", 0, japanese);
    EXPECT_EQ(Draw(L"C:\\News.url", kSubstituting), 0);
    CDrawIcon translated(shell, japanese);
    translated.PictureControl(picture);
    translated.FileName(L"C:\\News.url");
    EXPECT_EQ(translated.SHDrawIcon(kSubstituting), 1000);
}

TEST_F(DrawIcon, KeepsTheShellsIcon_WhenTheLibraryHasNone) {
    picture.filesWithIcons.clear();
    shell.Put(L"C:\\News.url", 0, L"Internet Shortcut");
    EXPECT_EQ(Draw(L"C:\\News.url", kSubstituting), 0);
    EXPECT_EQ(icon.IconHandle(), 0);
    EXPECT_EQ(picture.Shown(), L"77:0");
    EXPECT_THAT(picture.AskedFor(), ElementsAre(kUrlLibrary));
}

TEST_F(DrawIcon, StartsFromTheShellsNumber_EachTime) {
    shell.Put(L"C:\\News.url", 0, L"Internet Shortcut");
    EXPECT_EQ(Draw(L"C:\\News.url", kSubstituting), 1000);
    EXPECT_EQ(Draw(L"C:\\News.url", kSubstituting), 1000);
}

TEST_F(DrawIcon, DrawsIconZero_WhenTheQueryFails) {
    shell.fails = true;
    EXPECT_EQ(Draw(L"C:\\gone.txt", kSubstituting), 0);
    EXPECT_EQ(icon.IconHandle(), 0);
    EXPECT_THAT(picture.Layers(), ElementsAre(L"0:0"));
    EXPECT_EQ(icon.FileText(), L"");
    EXPECT_EQ(icon.FileType(), L"");
}

TEST_F(DrawIcon, TakesNoNumberFromAQueryThatFailed) {
    shell.PutFailing(L"C:\\gone.txt", {0, 55, 0, L"", L""});
    EXPECT_EQ(Draw(L"C:\\gone.txt", kPlain), 0);
    EXPECT_THAT(picture.Layers(), ElementsAre(L"0:0"));
}

TEST_F(DrawIcon, ForgetsTheFormerFile_WhenTheQueryFails) {
    shell.Put(L"C:\\News.url", 0, L"Internet Shortcut", L"News");
    (void)Draw(L"C:\\News.url", kSubstituting);
    shell.fails = true;
    EXPECT_EQ(Draw(L"C:\\gone.txt", kSubstituting), 0);
    EXPECT_EQ(icon.FileText(), L"");
    EXPECT_EQ(icon.FileType(), L"");
}

TEST_F(DrawIcon, QueriesWithItsDefaultFlags) {
    (void)Draw(L"C:\\a.txt", kPlain);
    EXPECT_THAT(shell.questions, ElementsAre(Question{L"C:\\a.txt", 26117}));
}

TEST_F(DrawIcon, AsksAgainWithoutTheExecutableType_WhenTheQueryComesBackEmpty) {
    shell.refusedFlags = kExecutableType;
    shell.Put(L"C:\\a.txt", 12, L"Text Document");
    EXPECT_EQ(Draw(L"C:\\a.txt", kPlain), 12);
    EXPECT_EQ(picture.Shown(), L"77:12");
    EXPECT_THAT(shell.questions, ElementsAre(Question{L"C:\\a.txt", 0x6605}, Question{L"C:\\a.txt", 0x4605}));
    (void)Draw(L"C:\\b.txt", kPlain);
    EXPECT_EQ(shell.questions[2], (Question{L"C:\\b.txt", 0x6605})) << "the property keeps its value";
}

TEST_F(DrawIcon, NeverAsksTwice_WithoutTheExecutableType) {
    shell.fails = true;
    icon.SetUFlag(0x4605);
    EXPECT_EQ(Draw(L"C:\\gone.txt", kPlain), 0);
    EXPECT_THAT(shell.questions, ElementsAre(Question{L"C:\\gone.txt", 0x4605}));
}

TEST_F(DrawIcon, AsksAtMostTwice) {
    shell.fails = true;
    (void)Draw(L"C:\\gone.txt", kPlain);
    EXPECT_EQ(shell.questions.size(), 2U);
}

TEST_F(DrawIcon, QueriesWithTheFlagsThatWereSet) {
    icon.SetUFlag(kExecutableType | 0x100);
    shell.refusedFlags = kExecutableType;
    (void)Draw(L"C:\\a.txt", kPlain);
    EXPECT_THAT(shell.questions, ElementsAre(Question{L"C:\\a.txt", 0x2100}, Question{L"C:\\a.txt", 0x100}));
}

TEST_F(DrawIcon, AnswersWithoutAPictureBox) {
    CDrawIcon blind(shell, L"Internet Shortcut");
    shell.Put(L"C:\\a.txt", 12, L"Text Document");
    blind.FileName(L"C:\\a.txt");
    EXPECT_EQ(blind.SHDrawIcon(kSubstituting), 12);
    EXPECT_EQ(blind.IconHandle(), 12);
}

TEST_F(DrawIcon, AsksForAnEmptyName_BeforeOneWasGiven) {
    EXPECT_EQ(icon.IconHandle(), 0);
    (void)icon.SHDrawIcon(kPlain);
    EXPECT_THAT(shell.questions, ElementsAre(Question{L"", 26117}));
}

} // namespace
