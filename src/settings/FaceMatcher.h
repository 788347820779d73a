#pragma once

#include <string>

/// Checks the font faces that are read from the store.
class FaceMatcher {
public:
    virtual ~FaceMatcher() = default;

    /// The face to use for the stored one.
    [[nodiscard]] virtual std::wstring MatchInstalledFont(const std::wstring& wanted) const = 0;
};
