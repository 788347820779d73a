#pragma once

#include "platform/InstalledFonts.h"

class WindowsInstalledFonts final : public InstalledFonts {
public:
    void Enumerate(const std::function<void(const ReportedFont&)>& report) const override;
};
