#pragma once

#include "platform/TopLevelWindows.h"

class StartUp;

/// Tells the resident launcher, and the maker's TV application, about changed settings.
class LauncherNotification {
public:
    explicit LauncherNotification(TopLevelWindows& windows) : windows_(windows) {}

    /// Both reload the settings. Waits for the launcher, but not for one that has stopped answering. True
    /// when the launcher runs.
    bool NotifyLauncher();

    /// Asks the launcher for the wizard's button, if the command line wanted that ("/ap"). True when it was
    /// wanted and the launcher runs.
    bool PostButtonToLauncher(const StartUp& startUp);

    /// Asks the launcher for a button, 0...7. True when the launcher runs.
    bool PostButton(int index);

private:
    TopLevelWindows& windows_;
};
