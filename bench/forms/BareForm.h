#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// The windows that another form is made of, without what makes it a form of the program: each created at once
/// where it stands, with its text and font, and nothing more.
class BareForm {
public:
    /// Of a form that is shown.
    explicit BareForm(HWND original);

    /// Creates the form, shows it over its owner and paints it. Null when the system refuses.
    [[nodiscard]] HWND Open(HWND owner) const;

    [[nodiscard]] std::size_t Controls() const { return pieces_.size(); }

private:
    struct Piece {
        std::size_t parent; ///< an earlier one's place + 1; 0 is the form
        bool page;          ///< a child dialog
        std::wstring windowClass;
        std::wstring text;
        DWORD style;
        DWORD exStyle;
        RECT place; ///< on its parent
        int id;
    };

    void Take(HWND parent, std::size_t parentPlace);

    RECT place_{};
    std::wstring title_;
    LOGFONTW font_{};
    std::vector<Piece> pieces_;
};

/// Paints all that waits to be painted in a window.
void PaintNow(HWND window);
