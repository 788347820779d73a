#include "SourceUse.h"

#include <filesystem>

using UiDriver::TreeView;
using UiDriver::WaitUntil;
using UiDriver::Window;

namespace {

constexpr UiDriver::Milliseconds kPatience{20000}; // other programs may keep the machine busy

std::wstring MenuProgram() {
    return Local(L"Café.v2.exe", L"作文.v2.exe");
}

void MakeFile(const std::wstring& path, const std::string& bytes = {}) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    UiDriver::WriteBytes(path, bytes);
}

} // namespace

SourceUse::SourceUse()
    : userMenu_(HKEY_CURRENT_USER, L"Start Menu", UserMenu()),
      allUsersMenu_(HKEY_LOCAL_MACHINE, L"Common Start Menu", AllUsersMenu()),
      favorites_(HKEY_CURRENT_USER, L"Favorites", Favorites()), current_(Seeded(1)) {
    MakeFile(MenuPath(MenuProgram()));
    for (int number = 1; number <= kMenuFiles; ++number) {
        MakeFile(MenuPath(MenuFile(number)));
    }
    MakeFile(MenuPath(FolderName()) + L"\\inner.exe");
    MakeFile(AllUsersMenu() + L'\\' + CommonFile());
    MakeFile(Favorites() + L"\\News.url", "[InternetShortcut]\r\nURL=http://example/news?a=1\r\n");
    MakeFile(Favorites() + L'\\' + FolderName() + L"\\inner.url");
    MakeFile(Files() + L"\\report.final.xls");
    const std::wstring program = ScratchFolder::Path() + L"\\program\\";
    MakeFile(program + L"QLBMCMNU.DAT",
             "Music,My music,music.exe /play\r\nFilms,Evening films,films.exe\r\n");
    MakeFile(program + L"QLBCODE.DAT", "Ctrl + C,131139,Copy\r\nAlt + F4,65651,Close it\r\n");
    OfferAll();
}

void SourceUse::TearDown() {
    EndProgram(); // before its folder goes
}

void SourceUse::OfferAll() const {
    Machine().Sub(L"UTLSetting\\ProgramGroup").SetDword(L"MCMenu", 1);
    Machine().Sub(L"UTLSetting\\ProgramGroup").SetDword(L"IEMenu", 1);
}

void SourceUse::NameUserMenu(const std::optional<std::wstring>& path) {
    const UiDriver::RegistryKey folders(
        HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders");
    if (path) {
        folders.SetString(L"Start Menu", *path);
    } else {
        folders.Erase(L"Start Menu");
    }
}

SourceUse::Offer SourceUse::OfferOf(Source source) {
    switch (source) {
    case Source::StartMenu: {
        const std::wstring name = MenuProgram();
        const std::wstring shown = name.substr(0, name.size() - 4);
        return {kStartMenuTabText,
                IDC_tvTreeView0,
                MenuNode(name),
                0,
                shown,
                {shown, L"M", 1, {MenuPath(name)}, {}}};
    }
    case Source::MediaCenter:
        return {kMediaCenterTabText,
                IDC_lstListBox0,
                {},
                1,
                L"Films",
                {L"Evening films", L"M", 1, {L"films.exe"}, {L"Films"}}};
    case Source::IeFavorites:
        return {kIeFavoritesTabText,
                IDC_tvTreeView1,
                FavoritesNode(L"News"),
                0,
                L"News",
                {L"News", L"M", 1, {L"iexplore.exe|http://example/news?a=1"}, {L"News"}}};
    case Source::AllFiles:
        return {kAllFilesTabText,
                IDC_tvTreeView2,
                {Text(kMyComputerText), L"c:", ScratchFolder::Name(), L"files", L"report.final.xls"},
                0,
                L"report.final",
                {L"report.final", L"M", 1, {L"c:" + Files().substr(2) + L"\\report.final.xls"}, {}}};
    case Source::ShortcutKey:
        break;
    }
    return {kShortcutKeyTabText, IDC_lstListBox1, {}, 1, L"Close it", {L"Close it", L"K", 1, {L"65651"}, {}}};
}

SourceUse::Path SourceUse::MenuNode(const std::wstring& name) {
    return {Text(kStartMenuText), name};
}

SourceUse::Path SourceUse::FavoritesNode(const std::wstring& name) {
    return {Text(kIeFavoritesTabText), name};
}

void SourceUse::CopyProgram() {
    if (!CopyFileW(ProgramPath().c_str(), CopiedProgram().c_str(), FALSE)) {
        UiDriver::FailLastError(L"copying the program");
    }
}

void SourceUse::StartHere(const std::wstring& arguments) {
    CopyProgram();
    StartFrom(CopiedProgram(), arguments);
}

TreeView SourceUse::TreeIn(const Window& form, int pane) {
    return TreeView(form.Control(pane).Hwnd());
}

bool SourceUse::IsTree(int pane) {
    return pane >= IDC_tvTreeView0 && pane <= IDC_tvTreeView2;
}

void SourceUse::Reveal(const TreeView& tree, const Path& node) {
    Path upTo;
    for (const std::wstring& name : node) {
        upTo.push_back(name);
        tree.WaitForNode(upTo, kPatience);
        if (upTo.size() == node.size()) {
            return;
        }
        if (upTo.size() > 1) { // a root opens by itself
            tree.Expand(upTo);
        }
        tree.WaitUntilExpanded(upTo, kPatience);
    }
}

POINT SourceUse::PointOf(const Window& form, const Offer& offer) {
    if (!IsTree(offer.pane)) {
        return form.List(offer.pane).ItemCentre(offer.row);
    }
    const TreeView tree = TreeIn(form, offer.pane);
    Reveal(tree, offer.node);
    return tree.NodeCentre(offer.node);
}

void SourceUse::Hold(const StoredButton& button) {
    current_.Button(1) = button;
    WritePattern(Set(1), current_);
}

StoredPattern SourceUse::With(int number, const StoredButton& button) const {
    StoredPattern pattern = current_;
    pattern.Button(number) = button;
    return pattern;
}

void SourceUse::ExpectStore(const StoredPattern& current) const {
    EXPECT_EQ(ReadPattern(Set(1)), current);
    const std::wstring found = StoreDump();
    UiDriver::Store::Wipe();
    Seed();
    OfferAll();
    WritePattern(Set(1), current);
    EXPECT_EQ(UiDriver::ToUtf8(found), UiDriver::ToUtf8(StoreDump()));
}

void SourceUse::ExpectToldOnce(const StoredPattern& current) {
    const std::vector<UiDriver::LauncherEntry> entries = TheLauncher().WaitForEntries(1);
    EXPECT_EQ(entries[0].Message(), UiDriver::Launcher::kSettingsChanged);
    EXPECT_EQ(SeenPattern(entries[0]), current);
    TheLauncher().RequireEntries(1);
}
