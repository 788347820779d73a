#include "BrowseUse.h"

namespace {

using testing::ElementsAre;

class BrowseFavorites : public BrowseUse {
protected:
    BrowseFavorites() { OfferFavorites(); }

    static void MakeShortcut(const std::wstring& name, const std::string& address) {
        MakeFile(Favorites() + L'\\' + name, "[InternetShortcut]\r\nURL=" + address + "\r\n");
    }

    void StartAtFavorites() {
        Start();
        OpenTab(kIeFavoritesTabText, IDC_tvTreeView1);
        FavoritesTree().WaitForNode(InFavorites());
        AwaitFilled(FavoritesTree(), InFavorites());
    }
};

TEST_F(BrowseFavorites, ShowShortcutsWithoutTheirExtensionAndEverythingElseWhole) {
    MakeShortcut(L"News.url", "http://example/news");
    MakeShortcut(L"Weather.URL", "http://example/weather");
    MakeShortcut(Local(L"Météo.Url", L"天気.Url"), "http://example/");
    MakeFile(Favorites() + L"\\readme.txt");
    MakeFile(Favorites() + L"\\curl");
    MakeShortcut(L"Folder.url\\Inner.url", "http://example/inner");
    StartAtFavorites();
    const Names expected = Japanese()
                               ? Names{L"Folder.url", L"curl", L"News", L"readme.txt", L"Weather", L"天気"}
                               : Names{L"Folder.url", L"curl", L"Météo", L"News", L"readme.txt", L"Weather"};
    EXPECT_THAT(FavoritesTree().ChildTexts(InFavorites()), testing::ElementsAreArray(expected));
    EXPECT_THAT(ContentsOf(FavoritesTree(), InFavorites({L"Folder.url"})), ElementsAre(L"Inner"));
}

TEST_F(BrowseFavorites, KeepTheExtensionInTheKeyAndKnowTheAddress) {
    MakeShortcut(L"News.url", "http://example/news?a=1&b=2");
    MakeShortcut(L"Weather.URL", "https://example/weather");
    MakeFile(Favorites() + L"\\Nothing.url");
    MakeFile(Favorites() + L"\\readme.txt");
    StartAtFavorites();
    ExpectKey(FavoritesTree(), InFavorites({L"News"}),
              Favorites() + L"\\News.url | http://example/news?a=1&b=2");
    ExpectKey(FavoritesTree(), InFavorites({L"Weather"}),
              Favorites() + L"\\Weather.URL | https://example/weather");
    ExpectKey(FavoritesTree(), InFavorites({L"Nothing"}), Favorites() + L"\\Nothing.url | ");
    ExpectKey(FavoritesTree(), InFavorites({L"readme.txt"}), Favorites() + L"\\readme.txt");
}

} // namespace
