#include "print/PrintLayout.h"

#include "fakes/FakePrintDevice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

using Lines = std::vector<PrintLine>;
using Pages = std::vector<PlacedPage>;

constexpr double kMarginMm = 15;
constexpr double kLineGapMm = 0.25;
const std::wstring kColon = L"：";

std::wstring FullWidth(int digit) {
    return {static_cast<wchar_t>(L'０' + digit)};
}

/// As the program makes them; `values` of each button are its name, its method and its programs.
Lines LinesOf(const std::wstring& name, const std::vector<std::vector<std::wstring>>& buttons) {
    Lines lines = {{L"設定名　　　", kColon + name}, {}};
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        for (std::size_t k = 0; k < buttons[i].size(); ++k) {
            const std::wstring label = k == 0 ? L"ボタン" + FullWidth(static_cast<int>(i) + 1) + L"名称"
                                       : k == 1 ? L"実行形態　　"
                                                : L"起動ＡＰ" + FullWidth(static_cast<int>(k) - 1) + L"　";
            lines.push_back({label, kColon + buttons[i][k]});
        }
        lines.emplace_back();
    }
    return lines;
}

std::wstring Repeated(const std::wstring& text, std::size_t length) {
    std::wstring repeated;
    while (repeated.size() < length) {
        repeated += text;
    }
    return repeated.substr(0, length);
}

/// U+20BB7, which is two characters where a character has 16 bits.
const std::wstring kPair = L"\U00020BB7";

struct Content {
    const char* name;
    Lines lines;
};

const std::vector<Content>& Contents() {
    static const std::vector<Content> contents = [] {
        const std::wstring path =
            L"C:\\Program Files\\Some Maker\\An application with a long name\\Program.exe|/open \"C:\\My "
            L"documents\\plans for next year.xls\" /minimised /nologo";
        const std::wstring word = Repeated(L"abcdefghij", 300);
        const std::wstring japanese = Repeated(L"長い日本語の文章が続きます。", 301);
        const std::vector<std::wstring> longOnes = {L"Name",  L"順次",     path, word,
                                                    japanese, path + path, L"x"};
        const std::vector<std::wstring> huge = {L"名称",
                                                L"順次",
                                                Repeated(L"あいうえお", 2000),
                                                Repeated(kPair + L"a", 2000 / kPair.size() * kPair.size()),
                                                Repeated(L"C:\\folder name\\", 2000),
                                                Repeated(L"z", 2000),
                                                Repeated(L"ｶﾅ漢", 2000)};
        const std::vector<std::wstring> small = {L"Mail", L"単独", L"C:\\mail.exe"};
        const std::vector<std::wstring> bare = {L"", L""};
        return std::vector<Content>{
            {"small", LinesOf(L"Office", {small, small, small, small, small})},
            {"bare", LinesOf(L"", {bare, bare, bare, bare, bare})},
            {"full", LinesOf(L"仕事", {longOnes, longOnes, longOnes, longOnes, longOnes})},
            {"huge", LinesOf(L"Huge", {huge, small, small, huge, longOnes})},
            {"long name", LinesOf(Repeated(L"Pattern name ", 200), {small, longOnes, bare, longOnes, small})},
            {"longest name", LinesOf(Repeated(L"名前", 1000), {small, longOnes, bare, bare, small})}};
    }();
    return contents;
}

/// The lines as they can be read off the pages again: each group, and the title of each page.
struct ReadBack {
    std::vector<Lines> titles;
    std::vector<Lines> groups;
    /// Pages (from 0) on which each group has a frame.
    std::vector<std::vector<std::size_t>> pagesOfGroups;
};

/// One content on one sheet.
class Sheet {
public:
    Sheet(const PrintPage& page, const Lines& lines)
        : page_(page), device_(page), pages_(LayOutPages(lines, device_)) {
        for (const PlacedPage& each : pages_) {
            for (const PlacedText& text : each.texts) {
                if (text.font == PrintFont::Body && FrameAt(each, text) != nullptr) {
                    labelX_ = std::min(labelX_, text.x);
                    if (text.text.starts_with(kColon)) {
                        columnX_ = text.x;
                    }
                }
            }
        }
    }

    [[nodiscard]] const Pages& All() const { return pages_; }
    [[nodiscard]] int LabelX() const { return labelX_; }
    [[nodiscard]] int ColumnX() const { return columnX_; }
    /// Where rows of a value go on below its first character.
    [[nodiscard]] int ContinuedX() const { return columnX_ + Width(kColon); }
    [[nodiscard]] int Width(const std::wstring& text, PrintFont font = PrintFont::Body) const {
        return device_.Extent(text, font).width;
    }
    [[nodiscard]] PrintRect Box(const PlacedText& text) const {
        const PrintExtent extent = device_.Extent(text.text, text.font);
        return {text.x, text.y, text.x + extent.width, text.y + extent.height};
    }
    [[nodiscard]] int Pitch(PrintFont font = PrintFont::Body) const {
        const double gap = kLineGapMm * page_.dpiY / FakePrintDevice::kMillimetresPerInch;
        return device_.Extent(L"A", font).height + static_cast<int>(std::lround(gap));
    }
    /// Between the margins and within what the printer can print.
    [[nodiscard]] PrintRect Area() const {
        const auto pixels = [](double mm, int dpi) {
            return static_cast<int>(std::lround(mm * dpi / FakePrintDevice::kMillimetresPerInch));
        };
        const auto margin = [&](int dpi, int paper) {
            return std::min(pixels(kMarginMm, dpi), static_cast<int>(std::lround(paper / 14.0)));
        };
        const int x = margin(page_.dpiX, page_.paperWidth);
        const int y = margin(page_.dpiY, page_.paperHeight);
        return {std::max(0, x - page_.offsetX), std::max(0, y - page_.offsetY),
                std::min(page_.width, page_.paperWidth - x - page_.offsetX),
                std::min(page_.height, page_.paperHeight - y - page_.offsetY)};
    }

    /// The frame that a text lies in.
    static const PrintRect* FrameAt(const PlacedPage& page, const PlacedText& text) {
        for (const PrintRect& frame : page.frames) {
            if (text.y >= frame.top && text.y < frame.bottom) {
                return &frame;
            }
        }
        return nullptr;
    }
    [[nodiscard]] static bool IsNumber(const PlacedPage& page, const PlacedText& text) {
        return text.font == PrintFont::Body && FrameAt(page, text) == nullptr;
    }
    static std::vector<PlacedText> TextsIn(const PlacedPage& page, const PrintRect& frame) {
        std::vector<PlacedText> texts;
        for (const PlacedText& text : page.texts) {
            if (text.y >= frame.top && text.y < frame.bottom) {
                texts.push_back(text);
            }
        }
        return texts;
    }

    [[nodiscard]] ReadBack Read() const {
        ReadBack read;
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            Lines title;
            for (const PlacedText& text : pages_[i].texts) {
                if (text.font == PrintFont::Title) {
                    Append(title, text, pages_[i].texts.front().x);
                }
            }
            read.titles.push_back(title);
            for (const PrintRect& frame : pages_[i].frames) {
                const std::vector<PlacedText> texts = TextsIn(pages_[i], frame);
                const bool begins =
                    !texts.empty() && texts[0].text.starts_with(L"ボタン") && texts[0].x == labelX_;
                if (begins || read.groups.empty()) {
                    read.groups.emplace_back();
                    read.pagesOfGroups.emplace_back();
                }
                read.pagesOfGroups.back().push_back(i);
                for (const PlacedText& text : texts) {
                    Append(read.groups.back(), text, labelX_);
                }
            }
        }
        return read;
    }

private:
    /// What is not at the labels' place goes on with the value.
    static void Append(Lines& lines, const PlacedText& text, int labelX) {
        if (text.x == labelX) {
            lines.push_back({text.text, L""});
        } else if (!lines.empty()) {
            lines.back().value += text.text;
        }
    }

    PrintPage page_;
    FakePrintDevice device_;
    Pages pages_;
    int labelX_ = std::numeric_limits<int>::max();
    int columnX_ = 0;
};

std::vector<Lines> GroupsOf(const Lines& lines) {
    std::vector<Lines> groups(1);
    for (const PrintLine& line : lines) {
        if (line == PrintLine{}) {
            groups.emplace_back();
        } else {
            groups.back().push_back(line);
        }
    }
    groups.pop_back();
    return groups;
}

bool Contains(const PrintRect& outer, const PrintRect& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

bool Overlap(const PrintRect& a, const PrintRect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

std::string Shown(const PrintRect& rect) {
    return testing::PrintToString(std::vector<int>{rect.left, rect.top, rect.right, rect.bottom});
}

/// Every paper at every resolution; the printers take turns.
template <class Check> void ForEachPage(const Check& check) {
    struct Paper {
        const char* name;
        double width, height;
    };
    struct Resolution {
        int x, y;
    };
    const Paper papers[] = {{"A4", 210, 297},
                            {"A4 landscape", 297, 210},
                            {"Letter", 215.9, 279.4},
                            {"Letter landscape", 279.4, 215.9}};
    const Resolution resolutions[] = {{96, 96}, {300, 300}, {600, 600}, {600, 300}};
    // Up to the edge, usual, uneven, and with less to print on than lies between the margins.
    const FakePrintDevice::Edges printers[] = {
        {0, 0, 0, 0}, {4.2, 4.2, 4.2, 4.2}, {3, 5, 10, 18}, {20, 17, 25, 22}};
    std::size_t printer = 0;
    for (const Paper& paper : papers) {
        for (const Resolution& dpi : resolutions) {
            SCOPED_TRACE(testing::Message() << paper.name << ' ' << dpi.x << " x " << dpi.y
                                            << " dpi, printer " << printer % std::size(printers));
            check(FakePrintDevice::Sheet(paper.width, paper.height, dpi.x, dpi.y,
                                         printers[printer % std::size(printers)]));
            ++printer;
        }
        ++printer;
    }
}

/// Every content on every paper.
template <class Check> void ForEachSheet(const Check& check) {
    ForEachPage([&](const PrintPage& page) {
        for (const Content& content : Contents()) {
            SCOPED_TRACE(content.name);
            const Sheet sheet(page, content.lines);
            ASSERT_THAT(sheet.All(), Not(IsEmpty()));
            check(sheet, content.lines);
        }
    });
}

TEST(PrintLayout, StaysInsideTheMarginsAndThePrintableArea) {
    ForEachSheet([](const Sheet& sheet, const Lines&) {
        for (const PlacedPage& page : sheet.All()) {
            for (const PlacedText& text : page.texts) {
                EXPECT_TRUE(Contains(sheet.Area(), sheet.Box(text)))
                    << testing::PrintToString(text.text) << Shown(sheet.Box(text)) << Shown(sheet.Area());
            }
            for (const PrintRect& frame : page.frames) {
                EXPECT_TRUE(Contains(sheet.Area(), frame)) << Shown(frame) << Shown(sheet.Area());
            }
        }
    });
}

TEST(PrintLayout, UsesTheWholeWidthForEachFrame) {
    ForEachSheet([](const Sheet& sheet, const Lines&) {
        for (const PlacedPage& page : sheet.All()) {
            ASSERT_THAT(page.frames, Not(IsEmpty()));
            for (const PrintRect& frame : page.frames) {
                EXPECT_EQ(frame.left, sheet.Area().left);
                EXPECT_EQ(frame.right, sheet.Area().right);
            }
        }
    });
}

TEST(PrintLayout, HasAllTextsInFullAndInOrder) {
    ForEachSheet([](const Sheet& sheet, const Lines& lines) {
        std::vector<Lines> groups = GroupsOf(lines);
        const ReadBack read = sheet.Read();
        for (const Lines& title : read.titles) {
            EXPECT_TRUE(title == groups[0]);
        }
        groups.erase(groups.begin());
        ASSERT_THAT(read.groups, SizeIs(groups.size()));
        for (std::size_t i = 0; i < groups.size(); ++i) {
            EXPECT_TRUE(read.groups[i] == groups[i]) << "button " << i + 1;
        }
    });
}

TEST(PrintLayout, AlignsLabelsAtTheLeftAndValuesInAColumn) {
    ForEachSheet([](const Sheet& sheet, const Lines& lines) {
        int widest = 0;
        std::set<std::wstring> labels;
        for (const PrintLine& line : lines) {
            labels.insert(line.label);
            widest = std::max(widest, sheet.Width(line.label));
        }
        EXPECT_GE(sheet.ColumnX(), sheet.LabelX() + widest);
        for (const PlacedPage& page : sheet.All()) {
            for (const PlacedText& text : page.texts) {
                if (Sheet::FrameAt(page, text) == nullptr) {
                    continue;
                }
                if (text.x == sheet.LabelX()) {
                    EXPECT_TRUE(labels.contains(text.text)) << testing::PrintToString(text.text);
                } else if (text.text.starts_with(kColon)) {
                    EXPECT_EQ(text.x, sheet.ColumnX());
                } else {
                    EXPECT_EQ(text.x, sheet.ContinuedX());
                }
            }
        }
    });
}

TEST(PrintLayout, KeepsTextsApartFromTheirFrame) {
    ForEachSheet([](const Sheet& sheet, const Lines&) {
        for (const PlacedPage& page : sheet.All()) {
            for (const PlacedText& text : page.texts) {
                const PrintRect* frame = Sheet::FrameAt(page, text);
                if (frame == nullptr) {
                    continue;
                }
                const int padding = sheet.LabelX() - frame->left;
                const PrintRect box = sheet.Box(text);
                EXPECT_GT(padding, 0);
                EXPECT_LE(box.right, frame->right - padding) << testing::PrintToString(text.text);
                EXPECT_GT(box.top, frame->top);
                EXPECT_LT(box.bottom, frame->bottom);
            }
        }
    });
}

TEST(PrintLayout, HasNoTextOverAnotherAndNoFrameOverAnother) {
    ForEachSheet([](const Sheet& sheet, const Lines&) {
        for (const PlacedPage& page : sheet.All()) {
            for (std::size_t i = 0; i < page.texts.size(); ++i) {
                for (std::size_t k = i + 1; k < page.texts.size(); ++k) {
                    EXPECT_FALSE(Overlap(sheet.Box(page.texts[i]), sheet.Box(page.texts[k])))
                        << testing::PrintToString(page.texts[i].text) << " and "
                        << testing::PrintToString(page.texts[k].text);
                }
            }
            for (std::size_t i = 1; i < page.frames.size(); ++i) {
                EXPECT_GT(page.frames[i].top, page.frames[i - 1].bottom);
            }
            for (const PlacedText& text : page.texts) {
                if (Sheet::FrameAt(page, text) == nullptr) {
                    EXPECT_LT(sheet.Box(text).bottom + sheet.Pitch() / 2, page.frames.front().top);
                }
            }
        }
    });
}

TEST(PrintLayout, HasRowsAtTheFontsHeightAndAQuarterMillimetre) {
    ForEachSheet([](const Sheet& sheet, const Lines&) {
        for (const PlacedPage& page : sheet.All()) {
            for (const PrintRect& frame : page.frames) {
                std::set<int> rows;
                for (const PlacedText& text : Sheet::TextsIn(page, frame)) {
                    rows.insert(text.y);
                }
                ASSERT_THAT(rows, Not(IsEmpty()));
                int expected = *rows.begin();
                for (const int row : rows) {
                    EXPECT_EQ(row, expected);
                    expected += sheet.Pitch();
                }
                // As much room below the last row as above the first one.
                EXPECT_EQ(frame.bottom - expected, *rows.begin() - frame.top);
            }
            std::set<int> titleRows;
            for (const PlacedText& text : page.texts) {
                if (text.font == PrintFont::Title) {
                    titleRows.insert(text.y);
                }
            }
            int expected = sheet.Area().top;
            for (const int row : titleRows) {
                EXPECT_EQ(row, expected);
                expected += sheet.Pitch(PrintFont::Title);
            }
        }
    });
}

TEST(PrintLayout, WrapsNoEarlierThanItMust) {
    ForEachSheet([](const Sheet& sheet, const Lines&) {
        for (const PlacedPage& page : sheet.All()) {
            for (std::size_t i = 1; i < page.texts.size(); ++i) {
                const PlacedText& row = page.texts[i - 1];
                const PlacedText& next = page.texts[i];
                if (Sheet::FrameAt(page, row) == nullptr || next.x != sheet.ContinuedX() ||
                    row.x < sheet.ColumnX()) {
                    continue;
                }
                const PrintRect frame = *Sheet::FrameAt(page, row);
                const int right = frame.right - (sheet.LabelX() - frame.left);
                const std::wstring longer =
                    row.text + next.text.substr(0, next.text.starts_with(kPair) ? kPair.size() : 1);
                const bool atSeparator = row.text.ends_with(L' ') || row.text.ends_with(L'\\');
                const int used = row.x + sheet.Width(row.text) - sheet.ColumnX();
                EXPECT_TRUE(row.x + sheet.Width(longer) > right || atSeparator)
                    << testing::PrintToString(row.text);
                EXPECT_GE(used * 3, right - sheet.ColumnX()) << testing::PrintToString(row.text);
            }
        }
    });
}

TEST(PrintLayout, KeepsAGroupTogether_UnlessItIsLongerThanAPage) {
    ForEachSheet([](const Sheet& sheet, const Lines&) {
        const ReadBack read = sheet.Read();
        for (std::size_t i = 0; i < read.groups.size(); ++i) {
            const std::vector<std::size_t>& pages = read.pagesOfGroups[i];
            if (pages.size() == 1) {
                continue;
            }
            int height = 0;
            for (const std::size_t page : pages) {
                const std::vector<PrintRect>& frames = sheet.All()[page].frames;
                const PrintRect& piece = page == pages.front() ? frames.back() : frames.front();
                height += piece.bottom - piece.top;
                if (page != pages.back()) {
                    // A page that is not the last one is full.
                    EXPECT_THAT(frames, SizeIs(1)) << "button " << i + 1;
                    EXPECT_LT(sheet.Area().bottom - piece.bottom, sheet.Pitch());
                }
            }
            EXPECT_GT(height, sheet.Area().bottom - sheet.All()[pages.front()].frames.front().top)
                << "button " << i + 1;
        }
    });
}

TEST(PrintLayout, BeginsANewPageOnlyForAGroupThatDoesNotFit) {
    ForEachSheet([](const Sheet& sheet, const Lines&) {
        const ReadBack read = sheet.Read();
        for (std::size_t i = 1; i < read.groups.size(); ++i) {
            const std::size_t page = read.pagesOfGroups[i].front();
            const std::size_t before = read.pagesOfGroups[i - 1].back();
            if (page == before) {
                continue;
            }
            ASSERT_EQ(page, before + 1);
            const PrintRect& last = sheet.All()[before].frames.back();
            const PrintRect& first = sheet.All()[page].frames.front();
            EXPECT_GT(last.bottom + (first.bottom - first.top), sheet.Area().bottom - 2 * sheet.Pitch())
                << "button " << i + 1;
        }
    });
}

TEST(PrintLayout, HasTheTitleOnEachPageAndItsNumberWhenThereAreMore) {
    ForEachSheet([](const Sheet& sheet, const Lines&) {
        const std::size_t count = sheet.All().size();
        for (std::size_t i = 0; i < count; ++i) {
            const PlacedPage& page = sheet.All()[i];
            EXPECT_EQ(page.texts.at(0).text, L"設定名　　　");
            EXPECT_EQ(page.texts.at(0).font, PrintFont::Title);
            EXPECT_EQ(page.texts.at(0).x, sheet.Area().left);
            EXPECT_EQ(page.texts.at(0).y, sheet.Area().top);
            std::vector<std::wstring> numbers;
            for (const PlacedText& text : page.texts) {
                if (Sheet::IsNumber(page, text)) {
                    numbers.push_back(text.text);
                    EXPECT_EQ(sheet.Box(text).right, sheet.Area().right);
                }
            }
            if (count == 1) {
                EXPECT_THAT(numbers, IsEmpty());
            } else {
                EXPECT_THAT(numbers, ElementsAre(std::to_wstring(i + 1) + L" / " + std::to_wstring(count)));
            }
        }
    });
}

TEST(PrintLayout, GoesOnOnTheNextSheetWithATitleThatIsTallerThanTheFirst) {
    const Lines& lines = Contents().back().lines;
    const PrintPage smallest = FakePrintDevice::Sheet(105, 74, 300, 300, {});
    const Sheet sheet(smallest, lines);
    const ReadBack read = sheet.Read();
    std::wstring name;
    std::size_t titlePages = 0;
    while (titlePages < sheet.All().size()) {
        const PlacedPage& page = sheet.All()[titlePages++];
        for (const PlacedText& text : page.texts) {
            if (text.font == PrintFont::Title) {
                name += text.text;
            }
        }
        if (!page.frames.empty()) {
            break;
        }
    }
    EXPECT_GT(titlePages, 1U);
    EXPECT_TRUE(name == lines[0].label + lines[0].value);
    EXPECT_THAT(read.groups, SizeIs(5));
    for (const PlacedPage& page : sheet.All()) {
        EXPECT_THAT(page.texts, Not(IsEmpty()));
        for (const PlacedText& text : page.texts) {
            EXPECT_TRUE(Contains(sheet.Area(), sheet.Box(text))) << Shown(sheet.Box(text));
        }
        for (const PrintRect& frame : page.frames) {
            EXPECT_TRUE(Contains(sheet.Area(), frame)) << Shown(frame);
        }
    }
}

TEST(PrintLayout, NeedsOnePageForAUsualPattern_AndMoreForALongOne) {
    ForEachPage([](const PrintPage& page) {
        EXPECT_THAT(LayOutPages(Contents()[0].lines, FakePrintDevice(page)), SizeIs(1));
        EXPECT_GT(LayOutPages(Contents()[3].lines, FakePrintDevice(page)).size(), 2U);
    });
}

/// The rows of a value on an A4 sheet, the colon included.
std::vector<std::wstring> Rows(const std::wstring& value, double widthMm = 210) {
    const Sheet sheet(FakePrintDevice::Sheet(widthMm, 297, 300, 300, {}), LinesOf(L"x", {{value, L"単独"}}));
    std::vector<std::wstring> rows;
    for (const PlacedPage& page : sheet.All()) {
        for (const PlacedText& text : page.texts) {
            if (text.text == L"実行形態　　") {
                return rows;
            }
            if (Sheet::FrameAt(page, text) != nullptr && text.x != sheet.LabelX()) {
                rows.push_back(text.text);
            }
        }
    }
    return rows;
}

std::wstring Joined(const std::vector<std::wstring>& rows) {
    std::wstring text;
    for (const std::wstring& row : rows) {
        text += row;
    }
    return text;
}

/// As many ASCII characters as fit into a value's first row.
std::size_t FirstRowRoom() {
    return Rows(Repeated(L"x", 500)).at(0).size() - kColon.size();
}

TEST(PrintWrapping, LeavesAValueThatFitsInOneRow) {
    const std::wstring exact = Repeated(L"x", FirstRowRoom());
    EXPECT_THAT(Rows(exact), ElementsAre(kColon + exact));
    EXPECT_THAT(Rows(exact + L"y"), ElementsAre(kColon + exact, L"y"));
    EXPECT_THAT(Rows(L""), ElementsAre(kColon));
}

TEST(PrintWrapping, GoesOnInRowsOfTheSameRightEnd) {
    const std::size_t room = FirstRowRoom();
    EXPECT_THAT(Rows(Repeated(L"x", 3 * room)),
                ElementsAre(kColon + Repeated(L"x", room), Repeated(L"x", room), Repeated(L"x", room)));
}

TEST(PrintWrapping, BreaksAPathBehindABackslash) {
    const std::size_t room = FirstRowRoom();
    const std::wstring folder = L"C:\\" + Repeated(L"a", room - 10) + L"\\";
    EXPECT_THAT(Rows(folder + L"LongFileName.exe"), ElementsAre(kColon + folder, L"LongFileName.exe"));
}

TEST(PrintWrapping, BreaksBehindABlank) {
    const std::size_t room = FirstRowRoom();
    const std::wstring first = Repeated(L"a", room - 5) + L" ";
    EXPECT_THAT(Rows(first + L"second word"), ElementsAre(kColon + first, L"second word"));
}

TEST(PrintWrapping, BreaksInsideAWord_WhenABreakAtItsBeginningWouldWasteTheRow) {
    const std::wstring word = Repeated(L"w", 2 * FirstRowRoom());
    const std::vector<std::wstring> rows = Rows(L"a " + word);
    EXPECT_EQ(rows.at(0).size() - kColon.size(), FirstRowRoom());
    EXPECT_EQ(Joined(rows), L"：a " + word);
}

TEST(PrintWrapping, BreaksJapaneseAnywhere) {
    const std::size_t room = FirstRowRoom() / 2;
    const std::wstring text = Repeated(L"日本語", 2 * room);
    EXPECT_THAT(Rows(text), ElementsAre(kColon + text.substr(0, room), text.substr(room)));
}

TEST(PrintWrapping, KeepsSurrogatePairsTogether) {
    for (const std::wstring& before : {std::wstring(), std::wstring(L"a"), std::wstring(L"あ")}) {
        std::wstring text = before;
        for (int i = 0; i < 200; ++i) {
            text += kPair;
        }
        const std::vector<std::wstring> rows = Rows(text);
        EXPECT_GT(rows.size(), 2U);
        EXPECT_EQ(Joined(rows), kColon + text);
        for (const std::wstring& row : rows) {
            EXPECT_FALSE(row.front() >= 0xDC00 && row.front() <= 0xDFFF);
            EXPECT_FALSE(row.back() >= 0xD800 && row.back() <= 0xDBFF);
        }
    }
}

TEST(PrintWrapping, KeepsSurrogatePairsTogether_InAColumnOfOneCharacter) {
    std::wstring text;
    for (int i = 0; i < 20; ++i) {
        text += kPair;
    }
    // One millimetre after another until the column is wider than some characters.
    for (double width = 55; width < 80; width += 1) {
        const std::vector<std::wstring> rows = Rows(text, width);
        EXPECT_EQ(Joined(rows), kColon + text);
        for (const std::wstring& row : rows) {
            EXPECT_FALSE(row.front() >= 0xDC00 && row.front() <= 0xDFFF) << width;
        }
    }
}

TEST(PrintWrapping, LosesNothingOfBlanksInARow) {
    const std::wstring text = Repeated(L"a", 40) + Repeated(L" ", 300) + L"b\\\\\\\\c";
    EXPECT_EQ(Joined(Rows(text)), kColon + text);
}

TEST(PrintWrapping, HandlesVeryLongTexts) {
    const std::wstring text = Repeated(L"long text ", 20'000);
    EXPECT_EQ(Joined(Rows(text)), kColon + text);
}

TEST(PrintPaper, OfALabelPrinterKeepsEverythingInsideToo) {
    const Sheet sheet(FakePrintDevice::Sheet(58, 100, 203, 203, {3, 0, 3, 0}), Contents()[2].lines);
    for (const PlacedPage& page : sheet.All()) {
        for (const PlacedText& text : page.texts) {
            EXPECT_TRUE(Contains(sheet.Area(), sheet.Box(text))) << testing::PrintToString(text.text);
        }
        for (const PrintRect& frame : page.frames) {
            EXPECT_TRUE(Contains(sheet.Area(), frame)) << Shown(frame);
        }
    }
}

TEST(PrintPaper, MayBeTooSmallForAnything) {
    const Lines lines = Contents()[2].lines;
    for (const PrintPage& page :
         {PrintPage{}, FakePrintDevice::Sheet(20, 20, 300, 300, {}),
          FakePrintDevice::Sheet(1, 1000, 300, 300, {}), FakePrintDevice::Sheet(1000, 1, 300, 300, {}),
          FakePrintDevice::Sheet(40, 40, 300, 300, {30, 30, 30, 30})}) {
        std::wstring all;
        for (const PlacedPage& each : LayOutPages(lines, FakePrintDevice(page))) {
            for (const PlacedText& text : each.texts) {
                if (text.font == PrintFont::Body && text.text.find(L" / ") == std::wstring::npos) {
                    all += text.text;
                }
            }
        }
        std::wstring expected;
        for (std::size_t i = 1; i < lines.size(); ++i) {
            expected += lines[i].label + lines[i].value;
        }
        EXPECT_TRUE(all == expected) << page.paperWidth << 'x' << page.paperHeight;
    }
}

TEST(PrintGroups, AreNoPageWithoutLines) {
    EXPECT_THAT(LayOutPages({}, FakePrintDevice()), IsEmpty());
    EXPECT_THAT(LayOutPages({{}, {}, {}}, FakePrintDevice()), IsEmpty());
}

TEST(PrintGroups, AreATitleAlone_WithOneGroup) {
    const Pages pages = LayOutPages({{L"Label", L"：value"}}, FakePrintDevice());
    ASSERT_THAT(pages, SizeIs(1));
    EXPECT_THAT(pages[0].frames, IsEmpty());
    ASSERT_THAT(pages[0].texts, SizeIs(2));
    EXPECT_EQ(pages[0].texts[0].font, PrintFont::Title);
    EXPECT_EQ(pages[0].texts[1].text, L"：value");
}

TEST(PrintGroups, EndAtAnyNumberOfEmptyLines) {
    const Pages pages = LayOutPages({{}, {L"T", L"：t"}, {}, {}, {L"A", L"：a"}, {}, {}, {}, {L"B", L"：b"}},
                                    FakePrintDevice());
    ASSERT_THAT(pages, SizeIs(1));
    EXPECT_THAT(pages[0].frames, SizeIs(2));
}

TEST(PrintGroups, KeepALineThatHasALabelOrAValueAlone) {
    const Pages pages =
        LayOutPages({{L"T", L"：t"}, {}, {L"Label", L""}, {L"", L"：value"}}, FakePrintDevice());
    ASSERT_THAT(pages, SizeIs(1));
    ASSERT_THAT(pages[0].frames, SizeIs(1));
    ASSERT_THAT(pages[0].texts, SizeIs(4));
    EXPECT_EQ(pages[0].texts[2].text, L"Label");
    EXPECT_EQ(pages[0].texts[3].text, L"：value");
    EXPECT_GT(pages[0].texts[3].y, pages[0].texts[2].y);
}

} // namespace
