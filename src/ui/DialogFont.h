#pragma once

#include "platform/windows/Handles.h"

#include <string>

/// A rectangle in dialog units: quarters of the average character's width, eighths of its height.
struct DluRect {
    int x = 0;
    int y = 0;
    int cx = 0;
    int cy = 0;
};

/// The font of a form's controls at one scaling, and the dialog units that follow from it.
class DialogFont {
public:
    DialogFont(const std::wstring& faceName, UINT dpi);

    [[nodiscard]] HFONT Handle() const { return font_.get(); }
    [[nodiscard]] UINT Dpi() const { return dpi_; }
    [[nodiscard]] int PixelsX(int dlu) const;
    [[nodiscard]] int PixelsY(int dlu) const;
    [[nodiscard]] RECT Pixels(const DluRect& dlu) const;

private:
    UINT dpi_;
    Font font_;
    SIZE baseUnits_{};
};

/// A font of `points` 1/72 inch at `dpi`.
[[nodiscard]] Font CreateFontOfPoints(const std::wstring& faceName, int points, UINT dpi);
