#pragma once

#include <utility>

/// True for as long as this lives; then what it was before.
class ScopedFlag {
public:
    explicit ScopedFlag(bool& flag) : flag_(flag), former_(std::exchange(flag, true)) {}
    ~ScopedFlag() { flag_ = former_; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;

private:
    bool& flag_;
    bool former_;
};
