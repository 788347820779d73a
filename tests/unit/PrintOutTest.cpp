#include "print/CQlbPrint.h"

#include "MainDialog.h"
#include "fakes/FakePrintDevice.h"

namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using testing::Test;

using Pages = std::vector<FakePrintDevice::PrintedPage>;

class PrintOut : public Test, public LoadedMainDialog {
protected:
    PrintOut() { print.IniFileName(kOwnFile); }

    CQlbPrint print{store};
    FakePrintDevice device;

    bool Print(const PrintJob& job = {}) { return PrintOn(device, L"Button settings", job); }
    bool PrintOn(PrintDevice& printer, const std::wstring& name, const PrintJob& job = {}) {
        return print.QlbPrintOut(printer, name, job);
    }

    /// So that the printout is some pages long.
    void PutManyPages() {
        const std::string path = "C:\\" + std::string(1900, 'x');
        for (int button = 1; button <= 5; ++button) {
            const std::wstring key = L"Setting\\Set1\\AppKey" + std::to_wstring(button);
            PutUser(key, L"NumAP", 3);
            for (int k = 1; k <= 3; ++k) {
                PutUser(key, L"AP" + std::to_wstring(k), path.c_str());
            }
        }
    }

    /// What comes out with one copy of everything.
    Pages AllPages() {
        FakePrintDevice other;
        EXPECT_TRUE(PrintOn(other, L"All"));
        return other.Pages();
    }

    std::wstring PrintedText() const {
        std::wstring all;
        for (const auto& page : device.Pages()) {
            for (const auto& text : page.texts) {
                all += text.text;
            }
        }
        return all;
    }
};

std::vector<std::string> CallsFor(std::size_t pages) {
    std::vector<std::string> calls{"StartDocument"};
    for (std::size_t i = 0; i < pages; ++i) {
        calls.emplace_back("StartPage");
        calls.emplace_back("EndPage");
    }
    calls.emplace_back("EndDocument");
    return calls;
}

TEST_F(PrintOut, IsOneDocumentOfOnePage) {
    EXPECT_TRUE(Print());
    EXPECT_THAT(device.Documents(), ElementsAre(L"Button settings"));
    EXPECT_THAT(device.Calls(), ElementsAre("StartDocument", "StartPage", "EndPage", "EndDocument"));
    ASSERT_THAT(device.Pages(), SizeIs(1));
    EXPECT_THAT(device.Pages()[0].frames, SizeIs(5));
}

TEST_F(PrintOut, ShowsEveryLineOnce) {
    Print();
    std::wstring expected;
    for (const PrintLine& line : print.Lines()) {
        expected += line.label + line.value;
    }
    EXPECT_EQ(PrintedText(), expected);
    EXPECT_NE(expected.find(L"：Home"), std::wstring::npos);
}

TEST_F(PrintOut, DoesNotShowUnsavedEdits) {
    ButtonSlot edited = settings.Slot(2);
    edited.Name = L"Unsaved too";
    edited.NumAP = 0;
    settings.SetButtonName(1, L"Unsaved button");
    settings.SetSlot(2, edited);
    EXPECT_TRUE(Print());
    EXPECT_EQ(PrintedText().find(L"Unsaved"), std::wstring::npos);
    EXPECT_NE(PrintedText().find(L"ボタン２名称：実行形態　　：順次起動ＡＰ１　："), std::wstring::npos);
    EXPECT_NE(PrintedText().find(L"ボタン１名称：Mail実行形態　　：順次起動ＡＰ１　："), std::wstring::npos);
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(PrintOut, LeavesOutLinesThatWereAppendedBefore) {
    print.SetPrintData({L"Stray", L"：line"});
    EXPECT_TRUE(Print());
    EXPECT_EQ(PrintedText().find(L"Stray"), std::wstring::npos);
}

TEST_F(PrintOut, CanBeRepeated) {
    EXPECT_TRUE(Print());
    EXPECT_TRUE(Print());
    ASSERT_THAT(device.Pages(), SizeIs(2));
    EXPECT_EQ(device.Pages()[0], device.Pages()[1]);
    EXPECT_THAT(device.Documents(), SizeIs(2));
}

TEST_F(PrintOut, HasAsManyPagesAsItNeeds) {
    PutManyPages();
    EXPECT_TRUE(Print());
    ASSERT_GT(device.Pages().size(), 2U);
    EXPECT_THAT(device.Calls(), ElementsAreArray(CallsFor(device.Pages().size())));
}

TEST_F(PrintOut, PrintsEachCopyWhole) {
    PutManyPages();
    const Pages all = AllPages();
    EXPECT_TRUE(Print({1, 0, 3}));
    Pages expected;
    for (int copy = 0; copy < 3; ++copy) {
        expected.insert(expected.end(), all.begin(), all.end());
    }
    EXPECT_TRUE(device.Pages() == expected);
    EXPECT_THAT(device.Calls(), ElementsAreArray(CallsFor(expected.size())));
}

TEST_F(PrintOut, PrintsEachPageSeveralTimes_WhenCopiesAreNotCollated) {
    PutManyPages();
    const Pages all = AllPages();
    EXPECT_TRUE(Print({2, 3, 2, false}));
    EXPECT_TRUE(device.Pages() == (Pages{all.at(1), all.at(1), all.at(2), all.at(2)}));
}

TEST_F(PrintOut, IsThereOnce_WhenNoCopiesAreAskedFor) {
    for (const int copies : {0, -1}) {
        FakePrintDevice once;
        EXPECT_TRUE(PrintOn(once, L"x", {1, 0, copies}));
        EXPECT_THAT(once.Pages(), SizeIs(1)) << copies;
    }
}

TEST_F(PrintOut, PrintsThePagesThatWereChosen) {
    PutManyPages();
    const Pages all = AllPages();
    const int count = static_cast<int>(all.size());
    ASSERT_GE(count, 3);
    struct Range {
        int first, last, from, to;
    };
    const Range ranges[] = {{1, 1, 1, 1},
                            {2, 2, 2, 2},
                            {2, 3, 2, 3},
                            {2, 0, 2, count},
                            {1, 99, 1, count},
                            {count, count, count, count},
                            {count, 99, count, count}};
    for (const Range& range : ranges) {
        FakePrintDevice some;
        EXPECT_TRUE(PrintOn(some, L"x", {range.first, range.last, 1}));
        EXPECT_TRUE(some.Pages() == Pages(all.begin() + range.from - 1, all.begin() + range.to))
            << range.first << '-' << range.last;
    }
}

TEST_F(PrintOut, RepeatsChosenPagesForEachCopy) {
    PutManyPages();
    const Pages all = AllPages();
    EXPECT_TRUE(Print({2, 3, 2}));
    EXPECT_TRUE(device.Pages() == (Pages{all.at(1), all.at(2), all.at(1), all.at(2)}));
}

TEST_F(PrintOut, IsSafe_WhateverRangeIsAskedFor) {
    for (const int first : {-1, 0, 1, 2, 99}) {
        for (const int last : {-1, 0, 1, 2, 99}) {
            FakePrintDevice any;
            EXPECT_TRUE(PrintOn(any, L"x", {first, last, 1}));
            const bool hasFirstPage = first <= 1 && last >= 0;
            EXPECT_EQ(any.Pages().size(), hasFirstPage ? 1U : 0U) << first << '-' << last;
            EXPECT_EQ(any.Calls().empty(), !hasFirstPage) << "no document without pages";
        }
    }
}

TEST_F(PrintOut, EndsAtOnce_WhenTheDocumentCannotBeBegun) {
    device.failingCall = 1;
    EXPECT_FALSE(Print());
    EXPECT_THAT(device.Pages(), IsEmpty());
    EXPECT_EQ(device.Calls().front(), "StartDocument");
    // Nothing is open, so it is all the same whether it is aborted.
    EXPECT_LE(device.Calls().size(), 2U);
    EXPECT_THAT(device.Calls(), Not(Contains("EndDocument")));
}

TEST_F(PrintOut, IsAbortedOnceAndLeftAlone_WhereverThePrinterFails) {
    PutManyPages();
    const std::vector<std::string> calls = [&] {
        FakePrintDevice sound;
        EXPECT_TRUE(PrintOn(sound, L"x", {1, 0, 1}));
        return sound.Calls();
    }();
    for (std::size_t failing = 2; failing <= calls.size(); ++failing) {
        FakePrintDevice failed;
        failed.failingCall = static_cast<int>(failing);
        EXPECT_FALSE(PrintOn(failed, L"x", {1, 0, 1})) << failing;
        std::vector<std::string> expected(calls.begin(),
                                          calls.begin() + static_cast<std::ptrdiff_t>(failing));
        expected.emplace_back("Abort");
        EXPECT_THAT(failed.Calls(), ElementsAreArray(expected)) << failing;
    }
}

TEST_F(PrintOut, CanBeTriedAgain_AfterAPrinterThatFailed) {
    device.failingCall = 3;
    EXPECT_FALSE(Print());
    EXPECT_TRUE(Print());
    EXPECT_THAT(device.Documents(), Each(L"Button settings"));
    EXPECT_EQ(device.Calls().back(), "EndDocument");
}

TEST_F(PrintOut, IsThere_WithNothingStored) {
    registry.refusesReads = true;
    EXPECT_TRUE(Print());
    ASSERT_THAT(device.Pages(), SizeIs(1));
    EXPECT_THAT(device.Pages()[0].frames, SizeIs(5));
    EXPECT_THAT(PrintedText(), StartsWith(L"設定名　　　：ボタン１名称："));
}

} // namespace
