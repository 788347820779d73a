#pragma once

#include "Process.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace UiDriver {

/// One message that the stand-in launcher received.
struct LauncherEntry {
    /// All lines of the entry, by key.
    std::map<std::wstring, std::wstring> values{};

    [[nodiscard]] UINT Message() const;
    [[nodiscard]] WPARAM WParam() const;

    /// Sent, so that the sender waited for the answer; otherwise posted.
    [[nodiscard]] bool Sent() const;

    /// What the launcher read from the store, such as "count" or "button1.AP2"; nullopt when it was missing
    /// there.
    [[nodiscard]] std::optional<std::wstring> Value(const std::wstring& key) const;
};

/// The stand-in launcher, running with a log file of its own; it ends with the object.
class Launcher {
public:
    static constexpr UINT kSettingsChanged = 1336;
    static constexpr UINT kButtonRequest = 1332;

    /// `options` are added to the command line: L"/vistacast", L"/hang", L"/slow:500".
    explicit Launcher(const std::wstring& exePath, const std::wstring& options = {});
    Launcher(const Launcher&) = delete;
    Launcher& operator=(const Launcher&) = delete;
    ~Launcher();

    /// What has come in so far.
    [[nodiscard]] std::vector<LauncherEntry> Entries() const;

    /// Waits until at least `count` messages have come in.
    [[nodiscard]] std::vector<LauncherEntry> WaitForEntries(std::size_t count,
                                                            Milliseconds timeout = kDefaultTimeout) const;

    /// Fails unless just that many messages were sent and posted to it before.
    void RequireEntries(std::size_t count) const;
    void RequireNoEntries() const { RequireEntries(0); }

    /// Forgets what has come in so far.
    void Clear();

    [[nodiscard]] const Process& Running() const { return process_; }

private:
    [[nodiscard]] std::vector<LauncherEntry> AllEntries() const;

    std::wstring logPath_;
    Process process_;
    HWND window_ = nullptr;
    mutable WPARAM marks_ = 0;
    std::size_t forgotten_ = 0;
};

/// The entries of a log; one that is not finished yet is left out.
std::vector<LauncherEntry> ParseLauncherLog(const std::string& utf8);

} // namespace UiDriver
