#pragma once

#include <cstdint>
#include <functional>
#include <string>

/// One callback of EnumFontFamiliesExA.
struct ReportedFont {
    std::wstring faceName;      ///< lfFaceName, at most 31 ANSI bytes
    std::uint32_t fontType = 0; ///< TRUETYPE_FONTTYPE (4) is a bit of it
    bool italic = false;
    std::int32_t weight = 0; ///< 400 is regular
    std::uint8_t charSet = 0;
};

class InstalledFonts {
public:
    virtual ~InstalledFonts() = default;

    /// Reports every face of every family once per character set, in the system's order.
    virtual void Enumerate(const std::function<void(const ReportedFont&)>& report) const = 0;
};
