#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// What a user calls something by: a number, and a name that need not be the only one.
struct Choice {
    int number = 0;
    std::wstring name;

    bool operator==(const Choice&) const = default;
};

/// More than one fits, or (when empty) none.
using Doubt = std::vector<Choice>;

/// A name as it is written; else one that differs in upper and lower case alone; else a number.
[[nodiscard]] std::variant<Choice, Doubt> Choose(const std::vector<Choice>& choices,
                                                 std::wstring_view wanted);
