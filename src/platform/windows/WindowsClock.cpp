#include "platform/windows/WindowsClock.h"

#include <windows.h>

LocalTime WindowsClock::Now() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}
