#pragma once

#include "platform/PendingEvents.h"

#include <windows.h>

class Form;

/// The waiting messages of a form's thread. While something takes longer than a blink, the pointer is an
/// hourglass.
class MessagePump final : public PendingEvents {
public:
    explicit MessagePump(Form& form) : form_(form) {}

    /// False when the program ends.
    [[nodiscard]] bool Process() override;

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
    Form& form_;
    ULONGLONG slowSince_ = 0; ///< ticks, in milliseconds; 0 when nothing is slow
    bool hourglass_ = false;
};
