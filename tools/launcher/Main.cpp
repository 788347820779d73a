// Stands in for the resident launcher, or for the TV application, so that one can see what the settings
// program tells it and what it would then find in the settings store:
//
//   Launcher.exe [/log:FILE] [/show] [/vistacast] [/slow:MS] [/hang]
//
// Without /log:FILE it shows its log in a window. It ends when its window gets WM_CLOSE.

#include "LauncherWindow.h"
#include "LogFile.h"
#include "Options.h"
#include "Win32.h"

#include <shellapi.h>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
    int count = 0;
    LPWSTR* const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    const std::optional<Options> options = ReadOptions(count - 1, arguments + 1);
    LocalFree(arguments);
    if (!options) {
        return 2;
    }
    LogFile log(options->logPath);
    const LauncherWindow window(instance, *options, log);
    if (!log.Usable() || !window.Created()) {
        return 1;
    }
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
