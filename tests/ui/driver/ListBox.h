#pragma once

#include "ItemList.h"

namespace UiDriver {

/// A single-selection list box.
class ListBox : public ItemList {
public:
    explicit ListBox(HWND hwnd);

    /// The middle of an entry in screen pixels, after scrolling it into view.
    [[nodiscard]] POINT ItemCentre(int index) const;

    /// With the real mouse.
    void ClickItem(int index, MouseButton button = MouseButton::Left) const;
    void DoubleClickItem(int index) const;

private:
    static const Messages kMessages;
};

} // namespace UiDriver
