#pragma once

#include <string>

/// The string resources, in the language that the system picks for the user's interface language.
class StringSource {
public:
    virtual ~StringSource() = default;

    /// LoadStringW. Empty when there is no such id.
    [[nodiscard]] virtual std::wstring Load(int id) const = 0;
};
