#include "launcher/LauncherWindow.h"

#include "app/LauncherContract.h"
#include "launcher/LauncherTexts.h"
#include "launcher/frmKeys.h"
#include "platform/windows/SystemLibrary.h"
#include "resources/resource.h"
#include "ui/ScopedFlag.h"

#include <windowsx.h>
#include <wtsapi32.h>

#include <bit>

namespace {

constexpr UINT kTrayMessage = WM_APP + 1;
constexpr UINT kBackUpMessage = WM_APP + 2;
constexpr UINT_PTR kHeldTimer = 1;
constexpr UINT kHeldTimerMs = USER_TIMER_MINIMUM; // a key that is let go for less counts as held
/// Version 4 of the icon's events reports the Enter key so.
constexpr UINT kSelectedByKey = NIN_SELECT | NINF_KEY;

/// Without the library, keys are renewed after resuming alone. It is looked up in the system's directory by name:
/// linked, it would be taken from beside the program first.
void HearSessionChanges(HWND window, bool hear) {
    constexpr const wchar_t* kLibrary = L"wtsapi32.dll";
    if (!hear) {
        const auto end = SystemProcedure<decltype(WTSUnRegisterSessionNotification)>(
            kLibrary, "WTSUnRegisterSessionNotification");
        if (end != nullptr) {
            end(window);
        }
        return;
    }
    const auto begin =
        SystemProcedure<decltype(WTSRegisterSessionNotification)>(kLibrary, "WTSRegisterSessionNotification");
    if (begin != nullptr) {
        begin(window, NOTIFY_FOR_THIS_SESSION);
    }
}

PopupMenu MenuOf(const std::vector<TrayEntry>& entries) {
    PopupMenu menu(CreatePopupMenu());
    for (const TrayEntry& entry : entries) {
        MENUITEMINFOW item{};
        item.cbSize = sizeof item;
        item.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STATE | MIIM_STRING;
        item.fType = MFT_STRING;
        if (entry.text.empty()) {
            item.fType = MFT_SEPARATOR;
        } else if (entry.mark == TrayEntry::Mark::Dot) {
            item.fType = MFT_RADIOCHECK;
        }
        item.fState = (entry.mark == TrayEntry::Mark::None ? 0U : UINT{MFS_CHECKED}) |
                      (entry.command == kTraySettings ? UINT{MFS_DEFAULT} : 0U);
        item.wID = static_cast<UINT>(entry.command);
        if (!entry.items.empty()) {
            item.fMask |= MIIM_SUBMENU;
            item.hSubMenu = MenuOf(entry.items).release(); // goes with the menu it belongs to
        }
        std::wstring text = entry.text;
        item.dwTypeData = text.data();
        InsertMenuItemW(menu.get(), static_cast<UINT>(GetMenuItemCount(menu.get())), TRUE, &item);
    }
    return menu;
}

} // namespace

LauncherWindow::LauncherWindow() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kLauncherClass;
    RegisterClassW(&windowClass);
    CreateWindowExW(WS_EX_TOOLWINDOW, kLauncherClass, kLauncherTitle, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                    windowClass.hInstance, this);
    if (window_ == nullptr) {
        return;
    }
    taskbarCreated_ = RegisterWindowMessageW(L"TaskbarCreated");
    // An elevated program would not hear those that are not.
    for (const UINT message : {UINT{kButtonRequestMessage}, UINT{kSettingsChangedMessage}, taskbarCreated_}) {
        ChangeWindowMessageFilterEx(window_, message, MSGFLT_ALLOW, nullptr);
    }
    HearSessionChanges(window_, true);
    tray_.emplace(window_, kTrayMessage, IDI_QLBUtl);
}

LauncherWindow::~LauncherWindow() {
    tray_.reset();
    if (window_ != nullptr) {
        HearSessionChanges(window_, false);
        DestroyWindow(window_);
    }
}

void LauncherWindow::Serve(Launcher& launcher, LauncherBackups& backups, LogonStart& logonStart,
                           const StringTable& texts) {
    launcher_ = &launcher;
    backups_ = &backups;
    logonStart_ = &logonStart;
    texts_ = &texts;
    PostMessageW(window_, kBackUpMessage, 0, 0);
}

LRESULT CALLBACK LauncherWindow::WindowProc(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        auto* created = static_cast<LauncherWindow*>(std::bit_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, std::bit_cast<LONG_PTR>(created));
    }
    auto* const self = std::bit_cast<LauncherWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr || self->launcher_ == nullptr) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    return self->OnMessage(message, wParam, lParam);
}

LRESULT LauncherWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == taskbarCreated_) {
        tray_->PutBack();
        return 0;
    }
    switch (message) {
    case kSettingsChangedMessage:
        launcher_->Reload();
        // Whoever has stored the settings waits for the answer, but not for a file.
        PostMessageW(window_, kBackUpMessage, 0, 0);
        return 0;
    case kBackUpMessage:
        BackUp(false);
        return 0;
    case kButtonRequestMessage:
        if (const auto button = RequestedButton(wParam)) {
            launcher_->Press(*button);
        }
        return 0;
    case WM_HOTKEY:
        // Asked at once: while something started, the key may have been let go, and pressed again.
        if (launcher_->PressKey(static_cast<int>(wParam)) && launcher_->Keys().AnyHeld()) {
            SetTimer(window_, kHeldTimer, kHeldTimerMs, nullptr);
        }
        return 0;
    case WM_TIMER:
        if (!launcher_->Keys().AnyHeld()) {
            KillTimer(window_, kHeldTimer);
        }
        return 0;
    case WM_POWERBROADCAST:
        if (wParam == PBT_APMRESUMEAUTOMATIC) {
            launcher_->RenewKeys();
        }
        return TRUE;
    case WM_WTSSESSION_CHANGE:
        launcher_->RenewKeys();
        return 0;
    case kTrayMessage:
        OnTray(LOWORD(lParam), {GET_X_LPARAM(wParam), GET_Y_LPARAM(wParam)});
        return 0;
    case WM_CLOSE:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void LauncherWindow::OnTray(UINT event, POINT at) {
    switch (event) {
    case NIN_SELECT:
    case kSelectedByKey:
    case NIN_BALLOONUSERCLICK:
        launcher_->OpenSettings();
        break;
    case WM_CONTEXTMENU:
        ShowMenu(at);
        break;
    default:
        break;
    }
}

void LauncherWindow::ShowMenu(POINT at) {
    if (dialogIsOpen_) {
        SetForegroundWindow(GetLastActivePopup(window_));
        return;
    }
    TrayState state = launcher_->State();
    state.startsWithWindows = logonStart_->IsOn();
    const std::vector<std::wstring> backups = backups_->Newest();
    for (const std::wstring& backup : backups) {
        state.backups.push_back(LauncherBackups::TimeOf(backup));
    }
    const PopupMenu menu = MenuOf(TrayMenu(state, *texts_));
    SetForegroundWindow(window_); // or the menu would not go when something else is clicked
    const UINT side = GetSystemMetrics(SM_MENUDROPALIGNMENT) != 0 ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
    const BOOL command = TrackPopupMenuEx(menu.get(), side | TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                                          at.x, at.y, window_, nullptr);
    PostMessageW(window_, WM_NULL, 0, 0); // the menu's own need, when it opens twice in a row
    if (command >= kTrayBackup1) {        // of those that the menu had
        RestoreBackup(backups.at(static_cast<std::size_t>(command - kTrayBackup1)));
    } else {
        OnMenuCommand(command);
    }
}

void LauncherWindow::OnMenuCommand(int command) {
    switch (command) {
    case kTraySettings:
        launcher_->OpenSettings();
        break;
    case kTrayKeys:
        ShowKeys();
        break;
    case kTrayStartWithWindows:
        if (!logonStart_->Set(!logonStart_->IsOn())) {
            tray_->Notify(texts_->ResText(kTextLauncherTitle), texts_->ResText(kTextRefused));
        }
        break;
    case kTrayBackUpNow:
        BackUp(true);
        break;
    case kTrayBackupFolder:
        launcher_->OpenFolder(backups_->Folder());
        break;
    case kTrayAbout:
        Ask(kTextAbout, QLB_VERSION, MB_OK);
        break;
    case kTrayExit:
        PostQuitMessage(0);
        break;
    default:
        if (command >= kTrayPattern1) {
            launcher_->ChoosePattern(command - kTrayPattern1 + 1);
        }
        break;
    }
}

void LauncherWindow::RunDialog(const std::function<void()>& dialog) {
    const ScopedFlag open(dialogIsOpen_);
    dialog();
}

void LauncherWindow::ShowKeys() {
    RunDialog([this] {
        launcher_->LetKeysGo();
        frmKeys form(*texts_, *launcher_);
        form.ShowModal();
        launcher_->TakeKeysAgain(form.Chosen());
    });
}

int LauncherWindow::Ask(int textOffset, const std::wstring& part, UINT style) {
    int answer = 0;
    RunDialog([&] {
        const std::wstring text = WithPart(texts_->ResText(textOffset), part);
        answer = MessageBoxW(window_, text.c_str(), texts_->ResText(kTextLauncherTitle).c_str(),
                             style | MB_SETFOREGROUND);
    });
    return answer;
}

void LauncherWindow::BackUp(bool byHand) {
    if (!backups_->TakeIfChanged() && byHand) {
        tray_->Notify(texts_->ResText(kTextLauncherTitle), texts_->ResText(kTextNoBackup));
    }
}

void LauncherWindow::RestoreBackup(const std::wstring& path) {
    if (Ask(kTextRestoreQuestion, LauncherBackups::TimeOf(path), MB_YESNO | MB_ICONQUESTION) != IDYES) {
        return;
    }
    if (const std::wstring text = backups_->Restore(path); !text.empty()) {
        tray_->Notify(texts_->ResText(kTextLauncherTitle), text);
    }
}
