#pragma once

#include "platform/PendingEvents.h"

#include <windows.h>

class Form;

/// The waiting messages of a form's thread. While something takes longer than a blink, the pointer is an
/// hourglass.
class MessagePump final : public PendingEvents {
public:
    explicit MessagePump(Form& form);

    void Process() override;
    bool RunBeside(std::function<void()> work, const std::function<bool()>& goOn) override;

    /// Something that may take long, for as long as this lives.
    class SlowWork {
    public:
        explicit SlowWork(MessagePump& pump);
        ~SlowWork();
        SlowWork(const SlowWork&) = delete;
        SlowWork& operator=(const SlowWork&) = delete;

    private:
        MessagePump& pump_;
    };
    /// The form answers WM_SETCURSOR with the hourglass.
    [[nodiscard]] bool ShowsHourglass() const { return hourglass_; }

private:
    void ShowHourglassWhenSlow();
    [[nodiscard]] DWORD UntilSlow() const;

    Form& form_;
    DWORD thread_;
    int slowWorks_ = 0;
    ULONGLONG slowSince_ = 0; ///< ticks, in milliseconds
    bool hourglass_ = false;
    bool quit_ = false; ///< the program ends
};
