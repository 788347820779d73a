#include "platform/windows/WindowsInstanceGuard.h"

#include <windows.h>

void WindowsInstanceGuard::HandleCloser::operator()(void* handle) const {
    CloseHandle(handle);
}

bool WindowsInstanceGuard::AnotherInstanceRuns() {
    mutex_.reset(CreateMutexW(nullptr, FALSE, L"Local\\QLBUtl.Instance"));
    // The name is taken by another user's elevated instance in this session: it runs all the same.
    const DWORD error = GetLastError();
    return error == ERROR_ALREADY_EXISTS || (!mutex_ && error == ERROR_ACCESS_DENIED);
}
