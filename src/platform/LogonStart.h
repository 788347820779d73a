#pragma once

/// Whether this program starts when its user signs in to Windows.
class LogonStart {
public:
    virtual ~LogonStart() = default;

    [[nodiscard]] virtual bool IsOn() const = 0;
    /// False when the system refuses.
    virtual bool Set(bool on) = 0;
};
