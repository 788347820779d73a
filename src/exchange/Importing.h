#pragma once

#include "exchange/NameChoice.h"
#include "exchange/Settings.h"
#include "exchange/Words.h"

#include <string>
#include <vector>

class StoredSettings;

/// What becomes of a Pattern whose name is there already.
enum class NameClash { Refuse, Replace, Rename };

struct ImportedPattern {
    std::wstring name;       ///< as the file has it
    std::wstring storedName; ///< another one where it was renamed
    int number = 0;          ///< in the store
    bool replaces = false;
};

struct ImportPlan {
    Settings settings; ///< the store's afterwards
    std::vector<ImportedPattern> patterns;
    std::vector<Finding> errors; ///< with any, nothing is to be done
};

/// `stored`: the user's Patterns in the order of their numbers, from 1 on. `chosen`: numbers of the file's Patterns.
[[nodiscard]] ImportPlan PlanImport(const StoredSettings& store, const Settings& now,
                                    const std::vector<Choice>& stored, const Settings& file,
                                    const std::vector<int>& chosen, NameClash clash);
