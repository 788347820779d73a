#pragma once

#include "settings/Pattern.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

class PatternStore;
class RegIniFunc;

/// The user's Patterns as the pattern manager works on them: each operation is in the store when it returns.
/// Indexes are 0-based positions in the list; Pattern numbers in the store are 1-based. What the store refuses stays
/// here and is written again, or a Pattern whose place was taken already would be gone.
class PatternList {
public:
    /// `patterns` and `defaults` are the main dialog's: what the two write goes to the same places.
    PatternList(RegIniFunc& store, PatternStore& patterns, const Pattern& defaults);

    /// Reads the numbers and every Pattern.
    void Load();

    [[nodiscard]] int Count() const { return static_cast<int>(records_.size()); }
    [[nodiscard]] int CurrentPattern() const { return currentPattern_; } ///< 1-based
    [[nodiscard]] const std::wstring& Name(int index) const { return At(index).pattern.UserName; }
    [[nodiscard]] std::vector<std::wstring> Names() const;
    /// Offered as the name of a new Pattern.
    [[nodiscard]] const std::wstring& DefaultName() const { return defaults_.UserName; }

    [[nodiscard]] bool CanAdd() const { return Count() < kMaxPatterns; }
    /// The current Pattern can't be deleted.
    [[nodiscard]] bool CanDelete(int index) const {
        return index >= 0 && index < Count() && index + 1 != currentPattern_;
    }

    /// The new Pattern is the last one; nothing happens when there are ten. Names have been checked before, and
    /// become what the store can keep of them.
    void Add(const std::wstring& name);
    void Copy(int index, const std::wstring& name);
    void Rename(int index, const std::wstring& name);
    /// Later Patterns move up. Returns the index to select. Nothing happens to one that can't be deleted.
    int Delete(int index);

    /// Writes again what the store has refused. Every operation begins with it; the manager's end asks for it too.
    void WriteRefused();

    /// The number now of the Pattern that was number `former` when the list was read; 0 when it was deleted. One beyond
    /// the list keeps its number while no new Pattern has it.
    [[nodiscard]] int NumberOf(int former) const;

    /// The Pattern under this number as it was when the list was read; nothing where there was none.
    [[nodiscard]] std::optional<Pattern> AsRead(int former) const;

    /// Whether the store still lacks something that was to be written.
    [[nodiscard]] bool HasRefused() const;
    [[nodiscard]] bool IsCurrentRefused() const { return currentRefused_; }
    /// Whether the list has a Pattern of this number that the store has too.
    [[nodiscard]] bool IsStored(int number) const {
        return number >= 1 && number <= Count() && !At(number - 1).refused;
    }
    /// Whether whatever else lay under this number is stored in its new place, or was deleted, so that writing over
    /// what is left of it loses nothing.
    [[nodiscard]] bool IsFree(int number) const;

private:
    struct Record {
        Pattern pattern;
        int former = 0; ///< its number when the list was read; 0 for a new one
        bool refused = false;
    };

    [[nodiscard]] Record& At(int index) { return records_.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] const Record& At(int index) const { return records_.at(static_cast<std::size_t>(index)); }
    void Append(Pattern pattern, const std::wstring& name);
    void Save(int index);
    void DeleteSection(int number);
    void WriteCurrent();
    void WriteCount();
    [[nodiscard]] bool WriteNumber(const wchar_t* key, int number);

    RegIniFunc& store_;
    PatternStore& patterns_;
    const Pattern& defaults_;
    std::vector<Record> records_;
    std::vector<Pattern> asRead_;
    int currentPattern_ = 1;
    std::set<int> refusedSections_; ///< that are still there
    bool currentRefused_ = false;
    bool countRefused_ = false;
};
