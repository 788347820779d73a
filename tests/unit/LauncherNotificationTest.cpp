#include "app/LauncherNotification.h"

#include "app/CommandLine.h"
#include "fakes/FakeWindows.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const wchar_t* kLauncher = L"KORVOQLBCLASS";
constexpr const wchar_t* kVistacast = L"Korvo Vistacast MainWnd Class";

using Deed = FakeWindows::Deed;
using Event = FakeWindows::Event;
using Search = FakeWindows::Search;

class Notification : public testing::Test {
public:
    FakeWindows windows;
    LauncherNotification notification{windows};
};

TEST_F(Notification, SendsTheLauncherTheChange) {
    const WindowId launcher = windows.Add(kLauncher, L"Any title");
    EXPECT_TRUE(notification.NotifyLauncher());
    EXPECT_THAT(windows.Events(), ElementsAre(Event{Deed::Sent, launcher, 1336, 1, 0}));
}

TEST_F(Notification, PostsVistacastTheChange_AndSaysThatTheLauncherIsMissing) {
    const WindowId vistacast = windows.Add(kVistacast);
    EXPECT_FALSE(notification.NotifyLauncher());
    EXPECT_THAT(windows.Events(), ElementsAre(Event{Deed::Posted, vistacast, 1336, 1, 0}));
}

TEST_F(Notification, TellsVistacastFirst_SoThatItNeedNotWaitForTheLauncher) {
    const WindowId launcher = windows.Add(kLauncher);
    const WindowId vistacast = windows.Add(kVistacast);
    EXPECT_TRUE(notification.NotifyLauncher());
    EXPECT_THAT(windows.Events(), ElementsAre(Event{Deed::Posted, vistacast, 1336, 1, 0},
                                              Event{Deed::Sent, launcher, 1336, 1, 0}));
}

TEST_F(Notification, TellsNobody_WhenNeitherRuns) {
    windows.Add(L"Another class", L"KORVOQLBCLASS");
    EXPECT_FALSE(notification.NotifyLauncher());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(Notification, LooksForClassesWhateverTheirTitles) {
    EXPECT_FALSE(notification.NotifyLauncher());
    EXPECT_THAT(windows.Searches(), ElementsAre(Search{kLauncher, {}}, Search{kVistacast, {}}));
}

TEST_F(Notification, CountsALauncherThatHasStoppedAnswering) {
    windows.Hang(windows.Add(kLauncher));
    EXPECT_TRUE(notification.NotifyLauncher());
}

TEST_F(Notification, PostsTheButtonThatTheCommandLineAskedFor) {
    const WindowId launcher = windows.Add(kLauncher);
    windows.Add(kVistacast);
    const std::pair<int, std::uintptr_t> requests[] = {{0, 104}, {1, 105}, {2, 106}, {3, 107},
                                                       {4, 108}, {5, 109}, {6, 110}, {7, 84}};
    for (const auto& [button, wParam] : requests) {
        windows.ForgetEvents();
        StartUp startUp;
        startUp.WizardButton = button;
        startUp.ButtonRequest = true;
        EXPECT_TRUE(notification.PostButtonToLauncher(startUp));
        EXPECT_THAT(windows.Events(), ElementsAre(Event{Deed::Posted, launcher, 1332, wParam, 1}));
        EXPECT_THAT(windows.Searches(), ElementsAre(Search{kLauncher, {}}));
    }
}

TEST_F(Notification, RequestsNoButton_WhenTheCommandLineDidNotAsk) {
    windows.Add(kLauncher);
    StartUp startUp;
    startUp.WizardButton = 3;
    EXPECT_FALSE(notification.PostButtonToLauncher(startUp));
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(Notification, SaysSo_WhenThereIsNoLauncherToAskForTheButton) {
    StartUp startUp;
    startUp.ButtonRequest = true;
    EXPECT_FALSE(notification.PostButtonToLauncher(startUp));
    EXPECT_THAT(windows.Events(), IsEmpty());
}

} // namespace
