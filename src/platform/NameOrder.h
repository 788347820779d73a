#pragma once

#include <string>

/// The order of a sorted list box (LBS_SORT): without regard to case, in the user's locale.
class NameOrder {
public:
    virtual ~NameOrder() = default;

    /// Names stand in the order of their keys, compared byte by byte.
    [[nodiscard]] virtual std::string SortKey(const std::wstring& name) const = 0;
};
