#pragma once

#include "platform/windows/Com.h"

#include <windows.h>

/// What the program's thread has of the system for the whole of its run: COM, and that a drive without a disk makes
/// a call fail instead of asking for the disk.
class WindowsSession {
public:
    WindowsSession() = default;
    ~WindowsSession() { SetErrorMode(formerErrors_); }
    WindowsSession(const WindowsSession&) = delete;
    WindowsSession& operator=(const WindowsSession&) = delete;

private:
    UINT formerErrors_ = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    ComApartment com_;
};
