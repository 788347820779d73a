#pragma once

#include "exchange/Settings.h"

#include <optional>

class StoredSettings;

/// A write that the store refused.
struct Refusal {
    EntryName name;
    bool putBack = false; ///< what was there before the first write is there again
};

/// Makes the store hold exactly these settings, if it holds `from`: writes what differs, removes what is not in
/// them, then looks whether it is so. When a write is refused, or something else is stored in the end, puts back
/// what was there.
[[nodiscard]] std::optional<Refusal> Apply(StoredSettings& store, const Settings& from, const Settings& to);

/// What the file leaves open: which keyboard the computer has stays as it is where the file does not say it.
[[nodiscard]] Settings WithKeyboardOf(Settings settings, const Settings& stored);
