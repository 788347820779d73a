#include "platform/windows/WindowsInstanceGuard.h"

#include <windows.h>

void WindowsInstanceGuard::HandleCloser::operator()(void* handle) const {
    CloseHandle(handle);
}

bool WindowsInstanceGuard::AnotherInstanceRuns() {
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"Local\\QLBUtl.Instance");
    const DWORD error = GetLastError();
    mutex_.reset(mutex);
    // Denied: an elevated instance has the name.
    return error == ERROR_ALREADY_EXISTS || (!mutex_ && error == ERROR_ACCESS_DENIED);
}
