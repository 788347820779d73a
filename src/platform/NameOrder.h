#pragma once

#include <string>
#include <vector>

/// The order of a sorted list box (LBS_SORT): without regard to case, in the user's locale. Called from several
/// threads at once.
class NameOrder {
public:
    virtual ~NameOrder() = default;

    virtual void Sort(std::vector<std::wstring>& names) const = 0;
};
