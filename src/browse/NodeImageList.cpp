#include "browse/NodeImageList.h"

#include "browse/IconPicture.h"

#include <utility>

namespace {

constexpr int kGrowBy = 16;

} // namespace

ImageList NodeImageList::Create(int pixels) {
    images_.clear();
    return std::exchange(
        list_, ImageList(ImageList_Create(pixels, pixels, ILC_COLOR32 | ILC_MASK, kGrowBy, kGrowBy)));
}

int NodeImageList::Find(std::int32_t iconNumber) const {
    const auto found = images_.find(iconNumber);
    return found == images_.end() ? -1 : found->second;
}

int NodeImageList::Add(const PictureBox& picture, std::int32_t iconNumber) {
    const auto* drawn = dynamic_cast<const IconPicture*>(&picture);
    const HICON icon = drawn == nullptr ? nullptr : drawn->Shown();
    const int image = icon == nullptr ? -1 : ImageList_ReplaceIcon(list_.get(), -1, icon);
    if (image >= 0) {
        images_.emplace(iconNumber, image);
    }
    return image;
}

void NodeImageList::Clear() {
    images_.clear();
    ImageList_RemoveAll(list_.get());
}
