#pragma once

#include <functional>

/// The user interface's waiting events, worked off in the middle of something slow.
class PendingEvents {
public:
    virtual ~PendingEvents() = default;

    /// Works off what waits. Does nothing on a thread that has no windows.
    virtual void Process() = 0;

    /// Runs `work` while the user interface goes on answering; returns when the work is done. False when
    /// `goOn`, asked after each event, answered false first: the work then ends whenever it ends, so it must
    /// own whatever it touches.
    virtual bool RunBeside(std::function<void()> work, const std::function<bool()>& goOn) = 0;
};
