#pragma once

#include "ui/PictureList.h"

#include <functional>
#include <optional>
#include <string>

/// A push button of the system's whose face is a round picture. Its window text is its accessible name.
class PictureButton {
public:
    /// The window class to create it with: the system's button, and what this class adds.
    [[nodiscard]] static const wchar_t* WindowClass();

    /// Called when the mouse moves over the button, and when it leaves it.
    struct MouseEvents {
        std::function<void()> over;
        std::function<void()> left;
    };

    /// `button` is of WindowClass, with BS_OWNERDRAW.
    PictureButton(HWND button, PictureList& pictures, MouseEvents events);
    ~PictureButton();
    PictureButton(const PictureButton&) = delete;
    PictureButton& operator=(const PictureButton&) = delete;

    /// Width and height in pixels of the button that shows its pictures unscaled at `dpi`.
    [[nodiscard]] static int SizeFor(UINT dpi);

    /// The pictures, by their numbers in the list, at rest and while the button is held down.
    void Show(int picture, int pressedPicture);
    [[nodiscard]] int Shown() const { return picture_; }

    /// What a screen reader says besides the name.
    void Describe(const std::wstring& description);

    void Draw(const DRAWITEMSTRUCT& item) const;

private:
    static LRESULT CALLBACK Procedure(HWND button, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static PictureButton* Of(HWND button);
    static std::wstring DescriptionOf(HWND button);
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

    HWND button_;
    PictureList& pictures_;
    MouseEvents events_;
    int picture_ = 0;
    int pressedPicture_ = 0;
    std::wstring description_;
};
