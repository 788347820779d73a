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
    Append(Record(index), name);
}

void PatternList::Append(Pattern pattern, const std::wstring& name) {
    if (!CanAdd()) {
        return;
    }
    pattern.UserName = name;
    records_.push_back(std::move(pattern));
    WriteNumber(L"NumUser", Count());
    Save(Count() - 1);
}

void PatternList::Rename(int index, const std::wstring& name) {
    records_.at(static_cast<std::size_t>(index)).UserName = name;
    Save(index);
}

int PatternList::Delete(int index) {
    if (!CanDelete(index)) {
        return index;
    }
    const int oldCount = Count();
    records_.erase(records_.begin() + index);
    // Refused writes stay without a word, here and below, as everywhere in the store.
    store_.IniDeleteSection(PatternSection(oldCount), store_.OwnIniFile());
    if (index < currentPattern_) {
        --currentPattern_;
        WriteNumber(L"CurrUser", currentPattern_);
    }
    WriteNumber(L"NumUser", Count());
    for (int i = 0; i < Count(); ++i) {
        Save(i);
    }
    return std::min(index, Count() - 1);
}

void PatternList::Save(int index) {
    Pattern& record = records_.at(static_cast<std::size_t>(index));
    patterns_.SavePattern(index + 1, record);
    record.UserName = store_.AsStored(record.UserName);
}

void PatternList::WriteNumber(const wchar_t* key, int number) {
    store_.IniSetString(kProgramSection, key, DecimalText(number), store_.OwnIniFile());
}
