#pragma once

/// Makes `to` what `from` is, and touches only what differs.
template <class Map, class Same> void TakeAll(Map& to, const Map& from, Same same) {
    auto own = to.begin();
    for (auto other = from.begin(); other != from.end();) {
        if (own == to.end() || other->first < own->first) {
            to.insert(own, *other++);
        } else if (own->first < other->first) {
            own = to.erase(own);
        } else {
            if (!same(own->second, other->second)) {
                own->second = other->second;
            }
            ++own;
            ++other;
        }
    }
    to.erase(own, to.end());
}

/// Calls `found` with each key whose value is another one, or missing, in one of the two.
template <class Map, class Same, class Found>
void ForEachDifference(const Map& a, const Map& b, Same same, Found found) {
    auto left = a.begin();
    auto right = b.begin();
    while (left != a.end() || right != b.end()) {
        if (right == b.end() || (left != a.end() && left->first < right->first)) {
            found((left++)->first);
        } else if (left == a.end() || right->first < left->first) {
            found((right++)->first);
        } else {
            if (!same(left->second, right->second)) {
                found(left->first);
            }
            ++left;
            ++right;
        }
    }
}
