#include "browse/CTreeView.h"

#include "browse/CSystemDrive.h"
#include "browse/FolderLevel.h"
#include "browse/Paths.h"
#include "browse/StartMenuFolders.h"
#include "platform/FileSystem.h"
#include "platform/NameOrder.h"
#include "platform/PendingEvents.h"
#include "platform/Shell.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace {

constexpr std::uint32_t kShowSelectionAlways = 0x20; // TVS_SHOWSELALWAYS
constexpr std::uint32_t kNoToolTips = 0x80;          // TVS_NOTOOLTIPS
constexpr std::int32_t kSubstituteInternetShortcuts = 1;
/// Nodes that are added between two looks at the waiting events.
constexpr std::size_t kNodesAtOnce = 256;
constexpr std::size_t kUrlExtensionLength = 4;

/// Drawing is off for as long as this lives.
class Undrawn {
public:
    explicit Undrawn(TreeNodes& nodes) : nodes_(nodes) { nodes_.Redraw(false); }
    ~Undrawn() { nodes_.Redraw(true); }
    Undrawn(const Undrawn&) = delete;
    Undrawn& operator=(const Undrawn&) = delete;

private:
    TreeNodes& nodes_;
};

/// For a thread without windows.
class NoEvents final : public PendingEvents {
public:
    void Process() override {}
    bool RunBeside(std::function<void()> work, const std::function<bool()>& /*goOn*/) override {
        work();
        return true;
    }
};

} // namespace

/// What a level is read with: its own copy, because a reading that was given up outlasts the tree.
struct CTreeView::Reading {
    const FileSystem* files = nullptr;
    std::shared_ptr<const NameOrder> order;
    std::wstring path;
    bool joinStartMenus = false;
    StartMenuFolders startMenus;
    FolderLevel level;

    void Run() {
        std::vector<std::wstring> places{path};
        if (joinStartMenus) {
            std::wstring other = startMenus.Counterpart(*files, path);
            if (!other.empty() && !EqualsIgnoreCase(other, path)) {
                places.push_back(std::move(other));
            }
        }
        NoEvents events; // the user interface works off its own meanwhile
        level = ReadFolderLevel(*files, events, *order, places);
    }
};

CTreeView::CTreeView(const BrowseServices& services, const std::wstring& internetShortcutType)
    : services_(services), icon_(services.icons, internetShortcutType) {}

void CTreeView::TreeViewControl(TreeNodes& nodes) {
    nodes_ = &nodes;
    nodes.AddStyle(kShowSelectionAlways | kNoToolTips);
}

void CTreeView::PictureBoxControl(PictureBox& picture) {
    picture_ = &picture;
    icon_.PictureControl(picture);
}

void CTreeView::Clear() {
    ++generation_;
    openNext_.clear();
    nodes_->RemoveAll();
    images_->Clear();
}

void CTreeView::AddFolder(NodeId parent, const std::wstring& key, const std::wstring& text,
                          const std::wstring& placeholderPath, const std::wstring& iconPath) {
    const NodeId node = nodes_->AddFirst(parent, key, text, iconPath);
    if (node != 0) {
        AddPlaceholder(node, placeholderPath);
    }
}

void CTreeView::AddPlaceholder(NodeId node, const std::wstring& path) {
    nodes_->AddPlaceholder(node, path + L'\\' + kPlaceholderText, kPlaceholderText);
}

void CTreeView::ShowSecondNode(NodeId root) {
    if (const NodeId second = nodes_->Child(root); second != 0) {
        nodes_->EnsureVisible(second);
    }
}

std::wstring CTreeView::WindowsDirectory() const {
    const std::wstring directory = services_.shell.WindowsDirectory();
    return directory.empty() ? services_.shell.EnvironmentVariable(L"windir") : directory;
}

void CTreeView::SetMyComputer(const CSystemDrive& drives, const std::wstring& rootText) {
    Clear();
    const NodeId root = nodes_->AddFirst(0, rootText, rootText, WindowsDirectory() + L"\\explorer.exe");
    if (root == 0) {
        return;
    }
    for (std::int32_t i = drives.LocalDriveCount() - 1; i >= 0; --i) {
        const std::wstring drive = drives.GetLocalDrive(i);
        const std::wstring label = drives.GetLocalDriveVolume(i);
        std::wstring text = drive;
        if (!label.empty()) {
            text.append(L"[").append(label).append(L"]");
        }
        AddFolder(root, drive, text, text, drive + L'\\');
    }
    ShowSecondNode(root);
}

void CTreeView::BuildFolderTree(const std::wstring& path, const std::wstring& text, Mode mode) {
    Clear();
    const std::wstring folder = WithoutTrailingBackslash(path);
    const NodeId root = nodes_->AddFirst(0, folder, text.empty() ? folder : text, folder + L'\\');
    if (root == 0) {
        return;
    }
    AddPlaceholder(root, folder);
    const std::uint32_t generation = generation_;
    if (ExpandLevel(root, mode) && generation == generation_) {
        ShowSecondNode(root);
    }
}

void CTreeView::DrawItem(const std::wstring& path, const std::wstring& text) {
    BuildFolderTree(path, text, Mode::Folder);
}

void CTreeView::SetStartMenu(const std::wstring& path, const std::wstring& text) {
    userStartMenu_ = WithoutTrailingBackslash(path);
    allUsersStartMenu_ = WithoutTrailingBackslash(
        services_.shell.SpecialFolder(kFolderAllUsersStartMenu, nodes_->Window()).value_or(L""));
    BuildFolderTree(path, text, Mode::StartMenu);
}

void CTreeView::SetIeFavorites(const std::wstring& path, const std::wstring& text) {
    BuildFolderTree(path, text, Mode::Favorites);
}

bool CTreeView::Expand(NodeId node) {
    return ExpandLevel(node, Mode::Folder);
}

bool CTreeView::ExpandStartMenu(NodeId node) {
    return ExpandLevel(node, Mode::StartMenu);
}

bool CTreeView::ExpandIeFavorites(NodeId node) {
    return ExpandLevel(node, Mode::Favorites);
}

bool CTreeView::IsUnopened(NodeId node) const {
    const NodeId child = nodes_->Child(node);
    return child != 0 && nodes_->IsPlaceholder(child);
}

bool CTreeView::ExpandLevel(NodeId node, Mode mode) {
    if (!IsUnopened(node)) {
        return true;
    }
    if (expanding_) {
        if (std::find(openNext_.begin(), openNext_.end(), node) == openNext_.end()) {
            openNext_.push_back(node);
        }
        return false;
    }
    expanding_ = true;
    const bool opened = ReadIn(node, mode);
    expanding_ = false;
    const std::uint32_t generation = generation_;
    for (const NodeId next : std::exchange(openNext_, {})) {
        if (generation != generation_) {
            break; // opening the one before has emptied the tree
        }
        if (next != node || !opened) { // a new tree may have given the former root's id to its own
            nodes_->Open(next);
        }
    }
    return opened;
}

bool CTreeView::ReadIn(NodeId node, Mode mode) {
    const std::uint32_t generation = generation_;
    const auto reading = std::make_shared<Reading>();
    reading->files = &services_.files;
    reading->order = order_;
    reading->path = nodes_->Key(node);
    reading->joinStartMenus = mode == Mode::StartMenu;
    if (reading->joinStartMenus) {
        reading->startMenus = {userStartMenu_, allUsersStartMenu_, services_.shell.UserName()};
    }
    const bool read = services_.events.RunBeside([reading] { reading->Run(); },
                                                 [this, generation] { return generation == generation_; });
    if (!read || generation != generation_) {
        return false;
    }
    if (!IsUnopened(node)) {
        return true; // another program has meddled with the tree
    }
    const Undrawn undrawn(*nodes_);
    nodes_->Remove(nodes_->Child(node));
    return PutIn(node, reading->level, mode);
}

bool CTreeView::PutIn(NodeId node, const FolderLevel& level, Mode mode) {
    const std::uint32_t generation = generation_;
    std::size_t added = 0;
    const auto mayGoOn = [&] {
        if (++added % kNodesAtOnce == 0) {
            services_.events.Process();
        }
        return generation == generation_;
    };
    // Backwards, because each goes in front of those that are there.
    for (auto file = level.files.rbegin(); file != level.files.rend(); ++file) {
        std::wstring text = file->name;
        if (mode == Mode::Favorites && EndsInUrl(text)) {
            text.resize(text.size() - kUrlExtensionLength);
        }
        nodes_->AddFirst(node, level.PathOf(*file), text);
        if (!mayGoOn()) {
            return false;
        }
    }
    for (auto folder = level.folders.rbegin(); folder != level.folders.rend(); ++folder) {
        const std::wstring path = level.PathOf(*folder);
        AddFolder(node, path, folder->name, path);
        if (!mayGoOn()) {
            return false;
        }
    }
    return true;
}

std::wstring CTreeView::GetShortcutToURL(const std::wstring& file) const {
    const std::wstring target = CutAtNul(services_.shell.ShortcutTarget(file).value_or(L""));
    return target.empty() ? CutAtNul(services_.shell.InternetShortcutAddress(file).value_or(L"")) : target;
}

int CTreeView::ImageOf(const std::wstring& path) {
    icon_.FileName(path);
    return ImageOfDrawn(icon_.SHDrawIcon(kSubstituteInternetShortcuts));
}

int CTreeView::ImageOf(const ShellFileInfo& info) {
    return ImageOfDrawn(icon_.SHDrawIcon(kSubstituteInternetShortcuts, info));
}

int CTreeView::ImageOfDrawn(std::int32_t iconNumber) {
    const int image = images_->Find(iconNumber);
    return image >= 0 ? image : images_->Add(*picture_, iconNumber);
}
