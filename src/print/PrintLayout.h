#pragma once

#include "platform/PrintDevice.h"

#include <string>
#include <vector>

/// One line of the printout. Empty in both: the end of a group of lines.
struct PrintLine {
    std::wstring label;
    std::wstring value;

    bool operator==(const PrintLine&) const = default;
};

struct PlacedText {
    int x = 0;
    int y = 0;
    std::wstring text;
    PrintFont font = PrintFont::Body;
};

struct PlacedPage {
    std::vector<PlacedText> texts;
    std::vector<PrintRect> frames;
};

/// Puts lines on pages: the first group is the title of every page, each other one gets a frame. Values stand
/// in a column of their own, in which long ones are wrapped. A group that doesn't fit goes to the next page;
/// one that is longer than a page goes on there.
[[nodiscard]] std::vector<PlacedPage> LayOutPages(const std::vector<PrintLine>& lines,
                                                  const PrintDevice& device);
