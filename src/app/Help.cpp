#include "app/Help.h"

#include "app/StringTable.h"
#include "browse/Paths.h"

std::wstring HelpFile(const Shell& shell) {
    return JoinPath(shell.ProgramDirectory(), L"QLBUTL.CHM");
}

bool HasHelpFile(const Shell& shell) {
    return shell.FileExists(HelpFile(shell));
}

bool ShowHelp(Shell& shell, TopLevelWindows& windows, const StringTable& texts, WindowId owner) {
    const std::wstring title = texts.ResText(kTextTitle) + texts.ResText(kTextHelp);
    if (const WindowId open = windows.Find(L"HH Parent", title); open != 0) {
        windows.BringForward(open);
        return true;
    }
    return shell.Open(HelpFile(shell), shell.ProgramDirectory(), owner);
}
