#pragma once

#include <cstdint>
#include <string>

struct ShownName {
    std::wstring text;
    std::wstring face;
    int points = 0;          ///< of 1/72 inch at the monitor's scaling
    std::uint32_t color = 0; ///< 0x00BBGGRR
    int seconds = 0;

    bool operator==(const ShownName&) const = default;
};

/// A text over everything else, which takes neither focus nor clicks.
class NameOnScreen {
public:
    virtual ~NameOnScreen() = default;

    /// On the monitor of the window in front, in place of what is shown; not over a full-screen game.
    virtual void Show(const ShownName& name) = 0;
};
