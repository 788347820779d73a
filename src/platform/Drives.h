#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Drive types as Windows numbers them (GetDriveType).
inline constexpr std::uint32_t kDriveRemovable = 2;
inline constexpr std::uint32_t kDriveFixed = 3;
inline constexpr std::uint32_t kDriveRemote = 4;
inline constexpr std::uint32_t kDriveCdRom = 5;

/// The computer's drives. Asking never raises a message box of the system.
class Drives {
public:
    virtual ~Drives() = default;

    /// One entry for each drive letter, in the alphabet's order: "c: [LABEL]", or "c:" for a drive without a
    /// label.
    [[nodiscard]] virtual std::vector<std::wstring> Entries() const = 0;

    /// GetDriveTypeA of a drive's root, such as "c:\".
    [[nodiscard]] virtual std::uint32_t Type(const std::wstring& root) const = 0;
};
