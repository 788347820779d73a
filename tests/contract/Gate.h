#pragma once

#include "Waiting.h"

#include <atomic>

/// Something that another thread waits for. What waits too long goes on, so that a failing test ends.
class Gate {
public:
    void Open() { open_ = true; }
    void Close() { open_ = false; }
    void Await() {
        ++waited_;
        WaitUntil([this] { return open_.load(); });
    }
    /// How often somebody came here.
    [[nodiscard]] int Waited() const { return waited_; }

private:
    std::atomic<bool> open_ = true;
    std::atomic<int> waited_ = 0;
};
