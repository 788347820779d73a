#include "Fuzz.h"
#include "FuzzStore.h"
#include "dialogs/patterns/NameRules.h"
#include "dialogs/patterns/PatternList.h"
#include "settings/PatternStore.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <set>
#include <vector>

namespace {

using Names = std::vector<std::wstring>;

constexpr int kButtons = 6;
constexpr int kSteps = 12;

bool IsAscii(std::wstring_view text) {
    return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 0x80; });
}

/// What the code pages have in common: one byte for ASCII, one or two for the rest.
void CheckLength(const std::wstring& name, const AnsiText& ansiText, bool japanese) {
    const bool tooLong = CheckPatternName(name, {}, ansiText) == NameProblem::TooLong;
    Require(!tooLong || name.size() * 2 > kLongestPatternName, "a short name is too long");
    Require(tooLong || name.size() <= kLongestPatternName, "a long name is short enough");
    if (!japanese || IsAscii(name)) {
        Require(tooLong == (name.size() > kLongestPatternName), "a character is not a byte");
    }
    Require(!tooLong || CheckPatternName(name + L'a', {}, ansiText) == NameProblem::TooLong,
            "a longer name is shorter");
}

void CheckRules(const std::wstring& name, Names used, const AnsiText& ansiText) {
    const NameProblem problem = CheckPatternName(name, used, ansiText);
    std::set<std::string> stored;
    for (const std::wstring& each : used) {
        stored.insert(ansiText.Encode(each));
    }
    const bool isUsed = stored.contains(ansiText.Encode(name));
    Require((problem == NameProblem::Empty) == name.empty(), "empty or not");
    Require((problem == NameProblem::Used) == (isUsed && !name.empty()), "used or not");
    std::reverse(used.begin(), used.end());
    Require(CheckPatternName(name, used, ansiText) == problem, "the order of the names counts");
    if (problem == NameProblem::None) {
        const std::wstring lowered = LoweredAscii(name);
        const NameProblem other = CheckPatternName(lowered, {name}, ansiText);
        Require(other == (lowered == name ? NameProblem::Used : NameProblem::None),
                "cases are not told apart");
    }
}

/// Every name but the changed one is what it was.
void CheckList(const PatternList& list, const Names& expected) {
    Require(list.Names() == expected, "another Pattern than the one that was meant has changed");
    Require(list.Count() >= 1 && list.Count() <= kMaxPatterns, "a number of Patterns that can't be");
    Require(list.CurrentPattern() >= 1 && list.CurrentPattern() <= list.Count(),
            "a current one that is none");
}

void CheckStore(FuzzStore& settings, const PatternList& list) {
    PatternStore stored(settings.store, kButtons);
    const Pattern defaults = stored.LoadDefaultPattern();
    PatternList again(settings.store, stored, defaults);
    again.Load();
    Require(again.Names() == list.Names(), "the store holds other names");
    Require(again.CurrentPattern() == list.CurrentPattern(), "the store has another current Pattern");
}

/// As the manager does it: a name that the rules allow goes to the list, any other one nowhere.
void Step(PatternList& list, Names& names, const FuzzStore& settings, std::uint8_t choice,
          const std::wstring& name) {
    const int index = choice / 4 % list.Count();
    if (choice % 4 == 3) {
        if (list.CanDelete(index)) {
            names.erase(names.begin() + index);
        }
        const int selected = list.Delete(index);
        Require(selected >= 0 && selected < list.Count(), "nothing is selected after a deletion");
        return;
    }
    if (CheckPatternName(name, names, settings.ansiText) != NameProblem::None) {
        return;
    }
    const std::wstring kept = settings.store.AsStored(name);
    if (choice % 4 == 2) {
        list.Rename(index, name);
        names.at(static_cast<std::size_t>(index)) = kept;
        return;
    }
    if (list.CanAdd()) {
        names.push_back(kept);
    }
    if (choice % 4 == 0) {
        list.Add(name);
    } else {
        list.Copy(index, name);
    }
}

} // namespace

/// A byte of the code page; then steps, each a line with a byte of what to do in front of the name.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const bool japanese = input.Byte() % 2 != 0;
    FuzzStore settings(FuzzStore::CodePage(japanese));
    PatternStore stored(settings.store, kButtons);
    const Pattern defaults = stored.LoadDefaultPattern();
    PatternList list(settings.store, stored, defaults);
    list.Load();
    Names names = list.Names();
    for (int step = 0; step < kSteps && !input.Rest().empty(); ++step) {
        const std::uint8_t choice = input.Byte();
        // In half of the steps any characters, in the other half those of the code page.
        const std::string_view line = input.Line();
        const std::wstring name = CutAtNul(choice % 2 == 0 ? Widened(line) : settings.ansiText.Decode(line));
        CheckLength(name, settings.ansiText, japanese);
        CheckRules(name, names, settings.ansiText);
        Step(list, names, settings, static_cast<std::uint8_t>(choice / 2), name);
        CheckList(list, names);
    }
    CheckStore(settings, list);
    return 0;
}
