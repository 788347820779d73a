#pragma once

#include "FileSystemRigs.h"
#include "GatedIcons.h"
#include "HiddenForm.h"
#include "browse/BrowseTree.h"
#include "platform/windows/WindowsNameOrder.h"
#include "platform/windows/WindowsShell.h"
#include "platform/windows/WindowsShellIcons.h"
#include "platform/windows/Worker.h"

#include <gmock/gmock.h>

/// The real file system; a search waits at a gate.
class GatedFiles final : public FileSystem {
public:
    mutable Gate gate;

    [[nodiscard]] std::uint32_t Attributes(const std::wstring& path) const override {
        return files_.Attributes(path);
    }
    [[nodiscard]] bool Find(const std::wstring& pattern,
                            const std::function<bool(const FoundFile&)>& take) const override {
        gate.Await();
        return files_.Find(pattern, take);
    }
    [[nodiscard]] bool Read(const std::wstring& path,
                            const std::function<bool(std::string_view)>& take) const override {
        return files_.Read(path, take);
    }

private:
    WindowsFileSystem files_;
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
    GatedFiles files_;
    WindowsShell shell_;
    WindowsShellIcons shellIcons_;
    GatedIcons icons_;
    HiddenForm form_;
    HWND window_ = form_.Add(WC_TREEVIEWW, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT);
    MessagePump pump_{form_};
    IconPicture picture_{form_.Add(L"Static", SS_ICON), shellIcons_};
    std::shared_ptr<const NameOrder> order_ =
        std::make_shared<WindowsNameOrder>(form_.Add(L"ListBox", LBS_SORT | LBS_HASSTRINGS));
    BrowseTree tree_;
    CTreeView& view_ = tree_.View();

private:
    [[nodiscard]] NodeId Next(UINT which, NodeId node) const;
};
