#pragma once

#include <string>

/// Where a page lies on its paper. Everything in the device's own pixels.
struct PrintPage {
    int width = 0;       ///< of the area that the printer can print; its top left is (0, 0)
    int height = 0;      ///< likewise
    int paperWidth = 0;  ///< whole sheet
    int paperHeight = 0; ///< whole sheet
    int offsetX = 0;     ///< from the sheet's edge to the printable area
    int offsetY = 0;     ///< likewise
    int dpiX = 0;        ///< pixels an inch
    int dpiY = 0;        ///< likewise
};

struct PrintRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const PrintRect&) const = default;
};

enum class PrintFont {
    Body, ///< 10 points
    Title ///< 12 points
};

struct PrintExtent {
    int width = 0;
    int height = 0;
};

/// A printer with its settings, as a user chose it. One font that has Japanese characters, fixed-pitch wherever
/// the system has such a one.
class PrintDevice {
public:
    virtual ~PrintDevice() = default;

    [[nodiscard]] virtual PrintPage Page() const = 0;
    [[nodiscard]] virtual PrintExtent Extent(const std::wstring& text, PrintFont font) const = 0;

    // Each false when the printer fails, or the user has given up; then only Abort makes sense.
    [[nodiscard]] virtual bool StartDocument(const std::wstring& name) = 0;
    [[nodiscard]] virtual bool StartPage() = 0;
    [[nodiscard]] virtual bool EndPage() = 0;
    [[nodiscard]] virtual bool EndDocument() = 0;
    /// No more of the document comes out.
    virtual void Abort() = 0;

    /// Left end and top of the text, in black.
    virtual void Text(int x, int y, const std::wstring& text, PrintFont font) = 0;
    /// The outline of a rectangle, in black.
    virtual void Frame(const PrintRect& frame) = 0;
};
