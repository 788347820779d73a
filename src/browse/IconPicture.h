#pragma once

#include "platform/ShellIcons.h"
#include "platform/windows/Handles.h"

/// A static control (SS_ICON) as the picture box in which icons are drawn.
class IconPicture final : public PictureBox {
public:
    /// `icons` answers for the system image list where a query gave none.
    IconPicture(HWND control, const ShellIcons& icons);
    ~IconPicture() override;
    IconPicture(const IconPicture&) = delete;
    IconPicture& operator=(const IconPicture&) = delete;

    /// Pixels of the icons that are wanted: sharper ones than the small ones are taken where those are too
    /// small. 16 at first.
    void SetIconSize(int pixels) { size_ = pixels; }

    void Clear() override { Show({}); }
    void DrawSystemIcon(ImageListId imageList, std::int32_t index) override;
    bool DrawFirstIconOf(const std::wstring& file) override;

    /// Null when nothing is shown.
    [[nodiscard]] HICON Shown() const { return icon_.get(); }

private:
    void Show(Icon icon);

    HWND control_;
    const ShellIcons& icons_;
    int size_;
    Icon icon_;
};
