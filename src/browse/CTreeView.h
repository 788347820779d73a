#pragma once

#include "browse/CDrawIcon.h"
#include "browse/TreeNodes.h"

#include <cstdint>
#include <string>
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
/// Pending events are worked off while a folder is read. Until it is in the tree no other one opens; Clear, and a
/// new tree, give up what is being read.
class CTreeView {
public:
    /// `internetShortcutType`: string id 3301.
    CTreeView(const BrowseServices& services, const std::wstring& internetShortcutType);

    /// The four controls; all must be given before a tree is built.
    void TreeViewControl(TreeNodes& nodes);
    void PictureBoxControl(PictureBox& picture);
    void ImageListControl(NodeImages& images) { images_ = &images; }
    void ListBoxControl(const NameOrder& order) { order_ = &order; }

    /// Empties the tree and its images.
    void Clear();

    /// A tree of one folder, opened at once. Without a text the root shows the path.
    void DrawItem(const std::wstring& path, const std::wstring& text);
    /// The computer's drives.
    void SetMyComputer(const CSystemDrive& drives, const std::wstring& rootText);
    /// The user's Start Menu, joined with the All Users one; that one alone when `path` is empty.
    void SetStartMenu(const std::wstring& path, const std::wstring& text);
    /// Favourites: Internet shortcuts without their ".url".
    void SetIeFavorites(const std::wstring& path, const std::wstring& text);

    /// Fills a folder that is opened for the first time. False when it stays as it is, because another folder is
    /// being read, or was given up.
    bool Expand(NodeId node);
    bool ExpandStartMenu(NodeId node);
    bool ExpandIeFavorites(NodeId node);
    /// True for a folder that was never opened: its only child is the placeholder.
    [[nodiscard]] bool IsUnopened(NodeId node) const;

    /// The address that an Internet shortcut file holds; empty when it has none.
    [[nodiscard]] std::wstring GetShortcutToURL(const std::wstring& file) const;

    /// The image of a path: drawn and added when it is the first one with its icon.
    int ImageOf(const std::wstring& path);

private:
    enum class Mode { Folder, StartMenu, Favorites };
    class Reading;

    void BuildFolderTree(const std::wstring& path, const std::wstring& text, Mode mode);
    void ShowSecondNode(NodeId root);
    bool ExpandLevel(NodeId node, Mode mode);
    /// The folders that a node shows as one.
    [[nodiscard]] std::vector<std::wstring> PlacesOf(NodeId node, Mode mode) const;
    /// False when the reading was given up.
    bool PutIn(NodeId node, const FolderLevel& level, Mode mode, Reading& reading);
    void AddFolder(NodeId parent, const std::wstring& key, const std::wstring& text,
                   const std::wstring& placeholderPath, const std::wstring& iconPath = {});
    void AddPlaceholder(NodeId node, const std::wstring& path);
    [[nodiscard]] std::wstring WindowsDirectory() const;

    BrowseServices services_;
    TreeNodes* nodes_ = nullptr;
    NodeImages* images_ = nullptr;
    PictureBox* picture_ = nullptr;
    const NameOrder* order_ = nullptr;
    CDrawIcon icon_;

    // Without trailing "\".
    std::wstring userStartMenu_;
    std::wstring allUsersStartMenu_;

    const Reading* reading_ = nullptr; ///< the folder that is wanted; null when none is being read
};
