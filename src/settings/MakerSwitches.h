#pragma once

#include <cstdint>

class RegIniFunc;

/// The maker's description of the keyboard, from HKLM "Software\Korvo\KORVOQLB".
struct MakerSwitches {
    std::int32_t QSTART = 0;     ///< keyboard model; 1 or more: the "Q_" pictures
    std::int32_t BtnImage = 0;   ///< 1: the hover pictures; 0 when "QSTART" is 1 or more
    std::int32_t NTNumAPBtn = 0; ///< notebook keys as stored; see ButtonCount
    std::int32_t DTNumAPBtn = 0; ///< desktop buttons as stored; see DesktopButtonCount
    std::int32_t NR1t2 = 0;      ///< 1: the keyboard has its buttons one below the other
    bool ShowNTTab = false;      ///< the notebook page is shown

    /// 5 + NTNumAPBtn when that is 1...3, else 7. Buttons 1...ButtonCount are loaded, saved and shown.
    [[nodiscard]] int ButtonCount() const;

    /// Buttons shown on the desktop page: DTNumAPBtn when it is 1...5, else all five.
    [[nodiscard]] int DesktopButtonCount() const;

    /// The set with the "_MOUSEOVER" pictures; otherwise the set with the "Q_" pictures.
    [[nodiscard]] bool UsesHoverPictures() const { return QSTART < 1 && BtnImage == 1; }
};

[[nodiscard]] MakerSwitches LoadMakerSwitches(const RegIniFunc& store);
