#include "InstanceRole.h"

#include "OtherProgram.h"
#include "platform/windows/WindowsInstanceGuard.h"

int PlayInstance(const std::vector<std::wstring>& arguments) {
    const Shared<InstanceReport> report(arguments.at(0));
    const Signal go(arguments.at(0) + L".Go");
    ++report->ready;
    if (!go.Wait(kPatience)) {
        return 1;
    }
    WindowsInstanceGuard guard;
    if (!guard.AnotherInstanceRuns()) {
        ++report->first;
    }
    ++report->asked;
    Sleep(INFINITE);
    return 0;
}
