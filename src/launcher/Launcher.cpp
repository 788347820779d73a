#include "launcher/Launcher.h"

#include "app/CommandLine.h"
#include "app/LauncherContract.h"
#include "app/LauncherNotification.h"
#include "app/SingleInstance.h"
#include "browse/Paths.h"
#include "dialogs/main/ButtonLabels.h"
#include "dialogs/main/EnumFont.h"
#include "launcher/KeyCodes.h"
#include "launcher/KeyStrokes.h"
#include "launcher/LauncherTexts.h"
#include "launcher/NameShown.h"
#include "launcher/StartLine.h"
#include "platform/KeySender.h"
#include "platform/Shell.h"
#include "platform/TrayIcon.h"
#include "settings/GlobalValue.h"
#include "settings/MakerSwitches.h"
#include "settings/PatternStore.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

namespace {

void ReadBackEnd(RegIniFunc& store) {
    store.IniFileExist = store.RegGetDword(RegistryHive::LocalMachine, kProductKey, L"QLBINI") != 0;
}

} // namespace

std::optional<int> RequestedButton(std::uintptr_t wParam) {
    if (wParam == kEighthButtonRequest) {
        return kMaxButtons;
    }
    if (wParam >= kFirstButtonRequest && wParam < kFirstButtonRequest + kMaxButtons - 1) {
        return static_cast<int>(wParam - kFirstButtonRequest) + 1;
    }
    return std::nullopt;
}

void ClaimKeyboard(RegIniFunc& store) {
    ReadBackEnd(store);
    if (HasKeyboard(store)) {
        return;
    }
    constexpr const wchar_t* kFiveButtons = L"5";
    if (store.IniSetString(kProgramSection, L"QLBKeyboard", kFiveButtons, store.OwnIniFile())) {
        store.RegSetDword(RegistryHive::CurrentUser, kLauncherKey, L"StoredKeyboard", 1);
    }
}

Launcher::Launcher(const LauncherPlatform& platform)
    : platform_(platform), keys_(platform.hotKeys),
      starts_(platform.starter, platform.files,
              [this](int button, const std::wstring& program, const std::wstring& reason) {
                  TellNotStarted(button, program, reason);
              }) {}

void Launcher::Start() {
    ReadSettings();
    std::wstring taken;
    for (const KeyCode& key : TakeKeys()) {
        taken += taken.empty() ? L"" : platform_.texts.ResText(kTextListSeparator);
        taken += TextOf(key);
    }
    if (!taken.empty()) {
        platform_.tray.Notify(platform_.texts.ResText(kTextLauncherTitle),
                              WithPart(platform_.texts.ResText(kTextKeysTaken), taken));
    }
}

void Launcher::Reload() {
    ReadSettings();
    static_cast<void>(TakeKeys()); // what another program has is told at the start and where keys are chosen
}

void Launcher::ReadSettings() {
    RegIniFunc& store = platform_.store;
    ReadBackEnd(store);
    const PatternStore patterns(store, LoadMakerSwitches(store).ButtonCount());
    pattern_ = patterns.LoadPattern(store.ReadCurrentPatternNumber(), patterns.LoadDefaultPattern());
    {
        FontList fonts(Globals().DialogFontName);
        fonts.EnumerateFonts(platform_.fonts);
        onScreen_ = LoadOnScreen(store, fonts, LoadDefaultOnScreen(store, fonts));
    }
    shownSeconds_ = LoadShownSeconds(store);
    platform_.tray.SetTip(platform_.texts.ResText(kTextLauncherTitle) +
                          (pattern_.UserName.empty() ? L"" : L": " + pattern_.UserName));
}

void Launcher::LetKeysGo() {
    keysAreFree_ = true;
    keys_.LetGo();
}

void Launcher::RenewKeys() {
    keys_.LetGo();
    static_cast<void>(TakeKeys());
}

std::vector<KeyCode> Launcher::TakeKeys() {
    if (keysAreFree_) {
        return {};
    }
    std::vector<int> buttons;
    for (int button = 1; button <= kMaxButtons; ++button) {
        if (StartsAnything(pattern_.Btn(button))) {
            buttons.push_back(button);
        }
    }
    return keys_.Take(StoredKeys(), buttons);
}

AllKeys Launcher::StoredKeys() const {
    return LoadKeys(platform_.store);
}

void Launcher::TakeKeysAgain(const std::optional<AllKeys>& changed) {
    if (changed) {
        SaveKeys(platform_.store, *changed);
    }
    keysAreFree_ = false;
    RenewKeys();
}

bool Launcher::PressKey(int id) {
    const auto button = keys_.OnHotKey(id);
    if (button) {
        Press(*button);
    }
    return button.has_value();
}

void Launcher::Press(int button) {
    const ButtonSlot& slot = pattern_.Btn(button);
    if (LaunchMethodFromText(slot.Exec) == LaunchMethod::ShortcutKey) {
        PressShortcut(button);
    } else if (!starts_.Press(button, slot)) {
        return; // ended, so its name is not shown
    }
    if (const auto name = NameShown(slot.Name, onScreen_, shownSeconds_)) {
        platform_.screen.Show(*name);
    }
}

void Launcher::PressShortcut(int button) {
    const ButtonSlot& slot = pattern_.Btn(button);
    if (!StartsAnything(slot)) {
        return;
    }
    KeySender& sender = platform_.keySender;
    const KeyCode key = KeyFromNumber(LeadingNumber(slot.Program(1).AP));
    if (!sender.Send(StrokesFor(key, sender.HeldModifiers()))) {
        platform_.tray.Notify(LabelOf(button), platform_.texts.ResText(kTextNotPressed));
    }
}

void Launcher::TellNotStarted(int button, const std::wstring& program, const std::wstring& reason) {
    const std::wstring name = TrimBlanks(pattern_.Btn(button).Name);
    TellNotStarted(name.empty() ? LabelOf(button) : name, program, reason);
}

void Launcher::TellNotStarted(const std::wstring& title, const std::wstring& what,
                              const std::wstring& reason) {
    // The reason first: a program's name may look like a place for one.
    const std::wstring text = WithPart(platform_.texts.ResText(kTextNotStarted), reason, L"%2");
    platform_.tray.Notify(title, WithPart(text, what, L"%1"));
}

std::wstring Launcher::LabelOf(int button) const {
    const RegIniFunc& store = platform_.store;
    const auto labels = ButtonLabels(store, platform_.texts, LoadMakerSwitches(store));
    const auto index = static_cast<std::size_t>(button) - 1;
    // On a page of its own a notebook key may be called as a desktop button is.
    const bool isTwice = button > kDesktopButtons && labels.at(index) == labels.at(index - kDesktopButtons);
    return WithoutMnemonic(isTwice ? platform_.texts.ResText(kTextButtonNumber) + DecimalText(button)
                                   : labels.at(index));
}

std::wstring Launcher::TextOf(const KeyCode& key) const {
    return KeyText(key, platform_.texts, platform_.hotKeys);
}

TrayState Launcher::State() const {
    RegIniFunc& store = platform_.store;
    const PatternStore patterns(store, LoadMakerSwitches(store).ButtonCount());
    const Pattern defaults = patterns.LoadDefaultPattern();
    TrayState state;
    for (int number = 1; number <= store.ReadPatternCount(); ++number) {
        state.patterns.push_back(patterns.LoadPatternName(number, defaults));
    }
    state.current = store.ReadCurrentPatternNumber();
    return state;
}

void Launcher::ChoosePattern(int number) {
    if (BringDialogForward(platform_.windows, platform_.texts)) {
        return; // it holds changes of its own
    }
    RegIniFunc& store = platform_.store;
    if (number < 1 || number > store.ReadPatternCount()) {
        return;
    }
    store.IniSetString(kProgramSection, L"CurrUser", DecimalText(number), store.OwnIniFile());
    LauncherNotification notification(platform_.windows);
    notification.NotifyLauncher(); // which this program is: it reloads, too
}

void Launcher::OpenSettings() {
    if (BringDialogForward(platform_.windows, platform_.texts)) {
        return;
    }
    const std::wstring folder = platform_.shell.ProgramDirectory();
    const StringTable& texts = platform_.texts;
    const StartRequest request{
        .file = JoinPath(folder, L"QLBUtl.exe"), .parameters = L"/k", .directory = folder};
    if (const auto reason = platform_.starter.Start(request, 0)) {
        TellNotStarted(texts.ResText(kTextLauncherTitle), texts.ResText(kTextTitle), *reason);
    }
}

void Launcher::OpenFolder(const std::wstring& folder) {
    if (const auto reason = platform_.starter.Start({.file = folder}, 0)) {
        TellNotStarted(platform_.texts.ResText(kTextLauncherTitle), folder, *reason);
    }
}

std::wstring WithPart(std::wstring text, const std::wstring& part, std::wstring_view place) {
    if (const std::size_t pos = text.find(place); pos != std::wstring::npos) {
        text.replace(pos, place.size(), part);
    }
    return text;
}
