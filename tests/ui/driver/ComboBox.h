#pragma once

#include "ItemList.h"

namespace UiDriver {

class ComboBox : public ItemList {
public:
    explicit ComboBox(HWND hwnd);

    /// Whether its list is dropped down.
    [[nodiscard]] bool ListOpen() const;

    /// With the real mouse: opens the list and clicks the entry.
    void ChooseByMouse(int index) const;

private:
    static const Messages kMessages;
};

} // namespace UiDriver
