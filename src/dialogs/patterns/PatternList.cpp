#include "dialogs/patterns/PatternList.h"

#include "settings/PatternStore.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <utility>

PatternList::PatternList(RegIniFunc& store, PatternStore& patterns, const Pattern& defaults)
    : store_(store), patterns_(patterns), defaults_(defaults) {}

void PatternList::Load() {
    const int count = store_.ReadPatternCount();
    currentPattern_ = store_.ReadCurrentPatternNumber();
    if (currentPattern_ > count) {
        currentPattern_ = 1;
    }
    records_.clear();
    asRead_.clear();
    for (int number = 1; number <= count; ++number) {
        asRead_.push_back(patterns_.LoadPattern(number, defaults_));
        records_.push_back({asRead_.back(), number});
    }
    refusedSections_.clear();
    currentRefused_ = false;
    countRefused_ = false;
}

std::vector<std::wstring> PatternList::Names() const {
    std::vector<std::wstring> names;
    for (const Record& record : records_) {
        names.push_back(record.pattern.UserName);
    }
    return names;
}

void PatternList::Add(const std::wstring& name) {
    Append(defaults_, name);
}

void PatternList::Copy(int index, const std::wstring& name) {
    Append(At(index).pattern, name);
}

void PatternList::Append(Pattern pattern, const std::wstring& name) {
    if (!CanAdd()) {
        return;
    }
    WriteRefused();
    pattern.UserName = name;
    records_.push_back({std::move(pattern)});
    WriteCount();
    Save(Count() - 1);
}

void PatternList::Rename(int index, const std::wstring& name) {
    WriteRefused();
    At(index).pattern.UserName = name;
    Save(index);
}

int PatternList::Delete(int index) {
    if (!CanDelete(index)) {
        return index;
    }
    WriteRefused();
    const int oldCount = Count();
    records_.erase(records_.begin() + index);
    DeleteSection(oldCount);
    if (index < currentPattern_) {
        --currentPattern_;
        WriteCurrent();
    }
    WriteCount();
    for (int i = 0; i < Count(); ++i) {
        Save(i);
    }
    return std::min(index, Count() - 1);
}

void PatternList::WriteRefused() {
    for (const int section : std::set<int>(refusedSections_)) {
        DeleteSection(section);
    }
    if (currentRefused_) {
        WriteCurrent();
    }
    if (countRefused_) {
        WriteCount();
    }
    for (int i = 0; i < Count(); ++i) {
        if (At(i).refused) {
            Save(i);
        }
    }
}

int PatternList::NumberOf(int former) const {
    const auto read = static_cast<int>(asRead_.size());
    for (int i = 0; i < Count() && former >= 1; ++i) {
        if (At(i).former == former) {
            return i + 1;
        }
    }
    return former > read && former > Count() ? former : 0;
}

std::optional<Pattern> PatternList::AsRead(int former) const {
    const bool was = former >= 1 && static_cast<std::size_t>(former) <= asRead_.size();
    return was ? std::optional(asRead_[static_cast<std::size_t>(former) - 1]) : std::nullopt;
}

bool PatternList::HasRefused() const {
    return currentRefused_ || countRefused_ || !refusedSections_.empty() ||
           std::any_of(records_.begin(), records_.end(), [](const Record& record) { return record.refused; });
}

bool PatternList::IsFree(int number) const {
    const int moved = NumberOf(number);
    return moved == 0 || moved == number || !At(moved - 1).refused;
}

void PatternList::Save(int index) {
    Record& record = At(index);
    record.refused = !patterns_.SavePattern(index + 1, record.pattern);
    record.pattern.UserName = store_.AsStored(record.pattern.UserName);
    refusedSections_.erase(index + 1);
}

void PatternList::DeleteSection(int number) {
    if (store_.IniDeleteSection(PatternSection(number), store_.OwnIniFile())) {
        refusedSections_.erase(number);
    } else {
        refusedSections_.insert(number);
    }
}

void PatternList::WriteCurrent() {
    currentRefused_ = !WriteNumber(L"CurrUser", currentPattern_);
}

void PatternList::WriteCount() {
    countRefused_ = !WriteNumber(L"NumUser", Count());
}

bool PatternList::WriteNumber(const wchar_t* key, int number) {
    return store_.IniSetString(kProgramSection, key, DecimalText(number), store_.OwnIniFile());
}
