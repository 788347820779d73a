#pragma once

#include "browse/TreeNodes.h"
#include "platform/ShellIcons.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

/// Asks the shell for icons on another thread: a path on a network may take seconds to answer. The newest
/// question is answered first, because it is what the user looks at.
class IconLoader {
public:
    struct Answer {
        NodeId node = 0;
        ShellFileInfo info;
    };

    /// `message` is posted to the window when answers have come.
    IconLoader(const ShellIcons& icons, HWND window, UINT message);
    ~IconLoader();
    IconLoader(const IconLoader&) = delete;
    IconLoader& operator=(const IconLoader&) = delete;

    /// Returns the oldest question when there are too many: it gets no answer. 0 otherwise.
    NodeId Ask(NodeId node, const std::wstring& path, std::uint32_t flags);
    [[nodiscard]] std::vector<Answer> TakeAnswers();
    /// Questions and answers go.
    void Clear();

private:
    struct Shared;

    std::shared_ptr<Shared> shared_;
};
