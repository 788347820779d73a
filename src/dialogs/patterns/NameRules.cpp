#include "dialogs/patterns/NameRules.h"

#include "platform/AnsiText.h"

#include <algorithm>

NameProblem CheckPatternName(const std::wstring& name, const std::vector<std::wstring>& usedNames,
                             const AnsiText& ansiText) {
    if (name.empty()) {
        return NameProblem::Empty;
    }
    const std::string stored = ansiText.Encode(name);
    if (std::any_of(usedNames.begin(), usedNames.end(),
                    [&](const std::wstring& used) { return ansiText.Encode(used) == stored; })) {
        return NameProblem::Used;
    }
    return stored.size() > kLongestPatternName ? NameProblem::TooLong : NameProblem::None;
}
