#include "app/SingleInstance.h"

#include "app/StringTable.h"
#include "fakes/FakeInstanceGuard.h"
#include "fakes/FakeStrings.h"
#include "fakes/FakeWindows.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

FakeWindows::Event Forward(WindowId window) {
    return {FakeWindows::Deed::BroughtForward, window, 0, 0, {}};
}

class SecondInstance : public testing::Test {
public:
    explicit SecondInstance(Language language = Language::English) : strings(language) {
        ResetGlobals(strings);
        (void)first.AnotherInstanceRuns();
    }

    [[nodiscard]] bool Yields() { return YieldToOtherInstance(second, windows, texts); }

    FakeStrings strings;
    StringTable texts{strings};
    FakeSession session;
    FakeInstanceGuard first{session};
    FakeInstanceGuard second{session};
    FakeWindows windows;
};

class JapaneseSecondInstance : public SecondInstance {
public:
    JapaneseSecondInstance() : SecondInstance(Language::Japanese) {}
};

TEST_F(SecondInstance, BringsTheSettingsDialogForward) {
    const WindowId dialog = windows.Add(L"QLBUtlForm", L"Quickfire Button Settings");
    EXPECT_TRUE(Yields());
    EXPECT_THAT(windows.Events(), ElementsAre(Forward(dialog)));
}

TEST_F(SecondInstance, BringsTheWizardThatRunsAloneForward) {
    const WindowId wizard = windows.Add(L"QLBUtlForm", L"Quickfire Button Settings Wizard");
    EXPECT_TRUE(Yields());
    EXPECT_THAT(windows.Events(), ElementsAre(Forward(wizard)));
}

TEST_F(SecondInstance, BringsTheDialogAndThenTheWizardForward) {
    const WindowId wizard = windows.Add(L"QLBUtlForm", L"Quickfire Button Settings Wizard");
    const WindowId dialog = windows.Add(L"QLBUtlForm", L"Quickfire Button Settings");
    EXPECT_TRUE(Yields());
    EXPECT_THAT(windows.Events(), ElementsAre(Forward(dialog), Forward(wizard)));
}

TEST_F(SecondInstance, YieldsWithoutAWindowToo) {
    EXPECT_TRUE(Yields());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(SecondInstance, LeavesOtherWindowsAlone) {
    windows.Add(L"QLBUtlForm", L"Program Registration");
    windows.Add(L"Notepad", L"Quickfire Button Settings");
    EXPECT_TRUE(Yields());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(JapaneseSecondInstance, LooksForTheJapaneseTitles) {
    const std::wstring title = strings.Load(3000);
    const WindowId dialog = windows.Add(L"QLBUtlForm", title);
    const WindowId wizard = windows.Add(L"QLBUtlForm", title + L" " + strings.Load(3200));
    EXPECT_TRUE(Yields());
    EXPECT_THAT(windows.Events(), ElementsAre(Forward(dialog), Forward(wizard)));
}

TEST(FirstInstance, DoesNotYield) {
    const FakeStrings strings;
    const StringTable texts(strings);
    FakeSession session;
    FakeInstanceGuard guard(session);
    FakeWindows windows;
    windows.Add(L"QLBUtlForm", L"Quickfire Button Settings");
    EXPECT_FALSE(YieldToOtherInstance(guard, windows, texts));
    EXPECT_TRUE(guard.Claimed());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

} // namespace
