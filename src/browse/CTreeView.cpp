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

#include <optional>
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

} // namespace

/// A folder that is being read, and the events that are worked off meanwhile. One of them may empty the tree.
class CTreeView::Reading final : public PendingEvents {
public:
    explicit Reading(CTreeView& tree) : tree_(tree) { tree_.reading_ = this; }
    ~Reading() override {
        if (IsWanted()) {
            tree_.reading_ = nullptr;
        }
    }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    [[nodiscard]] bool Process() override {
        return IsWanted() && tree_.services_.events.Process() && IsWanted();
    }

private:
    [[nodiscard]] bool IsWanted() const { return tree_.reading_ == this; }

    CTreeView& tree_;
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
    reading_ = nullptr;
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
    if (ExpandLevel(root, mode)) {
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
    BuildFolderTree(userStartMenu_.empty() ? allUsersStartMenu_ : userStartMenu_, text, Mode::StartMenu);
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
    if (reading_ != nullptr) {
        return false;
    }
    Reading reading(*this);
    const auto level = ReadFolderLevel(services_.files, reading, *order_, PlacesOf(node, mode));
    if (!level) {
        return false;
    }
    const Undrawn undrawn(*nodes_);
    nodes_->Remove(nodes_->Child(node));
    return PutIn(node, *level, mode, reading);
}

std::vector<std::wstring> CTreeView::PlacesOf(NodeId node, Mode mode) const {
    std::vector<std::wstring> places{nodes_->Key(node)};
    if (mode == Mode::StartMenu) {
        const StartMenuFolders folders{userStartMenu_, allUsersStartMenu_, services_.shell.UserName()};
        std::wstring other = folders.Counterpart(services_.files, places.front());
        if (!other.empty() && !EqualsIgnoreCase(other, places.front())) {
            places.push_back(std::move(other));
        }
    }
    return places;
}

bool CTreeView::PutIn(NodeId node, const FolderLevel& level, Mode mode, Reading& reading) {
    std::size_t added = 0;
    const auto mayGoOn = [&] { return ++added % kNodesAtOnce != 0 || reading.Process(); };
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
    auto target = services_.shell.ShortcutTarget(file);
    if (!target) {
        target = services_.shell.InternetShortcutAddress(file);
    }
    return CutAtNul(target.value_or(L""));
}

int CTreeView::ImageOf(const std::wstring& path) {
    icon_.FileName(path);
    const std::int32_t number = icon_.SHDrawIcon(kSubstituteInternetShortcuts);
    const int image = images_->Find(number);
    return image >= 0 ? image : images_->Add(*picture_, number);
}
