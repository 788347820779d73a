#pragma once

#include "platform/ProgramStarter.h"
#include "platform/windows/Handles.h"

#include <windows.h>

#include <cstdint>
#include <vector>

using WinEventHook = Owned<HWINEVENTHOOK, UnhookWinEvent>;

/// Starts through the shell. There is one of these in a program: the system's callbacks know no object.
class WindowsProgramStarter final : public ProgramStarter {
public:
    WindowsProgramStarter();
    ~WindowsProgramStarter() override;
    WindowsProgramStarter(const WindowsProgramStarter&) = delete;
    WindowsProgramStarter& operator=(const WindowsProgramStarter&) = delete;

    std::optional<std::wstring> Start(const StartRequest& request, int ticket) override;
    void Forget(int ticket) override;
    [[nodiscard]] std::wstring Locate(const std::wstring& name) const override;
    [[nodiscard]] std::wstring Expand(const std::wstring& text) const override;
    [[nodiscard]] std::optional<ShortcutContent> ReadShortcut(const std::wstring& file) const override;

    /// Waits until there is a message for this thread. What was started and is waited for is waited for here, too.
    ///
    /// WaitForInputIdle would block the one thread for up to 20 seconds, or have to be asked again and again. So the
    /// system reports the windows that the program makes and shows (a hook outside of its process: no code of ours
    /// gets there). Such a window is sent a message that means nothing; it answers by a callback in this thread's
    /// message loop, when its own thread has come to look for messages. Then it takes no time to ask whether the
    /// program waits for input. The process' handle tells that it has ended.
    void WaitForMessage();

private:
    struct Watch {
        int ticket = 0;
        ULONG_PTR serial = 0; ///< never used twice, unlike tickets
        KernelHandle process; ///< null: the system did not tell
        DWORD processId = 0;
        WinEventHook hook;
        ULONGLONG deadline = 0; ///< in ticks
        HWND newest = nullptr;  ///< of its windows
        HWND asked = nullptr;   ///< that has yet to answer
        int answers = 0;        ///< of that window
    };

    void Attend(int ticket, KernelHandle process, HWND formerFront);
    void OnWindow(HWND window);
    static void Ask(Watch& watch);
    void OnAnswered(ULONG_PTR serial);
    void Finish(ULONG_PTR serial);
    [[nodiscard]] Watch* WatchOf(ULONG_PTR serial);
    [[nodiscard]] DWORD TimeLeft() const;

    static void CALLBACK OnEvent(HWINEVENTHOOK hook, DWORD event, HWND window, LONG object, LONG child,
                                 DWORD thread, DWORD time) noexcept;
    static void CALLBACK OnAnswer(HWND window, UINT message, ULONG_PTR serial, LRESULT answer) noexcept;

    static WindowsProgramStarter* one_;
    std::vector<Watch> watches_;
    ULONG_PTR lastSerial_ = 0;
};
