#include "print/PrintLayout.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <cmath>

namespace {

// Millimetres.
constexpr double kMargin = 15;
/// Of the paper's width or height, for paper smaller than A4.
constexpr double kLargestMargin = 1.0 / 14;
constexpr double kPadding = 2.5;
constexpr double kGroupGap = 4;
constexpr double kTitleGap = 4;
constexpr double kLineGap = 0.25; // between two lines
constexpr double kMillimetresPerInch = 25.4;

constexpr const wchar_t* kColon = L"：";

using Group = std::vector<PrintLine>;

/// A printed row: a label, or nothing, and what of a value fits beside it.
struct Row {
    std::wstring label;
    std::wstring text;
    bool continues = false; ///< the value's beginning, with its colon, stands in a row above
};

std::vector<Group> GroupsOf(const std::vector<PrintLine>& lines) {
    std::vector<Group> groups(1);
    for (const PrintLine& line : lines) {
        if (!line.label.empty() || !line.value.empty()) {
            groups.back().push_back(line);
        } else if (!groups.back().empty()) {
            groups.emplace_back();
        }
    }
    if (groups.back().empty()) {
        groups.pop_back();
    }
    return groups;
}

/// How many characters from `begin` on fit into `width`; at least one, so that the text comes to its end.
std::size_t FittingLength(const std::wstring& text, std::size_t begin, int width, PrintFont font,
                          const PrintDevice& device) {
    std::size_t fits = 1;
    std::size_t tooLong = text.size() - begin + 1;
    while (fits + 1 < tooLong) {
        const std::size_t middle = fits + (tooLong - fits) / 2;
        (device.Extent(text.substr(begin, middle), font).width <= width ? fits : tooLong) = middle;
    }
    return fits;
}

/// Breaks behind a blank or a "\" where that doesn't waste most of the row; never within a surrogate pair.
std::size_t BreakAt(const std::wstring& text, std::size_t begin, std::size_t fits) {
    if (begin + fits >= text.size()) {
        return text.size() - begin;
    }
    const std::size_t separator = text.find_last_of(L" \\", begin + fits - 1);
    if (separator != std::wstring::npos && separator >= begin + fits / 2) {
        return separator + 1 - begin;
    }
    if constexpr (sizeof(wchar_t) == 2) {
        const wchar_t last = text[begin + fits - 1];
        if (last >= 0xD800 && last < 0xDC00) {
            return fits > 1 ? fits - 1 : 2;
        }
    }
    return fits;
}

std::vector<Row> RowsOf(const PrintLine& line, int width, int colonWidth, PrintFont font,
                        const PrintDevice& device) {
    std::vector<Row> rows;
    std::size_t begin = 0;
    do {
        const bool first = rows.empty();
        const int room = first ? width : width - colonWidth;
        const std::size_t length =
            line.value.empty()
                ? 0
                : BreakAt(line.value, begin, FittingLength(line.value, begin, room, font, device));
        rows.push_back({first ? line.label : std::wstring(), line.value.substr(begin, length), !first});
        begin += length;
    } while (begin < line.value.size());
    return rows;
}

class Layout {
public:
    explicit Layout(const PrintDevice& device)
        : device_(device), page_(device.Page()), colonWidth_(device.Extent(kColon, PrintFont::Body).width),
          pitch_(Pitch(PrintFont::Body)) {
        const auto margin = [](int usual, int paper) {
            return std::min(usual, static_cast<int>(std::lround(paper * kLargestMargin)));
        };
        const int marginX = margin(MillimetresX(kMargin), page_.paperWidth);
        const int marginY = margin(MillimetresY(kMargin), page_.paperHeight);
        area_.left = std::max(0, marginX - page_.offsetX);
        area_.top = std::max(0, marginY - page_.offsetY);
        area_.right = std::min(page_.width, page_.paperWidth - marginX - page_.offsetX);
        area_.bottom = std::min(page_.height, page_.paperHeight - marginY - page_.offsetY);
    }

    std::vector<PlacedPage> Place(const std::vector<Group>& groups) {
        if (groups.empty()) {
            return {};
        }
        labelWidth_ = WidestLabel(groups, PrintFont::Body);
        title_ = groups.front();
        StartPage();
        for (std::size_t i = 1; i < groups.size(); ++i) {
            PlaceGroup(groups[i]);
        }
        NumberPages();
        return pages_;
    }

private:
    [[nodiscard]] int MillimetresX(double mm) const {
        return static_cast<int>(std::lround(mm * page_.dpiX / kMillimetresPerInch));
    }
    [[nodiscard]] int MillimetresY(double mm) const {
        return static_cast<int>(std::lround(mm * page_.dpiY / kMillimetresPerInch));
    }
    [[nodiscard]] int Pitch(PrintFont font) const {
        return std::max(1, device_.Extent(L"A", font).height + MillimetresY(kLineGap));
    }

    [[nodiscard]] int WidestLabel(const std::vector<Group>& groups, PrintFont font) const {
        int widest = 0;
        for (const Group& group : groups) {
            for (const PrintLine& line : group) {
                widest = std::max(widest, device_.Extent(line.label, font).width);
            }
        }
        return widest;
    }

    /// The whole title; on a sheet that is too small for it, it goes on on the next one.
    void PlaceTitle() {
        const int labelWidth = WidestLabel({title_}, PrintFont::Title);
        const int colonWidth = device_.Extent(kColon, PrintFont::Title).width;
        // The page's number stands at the title's right.
        const int numberWidth = device_.Extent(L"00 / 00 ", PrintFont::Body).width;
        const int width = area_.right - area_.left - labelWidth - numberWidth;
        const int pitch = Pitch(PrintFont::Title);
        const bool repeated = pages_.size() > 1;
        // A page is for what stands below its title.
        const int end = repeated ? area_.bottom - std::max((area_.bottom - area_.top) / 5,
                                                           MillimetresY(kTitleGap + 2 * kPadding) + pitch_)
                                 : area_.bottom;
        for (const PrintLine& line : title_) {
            for (const Row& row : RowsOf(line, width, colonWidth, PrintFont::Title, device_)) {
                if (y_ != area_.top && y_ + pitch > end) {
                    if (repeated) {
                        return;
                    }
                    NewPage();
                }
                PlaceRow(row, area_.left, labelWidth, colonWidth, PrintFont::Title);
                y_ += pitch;
            }
        }
    }

    void NewPage() {
        pages_.emplace_back();
        y_ = area_.top;
    }

    void StartPage() {
        NewPage();
        PlaceTitle();
        y_ += MillimetresY(kTitleGap);
        firstY_ = y_;
    }

    void PlaceRow(const Row& row, int left, int labelWidth, int colonWidth, PrintFont font) {
        if (!row.label.empty()) {
            pages_.back().texts.push_back({left, y_, row.label, font});
        }
        if (!row.text.empty()) {
            const int indent = row.continues ? colonWidth : 0;
            pages_.back().texts.push_back({left + labelWidth + indent, y_, row.text, font});
        }
    }

    void PlaceGroup(const Group& group) {
        const int padX = MillimetresX(kPadding);
        const int padY = MillimetresY(kPadding);
        const int left = area_.left + padX;
        const int width = area_.right - padX - left - labelWidth_;
        std::vector<Row> rows;
        for (const PrintLine& line : group) {
            for (Row& row : RowsOf(line, width, colonWidth_, PrintFont::Body, device_)) {
                rows.push_back(std::move(row));
            }
        }
        const auto heightOf = [&](std::size_t count) { return 2 * padY + static_cast<int>(count) * pitch_; };
        const bool fits = y_ + heightOf(rows.size()) <= area_.bottom;
        const bool nothingFits = y_ + heightOf(1) > area_.bottom;
        if (nothingFits || (!fits && y_ != firstY_)) {
            StartPage();
        }
        std::size_t begin = 0;
        while (begin < rows.size()) {
            if (begin != 0) {
                StartPage();
            }
            const int room = (area_.bottom - y_ - 2 * padY) / pitch_;
            const std::size_t count =
                std::min(rows.size() - begin, static_cast<std::size_t>(std::max(1, room)));
            pages_.back().frames.push_back({area_.left, y_, area_.right, y_ + heightOf(count)});
            const int bottom = y_ + heightOf(count);
            y_ += padY;
            for (std::size_t i = begin; i < begin + count; ++i) {
                PlaceRow(rows[i], left, labelWidth_, colonWidth_, PrintFont::Body);
                y_ += pitch_;
            }
            y_ = bottom;
            begin += count;
        }
        y_ += MillimetresY(kGroupGap);
    }

    void NumberPages() {
        if (pages_.size() == 1) {
            return;
        }
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            const std::wstring number = DecimalText(i + 1) + L" / " + DecimalText(pages_.size());
            const int width = device_.Extent(number, PrintFont::Body).width;
            pages_[i].texts.push_back({area_.right - width, area_.top, number, PrintFont::Body});
        }
    }

    const PrintDevice& device_;
    PrintPage page_;
    int colonWidth_;
    int pitch_;
    PrintRect area_;
    int labelWidth_ = 0;
    Group title_;
    int y_ = 0;
    int firstY_ = 0; ///< below the title
    std::vector<PlacedPage> pages_;
};

} // namespace

std::vector<PlacedPage> LayOutPages(const std::vector<PrintLine>& lines, const PrintDevice& device) {
    return Layout(device).Place(GroupsOf(lines));
}
