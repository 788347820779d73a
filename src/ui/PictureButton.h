#pragma once

#include "ui/PictureList.h"

#include <functional>

/// A push button of the system's whose face is a round picture. Its window text is its accessible name.
class PictureButton {
public:
    /// Called when the mouse moves over the button, and when it leaves it.
    struct MouseEvents {
        std::function<void()> over;
        std::function<void()> left;
    };

    PictureButton(HWND button, PictureList& pictures, MouseEvents events);
    ~PictureButton();
    PictureButton(const PictureButton&) = delete;
    PictureButton& operator=(const PictureButton&) = delete;

    /// Width and height in pixels of the button that shows its pictures unscaled at `dpi`.
    [[nodiscard]] static int SizeFor(UINT dpi);

    /// The pictures, by their numbers in the list, at rest and while the button is held down.
    void Show(int picture, int pressedPicture);
    [[nodiscard]] int Shown() const { return picture_; }

    void Draw(const DRAWITEMSTRUCT& item) const;

private:
    static LRESULT CALLBACK Subclass(HWND button, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                     DWORD_PTR self) noexcept;

    HWND button_;
    PictureList& pictures_;
    MouseEvents events_;
    int picture_ = 0;
    int pressedPicture_ = 0;
    bool isDefault_ = false; ///< Enter presses it
};
