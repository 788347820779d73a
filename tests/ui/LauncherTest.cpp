#include "UiTest.h"

#include <chrono>

namespace {

using testing::SizeIs;
using UiDriver::Launcher;
using UiDriver::Milliseconds;

class LauncherNotice : public UiTest {
protected:
    static std::wstring NewName() { return Local(L"Encyclopædia", L"百科事典"); }

    /// How long the dialog takes over Apply. Only what is posted waits for the end of it: the dialog answers
    /// sent messages while it waits for the launcher.
    Milliseconds TimeApply() const {
        using Clock = std::chrono::steady_clock;
        const auto start = Clock::now();
        Item(IDC_cmdApply).Press();
        PostMessageW(Item(IDC_cmdDefault0).Hwnd(), BM_CLICK, 0, 0);
        UiDriver::WaitUntil([&] { return ShownNames(1, 5) == NamesOf(SeededDefault(), 1, 5); },
                            L"the dialog to take input after Apply");
        return std::chrono::duration_cast<Milliseconds>(Clock::now() - start);
    }

    void StartAndRename() {
        Start();
        NameBox(2).SetText(NewName());
    }

    void ExpectSaved() const { EXPECT_EQ(AppKey(1, 2).String(L"DispTitle"), NewName()); }
};

TEST_F(LauncherNotice, WithoutALauncherApplySaves) {
    StartAndRename();
    Apply();
    ExpectSaved();
    ExpectAlive();
}

TEST_F(LauncherNotice, ApplyWaitsForASlowLauncher) {
    const auto& launcher = StartLauncher(L"/slow:1000");
    StartAndRename();
    EXPECT_GE(TimeApply(), Milliseconds(900));
    ExpectSaved();
    EXPECT_THAT(launcher.Entries(), SizeIs(1));
}

TEST_F(LauncherNotice, AHungLauncherHoldsApplyForAWhileOnly) {
    StartLauncher(L"/hang");
    StartAndRename();
    TimeApply();
    ExpectSaved();
    ExpectAlive();
    Item(IDC_cmdCancel).Press();
    ExpectEnd();
}

TEST_F(LauncherNotice, TheTvApplicationIsToldByAPost) {
    const Launcher tv(LauncherPath(), L"/vistacast");
    StartAndRename();
    Apply();
    const auto entry = tv.WaitForEntries(1)[0];
    EXPECT_EQ(entry.Message(), 1336U);
    EXPECT_EQ(entry.WParam(), 1U);
    EXPECT_FALSE(entry.Sent());
}

TEST_F(LauncherNotice, LauncherAndTvApplicationAreBothTold) {
    const Launcher tv(LauncherPath(), L"/vistacast");
    const auto& launcher = StartLauncher();
    StartAndRename();
    Apply();
    EXPECT_THAT(tv.WaitForEntries(1), SizeIs(1));
    EXPECT_THAT(launcher.WaitForEntries(1), SizeIs(1));
}

TEST_F(LauncherNotice, AHungTvApplicationDelaysNothing) {
    const Launcher tv(LauncherPath(), L"/vistacast /hang");
    StartAndRename();
    TimeApply();
    ExpectSaved();
}

} // namespace
