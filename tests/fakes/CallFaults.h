#pragma once

#include <string>

/// Comes out of a call that never returns, as when the process is killed in it. No std::exception, so that
/// nobody takes it for an error of the call.
struct KilledInCall {};

/// How the calls of a fake store go wrong. Numbers count from now, 1 being the next call; 0 is none.
class CallFaults {
public:
    bool refusesReads = false;
    bool refusesWrites = false;
    mutable int failingOperation = 0; ///< that one call fails
    mutable int failingFrom = 0;      ///< that call and all later ones fail
    mutable int killingOperation = 0; ///< that call changes nothing and throws KilledInCall
    int failingWrite = 0;             ///< as failingOperation, counting writes alone
    int writesUntilDeath = -1;        ///< that many more writes are taken, and no later one; -1: no end
    std::wstring refusedName;         ///< no write of a value or key of that name is taken; its case counts

    void ForgetFaults() {
        const bool kept = remembersCalls;
        *this = CallFaults{};
        remembersCalls = kept;
    }

    bool remembersCalls = true; ///< slow where there are very many

protected:
    [[nodiscard]] bool ReadFails() const {
        const bool fails = CallFails();
        return refusesReads || fails;
    }
    [[nodiscard]] bool WriteFails(const std::wstring& name) {
        const bool callFails = CallFails() || (!name.empty() && name == refusedName);
        const bool writeFails = CountsDown(failingWrite);
        return refusesWrites || callFails || writeFails || IsDead();
    }

private:
    [[nodiscard]] bool CallFails() const {
        if (CountsDown(killingOperation)) {
            throw KilledInCall{};
        }
        const bool failsNow = CountsDown(failingOperation);
        if (failingFrom > 1) {
            --failingFrom;
            return failsNow;
        }
        return failsNow || failingFrom == 1;
    }
    [[nodiscard]] bool IsDead() {
        if (writesUntilDeath > 0) {
            --writesUntilDeath;
            return false;
        }
        return writesUntilDeath == 0;
    }
    [[nodiscard]] static bool CountsDown(int& calls) { return calls > 0 && --calls == 0; }
};
