#pragma once

#include <windows.h>

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
