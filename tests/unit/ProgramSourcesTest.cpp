#include "dialogs/register/ProgramSources.h"

#include "TestStore.h"
#include "app/StringTable.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeStrings.h"

#include <limits>
#include <optional>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

class Sources : public testing::Test, public TestStore {
public:
    Sources() { ResetGlobals(FakeStrings()); }

    void PutFile(const std::wstring& name, const std::string& bytes) {
        disk.AddFile(L"C:\\Program Files\\QLBUtl\\" + name, bytes);
    }
    void PutKey(int number, const char* name, const char* binding, const char* code) {
        const std::wstring subkey = L"Shortcut\\Key" + std::to_wstring(number);
        PutMachine(subkey, L"KeyName", name);
        PutMachine(subkey, L"KeyBind", binding);
        PutMachine(subkey, L"KeyCode", code);
    }
    void PutStartMenu(const char* path) {
        registry.PutString(RegistryHive::CurrentUser,
                           LR"(Software\Microsoft\Windows\CurrentVersion\Explorer\Shell Folders)",
                           L"Start Menu", path);
    }
    void OfferMediaCenter() { PutMachine(L"UTLSetting\\ProgramGroup", L"MCMenu", 1); }
    void OfferFavorites() { PutMachine(L"UTLSetting\\ProgramGroup", L"IEMenu", 1); }

    [[nodiscard]] std::vector<std::wstring> KeyTexts() const {
        std::vector<std::wstring> texts;
        for (const ShortcutKeyRow& row : sources.ShortcutKeys()) {
            texts.push_back(row.text);
        }
        return texts;
    }
    [[nodiscard]] std::vector<std::wstring> KeyNames() const {
        std::vector<std::wstring> names;
        for (const ShortcutKeyRow& row : sources.ShortcutKeys()) {
            names.push_back(row.name);
        }
        return names;
    }
    [[nodiscard]] std::vector<std::int32_t> KeyCodes() const {
        std::vector<std::int32_t> codes;
        for (const ShortcutKeyRow& row : sources.ShortcutKeys()) {
            codes.push_back(row.keyCode);
        }
        return codes;
    }
    [[nodiscard]] std::vector<std::wstring> Titles() const {
        std::vector<std::wstring> titles;
        for (const MediaCenterRow& row : sources.MediaCenterTable()) {
            titles.push_back(row.title);
        }
        return titles;
    }

    /// As a tab.
    [[nodiscard]] bool Offers(ProgramSource source) const {
        return sources.Offers(source, SourceOffer::Tabs);
    }

    FakeFileSystem disk;
    FakeShell shell;
    ProgramSources sources{store, disk, shell, ansiText};
};

// Shortcut keys

TEST_F(Sources, AShortcutKeyIsShownAsItsNameABlankAndItsBinding) {
    PutFile(L"QLBCODE.DAT", "Ctrl+C,46,Copy\r\n\"Ctrl+,\",51,\"Comma, plain\"\r\n");
    sources.LoadShortcutKeys();
    EXPECT_THAT(KeyTexts(), ElementsAre(L"Copy Ctrl+C", L"Comma, plain Ctrl+,"));
    EXPECT_THAT(KeyCodes(), ElementsAre(46, 51));
    EXPECT_THAT(KeyNames(), ElementsAre(L"Copy", L"Comma, plain"));
}

TEST_F(Sources, AKeyCodeThatIsNoNumberIsTheNumberThatItBeginsWith) {
    PutFile(L"QLBCODE.DAT", "a,abc,A\nb,,B\nc,12x,C\nd, -7 ,D\ne,99999999999,E\nf,0x1F,F\ng\n");
    sources.LoadShortcutKeys();
    EXPECT_THAT(KeyCodes(), ElementsAre(0, 0, 12, -7, kMax, 0, 0));
}

TEST_F(Sources, AShortcutKeyMayLackItsName) {
    PutFile(L"QLBCODE.DAT", "Ctrl+C,46\n");
    sources.LoadShortcutKeys();
    EXPECT_THAT(KeyTexts(), ElementsAre(L" Ctrl+C"));
    EXPECT_THAT(KeyNames(), ElementsAre(L""));
}

TEST_F(Sources, TheRegistryIsNotReadAtAll_WhenTheFileHasARecord) {
    PutFile(L"QLBCODE.DAT", "Ctrl+C,46,Copy\n");
    PutKey(0, "Paste", "Ctrl+V", "47");
    ForgetOperations();
    sources.LoadShortcutKeys();
    EXPECT_THAT(KeyTexts(), ElementsAre(L"Copy Ctrl+C"));
    EXPECT_THAT(registry.Operations(), IsEmpty());
}

TEST_F(Sources, ShortcutKeysComeFromTheRegistry_WithoutAFile) {
    PutKey(0, "Copy", "Ctrl+C", "46");
    PutKey(1, "Paste", "Ctrl+V", "47x");
    sources.LoadShortcutKeys();
    EXPECT_THAT(KeyTexts(), ElementsAre(L"Copy Ctrl+C", L"Paste Ctrl+V"));
    EXPECT_THAT(KeyCodes(), ElementsAre(46, 47));
    EXPECT_THAT(KeyNames(), ElementsAre(L"Copy", L"Paste"));
}

TEST_F(Sources, ShortcutKeysComeFromTheRegistry_WhenTheFileHasNoRecord) {
    PutFile(L"QLBCODE.DAT", "\r\n\r\n");
    PutKey(0, "Copy", "Ctrl+C", "46");
    sources.LoadShortcutKeys();
    EXPECT_THAT(KeyTexts(), ElementsAre(L"Copy Ctrl+C"));
}

TEST_F(Sources, ShortcutKeysComeFromTheRegistry_WhenTheFileCannotBeOpened) {
    PutFile(L"QLBCODE.DAT", "Paste,47,Ctrl+V\n");
    disk.FailOpening(L"C:\\Program Files\\QLBUtl\\QLBCODE.DAT");
    PutKey(0, "Copy", "Ctrl+C", "46");
    sources.LoadShortcutKeys();
    EXPECT_THAT(KeyTexts(), ElementsAre(L"Copy Ctrl+C"));
}

TEST_F(Sources, TheRegistrysListEndsAtTheFirstMissingOrEmptyName) {
    PutKey(0, "Copy", "Ctrl+C", "46");
    PutKey(2, "Paste", "Ctrl+V", "47");
    sources.LoadShortcutKeys();
    EXPECT_THAT(KeyTexts(), ElementsAre(L"Copy Ctrl+C"));
    PutKey(1, "", "Ctrl+X", "45");
    sources.LoadShortcutKeys();
    EXPECT_THAT(KeyTexts(), ElementsAre(L"Copy Ctrl+C"));
}

TEST_F(Sources, TheRegistrysListHasMoreThanTenKeys) {
    for (int i = 0; i < 12; ++i) {
        PutKey(i, ("Key" + std::to_string(i)).c_str(), "x", std::to_string(i).c_str());
    }
    sources.LoadShortcutKeys();
    EXPECT_THAT(sources.ShortcutKeys(), SizeIs(12));
    EXPECT_EQ(KeyTexts().back(), L"Key11 x");
    EXPECT_EQ(KeyCodes().back(), 11);
}

TEST_F(Sources, ThereAreNoShortcutKeys_WithoutAFileAndKey0) {
    PutKey(1, "Paste", "Ctrl+V", "47");
    sources.LoadShortcutKeys();
    EXPECT_THAT(sources.ShortcutKeys(), IsEmpty());
}

TEST_F(Sources, ShortcutKeysReadBeforeAFailureStay) {
    PutFile(L"QLBCODE.DAT", "Ctrl+C,46,Copy\nCtrl+V,47,Paste\n");
    disk.FailReadingAfter(L"C:\\Program Files\\QLBUtl\\QLBCODE.DAT", 20);
    PutKey(0, "Undo", "Ctrl+Z", "44");
    sources.LoadShortcutKeys();
    EXPECT_THAT(KeyTexts(), ElementsAre(L"Copy Ctrl+C"));
}

TEST_F(Sources, ShortcutKeysAreReadAnew_EachTime) {
    PutFile(L"QLBCODE.DAT", "Ctrl+C,46,Copy\n");
    sources.LoadShortcutKeys();
    sources.LoadShortcutKeys();
    EXPECT_THAT(sources.ShortcutKeys(), SizeIs(1));
}

TEST_F(Sources, TheFilesAreInTheProgramsOwnDirectory) {
    shell.programDirectory = L"D:\\";
    disk.AddFile(L"D:\\QLBCODE.DAT", "Ctrl+C,46,Copy\n");
    disk.AddFile(L"D:\\QLBMCMNU.DAT", "Music,My Music,music.exe\n");
    OfferMediaCenter();
    sources.LoadShortcutKeys();
    sources.LoadMediaCenter();
    EXPECT_THAT(KeyTexts(), ElementsAre(L"Copy Ctrl+C"));
    EXPECT_THAT(Titles(), ElementsAre(L"Music"));
}

// Media Center

TEST_F(Sources, AMediaCenterItemHasTitleDisplayNameAndCommandLine) {
    OfferMediaCenter();
    PutFile(L"QLBMCMNU.DAT", " Music , \"My Music, all\" , \"C:\\mc.exe /m\" \r\n");
    sources.LoadMediaCenter();
    ASSERT_THAT(sources.MediaCenterTable(), SizeIs(1));
    EXPECT_EQ(sources.MediaCenterTable()[0].title, L"Music");
    EXPECT_EQ(sources.MediaCenterTable()[0].displayName, L"My Music, all");
    EXPECT_EQ(sources.MediaCenterTable()[0].commandLine, L"C:\\mc.exe /m");
    EXPECT_TRUE(Offers(ProgramSource::MediaCenter));
}

TEST_F(Sources, MediaCenterIsOffered_OnlyWhenItsSwitchIs1) {
    PutFile(L"QLBMCMNU.DAT", "Music,My Music,music.exe\n");
    sources.LoadMediaCenter();
    EXPECT_FALSE(Offers(ProgramSource::MediaCenter));
    for (const std::int32_t value : {0, 2, -1}) {
        PutMachine(L"UTLSetting\\ProgramGroup", L"MCMenu", value);
        sources.LoadMediaCenter();
        EXPECT_FALSE(Offers(ProgramSource::MediaCenter)) << value;
    }
    EXPECT_THAT(disk.reads, IsEmpty());
    OfferMediaCenter();
    sources.LoadMediaCenter();
    EXPECT_TRUE(Offers(ProgramSource::MediaCenter));
}

TEST_F(Sources, MediaCenterIsNotOffered_WhenItsSwitchIsText) {
    PutFile(L"QLBMCMNU.DAT", "Music,My Music,music.exe\n");
    PutMachine(L"UTLSetting\\ProgramGroup", L"MCMenu", "1");
    sources.LoadMediaCenter();
    EXPECT_FALSE(Offers(ProgramSource::MediaCenter));
}

TEST_F(Sources, MediaCenterIsNotOffered_WithoutItsFile) {
    OfferMediaCenter();
    sources.LoadMediaCenter();
    EXPECT_FALSE(Offers(ProgramSource::MediaCenter));
    PutFile(L"QLBMCMNU.DAT", "\r\n");
    sources.LoadMediaCenter();
    EXPECT_FALSE(Offers(ProgramSource::MediaCenter)) << "without a record";
}

TEST_F(Sources, AnEighthMediaCenterItemEndsTheReading_AndSevenStay) {
    OfferMediaCenter();
    PutFile(L"QLBMCMNU.DAT", "1,a,x\n2,a,x\n3,a,x\n4,a,x\n5,a,x\n6,a,x\n7,a,x\n8,a,x\n9,a,x\n");
    sources.LoadMediaCenter();
    EXPECT_THAT(Titles(), ElementsAre(L"1", L"2", L"3", L"4", L"5", L"6", L"7"));
    EXPECT_TRUE(Offers(ProgramSource::MediaCenter));
}

TEST_F(Sources, SevenMediaCenterItemsFit) {
    OfferMediaCenter();
    PutFile(L"QLBMCMNU.DAT", "1,a,x\n2,a,x\n3,a,x\n4,a,x\n5,a,x\n6,a,x\n7,b,y");
    sources.LoadMediaCenter();
    ASSERT_THAT(sources.MediaCenterTable(), SizeIs(7));
    EXPECT_EQ(sources.MediaCenterTable()[6].commandLine, L"y");
}

TEST_F(Sources, AMediaCenterItemMayLackFields) {
    OfferMediaCenter();
    PutFile(L"QLBMCMNU.DAT", "Music\n");
    sources.LoadMediaCenter();
    ASSERT_THAT(Titles(), ElementsAre(L"Music"));
    EXPECT_EQ(sources.MediaCenterTable()[0].displayName, L"");
    EXPECT_EQ(sources.MediaCenterTable()[0].commandLine, L"");
}

TEST_F(Sources, MediaCenterItemsReadBeforeAFailureStay) {
    OfferMediaCenter();
    PutFile(L"QLBMCMNU.DAT", "Music,a,x\nFilms,b,y\n");
    disk.FailReadingAfter(L"C:\\Program Files\\QLBUtl\\QLBMCMNU.DAT", 12);
    sources.LoadMediaCenter();
    EXPECT_THAT(Titles(), ElementsAre(L"Music"));
    EXPECT_TRUE(Offers(ProgramSource::MediaCenter));
}

TEST_F(Sources, MediaCenterIsEmptiedAgain_WhenItIsNoLongerOffered) {
    OfferMediaCenter();
    PutFile(L"QLBMCMNU.DAT", "Music,a,x\n");
    sources.LoadMediaCenter();
    sources.LoadMediaCenter();
    EXPECT_THAT(Titles(), ElementsAre(L"Music"));
    PutMachine(L"UTLSetting\\ProgramGroup", L"MCMenu", 0);
    sources.LoadMediaCenter();
    EXPECT_THAT(Titles(), IsEmpty());
}

// Favourites and Start Menu

TEST_F(Sources, FavouritesAreNotOffered_WhenTheSwitchIsMissingOr0) {
    shell.specialFolders[kFolderFavorites] = L"C:\\Users\\hanako\\Favorites";
    disk.AddFile(L"C:\\Users\\hanako\\Favorites\\News.url");
    sources.LoadIeFavorites();
    EXPECT_FALSE(Offers(ProgramSource::IeFavorites));
    for (const std::int32_t value : {0, 2, -1}) {
        PutMachine(L"UTLSetting\\ProgramGroup", L"IEMenu", value);
        sources.LoadIeFavorites();
        EXPECT_FALSE(Offers(ProgramSource::IeFavorites)) << value;
        EXPECT_EQ(sources.FavoritesFolder(), L"") << value;
    }
}

TEST_F(Sources, FavouritesAreTheUsersFolder_WithoutATrailingBackslash) {
    OfferFavorites();
    for (const wchar_t* folder : {L"C:\\Users\\hanako\\Favorites", L"C:\\Users\\hanako\\Favorites\\"}) {
        shell.specialFolders[kFolderFavorites] = folder;
        sources.LoadIeFavorites();
        EXPECT_TRUE(Offers(ProgramSource::IeFavorites));
        EXPECT_EQ(sources.FavoritesFolder(), L"C:\\Users\\hanako\\Favorites");
    }
    EXPECT_EQ(kFolderFavorites, 6);
}

TEST_F(Sources, FavouritesWithoutAFolderAreATabAlone) {
    OfferFavorites();
    for (const std::optional<std::wstring>& folder :
         {std::optional<std::wstring>(), std::optional<std::wstring>(L""),
          std::optional<std::wstring>(L"\\")}) {
        shell.specialFolders[kFolderFavorites] = L"C:\\Favorites";
        sources.LoadIeFavorites();
        EXPECT_TRUE(sources.Offers(ProgramSource::IeFavorites, SourceOffer::SeveralPrograms));
        shell.specialFolders.clear();
        if (folder) {
            shell.specialFolders[kFolderFavorites] = *folder;
        }
        sources.LoadIeFavorites();
        EXPECT_EQ(sources.FavoritesFolder(), L"");
        EXPECT_TRUE(Offers(ProgramSource::IeFavorites));
        EXPECT_FALSE(sources.Offers(ProgramSource::IeFavorites, SourceOffer::SingleProgram));
        EXPECT_FALSE(sources.Offers(ProgramSource::IeFavorites, SourceOffer::SeveralPrograms));
    }
}

TEST_F(Sources, TheStartMenuIsTheOneThatTheRegistryNames) {
    sources.LoadStartMenu();
    EXPECT_EQ(sources.StartMenuFolder(), L"");
    PutStartMenu("C:\\Users\\hanako\\Start Menu");
    sources.LoadStartMenu();
    EXPECT_EQ(sources.StartMenuFolder(), L"C:\\Users\\hanako\\Start Menu");
}

// Who offers what

TEST_F(Sources, AreOfferedByTheirSwitchesFilesAndFolders_InEveryCombination) {
    using enum ProgramSource;
    for (unsigned combination = 0; combination < 64; ++combination) {
        SCOPED_TRACE(combination);
        const auto has = [&](unsigned bit) { return (combination >> bit & 1) != 0; };
        const bool mcMenu = has(0);
        const bool menuFile = has(1);
        const bool ieMenu = has(2);
        const bool favorites = has(3);
        const bool keys = has(4);
        const bool startMenu = has(5);
        PutMachine(L"UTLSetting\\ProgramGroup", L"MCMenu", mcMenu ? 1 : 0);
        PutMachine(L"UTLSetting\\ProgramGroup", L"IEMenu", ieMenu ? 1 : 0);
        PutFile(L"QLBMCMNU.DAT", menuFile ? "Music,a,x\n" : "\n");
        PutFile(L"QLBCODE.DAT", keys ? "Ctrl+C,46,Copy\n" : "\n");
        shell.specialFolders[kFolderFavorites] = favorites ? L"C:\\Favorites" : L"";
        PutStartMenu(startMenu ? "C:\\Menu" : "");
        sources.LoadStartMenu();
        sources.LoadMediaCenter();
        sources.LoadIeFavorites();
        sources.LoadShortcutKeys();

        std::vector<ProgramSource> tabs{StartMenu};
        std::vector<ProgramSource> single{StartMenu};
        std::vector<ProgramSource> several{StartMenu};
        if (mcMenu && menuFile) {
            tabs.push_back(MediaCenter);
            single.push_back(MediaCenter);
        }
        if (ieMenu) {
            tabs.push_back(IeFavorites);
        }
        if (ieMenu && favorites) {
            single.push_back(IeFavorites);
            several.push_back(IeFavorites);
        }
        for (std::vector<ProgramSource>* each : {&tabs, &single, &several}) {
            each->push_back(AllFiles);
        }
        tabs.push_back(ShortcutKey);
        if (keys) {
            single.push_back(ShortcutKey);
        }
        EXPECT_EQ(sources.Offered(SourceOffer::Tabs), tabs);
        EXPECT_EQ(sources.Offered(SourceOffer::SingleProgram), single);
        EXPECT_EQ(sources.Offered(SourceOffer::SeveralPrograms), several);
    }
}

TEST_F(Sources, ARegistryThatRefusesEveryReadOffersNothing) {
    OfferMediaCenter();
    OfferFavorites();
    PutKey(0, "Copy", "Ctrl+C", "46");
    PutFile(L"QLBMCMNU.DAT", "Music,a,x\n");
    registry.refusesReads = true;
    sources.LoadShortcutKeys();
    sources.LoadMediaCenter();
    sources.LoadIeFavorites();
    sources.LoadStartMenu();
    EXPECT_THAT(sources.ShortcutKeys(), IsEmpty());
    EXPECT_FALSE(Offers(ProgramSource::MediaCenter));
    EXPECT_FALSE(Offers(ProgramSource::IeFavorites));
    EXPECT_EQ(sources.StartMenuFolder(), L"");
}

} // namespace
