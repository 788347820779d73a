#pragma once

#include <functional>
#include <optional>
#include <string>

/// Something that starts: a program, or what a program opens.
struct StartRequest {
    std::wstring file{};
    std::wstring parameters{};
    std::wstring directory{}; ///< to work in; empty where that does not matter
    bool minimized = false;   ///< its window
    bool maximized = false;   ///< likewise

    bool operator==(const StartRequest&) const = default;
};

/// What a shortcut file (".lnk") points to.
struct ShortcutContent {
    std::wstring target; ///< empty when it is not a file
    std::wstring arguments;
    std::wstring directory; ///< "Start in"
    bool elevated = false;  ///< "Run as administrator"
    bool minimized = false; ///< "Run" in such a window
    bool maximized = false; ///< likewise
};

/// Starts programs, and hears when they are ready.
class ProgramStarter {
public:
    virtual ~ProgramStarter() = default;

    /// The system's reason why nothing was started; nothing when it was. Never elevated because this program is.
    /// With a ticket above 0, `onReady` is called with it later, once: when a window of what was started waits
    /// for input, when that has ended, or after 20 seconds.
    virtual std::optional<std::wstring> Start(const StartRequest& request, int ticket) = 0;
    /// Nobody waits for this ticket any more.
    virtual void Forget(int ticket) = 0;
    std::function<void(int ticket)> onReady;

    /// The file that a program's name without a folder stands for. Empty when there is none.
    [[nodiscard]] virtual std::wstring Locate(const std::wstring& name) const = 0;
    /// With the values of environment variables in place of their names ("%windir%").
    [[nodiscard]] virtual std::wstring Expand(const std::wstring& text) const = 0;
    /// Nothing when the file is no shortcut, or can't be read.
    [[nodiscard]] virtual std::optional<ShortcutContent> ReadShortcut(const std::wstring& file) const = 0;
};
