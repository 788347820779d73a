#include "browse/Paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

TEST(PathsTest, OneTrailingBackslashGoes) {
    EXPECT_EQ(WithoutTrailingBackslash(L"C:\\top\\"), L"C:\\top");
    EXPECT_EQ(WithoutTrailingBackslash(L"C:\\top"), L"C:\\top");
    EXPECT_EQ(WithoutTrailingBackslash(L"C:\\"), L"C:");
    EXPECT_EQ(WithoutTrailingBackslash(L"C:\\top\\\\"), L"C:\\top\\");
    EXPECT_EQ(WithoutTrailingBackslash(L"C:\\top/"), L"C:\\top/");
    EXPECT_EQ(WithoutTrailingBackslash(L""), L"");
}

TEST(PathsTest, FolderAndNameAreJoinedByOneBackslash) {
    EXPECT_EQ(JoinPath(L"C:\\top", L"a.txt"), L"C:\\top\\a.txt");
    EXPECT_EQ(JoinPath(L"C:\\", L"a.txt"), L"C:\\a.txt");
}

TEST(PathsTest, APathLiesUnderItselfAndTheFoldersAboveIt) {
    EXPECT_TRUE(LiesUnder(L"C:\\Top", L"c:\\tOP"));
    EXPECT_TRUE(LiesUnder(L"C:\\Top\\sub\\a", L"c:\\top"));
    EXPECT_TRUE(LiesUnder(L"C:\\a", L"C:"));
}

TEST(PathsTest, APathDoesNotLieUnderANeighbourWhoseNameItsOwnBeginsWith) {
    EXPECT_FALSE(LiesUnder(L"C:\\Start Menu 2\\a", L"C:\\Start Menu"));
    EXPECT_FALSE(LiesUnder(L"C:\\Start", L"C:\\Start Menu"));
    EXPECT_FALSE(LiesUnder(L"D:\\top", L"C:\\top"));
}

TEST(PathsTest, NothingLiesUnderAnEmptyRoot) {
    EXPECT_FALSE(LiesUnder(L"C:\\top", L""));
    EXPECT_FALSE(LiesUnder(L"\\top", L""));
    EXPECT_FALSE(LiesUnder(L"", L""));
}

TEST(PathsTest, APathIsSplitAtEveryBackslash) {
    EXPECT_THAT(SplitPath(L"C:\\top\\a b"), ElementsAre(L"C:", L"top", L"a b"));
    EXPECT_THAT(SplitPath(L"\\\\server\\share\\"), ElementsAre(L"", L"", L"server", L"share", L""));
    EXPECT_THAT(SplitPath(L"top"), ElementsAre(L"top"));
    EXPECT_THAT(SplitPath(L""), ElementsAre(L""));
}

TEST(PathsTest, TheUrlExtensionCountsInAnyCase) {
    for (const wchar_t* name : {L"News.url", L"News.URL", L"a.b.uRl", L".url"}) {
        EXPECT_TRUE(EndsInUrl(name)) << testing::PrintToString(name);
    }
    for (const wchar_t* name : {L"readme.txt", L"News.url ", L"Newsurl", L"url", L"News.url.txt", L""}) {
        EXPECT_FALSE(EndsInUrl(name)) << testing::PrintToString(name);
    }
}

} // namespace
