#pragma once

#include "FileSystemRigs.h"
#include "HiddenForm.h"
#include "browse/BrowseTree.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsNameOrder.h"
#include "platform/windows/WindowsShell.h"
#include "platform/windows/WindowsShellIcons.h"
#include "ui/MessagePump.h"

#include <gmock/gmock.h>

/// The real shell, which remembers what it was asked.
class NotedIcons final : public ShellIcons {
public:
    mutable std::vector<std::wstring> asked; ///< paths, each once in a row: some flags make it ask again
    std::function<void()> whenAsked;

    [[nodiscard]] ShellFileInfo Query(const std::wstring& path, std::uint32_t flags) const override {
        if (asked.empty() || asked.back() != path) {
            asked.push_back(path);
        }
        if (whenAsked) {
            whenAsked();
        }
        return icons_.Query(path, flags);
    }

private:
    WindowsShellIcons icons_;
};

/// A tree in a real control over a real folder.
class BrowseTreeTest : public testing::Test {
protected:
    BrowseTreeTest();
    ~BrowseTreeTest() override;

    [[nodiscard]] NodeId Root() const { return Next(TVGN_ROOT, 0); }
    [[nodiscard]] std::vector<NodeId> Children(NodeId node) const;
    [[nodiscard]] std::vector<std::wstring> Texts(NodeId node) const;
    [[nodiscard]] std::vector<std::wstring> Keys(NodeId node) const;
    /// The child with this text; 0 when there is none.
    [[nodiscard]] NodeId Named(NodeId parent, const std::wstring& text) const;
    /// In the order of the list box.
    [[nodiscard]] std::vector<std::wstring> Sorted(std::vector<std::wstring> names) const;
    [[nodiscard]] bool IsExpanded(NodeId node) const;
    [[nodiscard]] bool HasMark(NodeId node) const;
    [[nodiscard]] int ImageOf(NodeId node) const;

    /// What the user's right arrow key does; the tree may take its time.
    void PressToOpen(NodeId node);
    /// Opens the node as a user does. False when it does not open.
    bool Open(NodeId node);
    void Close(NodeId node);
    /// Lets the control draw itself, as if it could be seen.
    void Draw() const;

    WindowsFilesRig folder_;
    WindowsFileSystem files_;
    WindowsShell shell_;
    NotedIcons icons_;
    HiddenForm form_;
    HWND window_ = form_.Add(WC_TREEVIEWW, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT);
    MessagePump pump_{form_};
    IconPicture picture_{form_.Add(L"Static", SS_ICON), icons_};
    WindowsNameOrder order_{form_.Add(L"ListBox", LBS_SORT | LBS_HASSTRINGS)};
    BrowseTree tree_;
    CTreeView& view_ = tree_.View();

private:
    [[nodiscard]] NodeId Next(UINT which, NodeId node) const;
};
