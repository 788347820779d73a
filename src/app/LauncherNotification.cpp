#include "app/LauncherNotification.h"

#include "app/CommandLine.h"
#include "app/LauncherContract.h"

namespace {

constexpr const wchar_t* kVistacastClass = L"Korvo Vistacast MainWnd Class";
constexpr std::uintptr_t kReload = 1;
constexpr int kEighthButtonIndex = 7;

// The receiver ignores lParam, but its contract names an address that is valid here.
constexpr std::int32_t kZero = 0;
constexpr std::int32_t kOne = 1;

} // namespace

bool LauncherNotification::NotifyLauncher() {
    const WindowId launcher = windows_.Find(kLauncherClass, std::nullopt);
    const WindowId vistacast = windows_.Find(kVistacastClass, std::nullopt);
    if (vistacast != 0) {
        windows_.Post(vistacast, kSettingsChangedMessage, kReload, &kZero);
    }
    if (launcher == 0) {
        return false;
    }
    // No answer changes nothing for us: the settings are stored, and the launcher reads them when it starts.
    windows_.Send(launcher, kSettingsChangedMessage, kReload, &kZero);
    return true;
}

bool LauncherNotification::PostButtonToLauncher(const StartUp& startUp) {
    return startUp.ButtonRequest && PostButton(startUp.WizardButton);
}

bool LauncherNotification::PostButton(int index) {
    const WindowId launcher = windows_.Find(kLauncherClass, std::nullopt);
    if (launcher == 0) {
        return false;
    }
    const std::uintptr_t button = index == kEighthButtonIndex
                                      ? kEighthButtonRequest
                                      : kFirstButtonRequest + static_cast<std::uintptr_t>(index);
    windows_.Post(launcher, kButtonRequestMessage, button, &kOne);
    return true;
}
