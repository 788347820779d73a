#pragma once

#include "settings/MakerSwitches.h"
#include "settings/Pattern.h"

#include <array>
#include <string>

class RegIniFunc;
class StringTable;

/// Labels of buttons 1...8, index 0...7: numbered, named as Fn keys by "QSTART", or as the maker's
/// "ButtonName" values say.
[[nodiscard]] std::array<std::wstring, kMaxButtons> ButtonLabels(const RegIniFunc& store,
                                                                 const StringTable& texts,
                                                                 const MakerSwitches& switches);

/// Captions of the desktop, notebook and on-screen pages; the maker's "TabName" values replace the first two.
[[nodiscard]] std::array<std::wstring, 3> PageCaptions(const RegIniFunc& store, const StringTable& texts);
