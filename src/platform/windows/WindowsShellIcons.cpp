#include "platform/windows/WindowsShellIcons.h"

#include "platform/windows/Ansi.h"
#include "platform/windows/Com.h"
#include "platform/windows/SystemLibrary.h"

#include <windows.h>

#include <shellapi.h>

#include <cstring>

namespace {

template <std::size_t Size> std::wstring FieldText(const char (&field)[Size]) {
    return FromAnsi({field, strnlen(field, Size)});
}

} // namespace

ShellFileInfo WindowsShellIcons::Query(const std::wstring& path, std::uint32_t flags) const {
    static const auto kGetFileInfo =
        SystemProcedure<decltype(SHGetFileInfoA)>(L"shell32.dll", "SHGetFileInfoA");
    if (kGetFileInfo == nullptr) {
        return {};
    }
    SHFILEINFOA found{};
    const DWORD_PTR imageList = kGetFileInfo(ToAnsi(path).c_str(), 0, &found, sizeof found, flags);
    if (found.hIcon != nullptr) {
        DestroyIcon(found.hIcon);
    }
    if (imageList == 0) {
        return {};
    }
    // Without this flag the answer is no image list.
    const bool hasImageList = (flags & SHGFI_SYSICONINDEX) != 0;
    return {hasImageList ? imageList : 0, found.iIcon, static_cast<std::uint32_t>(found.dwAttributes),
            FieldText(found.szDisplayName), FieldText(found.szTypeName)};
}
