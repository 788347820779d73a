#pragma once

#include "platform/InstanceGuard.h"

#include <atomic>
#include <utility>

/// The user's session: counts the guards that claimed the program in it.
struct FakeSession {
    std::atomic<int> claims = 0;
};

/// One instance of the program. It claims the session when it first asks, and drops its claim when it ends.
class FakeInstanceGuard final : public InstanceGuard {
public:
    explicit FakeInstanceGuard(FakeSession& session) : session_(session) {}
    FakeInstanceGuard(const FakeInstanceGuard&) = delete;
    FakeInstanceGuard& operator=(const FakeInstanceGuard&) = delete;
    ~FakeInstanceGuard() override { DropClaim(); }

    [[nodiscard]] bool AnotherInstanceRuns() override {
        if (!claimed_) {
            claimed_ = true;
            another_ = session_.claims++ > 0;
        }
        return another_;
    }

    void GiveUp() override { DropClaim(); }

    /// Whether it was asked, and has not given up.
    [[nodiscard]] bool Claimed() const { return claimed_; }

private:
    void DropClaim() {
        if (std::exchange(claimed_, false)) {
            --session_.claims;
        }
    }

    FakeSession& session_;
    bool claimed_ = false;
    bool another_ = false;
};
