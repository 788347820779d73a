#pragma once

#include <windows.h>

#include <string>
#include <string_view>

[[nodiscard]] std::wstring TextOf(HWND window);
void SetTextOf(HWND window, const std::wstring& text);
/// Without flicker, and without telling screen readers of no change.
void SetTextIfOther(HWND window, const std::wstring& text);

/// Whether a control of this class is as high as its font wants: a box for text or a key, a combo box.
[[nodiscard]] bool HasOwnHeight(std::wstring_view windowClass);
/// Brings a control to its row of a form. One with a height of its own stands on the row's centre line, any
/// other fills the row.
void PlaceInRow(HWND control, const RECT& row);

/// Characters that can be typed into a box for a button's name.
inline constexpr int kNameBoxLimit = 129;

/// The hourglass, for as long as this lives.
class WaitCursor {
public:
    WaitCursor() : previous_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(previous_); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    HCURSOR previous_;
};

/// Behind the other tabs. An "&" in the caption marks its access key.
void AddTab(HWND tabControl, std::wstring caption);

/// Whether it is the id of a control of this array.
[[nodiscard]] constexpr bool IsOneOf(int id, int first, int count) {
    return id >= first && id < first + count;
}

/// Whether it is a combo box whose list is not open.
[[nodiscard]] bool IsClosedComboBox(HWND control);

/// Entries of a combo box are numbered from 0; -1 is no selection.
void ComboAdd(HWND combo, const std::wstring& text);
[[nodiscard]] int ComboSelection(HWND combo);
void ComboSelect(HWND combo, int index);

/// What a notification of a combo box means. While its list is open, arrow keys only look; what counts is the
/// entry that the list closes with.
enum class ComboEvent { None, Chosen, Cancelled };
[[nodiscard]] ComboEvent ComboEventOf(HWND combo, int notification);
