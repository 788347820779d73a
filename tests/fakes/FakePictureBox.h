#pragma once

#include "fakes/FakeText.h"
#include "platform/ShellIcons.h"

#include <set>
#include <vector>

/// Shows a text that says what was drawn: "77:4" is image 4 of image list 77, another one a file's first icon.
class FakePictureBox final : public PictureBox {
public:
    std::set<std::wstring> filesWithIcons; ///< lower case

    void Clear() override { layers_.clear(); }
    void DrawSystemIcon(ImageListId imageList, std::int32_t index) override {
        layers_.push_back(std::to_wstring(imageList) + L':' + std::to_wstring(index));
    }
    bool DrawFirstIconOf(const std::wstring& file) override {
        askedFor_.push_back(file);
        if (!filesWithIcons.contains(Lowered(file))) {
            return false;
        }
        layers_.push_back(file);
        return true;
    }

    /// What was drawn since the box was cleared, the uppermost last.
    [[nodiscard]] const std::vector<std::wstring>& Layers() const { return layers_; }
    /// What is seen; empty when nothing was drawn.
    [[nodiscard]] std::wstring Shown() const { return layers_.empty() ? std::wstring() : layers_.back(); }
    /// Files that were asked for their first icon.
    [[nodiscard]] const std::vector<std::wstring>& AskedFor() const { return askedFor_; }

private:
    std::vector<std::wstring> layers_;
    std::vector<std::wstring> askedFor_;
};
