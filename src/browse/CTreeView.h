#pragma once

#include "browse/CDrawIcon.h"
#include "browse/TreeNodes.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class CSystemDrive;
class FileSystem;
struct FolderLevel;
class NameOrder;
class PendingEvents;
class Shell;

/// Text of the placeholder in a folder that was never opened.
inline constexpr const wchar_t* kPlaceholderText = L"%$%$%$%$Dummy%$%$%$%$";

/// What a tree asks of the system.
struct BrowseServices {
    const FileSystem& files;
    const Shell& shell;
    const ShellIcons& icons;
    PendingEvents& events;
};

/// Fills a tree control with the places to pick a program from, and each folder when it is first opened. A
/// node's key is the full path of what it shows.
///
/// A folder is read while the user interface goes on answering. Until it is in the tree, opening another one
/// waits, and Clear gives up what is being read.
class CTreeView {
public:
    /// `internetShortcutType`: string id 3301.
    CTreeView(const BrowseServices& services, const std::wstring& internetShortcutType);

    /// The four controls; all must be given before a tree is built.
    void TreeViewControl(TreeNodes& nodes);
    void PictureBoxControl(PictureBox& picture);
    void ImageListControl(NodeImages& images) { images_ = &images; }
    /// Shared, because a folder that was given up may still be sorted.
    void ListBoxControl(std::shared_ptr<const NameOrder> order) { order_ = std::move(order); }

    /// Empties the tree and its images.
    void Clear();

    /// A tree of one folder, opened at once. Without a text the root shows the path.
    void DrawItem(const std::wstring& path, const std::wstring& text);
    /// The computer's drives.
    void SetMyComputer(const CSystemDrive& drives, const std::wstring& rootText);
    /// The user's Start Menu, joined with the All Users one.
    void SetStartMenu(const std::wstring& path, const std::wstring& text);
    /// Favourites: Internet shortcuts without their ".url".
    void SetIeFavorites(const std::wstring& path, const std::wstring& text);

    /// Fills a folder that is opened for the first time. False: another folder is being read; the node opens by
    /// itself afterwards, in its turn.
    bool Expand(NodeId node);
    bool ExpandStartMenu(NodeId node);
    bool ExpandIeFavorites(NodeId node);
    /// True for a folder that was never opened: its only child is the placeholder.
    [[nodiscard]] bool IsUnopened(NodeId node) const;
    /// True while a folder is being read or put into the tree.
    [[nodiscard]] bool IsExpanding() const { return expanding_; }

    /// The address that an Internet shortcut file holds; empty when it has none.
    [[nodiscard]] std::wstring GetShortcutToURL(const std::wstring& file) const;

    /// The image of a path: drawn and added when it is the first one with its icon.
    int ImageOf(const std::wstring& path);
    /// The same with what the shell has answered already.
    int ImageOf(const ShellFileInfo& info);
    [[nodiscard]] std::uint32_t IconFlags() const { return icon_.QueryFlags(); }

private:
    enum class Mode { Folder, StartMenu, Favorites };
    struct Reading;

    void BuildFolderTree(const std::wstring& path, const std::wstring& text, Mode mode);
    void ShowSecondNode(NodeId root);
    bool ExpandLevel(NodeId node, Mode mode);
    /// Reads a folder and puts it into the tree; false when it was given up.
    bool ReadIn(NodeId node, Mode mode);
    bool PutIn(NodeId node, const FolderLevel& level, Mode mode);
    void AddFolder(NodeId parent, const std::wstring& key, const std::wstring& text,
                   const std::wstring& placeholderPath, const std::wstring& iconPath = {});
    void AddPlaceholder(NodeId node, const std::wstring& path);
    int ImageOfDrawn(std::int32_t iconNumber);
    [[nodiscard]] std::wstring WindowsDirectory() const;

    BrowseServices services_;
    TreeNodes* nodes_ = nullptr;
    NodeImages* images_ = nullptr;
    PictureBox* picture_ = nullptr;
    std::shared_ptr<const NameOrder> order_;
    CDrawIcon icon_;

    // Without trailing "\".
    std::wstring userStartMenu_;
    std::wstring allUsersStartMenu_;

    bool expanding_ = false;
    std::vector<NodeId> openNext_; ///< folders that wait for the one that is being read
    std::uint32_t generation_ = 0; ///< changes with Clear: what belongs to an older one is given up
};
