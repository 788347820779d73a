#include "browse/IconPicture.h"

#include "platform/windows/Ansi.h"
#include "platform/windows/SystemLibrary.h"

#include <commctrl.h>
#include <shellapi.h>

#include <bit>

namespace {

constexpr int kSmallIconSize = 16;
// SHGetImageList's, as numbers: the header with the names wants C++ COM interfaces.
constexpr int kLargeImages = 0;
constexpr int kExtraLargeImages = 2;
constexpr IID kImageListInterface{
    0x46EB5926, 0x582E, 0x4017, {0x9F, 0xDF, 0xE8, 0x99, 0x8D, 0xAA, 0x09, 0x50}};

int IconWidth(HIMAGELIST list) {
    int width = 0;
    int height = 0;
    return list != nullptr && ImageList_GetIconSize(list, &width, &height) != FALSE ? width : 0;
}

/// The system image list with larger icons; its indexes are the same. The system keeps it for good.
HIMAGELIST LargerSystemImages(int which) {
    static const auto kGetImageList =
        SystemProcedure<decltype(SHGetImageList)>(L"shell32.dll", "SHGetImageList");
    void* list = nullptr;
    if (kGetImageList == nullptr || FAILED(kGetImageList(which, kImageListInterface, &list))) {
        return nullptr;
    }
    return static_cast<HIMAGELIST>(list);
}

HIMAGELIST ImagesFor(HIMAGELIST small, int size) {
    for (const int which : {kLargeImages, kExtraLargeImages}) {
        if (IconWidth(small) >= size) {
            break;
        }
        if (const HIMAGELIST larger = LargerSystemImages(which); IconWidth(larger) > IconWidth(small)) {
            small = larger;
        }
    }
    return small;
}

} // namespace

IconPicture::IconPicture(HWND control, const ShellIcons& icons)
    : control_(control), icons_(icons), size_(kSmallIconSize) {}

IconPicture::~IconPicture() {
    if (IsWindow(control_) != FALSE) {
        Clear(); // the control must not keep an icon that is gone
    }
}

void IconPicture::Show(Icon icon) {
    SendMessageW(control_, STM_SETICON, std::bit_cast<WPARAM>(icon.get()), 0);
    icon_ = std::move(icon);
}

void IconPicture::DrawSystemIcon(ImageListId imageList, std::int32_t index) {
    if (imageList == 0) {
        constexpr UINT kNoDiskAccess = SHGFI_USEFILEATTRIBUTES;
        imageList = icons_.Query(L"file", SHGFI_SYSICONINDEX | SHGFI_SMALLICON | kNoDiskAccess).imageList;
    }
    const HIMAGELIST images = ImagesFor(std::bit_cast<HIMAGELIST>(imageList), size_);
    Show(Icon(images == nullptr ? nullptr : ImageList_GetIcon(images, index, ILD_TRANSPARENT)));
}

bool IconPicture::DrawFirstIconOf(const std::wstring& file) {
    static const auto kExtract = SystemProcedure<decltype(ExtractIconExA)>(L"shell32.dll", "ExtractIconExA");
    HICON small = nullptr;
    if (kExtract == nullptr) {
        return false;
    }
    kExtract(ToAnsi(file).c_str(), 0, nullptr, &small, 1);
    if (small == nullptr) {
        return false;
    }
    Show(Icon(small));
    return true;
}
