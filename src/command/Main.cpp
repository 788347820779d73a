#include "command/Command.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/WindowsClock.h"
#include "platform/windows/WindowsConsole.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsInstanceGuard.h"
#include "platform/windows/WindowsProfileFiles.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsShell.h"
#include "platform/windows/WindowsTopLevelWindows.h"
#include "platform/windows/WindowsWholeFiles.h"

#include <windows.h>

int wmain(int count, wchar_t** words) {
    // The program may lie in a folder of downloads: no library is taken from there.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    // A drive without a disk makes a call fail instead of asking for the disk.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    WindowsRegistry registry(kProductKey);
    WindowsProfileFiles profileFiles;
    const WindowsAnsiText ansiText;
    WindowsWholeFiles files;
    const WindowsFileSystem dataFiles;
    const WindowsShell shell;
    const WindowsClock clock;
    WindowsConsole console;
    WindowsInstanceGuard guard;
    WindowsTopLevelWindows windows;
    const bool japanese = PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_JAPANESE;
    const CommandSystem system{registry,
                               profileFiles,
                               ansiText,
                               files,
                               dataFiles,
                               shell,
                               clock,
                               console,
                               guard,
                               windows,
                               japanese ? Tongue::Japanese : Tongue::English};
    return RunCommandLine({words + 1, words + count}, system);
}
