#pragma once

#include "platform/InstanceGuard.h"
#include "platform/windows/Handles.h"

/// A named mutex of the user's session. The system destroys it with the last process that holds it.
class WindowsInstanceGuard final : public InstanceGuard {
public:
    /// `name` is that of the program, the same in all its instances.
    explicit WindowsInstanceGuard(const wchar_t* name = L"Local\\QLBUtl.Instance") : name_(name) {}

    [[nodiscard]] bool AnotherInstanceRuns() override;
    void GiveUp() override { mutex_.reset(); }

private:
    const wchar_t* name_;
    KernelHandle mutex_;
    bool another_ = false;
};
