#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class Drives;

/// A drive as a drive list shows it.
struct DriveRecord {
    std::wstring drive; ///< "c:"
    std::wstring label; ///< empty when the drive has none

    bool operator==(const DriveRecord&) const = default;
};

/// Splits "c: [LABEL]" at the first "[" and the last "]". Without "[" the whole entry is the drive.
[[nodiscard]] DriveRecord ParseDriveEntry(std::wstring_view entry);

/// The local drives: removable, fixed and CD-ROM.
class CSystemDrive {
public:
    /// Reads the drive list at once.
    void DriveBoxControl(const Drives& drives);

    /// 0-based; empty outside the list.
    [[nodiscard]] std::wstring GetLocalDrive(std::int32_t index) const;
    [[nodiscard]] std::wstring GetLocalDriveVolume(std::int32_t index) const;
    [[nodiscard]] std::int32_t LocalDriveCount() const { return static_cast<std::int32_t>(drives_.size()); }

private:
    [[nodiscard]] DriveRecord Record(std::int32_t index) const;

    std::vector<DriveRecord> drives_;
};
