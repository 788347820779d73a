#pragma once

#include <string_view>

/// Where a console program's words go. A console shows Unicode; a pipe or file gets UTF-8.
class Console {
public:
    virtual ~Console() = default;

    /// Standard output. False when not all of it was taken, as by a reader that is gone.
    virtual bool Out(std::wstring_view text) = 0;

    /// Standard error.
    virtual void Error(std::wstring_view text) = 0;
};
