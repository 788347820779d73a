#pragma once

/// The system's answer to "does this program already run in this session?". The object keeps this
/// process' claim until it is given up; the system drops it when the process ends, however it ends.
class InstanceGuard {
public:
    virtual ~InstanceGuard() = default;

    /// True when an earlier instance holds the claim. Of instances started at the same moment exactly one
    /// is told false.
    [[nodiscard]] virtual bool AnotherInstanceRuns() = 0;

    /// The dialog is gone, if not yet the process: the next instance is alone.
    virtual void GiveUp() = 0;
};
