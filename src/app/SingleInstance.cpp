#include "app/SingleInstance.h"

#include "app/StringTable.h"

bool BringDialogForward(TopLevelWindows& windows, const StringTable& texts) {
    bool found = false;
    const std::wstring dialogTitle = texts.ResText(kTextTitle);
    for (const std::wstring& title : {dialogTitle, dialogTitle + L" " + texts.ResText(kTextWizard)}) {
        if (const WindowId window = windows.Find(kFormClass, title); window != 0) {
            windows.BringForward(window);
            found = true;
        }
    }
    return found;
}

bool YieldToOtherInstance(InstanceGuard& guard, TopLevelWindows& windows, const StringTable& texts) {
    if (!guard.AnotherInstanceRuns()) {
        return false;
    }
    BringDialogForward(windows, texts);
    return true;
}
