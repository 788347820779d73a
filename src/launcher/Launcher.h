#pragma once

#include "launcher/ButtonStarts.h"
#include "launcher/LauncherKeys.h"
#include "launcher/TrayMenu.h"
#include "settings/OnScreenSettings.h"
#include "settings/Pattern.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class FileSystem;
class InstalledFonts;
class KeySender;
class NameOnScreen;
class RegIniFunc;
class Shell;
class StringTable;
class TopLevelWindows;
class TrayIcon;

/// What the launcher asks of the system.
struct LauncherPlatform {
    RegIniFunc& store;
    const StringTable& texts;
    const FileSystem& files;
    const InstalledFonts& fonts;
    Shell& shell;
    TopLevelWindows& windows;
    HotKeys& hotKeys;
    KeySender& keySender;
    ProgramStarter& starter;
    NameOnScreen& screen;
    TrayIcon& tray;
};

/// The button (1...8) of a request to press one; nothing for any other number.
[[nodiscard]] std::optional<int> RequestedButton(std::uintptr_t wParam);

/// Where nothing says that there is a keyboard, the user's own settings say it from now on, so that the settings
/// program opens. What was stored is remembered for the uninstaller.
void ClaimKeyboard(RegIniFunc& store);

/// The text with something in the place that it has for it.
[[nodiscard]] std::wstring WithPart(std::wstring text, const std::wstring& part,
                                    std::wstring_view place = L"%s");

/// Watches the keys of the buttons and does what the current Pattern says.
class Launcher {
public:
    explicit Launcher(const LauncherPlatform& platform);

    /// Reads the settings, and takes the keys of the buttons that do something. At the start, keys that another
    /// program has are told.
    void Start();
    void Reload();
    /// The same keys once more, as the system may have lost them.
    void RenewKeys();

    /// Button 1...8.
    void Press(int button);
    /// A registered key. False when it is one that is still held.
    bool PressKey(int id);
    [[nodiscard]] LauncherKeys& Keys() { return keys_; }
    [[nodiscard]] AllKeys StoredKeys() const;
    /// While keys are chosen, ours go where any other key goes.
    void LetKeysGo();
    /// The keys that were chosen are stored.
    void TakeKeysAgain(const std::optional<AllKeys>& changed);

    /// The names of the Patterns and the number of the current one, as stored.
    [[nodiscard]] TrayState State() const;
    /// Makes Pattern `number` current, and tells whoever listens. While the settings program is open, that comes
    /// forward instead.
    void ChoosePattern(int number);
    /// Opens the settings program, or brings it forward.
    void OpenSettings();
    void OpenFolder(const std::wstring& folder);

    /// Of button 1...8, as the settings program says it.
    [[nodiscard]] std::wstring LabelOf(int button) const;
    /// "Ctrl + Alt + 1", "Mail".
    [[nodiscard]] std::wstring TextOf(const KeyCode& key) const;

private:
    void ReadSettings();
    [[nodiscard]] std::vector<KeyCode> TakeKeys();
    void PressShortcut(int button);
    void TellNotStarted(int button, const std::wstring& program, const std::wstring& reason);
    void TellNotStarted(const std::wstring& title, const std::wstring& what, const std::wstring& reason);

    LauncherPlatform platform_;
    LauncherKeys keys_;
    ButtonStarts starts_;
    Pattern pattern_;
    OnScreenSettings onScreen_;
    int shownSeconds_ = 0;
    bool keysAreFree_ = false;
};
