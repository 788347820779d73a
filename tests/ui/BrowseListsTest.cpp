#include "BrowseUse.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr wchar_t kKeyFile[] = L"QLBCODE.DAT";
constexpr wchar_t kMenuFile[] = L"QLBMCMNU.DAT";

class BrowseLists : public BrowseUse {
protected:
    void StoreKey(int index, const std::wstring& name, const std::wstring& code,
                  const std::wstring& binding) const {
        const UiDriver::RegistryKey key = Machine().Sub(L"Shortcut\\Key" + std::to_wstring(index));
        key.SetString(L"KeyName", name);
        key.SetString(L"KeyCode", code);
        key.SetString(L"KeyBind", binding);
    }
};

TEST_F(BrowseLists, AllFiveSourcesHaveATabWhenTheMakerOffersThem) {
    OfferFavorites();
    OfferMediaCenter();
    MakeDataFile(kMenuFile, "Music,My music,music.exe\r\n");
    Start();
    EXPECT_THAT(Tabs().Captions(),
                ElementsAre(Text(kStartMenuTabText), Text(kMediaCenterTabText), Text(kIeFavoritesTabText),
                            Text(kAllFilesTabText), Text(kShortcutKeyTabText)));
    OpenTab(kMediaCenterTabText, IDC_lstListBox0);
    OpenTab(kIeFavoritesTabText, IDC_tvTreeView1);
    OpenTab(kAllFilesTabText, IDC_tvTreeView2);
    OpenTab(kShortcutKeyTabText, IDC_lstListBox1);
    OpenTab(kStartMenuTabText, IDC_tvTreeView0);
}

TEST_F(BrowseLists, WithoutTheMakersSwitchesTwoTabsAreMissingAndLeaveNoHole) {
    MakeDataFile(kMenuFile, "Music,My music,music.exe\r\n");
    MakeFile(Favorites() + L"\\News.url");
    Start();
    EXPECT_THAT(Tabs().Captions(),
                ElementsAre(Text(kStartMenuTabText), Text(kAllFilesTabText), Text(kShortcutKeyTabText)));
    EXPECT_EQ(MediaCenter().Count(), 0);
    OpenTab(kAllFilesTabText, IDC_tvTreeView2);
    OpenTab(kShortcutKeyTabText, IDC_lstListBox1);
    EXPECT_EQ(FavoritesTree().Count(), 0);
}

TEST_F(BrowseLists, TheMediaCenterNeedsItsFile) {
    OfferFavorites();
    OfferMediaCenter();
    Start();
    EXPECT_THAT(Tabs().Captions(), ElementsAre(Text(kStartMenuTabText), Text(kIeFavoritesTabText),
                                               Text(kAllFilesTabText), Text(kShortcutKeyTabText)));
    OpenTab(kIeFavoritesTabText, IDC_tvTreeView1);
}

TEST_F(BrowseLists, TheMediaCenterEndsWithItsSeventhRow) {
    OfferMediaCenter();
    MakeDataFile(kMenuFile, "One,1,a\r\nTwo,2,b\r\n\r\n\"Three, or more\",3,\"c,d\"\r\nFour\r\n  Five  ,5,e\n"
                            "\"Say \"\"Six\"\"\",6,f\nSeven,7,g\nEight,8,h\nNine,9,i\n");
    Start();
    EXPECT_THAT(MediaCenter().Items(),
                ElementsAre(L"One", L"Two", L"Three, or more", L"Four", L"Five", L"Say \"Six\"", L"Seven"));
    EXPECT_EQ(MediaCenter().Selected(), 0);
}

TEST_F(BrowseLists, ShortcutKeysComeFromTheirFileAlone) {
    MakeDataFile(kKeyFile, "Ctrl + C,131139,Copy\r\n\"Ctrl + ,\",131260,\"Comma, \"\"the\"\" key\"\r\n"
                           " Alt + F4 , 65651 , Close \r\nF9,none");
    StoreKey(0, L"Stored", L"65", L"A");
    Start();
    EXPECT_THAT(ShortcutKeys().Items(),
                ElementsAre(L"Copy Ctrl + C", L"Comma, \"the\" key Ctrl + ,", L"Close Alt + F4", L" F9"));
    EXPECT_EQ(ShortcutKeys().ItemData(0), 131139);
    EXPECT_EQ(ShortcutKeys().ItemData(1), 131260);
    EXPECT_EQ(ShortcutKeys().ItemData(2), 65651);
    EXPECT_EQ(ShortcutKeys().ItemData(3), 0);
    EXPECT_EQ(ShortcutKeys().Selected(), 0);
}

TEST_F(BrowseLists, ShortcutKeysAreInTheUsersLanguage) {
    // In the ANSI code page of each language.
    MakeDataFile(kKeyFile,
                 Japanese() ? "Ctrl + C,131139,\x83\x52\x83\x73\x81\x5b" : "Ctrl + C,131139,\xc9tage");
    Start();
    EXPECT_THAT(ShortcutKeys().Items(), ElementsAre(Local(L"Étage Ctrl + C", L"コピー Ctrl + C")));
}

TEST_F(BrowseLists, WithoutTheirFileShortcutKeysComeFromTheRegistryUpToTheFirstGap) {
    StoreKey(0, L"Copy", L"131139", L"Ctrl + C");
    StoreKey(1, L"Paste", L"131158", L"Ctrl + V");
    StoreKey(3, L"Behind the gap", L"65", L"A");
    Start();
    EXPECT_THAT(ShortcutKeys().Items(), ElementsAre(L"Copy Ctrl + C", L"Paste Ctrl + V"));
    EXPECT_EQ(ShortcutKeys().ItemData(0), 131139);
    EXPECT_EQ(ShortcutKeys().ItemData(1), 131158);
    EXPECT_EQ(ShortcutKeys().Selected(), 0);
}

TEST_F(BrowseLists, AFileWithoutARecordIsAsGoodAsNone) {
    MakeDataFile(kKeyFile, "\r\n\r\n");
    StoreKey(0, L"Copy", L"131139", L"Ctrl + C");
    Start();
    EXPECT_THAT(ShortcutKeys().Items(), ElementsAre(L"Copy Ctrl + C"));
}

TEST_F(BrowseLists, WithoutFileAndRegistryThereAreNoShortcutKeys) {
    Start();
    OpenTab(kShortcutKeyTabText, IDC_lstListBox1);
    EXPECT_THAT(ShortcutKeys().Items(), IsEmpty());
    EXPECT_EQ(ShortcutKeys().Selected(), std::nullopt);
}

} // namespace
