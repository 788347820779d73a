#pragma once

#include <windows.h>

#include <memory>

struct KernelHandleDeleter {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
/// Owner of a kernel handle; never holds INVALID_HANDLE_VALUE.
using KernelHandle = std::unique_ptr<void, KernelHandleDeleter>;

/// For functions that answer INVALID_HANDLE_VALUE on failure.
[[nodiscard]] inline KernelHandle OwnedFile(HANDLE handle) {
    return KernelHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

/// While this lives, a drive without a medium makes this thread's calls fail instead of asking for one.
class NoSystemBoxes {
public:
    NoSystemBoxes() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &former_); }
    ~NoSystemBoxes() { SetThreadErrorMode(former_, nullptr); }
    NoSystemBoxes(const NoSystemBoxes&) = delete;
    NoSystemBoxes& operator=(const NoSystemBoxes&) = delete;

private:
    DWORD former_ = 0;
};
