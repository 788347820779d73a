#include "dialogs/patterns/NameRules.h"

#include "platform/AnsiText.h"

#include <algorithm>

NameProblem CheckPatternName(const std::wstring& name, const std::vector<std::wstring>& usedNames,
                             const AnsiText& ansiText) {
    if (name.empty()) {
        return NameProblem::Empty;
    }
    if (std::find(usedNames.begin(), usedNames.end(), name) != usedNames.end()) {
        return NameProblem::Used;
    }
    return ansiText.Encode(name).size() > kLongestPatternName ? NameProblem::TooLong : NameProblem::None;
}
