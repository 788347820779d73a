#include "BrowseUse.h"

#include <algorithm>
#include <filesystem>

using UiDriver::Milliseconds;
using UiDriver::Process;
using UiDriver::RegistryKey;
using UiDriver::TreeView;

namespace {

namespace fs = std::filesystem;

constexpr wchar_t kPlaceholder[] = L"%$%$%$%$Dummy%$%$%$%$";
constexpr wchar_t kExplorerKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";
constexpr Milliseconds kPatience{30000}; // other programs may keep the machine busy
constexpr DWORD kOn = 1;

std::wstring ProgramFolder() {
    return ScratchFolder::Path() + L"\\program";
}

void RemoveScratch() {
    // Just after a program has ended its file may still be in use.
    std::error_code error;
    const auto remove = [&] {
        fs::remove_all(ScratchFolder::Path(), error);
        return !error;
    };
    UiDriver::WaitUntil(remove, L"the scratch folder to go");
}

} // namespace

ScratchFolder::ScratchFolder() {
    RemoveScratch();
    fs::create_directory(Path());
}

ScratchFolder::~ScratchFolder() {
    try {
        RemoveScratch();
    } catch (const std::exception&) {
        // The next one removes it again and reports what is wrong then.
    }
}

MovedShellFolder::MovedShellFolder(HKEY root, std::wstring name, const std::wstring& path)
    : name_(std::move(name)) {
    fs::create_directories(path);
    // The system looks in the second one, and writes what it found there into the first.
    for (const wchar_t* key : {L"Shell Folders", L"User Shell Folders"}) {
        const RegistryKey folders(root, std::wstring(kExplorerKey) + key);
        former_.emplace_back(folders, folders.Raw(name_));
        folders.SetString(name_, path);
    }
}

MovedShellFolder::~MovedShellFolder() {
    try {
        for (const auto& [key, value] : former_) {
            if (value) {
                key.SetRaw(name_, *value);
            } else {
                key.Erase(name_);
            }
        }
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
    }
}

BrowseUse::BrowseUse()
    : userMenu_(HKEY_CURRENT_USER, L"Start Menu", UserMenu()),
      allUsersMenu_(HKEY_LOCAL_MACHINE, L"Common Start Menu", AllUsersMenu()),
      favorites_(HKEY_CURRENT_USER, L"Favorites", Favorites()) {
    // Away from where the window opens.
    UiDriver::Mouse::MoveTo({2, 2});
    MakeFolder(ProgramFolder());
}

void BrowseUse::TearDown() {
    if (program_ && program_->Running()) {
        ExpectGoodEnd();
    }
    program_.reset();
}

void BrowseUse::MakeFolder(const std::wstring& path) {
    fs::create_directories(path);
}

void BrowseUse::MakeFile(const std::wstring& path, const std::string& bytes) {
    MakeFolder(fs::path(path).parent_path());
    UiDriver::WriteBytes(path, bytes);
}

void BrowseUse::MakeFiles(const std::wstring& folder, int count) {
    MakeFolder(folder);
    for (int i = 0; i < count; ++i) {
        UiDriver::WriteBytes(folder + L"\\" + std::to_wstring(i) + L".txt", {});
    }
}

void BrowseUse::Hide(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    SetFileAttributesW(path.c_str(), attributes | FILE_ATTRIBUTE_HIDDEN);
    if ((GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_HIDDEN) == 0) {
        UiDriver::FailLastError(L"hiding " + path);
    }
}

void BrowseUse::MakeDataFile(const std::wstring& name, const std::string& bytes) {
    MakeFile(ProgramFolder() + L'\\' + name, bytes);
}

void BrowseUse::OfferMediaCenter() const {
    Machine().Sub(L"UTLSetting\\ProgramGroup").SetDword(L"MCMenu", kOn);
}

void BrowseUse::OfferFavorites() const {
    Machine().Sub(L"UTLSetting\\ProgramGroup").SetDword(L"IEMenu", kOn);
}

void BrowseUse::StartWindow() {
    const std::wstring copy = ProgramFolder() + L"\\Browse.exe";
    if (!CopyFileW((L"Z:" + UiDriver::FromUtf8(QLB_BROWSE_PATH)).c_str(), copy.c_str(), FALSE)) {
        UiDriver::FailLastError(L"copying the program");
    }
    program_.emplace(Process::Start(copy));
    form_.emplace(UiDriver::WaitForForm(*program_, L"Browse"));
    form_->WaitUntilAnswers();
    form_->BringToFront();
}

void BrowseUse::Start() {
    StartWindow();
    StartMenu().WaitForNode(InMenu());
    AwaitFilled(StartMenu(), InMenu());
}

void BrowseUse::OpenTab(int captionText, int control) const {
    const Names captions = Tabs().Captions();
    const auto found = std::find(captions.begin(), captions.end(), Text(captionText));
    if (found == captions.end()) {
        UiDriver::Fail(L"there is no tab \"" + Text(captionText) + L'"');
    }
    // By keys, because tabs may be scrolled out of sight.
    const int tab = static_cast<int>(found - captions.begin());
    Tabs().Focus();
    while (Tabs().Selected() != tab) {
        const int former = Tabs().Selected();
        UiDriver::Keyboard::Press(former < tab ? VK_RIGHT : VK_LEFT);
        UiDriver::WaitUntil([&] { return Tabs().Selected() != former; }, L"another tab to be selected");
    }
    const auto shown = [&] {
        for (const int id :
             {IDC_tvTreeView0, IDC_tvTreeView1, IDC_tvTreeView2, IDC_lstListBox0, IDC_lstListBox1}) {
            if (Form().Control(id).Visible() != (id == control)) {
                return false;
            }
        }
        return true;
    };
    UiDriver::WaitUntil(shown, L"the pane of \"" + Text(captionText) + L'"');
}

BrowseUse::Path BrowseUse::InMenu(const Path& names) {
    Path path{Text(kStartMenuText)};
    path.insert(path.end(), names.begin(), names.end());
    return path;
}

BrowseUse::Path BrowseUse::InFavorites(const Path& names) {
    Path path{Text(kIeFavoritesTabText)};
    path.insert(path.end(), names.begin(), names.end());
    return path;
}

bool BrowseUse::Unfilled(const TreeView& tree, const Path& node) {
    Path placeholder = node;
    placeholder.emplace_back(kPlaceholder);
    return tree.Has(placeholder);
}

void BrowseUse::AwaitFilled(const TreeView& tree, const Path& node, Milliseconds timeout) {
    const auto filled = [&] { return !Unfilled(tree, node) && (tree.Expanded(node) || !tree.HasMark(node)); };
    UiDriver::WaitUntil(filled, L"the node \"" + node.back() + L"\" to be filled", timeout);
}

void BrowseUse::Open(const TreeView& tree, const Path& node) {
    tree.Expand(node);
    AwaitFilled(tree, node);
}

BrowseUse::Names BrowseUse::ContentsOf(const TreeView& tree, const Path& node) {
    Open(tree, node);
    return tree.ChildTexts(node);
}

void BrowseUse::ExpectKey(const TreeView& tree, const Path& node, const std::wstring& key) const {
    tree.Select(node);
    Form().WaitUntilAnswers();
    EXPECT_EQ(KeyLine().Text(), key);
}

void BrowseUse::ExpectGoodEnd() {
    form_->Close();
    EXPECT_EQ(program_->WaitForExit(kPatience), 0U);
}
