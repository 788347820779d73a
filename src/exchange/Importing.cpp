#include "exchange/Importing.h"

#include "dialogs/patterns/NameRules.h"
#include "exchange/SettingsFile.h"
#include "exchange/StoredSettings.h"
#include "platform/AnsiText.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

#include <algorithm>

namespace {

/// "Home (2)", with as much of the name as there is room for.
std::wstring FreeName(const AnsiText& codePage, const std::vector<std::wstring>& used, std::wstring name) {
    for (int number = 2;; ++number) {
        const std::wstring ending = L" (" + DecimalText(number) + L")";
        while (!name.empty() && codePage.Encode(name + ending).size() > kLongestPatternName) {
            name.pop_back();
        }
        if (std::ranges::find(used, name + ending) == used.end()) {
            return name + ending;
        }
    }
}

class Planner {
public:
    Planner(const StoredSettings& store, const Settings& now, const std::vector<Choice>& stored,
            NameClash clash)
        : store_(store), clash_(clash) {
        plan_.settings = now;
        for (const Choice& pattern : stored) {
            names_.push_back(pattern.name);
        }
    }

    void Add(const Settings& file, int number, const std::wstring& name) {
        ImportedPattern pattern{name, name, 0, false};
        const auto same = std::ranges::find(names_, name);
        if (name.empty()) {
            Error(Say::kImportNoName, {DecimalText(number)});
            return;
        }
        if (same != names_.end() && clash_ == NameClash::Replace) {
            pattern.replaces = true;
            pattern.number = static_cast<int>(same - names_.begin()) + 1;
        } else if (same != names_.end() && clash_ == NameClash::Refuse) {
            Error(Say::kImportNameThere, {name});
            return;
        } else if (names_.size() == kMaxPatterns) {
            Error(Say::kImportNoRoom, {name, DecimalText(kMaxPatterns)});
            return;
        } else {
            if (same != names_.end()) {
                pattern.storedName = FreeName(store_.CodePage(), names_, name);
            }
            names_.push_back(pattern.storedName);
            pattern.number = static_cast<int>(names_.size());
        }
        Copy(file, PatternSection(number), pattern);
        plan_.patterns.push_back(std::move(pattern));
    }

    ImportPlan Finish() {
        const EntryName count{kProgramSection, L"NumUser"};
        const bool grows =
            std::ranges::any_of(plan_.patterns, [](const auto& each) { return !each.replaces; });
        if (grows) {
            plan_.settings[count] = store_.ValueOf(count, DecimalText(names_.size()));
        }
        return std::move(plan_);
    }

private:
    void Error(Say what, std::vector<std::wstring> parts) {
        plan_.errors.push_back({what, std::move(parts)});
    }

    void Copy(const Settings& file, const std::wstring& from, const ImportedPattern& pattern) {
        const std::wstring to = PatternSection(pattern.number);
        EraseSection(plan_.settings, to);
        for (auto entry = file.lower_bound({from, L""}); entry != file.end() && entry->first.section == from;
             ++entry) {
            plan_.settings[{to, entry->first.key}] = entry->second;
        }
        const EntryName name{to, FieldOf(&Pattern::UserName).IniKey()};
        if (pattern.storedName != pattern.name) {
            plan_.settings[name] = store_.ValueOf(name, pattern.storedName);
        }
    }

    const StoredSettings& store_;
    NameClash clash_;
    std::vector<std::wstring> names_;
    ImportPlan plan_;
};

} // namespace

ImportPlan PlanImport(const StoredSettings& store, const Settings& now, const std::vector<Choice>& stored,
                      const Settings& file, const std::vector<int>& chosen, NameClash clash) {
    Planner planner(store, now, stored, clash);
    for (const Choice& pattern : PatternsOf(file, store)) {
        if (std::ranges::find(chosen, pattern.number) != chosen.end()) {
            planner.Add(file, pattern.number, pattern.name);
        }
    }
    return planner.Finish();
}
