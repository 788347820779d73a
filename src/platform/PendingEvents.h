#pragma once

/// The user interface's waiting events, worked off in the middle of something slow.
class PendingEvents {
public:
    virtual ~PendingEvents() = default;

    /// Works off what waits. False when nobody wants the slow work any more.
    [[nodiscard]] virtual bool Process() = 0;
};
