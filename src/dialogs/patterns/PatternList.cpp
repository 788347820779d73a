#include "dialogs/patterns/PatternList.h"

#include "settings/PatternStore.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <utility>

PatternList::PatternList(RegIniFunc& store, PatternStore& patterns, const Pattern& defaults, int shown)
    : store_(store), patterns_(patterns), defaults_(defaults), shown_(shown) {}

int PatternList::StoredCount() const {
    const int stored = store_.StoredPatternCount();
    if (stored <= kMaxPatterns) {
        return store_.ReadPatternCount();
    }
    int count = kMaxPatterns;
    while (count < stored && !patterns_.LoadPatternName(count + 1, Pattern{}).empty()) {
        ++count;
    }
    return count;
}

void PatternList::Load() {
    const int count = StoredCount();
    currentPattern_ = store_.ReadCurrentPatternNumber();
    if (currentPattern_ > count) {
        currentPattern_ = 1;
    }
    records_.clear();
    for (int number = 1; number <= count; ++number) {
        records_.push_back(patterns_.LoadPattern(number, defaults_));
    }
}

std::vector<std::wstring> PatternList::Names() const {
    std::vector<std::wstring> names;
    for (const Pattern& record : records_) {
        names.push_back(record.UserName);
    }
    return names;
}

void PatternList::Add(const std::wstring& name) {
    Append(defaults_, name);
}

void PatternList::Copy(int index, const std::wstring& name) {
    Append(At(index), name);
}

void PatternList::Append(Pattern pattern, const std::wstring& name) {
    if (!CanAdd()) {
        return;
    }
    records_.push_back(std::move(pattern));
    if (shown_ == Count()) {
        shown_ = 0;
    }
    WriteNumber(L"NumUser", Count());
    SaveRenamed(Count() - 1, name);
}

void PatternList::Rename(int index, const std::wstring& name) {
    SaveRenamed(index, name);
}

void PatternList::SaveRenamed(int index, const std::wstring& name) {
    At(index).UserName = name;
    patterns_.SavePattern(index + 1, At(index));
    At(index).UserName = patterns_.LoadPatternName(index + 1, defaults_);
}

int PatternList::Delete(int index) {
    if (!CanDelete(index)) {
        return index;
    }
    const int oldCount = Count();
    records_.erase(records_.begin() + index);
    if (index < shown_ && shown_ <= oldCount) {
        shown_ = shown_ == index + 1 ? 0 : shown_ - 1;
    }
    store_.IniDeleteSection(PatternSection(oldCount), store_.OwnIniFile());
    if (index < currentPattern_) {
        --currentPattern_;
        WriteNumber(L"CurrUser", currentPattern_);
    }
    WriteNumber(L"NumUser", Count());
    for (int i = 0; i < Count(); ++i) {
        patterns_.SavePattern(i + 1, At(i));
    }
    return std::min(index, Count() - 1);
}

bool PatternList::IsShown(int number, const std::wstring& name) const {
    // Nothing of the manager's goes beyond the list.
    return number == shown_ && (number > Count() || name == Name(number - 1));
}

void PatternList::WriteNumber(const wchar_t* key, int number) {
    store_.IniSetString(kProgramSection, key, DecimalText(number), store_.OwnIniFile());
}
