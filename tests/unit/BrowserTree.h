#pragma once

#include "browse/CSystemDrive.h"
#include "browse/CTreeView.h"
#include "fakes/FakeDrives.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeNameOrder.h"
#include "fakes/FakeNodeImages.h"
#include "fakes/FakePendingEvents.h"
#include "fakes/FakePictureBox.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeShellIcons.h"
#include "fakes/FakeTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

/// A CTreeView with its four controls, on an empty disk.
struct BrowserTree {
    BrowserTree() {
        tree.TreeViewControl(nodes);
        tree.PictureBoxControl(picture);
        tree.ImageListControl(images);
        tree.ListBoxControl(order);
    }

    [[nodiscard]] NodeId Root() const { return nodes.Roots().size() == 1 ? nodes.Roots().front() : 0; }
    [[nodiscard]] std::vector<std::wstring> RootTexts() const { return nodes.Texts(Root()); }
    [[nodiscard]] bool HasPlaceholder(NodeId node) const {
        return nodes.Texts(node) == std::vector<std::wstring>{kPlaceholderText};
    }
    void AddFiles(const std::wstring& folder, int count) {
        for (int i = 0; i < count; ++i) {
            disk.AddFile(folder + L"\\file" + std::to_wstring(i));
        }
    }

    FakeFileSystem disk;
    FakeShell shell;
    FakeShellIcons icons;
    FakePendingEvents events;
    FakeTree nodes;
    FakePictureBox picture;
    FakeNodeImages images;
    FakeNameOrder order;
    CTreeView tree{{disk, shell, icons, events}, L"Internet Shortcut"};
};
