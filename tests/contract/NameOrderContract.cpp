#include "Rigs.h"
#include "fakes/FakeNameOrder.h"
#include "platform/windows/WindowsNameOrder.h"

#include <windows.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <bit>
#include <random>
#include <utility>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Names = std::vector<std::wstring>;

/// A list box that nobody sees.
class ListBox {
public:
    ListBox()
        : window_(CreateWindowExW(0, L"ListBox", L"", WS_POPUP | LBS_SORT | LBS_HASSTRINGS, 0, 0, 50, 50,
                                  nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)) {}
    ~ListBox() { DestroyWindow(window_); }
    ListBox(const ListBox&) = delete;
    ListBox& operator=(const ListBox&) = delete;

    [[nodiscard]] HWND Window() const { return window_; }
    [[nodiscard]] LCID Locale() const { return static_cast<LCID>(SendMessageW(window_, LB_GETLOCALE, 0, 0)); }
    [[nodiscard]] Names Sorted(const Names& names) const {
        for (const std::wstring& name : names) {
            SendMessageW(window_, LB_ADDSTRING, 0, std::bit_cast<LPARAM>(name.c_str()));
        }
        Names sorted;
        for (std::size_t i = 0; i < names.size(); ++i) {
            std::wstring name(static_cast<std::size_t>(SendMessageW(window_, LB_GETTEXTLEN, i, 0)), L'\0');
            SendMessageW(window_, LB_GETTEXT, i, std::bit_cast<LPARAM>(name.data()));
            sorted.push_back(name);
        }
        return sorted;
    }

private:
    HWND window_;
};

[[nodiscard]] Names ByKeys(const NameOrder& order, Names names) {
    std::stable_sort(names.begin(), names.end(), [&](const std::wstring& a, const std::wstring& b) {
        return order.SortKey(a) < order.SortKey(b);
    });
    return names;
}

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakeNameOrder order;
};

class WindowsRig {
    ListBox list_;

public:
    static constexpr const char* kName = "Windows";
    WindowsNameOrder order{list_.Window()};
};

template <class Rig> class NameOrderContract : public testing::Test {
protected:
    Rig rig_;

    [[nodiscard]] Names Sorted(Names names) const { return ByKeys(rig_.order, std::move(names)); }
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(NameOrderContract, Rigs, RigName);

TYPED_TEST(NameOrderContract, CaseDoesNotCount) {
    EXPECT_THAT(this->Sorted({L"delta", L"Alpha", L"CHARLIE", L"bravo"}),
                ElementsAre(L"Alpha", L"bravo", L"CHARLIE", L"delta"));
}

TYPED_TEST(NameOrderContract, DigitsComeBeforeLetters) {
    EXPECT_THAT(this->Sorted({L"b", L"10", L"A", L"9"}), ElementsAre(L"10", L"9", L"A", L"b"));
}

TYPED_TEST(NameOrderContract, ANameComesBeforeThoseThatItBegins) {
    EXPECT_THAT(this->Sorted({L"toolbox", L"Tool", L"tools"}), ElementsAre(L"Tool", L"toolbox", L"tools"));
}

TYPED_TEST(NameOrderContract, NothingIsLostOrMadeUp) {
    EXPECT_THAT(this->Sorted({}), IsEmpty());
    EXPECT_THAT(this->Sorted({L"x", L"", L"x"}), ElementsAre(L"", L"x", L"x"));
}

/// Names as disks have them, each drawn from the same seed.
class NameMaker {
public:
    explicit NameMaker(bool japanese) : japanese_(japanese) {}

    [[nodiscard]] std::wstring Name() {
        std::wstring name;
        for (std::size_t length = 1 + Below(10); name.size() < length;) {
            name += Character();
        }
        return name;
    }
    [[nodiscard]] std::wstring WithOtherCase(std::wstring name) {
        CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
        return name;
    }
    [[nodiscard]] std::size_t Below(std::size_t limit) { return random_() % limit; }

private:
    [[nodiscard]] wchar_t Character() {
        static constexpr std::wstring_view kPlain = L"aAbBcCdDeEzZ0123456789 _-.,;!#$%&'()+=@[]^`{}~";
        static constexpr std::wstring_view kWestern = L"äÄöÖéÉñÑßøØåÅ";
        static constexpr std::wstring_view kJapanese =
            L"あアぁァいイかカがガはハばバぱパーっッんン日本語表示設定亜ＡａＺｚ０９ｱｶﾞ・";
        if (Below(3) != 0) {
            return kPlain[Below(kPlain.size())];
        }
        const std::wstring_view local = japanese_ ? kJapanese : kWestern;
        return local[Below(local.size())];
    }

    bool japanese_;
    std::mt19937 random_{20'260'101};
};

[[nodiscard]] Names FiveHundredNames() {
    NameMaker maker(GetACP() == 932);
    Names names;
    while (names.size() < 500) {
        names.push_back(maker.Name());
        if (maker.Below(10) == 0) {
            names.push_back(maker.WithOtherCase(names.back()));
        }
    }
    return names;
}

TEST(WindowsNameOrderTest, TheOrderIsThatOfASortedListBox) {
    const ListBox list;
    const Names names = FiveHundredNames();
    const Names sorted = ByKeys(WindowsNameOrder(list.Window()), names);
    EXPECT_TRUE(std::is_permutation(sorted.begin(), sorted.end(), names.begin(), names.end()));
    const Names shown = list.Sorted(names);
    ASSERT_EQ(shown.size(), sorted.size());
    // Names that differ in case alone have no order in a list box: it depends on what else is in it.
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        EXPECT_EQ(CompareStringW(list.Locale(), NORM_IGNORECASE, sorted[i].c_str(), -1, shown[i].c_str(), -1),
                  CSTR_EQUAL)
            << i << ": " << testing::PrintToString(sorted[i]) << ", " << testing::PrintToString(shown[i]);
    }
}

TEST(WindowsNameOrderTest, NamesThatDifferInCaseAloneStayInTheirOrder) {
    const ListBox list;
    const WindowsNameOrder order(list.Window());
    EXPECT_THAT(ByKeys(order, {L"b", L"abc", L"ABC", L"Abc", L"aBC"}),
                ElementsAre(L"abc", L"ABC", L"Abc", L"aBC", L"b"));
}

TEST(WindowsNameOrderTest, TheListBoxNeedNotOutliveIt) {
    const auto order = [] {
        const ListBox list;
        return WindowsNameOrder(list.Window());
    }();
    EXPECT_THAT(ByKeys(order, {L"b", L"A"}), ElementsAre(L"A", L"b"));
}

TEST(WindowsNameOrderTest, NoNameIsTooLongForItsKey) {
    const ListBox list;
    const WindowsNameOrder order(list.Window());
    for (const std::wstring_view characters : {L"a", L"ガ", L"Ǖ", L"ﷺ", L"-'"}) {
        std::wstring name;
        while (name.size() < 259) {
            name += characters;
        }
        const std::string key = order.SortKey(name);
        EXPECT_FALSE(key.empty());
        EXPECT_LT(key, order.SortKey(name + L'z'));
        EXPECT_EQ(key, order.SortKey(name));
    }
}

} // namespace
