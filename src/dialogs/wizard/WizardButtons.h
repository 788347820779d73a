#pragma once

#include "settings/Pattern.h"

#include <array>
#include <cstdint>
#include <string>

class RegIniFunc;
class StringTable;

inline constexpr int kWizardButtonOptions = 5;

/// What the wizard's first page offers.
struct WizardButtons {
    std::array<std::wstring, kWizardButtonOptions> captions;
    int shown = 0; ///< options 0 ... shown - 1
};

/// `buttonSet` is the wizard's QLBeyCount: 5 for the desktop buttons, else the number of notebook keys.
[[nodiscard]] WizardButtons LoadWizardButtons(const RegIniFunc& store, const StringTable& texts,
                                              std::int32_t buttonSet, const Pattern& defaults);

/// The button set for a button page of the main dialog: 5 on the desktop page, else "NTNumAPBtn" when it is
/// 1...3, else 2.
[[nodiscard]] std::int32_t WizardButtonSet(bool desktop, std::int32_t ntNumAPBtn);

/// Whether a button set is the notebook keys'.
[[nodiscard]] bool IsNotebookSet(std::int32_t buttonSet, std::int32_t ntNumAPBtn);
