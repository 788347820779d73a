#pragma once

#include "Control.h"

#include <optional>
#include <string>
#include <vector>

namespace UiDriver {

/// A combo box. Indexes count from 0.
class ComboBox : public Control {
public:
    using Control::Control;

    [[nodiscard]] int Count() const;
    [[nodiscard]] std::wstring Item(int index) const;
    [[nodiscard]] std::vector<std::wstring> Items() const;

    /// The number that the program attached to an entry.
    [[nodiscard]] LPARAM ItemData(int index) const;

    /// nullopt when nothing is selected.
    [[nodiscard]] std::optional<int> Selected() const;

    /// The text of the selected entry, empty when nothing is selected.
    [[nodiscard]] std::wstring SelectedText() const;

    /// Whether its list is dropped down.
    [[nodiscard]] bool ListOpen() const;

    /// By message, with the notifications that a user's choice sends.
    void Choose(int index) const;
    void Choose(const std::wstring& item) const;

    /// With the real mouse: opens the list and clicks the entry.
    void ChooseByMouse(int index) const;
};

} // namespace UiDriver
