#pragma once

#include "platform/InstalledFonts.h"

#include <vector>

/// The fonts that a system reports, in its order.
class FakeFonts final : public InstalledFonts {
public:
    static constexpr std::uint32_t kRaster = 1;
    static constexpr std::uint32_t kDevice = 2;
    static constexpr std::uint32_t kTrueType = 4;
    static constexpr std::uint8_t kAnsi = 0;
    static constexpr std::uint8_t kShiftJis = 128;
    static constexpr std::uint8_t kGreek = 161;

    std::vector<ReportedFont> reported;

    /// A face that the program offers, until the test says otherwise.
    ReportedFont& Add(const std::wstring& face) {
        return reported.emplace_back(ReportedFont{face, kTrueType, false, 400, kAnsi});
    }

    void Enumerate(const std::function<void(const ReportedFont&)>& report) const override {
        for (const ReportedFont& font : reported) {
            report(font);
        }
    }
};
