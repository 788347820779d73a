#pragma once

#include "Control.h"

#include <string>
#include <vector>

namespace UiDriver {

/// A tab control. Indexes count from 0.
class TabControl : public Control {
public:
    using Control::Control;

    [[nodiscard]] int Count() const;
    [[nodiscard]] std::wstring Caption(int index) const;
    [[nodiscard]] std::vector<std::wstring> Captions() const;
    [[nodiscard]] int Selected() const;

    /// Clicks the tab with the real mouse and waits until it is selected.
    void Select(int index) const;

    /// A tab's label, in screen pixels.
    [[nodiscard]] RECT LabelRect(int index) const;

private:
    void RequireTab(int index) const;
};

} // namespace UiDriver
