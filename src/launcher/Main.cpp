#include "app/LauncherContract.h"
#include "app/StringTable.h"
#include "launcher/Launcher.h"
#include "launcher/LauncherBackups.h"
#include "launcher/LauncherTexts.h"
#include "launcher/LauncherWindow.h"
#include "launcher/OnScreenWindow.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/Com.h"
#include "platform/windows/WindowsClock.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsHotKeys.h"
#include "platform/windows/WindowsInstalledFonts.h"
#include "platform/windows/WindowsInstanceGuard.h"
#include "platform/windows/WindowsKeySender.h"
#include "platform/windows/WindowsLogonStart.h"
#include "platform/windows/WindowsProfileFiles.h"
#include "platform/windows/WindowsProgramStarter.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsShell.h"
#include "platform/windows/WindowsStringSource.h"
#include "platform/windows/WindowsTopLevelWindows.h"
#include "platform/windows/WindowsWholeFiles.h"
#include "settings/GlobalValue.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

#include <windows.h>

namespace {

/// On the command line of the start with Windows, at which nobody wants to be told anything.
constexpr const wchar_t* kWithWindows = L"/s";

/// Whether another launcher watches the buttons. Started by hand, the program says which.
bool YieldToOtherLauncher(WindowsInstanceGuard& guard, const StringTable& texts, bool quiet) {
    const bool ours = guard.AnotherInstanceRuns();
    if (!ours && FindWindowW(kLauncherClass, nullptr) == nullptr) {
        return false;
    }
    if (!quiet) {
        MessageBoxW(nullptr, texts.ResText(ours ? kTextAlreadyRunning : kTextOtherLauncher).c_str(),
                    texts.ResText(kTextLauncherTitle).c_str(), MB_OK | MB_ICONINFORMATION | MB_SETFOREGROUND);
    }
    return true;
}

void RunLoop(WindowsProgramStarter& starter) {
    MSG message{};
    for (;;) {
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            if (message.message == WM_QUIT) {
                return;
            }
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        starter.WaitForMessage();
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevInstance*/, wchar_t* lpCmdLine,
                    int /*nShowCmd*/) {
    // The program may lie in a folder of downloads: no library is taken from there.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    // A drive without a disk is no reason for a box. The thread's own mode: what it starts would inherit the process's.
    SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, nullptr);
    const ComApartment com;
    const WindowsStringSource strings;
    ResetGlobals(strings);
    const StringTable texts(strings);
    WindowsInstanceGuard guard(L"Local\\QLBLauncher.Instance");
    if (YieldToOtherLauncher(guard, texts, EqualsIgnoreCase(TrimBlanks(lpCmdLine), kWithWindows))) {
        return 0;
    }
    WindowsRegistry registry(kProductKey);
    WindowsProfileFiles profileFiles;
    const WindowsAnsiText ansiText;
    RegIniFunc store(registry, profileFiles, ansiText, Globals().IniFileName);
    LauncherWindow window;
    if (window.Handle() == nullptr) {
        return 1;
    }
    const WindowsFileSystem files;
    const WindowsInstalledFonts fonts;
    WindowsShell shell;
    WindowsTopLevelWindows windows;
    const bool japanese = PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_JAPANESE;
    WindowsHotKeys hotKeys(window.Handle());
    WindowsKeySender keySender;
    WindowsProgramStarter starter;
    OnScreenWindow screen;
    WindowsLogonStart logonStart;
    ClaimKeyboard(store);
    Launcher launcher(
        {store, texts, files, fonts, shell, windows, hotKeys, keySender, starter, screen, window.Tray()});
    WindowsWholeFiles wholeFiles;
    const WindowsClock clock;
    WindowsInstanceGuard settingsProgram;
    LauncherBackups backups({registry, profileFiles, ansiText, store, wholeFiles, clock, settingsProgram,
                             windows, texts, japanese ? Tongue::Japanese : Tongue::English});
    window.Serve(launcher, backups, logonStart, texts);
    launcher.Start();
    RunLoop(starter);
    return 0;
}
