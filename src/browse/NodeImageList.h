#pragma once

#include "browse/TreeNodes.h"
#include "platform/windows/Handles.h"

#include <commctrl.h>

#include <unordered_map>

using ImageList = Owned<HIMAGELIST, ImageList_Destroy>;

/// The image list of a tree control. What it takes in are the icons of IconPicture.
class NodeImageList final : public NodeImages {
public:
    /// An empty list for square icons. Returns the former one, which a control may still hold.
    ImageList Create(int pixels);
    [[nodiscard]] HIMAGELIST Handle() const { return list_.get(); }

    [[nodiscard]] int Find(std::int32_t iconNumber) const override;
    int Add(const PictureBox& picture, std::int32_t iconNumber) override;
    void Clear() override;

private:
    ImageList list_;
    std::unordered_map<std::int32_t, int> images_;
};
