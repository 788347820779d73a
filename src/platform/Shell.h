#pragma once

#include "platform/TopLevelWindows.h"

#include <string>

/// What is asked of the Windows shell and of the program's own place on disk.
class Shell {
public:
    virtual ~Shell() = default;

    /// The folder that holds the program's file, without a trailing "\" unless it is a drive's root.
    [[nodiscard]] virtual std::wstring ProgramDirectory() const = 0;

    [[nodiscard]] virtual bool FileExists(const std::wstring& path) const = 0;

    /// ShellExecute, verb "open", shown normally. False when nothing could be started.
    virtual bool Open(const std::wstring& file, const std::wstring& workingDirectory, WindowId owner) = 0;
};
