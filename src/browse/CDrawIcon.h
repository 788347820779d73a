#pragma once

#include "platform/ShellIcons.h"

#include <cstdint>
#include <string>

/// Draws the shell's small icon of a file, folder or drive into a picture box.
class CDrawIcon {
public:
    /// System icon index, executable type, type name, display name, shell icon size, small icon.
    static constexpr std::uint32_t kDefaultFlags = 0x6605;
    static constexpr std::int32_t kInternetShortcutOffset = 1000;

    /// `internetShortcutType`: the shell's type name of Internet shortcuts, string id 3301.
    CDrawIcon(const ShellIcons& icons, std::wstring internetShortcutType);

    void PictureControl(PictureBox& picture) { picture_ = &picture; }
    void FileName(const std::wstring& path) { fileName_ = path; }
    void SetUFlag(std::uint32_t flags) { flags_ = flags; }

    /// Draws FileName's icon and returns the icon number: its index in the system image list, or that plus
    /// 1000 for the icon that mode 1 gives Internet shortcuts without an icon of their own.
    std::int32_t SHDrawIcon(std::int32_t mode);

    /// Number of the last drawing.
    [[nodiscard]] std::int32_t IconHandle() const { return number_; }
    /// Display name and type name from the last query.
    [[nodiscard]] std::wstring FileText() const;
    [[nodiscard]] std::wstring FileType() const;

    /// The query alone.
    [[nodiscard]] static ShellFileInfo AskShell(const ShellIcons& icons, const std::wstring& path,
                                                std::uint32_t flags);

private:
    const ShellIcons& icons_;
    std::wstring internetShortcutType_;
    PictureBox* picture_ = nullptr;
    std::wstring fileName_;
    std::uint32_t flags_ = kDefaultFlags;
    ShellFileInfo info_;
    std::int32_t number_ = 0;
};
