#include "platform/windows/WindowsInstanceGuard.h"

bool WindowsInstanceGuard::AnotherInstanceRuns() {
    if (mutex_) {
        return another_; // the name is there now, but it is our own
    }
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, name_);
    const DWORD error = GetLastError();
    mutex_.reset(mutex);
    // Denied: an elevated instance has the name.
    another_ = error == ERROR_ALREADY_EXISTS || (!mutex_ && error == ERROR_ACCESS_DENIED);
    return another_;
}
