#pragma once

#include "platform/InstanceGuard.h"
#include "platform/windows/Handles.h"

/// A named mutex of the user's session. The system destroys it with the last process that holds it.
class WindowsInstanceGuard final : public InstanceGuard {
public:
    [[nodiscard]] bool AnotherInstanceRuns() override;
    void GiveUp() override { mutex_.reset(); }

private:
    KernelHandle mutex_;
    bool another_ = false;
};
