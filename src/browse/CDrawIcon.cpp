#include "browse/CDrawIcon.h"

#include "settings/StdModule.h"

#include <utility>

namespace {

constexpr std::uint32_t kExecutableType = 0x2000; // SHGFI_EXETYPE
constexpr std::int32_t kSubstituteInternetShortcut = 1;
// Fixed on purpose: not the system's own directory.
constexpr const wchar_t* kInternetShortcutLibrary = L"C:\\WINDOWS\\system32\\url.dll";

} // namespace

CDrawIcon::CDrawIcon(const ShellIcons& icons, std::wstring internetShortcutType)
    : icons_(icons), internetShortcutType_(std::move(internetShortcutType)) {}

ShellFileInfo CDrawIcon::AskShell(const ShellIcons& icons, const std::wstring& path, std::uint32_t flags) {
    ShellFileInfo info = icons.Query(path, flags);
    // Some systems refuse to tell the executable's type together with anything else.
    if (info.imageList == 0 && (flags & kExecutableType) != 0) {
        info = icons.Query(path, flags & ~kExecutableType);
    }
    return info;
}

std::int32_t CDrawIcon::SHDrawIcon(std::int32_t mode) {
    info_ = AskShell(icons_, fileName_, flags_);
    number_ = info_.imageList == 0 ? 0 : info_.iconIndex;
    if (picture_ == nullptr) {
        return number_;
    }
    picture_->Clear();
    picture_->DrawSystemIcon(info_.imageList, number_);
    if (mode == kSubstituteInternetShortcut && number_ == 0 &&
        EqualsIgnoreCase(FileType(), internetShortcutType_) &&
        picture_->DrawFirstIconOf(kInternetShortcutLibrary)) {
        number_ += kInternetShortcutOffset;
    }
    return number_;
}

std::wstring CDrawIcon::FileText() const {
    return CutAtNul(info_.displayName);
}

std::wstring CDrawIcon::FileType() const {
    return CutAtNul(info_.typeName);
}
