#pragma once

#include "Control.h"

#include <optional>
#include <string>
#include <vector>

namespace UiDriver {

/// A single-selection list box. Indexes count from 0.
class ListBox : public Control {
public:
    using Control::Control;

    [[nodiscard]] int Count() const;
    [[nodiscard]] std::wstring Item(int index) const;
    [[nodiscard]] std::vector<std::wstring> Items() const;
    [[nodiscard]] LPARAM ItemData(int index) const;

    /// nullopt when nothing is selected.
    [[nodiscard]] std::optional<int> Selected() const;
    [[nodiscard]] std::wstring SelectedText() const;

    /// By message, with the notification that a user's choice sends.
    void Choose(int index) const;
    void Choose(const std::wstring& item) const;

    /// The middle of an entry in screen pixels, after scrolling it into view.
    [[nodiscard]] POINT ItemCentre(int index) const;

    /// With the real mouse.
    void ClickItem(int index, MouseButton button = MouseButton::Left) const;
    void DoubleClickItem(int index) const;
};

} // namespace UiDriver
