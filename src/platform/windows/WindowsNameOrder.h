#pragma once

#include "platform/NameOrder.h"

#include <windows.h>

/// The order that a sorted list box gives its entries, without putting them into it.
class WindowsNameOrder final : public NameOrder {
public:
    /// The list box names the locale (LB_GETLOCALE).
    explicit WindowsNameOrder(HWND sortedListBox);

    [[nodiscard]] std::string SortKey(const std::wstring& name) const override;

private:
    LCID locale_;
};
