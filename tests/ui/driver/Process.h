#pragma once

#include "Handle.h"
#include "Wait.h"

#include <map>
#include <optional>
#include <string>

namespace UiDriver {

/// Variables that a started process gets besides, or instead of, the test's own. Wine takes the language of a
/// process from the variables it was itself started with, not from these: a test in another language is run
/// with LC_ALL set.
using Environment = std::map<std::wstring, std::wstring>;

/// A program under test. It is killed when the object goes, whatever state it is in.
class Process {
public:
    /// `arguments` follows the quoted program path after one blank, otherwise letter for letter.
    static Process Start(const std::wstring& exePath, const std::wstring& arguments = {},
                         const Environment& environment = {});

    Process(Process&&) noexcept = default;
    Process& operator=(Process&&) = delete;
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    [[nodiscard]] DWORD Id() const { return id_; }
    [[nodiscard]] DWORD ThreadId() const { return threadId_; }
    [[nodiscard]] HANDLE Handle() const { return handle_.Get(); }

    [[nodiscard]] bool Running() const;
    [[nodiscard]] std::optional<DWORD> ExitCode() const;
    // NOLINTNEXTLINE(modernize-use-nodiscard): a test may want nothing but to wait.
    DWORD WaitForExit(Milliseconds timeout = kDefaultTimeout) const;
    void WaitForInputIdle(Milliseconds timeout = kDefaultTimeout) const;
    void Kill();

    /// Bytes of the largest working set so far.
    [[nodiscard]] std::size_t PeakWorkingSet() const;

private:
    Process(UniqueKernelHandle handle, DWORD id, DWORD threadId, std::wstring commandLine);

    UniqueKernelHandle handle_;
    DWORD id_ = 0;
    DWORD threadId_ = 0;
    std::wstring commandLine_;
};

} // namespace UiDriver
