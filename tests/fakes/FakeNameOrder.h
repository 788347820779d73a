#pragma once

#include "fakes/FakeText.h"
#include "platform/NameOrder.h"

#include <algorithm>

/// A sorted list box without regard to case, or with an order that no other code would come up with.
class FakeNameOrder final : public NameOrder {
public:
    bool backwards = false;
    mutable std::vector<std::vector<std::wstring>> sorted; ///< what was given, in order

    void Sort(std::vector<std::wstring>& names) const override {
        sorted.push_back(names);
        std::stable_sort(names.begin(), names.end(), [this](const std::wstring& a, const std::wstring& b) {
            return backwards ? Lowered(b) < Lowered(a) : Lowered(a) < Lowered(b);
        });
    }
};
