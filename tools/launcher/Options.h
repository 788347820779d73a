#pragma once

#include <optional>
#include <string>

/// What the command line asks of the stand-in launcher.
struct Options {
    /// Be the TV application instead of the launcher.
    bool vistacast = false;

    /// Never answer the settings-changed message.
    bool hang = false;

    /// Answer it only after this many milliseconds.
    unsigned long slowMs = 0;

    bool show = false;
    std::wstring logPath{};
};

/// nullopt when an argument is none of /vistacast, /hang, /slow:MS, /show, /log:FILE.
std::optional<Options> ReadOptions(int count, const wchar_t* const* arguments);
