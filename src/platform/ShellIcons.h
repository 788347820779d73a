#pragma once

#include <cstdint>
#include <string>

/// Names an image list of the system; 0 is none (HIMAGELIST).
using ImageListId = std::uintptr_t;

/// What SHGetFileInfoA tells about a path.
struct ShellFileInfo {
    ImageListId imageList = 0;    ///< the system image list; 0 when the call failed
    std::int32_t iconIndex = 0;   ///< in the system image list
    std::uint32_t attributes = 0; ///< SFGAO_...
    std::wstring displayName;     ///< at most 259 ANSI bytes
    std::wstring typeName;        ///< at most 79 ANSI bytes
};

class ShellIcons {
public:
    virtual ~ShellIcons() = default;

    /// SHGetFileInfoA. Can take milliseconds, and seconds on a network path.
    [[nodiscard]] virtual ShellFileInfo Query(const std::wstring& path, std::uint32_t flags) const = 0;
};

/// Shows one small icon. It is 16 by 16 pixels at 96 dpi.
class PictureBox {
public:
    virtual ~PictureBox() = default;

    virtual void Clear() = 0;

    /// ImageList_Draw, transparent. Without an image list: the system image list's.
    virtual void DrawSystemIcon(ImageListId imageList, std::int32_t index) = 0;

    /// The first small icon in a program or library (ExtractIconExA). False when there is none; the picture
    /// stays.
    virtual bool DrawFirstIconOf(const std::wstring& file) = 0;
};
