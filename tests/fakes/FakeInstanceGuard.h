#pragma once

#include "platform/InstanceGuard.h"

#include <atomic>

/// The user's session: counts the guards that claimed the program in it.
struct FakeSession {
    std::atomic<int> claims = 0;
};

/// One instance of the program. It claims the session when it first asks, and gives up its claim when it ends.
class FakeInstanceGuard final : public InstanceGuard {
public:
    explicit FakeInstanceGuard(FakeSession& session) : session_(session) {}
    FakeInstanceGuard(const FakeInstanceGuard&) = delete;
    FakeInstanceGuard& operator=(const FakeInstanceGuard&) = delete;
    ~FakeInstanceGuard() override {
        if (claimed_) {
            --session_.claims;
        }
    }

    [[nodiscard]] bool AnotherInstanceRuns() override {
        if (!claimed_) {
            claimed_ = true;
            another_ = session_.claims++ > 0;
        }
        return another_;
    }

    /// Whether it was asked at all.
    [[nodiscard]] bool Claimed() const { return claimed_; }

private:
    FakeSession& session_;
    bool claimed_ = false;
    bool another_ = false;
};
