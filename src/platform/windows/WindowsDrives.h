#pragma once

#include "platform/Drives.h"

class WindowsDrives final : public Drives {
public:
    [[nodiscard]] std::vector<std::wstring> Entries() const override;
    [[nodiscard]] std::uint32_t Type(const std::wstring& root) const override;
};
