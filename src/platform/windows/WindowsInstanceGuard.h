#pragma once

#include "platform/InstanceGuard.h"

#include <memory>

/// A named mutex of the user's session. The system destroys it with the last process that holds it.
class WindowsInstanceGuard final : public InstanceGuard {
public:
    [[nodiscard]] bool AnotherInstanceRuns() override;

private:
    struct HandleCloser {
        void operator()(void* handle) const;
    };
    std::unique_ptr<void, HandleCloser> mutex_;
    bool another_ = false;
};
