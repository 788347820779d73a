#pragma once

#include "platform/PendingEvents.h"

#include <functional>
#include <utility>

/// A user interface in which something may happen whenever it is asked to go on.
class FakePendingEvents final : public PendingEvents {
public:
    std::function<void()> whenProcessed; ///< what Process finds waiting
    bool wanted = true;                  ///< what Process answers
    int processed = 0;                   ///< calls of Process

    [[nodiscard]] bool Process() override {
        ++processed;
        // What happens may ask the user interface to go on; it doesn't happen again then.
        if (whenProcessed && !std::exchange(happening_, true)) {
            whenProcessed();
            happening_ = false;
        }
        return wanted;
    }

private:
    bool happening_ = false;
};
