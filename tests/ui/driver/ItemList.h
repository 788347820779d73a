#pragma once

#include "Control.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace UiDriver {

/// What list boxes and combo boxes have in common: entries, of which at most one is selected. Indexes count from
/// 0.
class ItemList : public Control {
public:
    [[nodiscard]] int Count() const;
    [[nodiscard]] std::wstring Item(int index) const;
    [[nodiscard]] std::vector<std::wstring> Items() const;

    /// The number that the program attached to an entry.
    [[nodiscard]] LPARAM ItemData(int index) const;

    /// nullopt when nothing is selected.
    [[nodiscard]] std::optional<int> Selected() const;

    /// The text of the selected entry, empty when nothing is selected.
    [[nodiscard]] std::wstring SelectedText() const;

    /// By message, with the notifications that a user's choice sends.
    void Choose(int index) const;
    void Choose(const std::wstring& item) const;

protected:
    /// The same questions have other numbers in each class of control.
    struct Messages {
        UINT count;
        UINT textLength;
        UINT text;
        UINT data;
        UINT selected;
        UINT select;
        UINT findExact;
        std::array<WORD, 2> chosen; ///< notifications; 0 is none
    };

    ItemList(HWND hwnd, const Messages& messages) : Control(hwnd), messages_(&messages) {}

    [[noreturn]] void FailForEntry(int index) const;

private:
    const Messages* messages_;
};

} // namespace UiDriver
