#pragma once

#include "platform/PendingEvents.h"

#include <utility>

/// A user interface in which something may happen whenever it is asked to go on.
class FakePendingEvents final : public PendingEvents {
public:
    std::function<void()> whenProcessed; ///< what Process, and RunBeside before its work, finds waiting
    std::function<void()> afterWork;     ///< what happens when the work is done, before RunBeside returns
    bool refuses = false;                ///< RunBeside gives up at once; the work is never run

    int processed = 0;        ///< calls on the thread that has the windows
    int worksBeside = 0;      ///< calls of RunBeside
    int processedTooLate = 0; ///< calls from a work that was given up

    void Process() override {
        if (late_) {
            ++processedTooLate;
        } else if (!beside_) {
            ++processed;
            Happen(whenProcessed);
        }
    }

    bool RunBeside(std::function<void()> work, const std::function<bool()>& goOn) override {
        ++worksBeside;
        if (refuses) {
            return false;
        }
        if (!goOn()) {
            givenUp_ = std::move(work);
            return false;
        }
        Happen(whenProcessed);
        if (!goOn()) {
            givenUp_ = std::move(work);
            return false;
        }
        const bool outer = std::exchange(beside_, true);
        work();
        beside_ = outer;
        Happen(afterWork);
        return true;
    }

    /// The last work that was given up comes to its end. False when there is none.
    bool RunGivenUpWork() {
        const std::function<void()> work = std::exchange(givenUp_, nullptr);
        if (!work) {
            return false;
        }
        late_ = true;
        work();
        late_ = false;
        return true;
    }

private:
    /// What happens may ask the user interface to go on; it doesn't happen again then.
    void Happen(const std::function<void()>& event) {
        if (!event || happening_) {
            return;
        }
        happening_ = true;
        event();
        happening_ = false;
    }

    bool happening_ = false;
    bool beside_ = false;
    bool late_ = false;
    std::function<void()> givenUp_;
};
