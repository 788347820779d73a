#include "app/LauncherNotification.h"

#include "app/CommandLine.h"

namespace {

constexpr const wchar_t* kLauncherClass = L"KORVOQLBCLASS";
constexpr const wchar_t* kVistacastClass = L"Korvo Vistacast MainWnd Class";
constexpr std::uint32_t kSettingsChanged = 1336;
constexpr std::uint32_t kButtonRequest = 1332;
constexpr std::uintptr_t kReload = 1;
constexpr std::uintptr_t kEighthButton = 84;
constexpr std::uintptr_t kFirstButton = 104;
constexpr int kEighthButtonIndex = 7;

// The receiver ignores lParam, but its contract names an address that is valid here.
constexpr std::int32_t kZero = 0;
constexpr std::int32_t kOne = 1;

} // namespace

bool LauncherNotification::NotifyLauncher() {
    const WindowId launcher = windows_.Find(kLauncherClass, std::nullopt);
    const WindowId vistacast = windows_.Find(kVistacastClass, std::nullopt);
    if (vistacast != 0) {
        windows_.Post(vistacast, kSettingsChanged, kReload, &kZero);
    }
    if (launcher == 0) {
        return false;
    }
    // No answer changes nothing for us: the settings are stored, and the launcher reads them when it starts.
    windows_.Send(launcher, kSettingsChanged, kReload, &kZero);
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
    const std::uintptr_t button =
        index == kEighthButtonIndex ? kEighthButton : kFirstButton + static_cast<std::uintptr_t>(index);
    windows_.Post(launcher, kButtonRequest, button, &kOne);
    return true;
}
