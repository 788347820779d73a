#pragma once

#include "Win32.h"

#include <string>

/// A UTF-8 file that several programs may append to at once.
class LogFile {
public:
    /// An empty path makes a log that keeps nothing.
    explicit LogFile(const std::wstring& path);
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;
    ~LogFile();

    /// Whether the file could be opened, or none was asked for.
    [[nodiscard]] bool Usable() const { return usable_; }

    void Append(const std::wstring& text);

private:
    HANDLE file_ = INVALID_HANDLE_VALUE;
    bool usable_ = true;
};
