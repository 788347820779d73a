#pragma once

#include "settings/Pattern.h"

#include <string>
#include <vector>

class PatternStore;
class RegIniFunc;

/// The user's Patterns as the pattern manager works on them: each operation is in the store when it returns.
/// Indexes are 0-based positions in the list; Pattern numbers in the store are 1-based.
class PatternList {
public:
    /// `patterns` and `defaults` are the main dialog's: what the two write goes to the same places. `shown` is the
    /// number of the Pattern that the dialog shows.
    PatternList(RegIniFunc& store, PatternStore& patterns, const Pattern& defaults, int shown = 0);

    /// Reads the numbers and every Pattern. Another program may have stored more than ten: beyond these, whatever has
    /// a name is in the list, so that no new Pattern goes over it.
    void Load();

    [[nodiscard]] int Count() const { return static_cast<int>(records_.size()); }
    [[nodiscard]] int CurrentPattern() const { return currentPattern_; } ///< 1-based
    [[nodiscard]] const std::wstring& Name(int index) const { return At(index).UserName; }
    [[nodiscard]] std::vector<std::wstring> Names() const;
    /// Offered as the name of a new Pattern.
    [[nodiscard]] const std::wstring& DefaultName() const { return defaults_.UserName; }

    [[nodiscard]] bool CanAdd() const { return Count() < kMaxPatterns; }
    /// The current Pattern can't be deleted.
    [[nodiscard]] bool CanDelete(int index) const {
        return index >= 0 && index < Count() && index + 1 != currentPattern_;
    }

    /// The new Pattern is the last one; nothing happens when there are ten or more. Names have been checked before, and
    /// become what the store has of them.
    void Add(const std::wstring& name);
    void Copy(int index, const std::wstring& name);
    void Rename(int index, const std::wstring& name);
    /// Later Patterns move up. Returns the index to select. Nothing happens to one that can't be deleted.
    int Delete(int index);

    /// Whether a stored Pattern is the one that the dialog shows, wherever deletions have moved that to. Its name
    /// counts too: where the store refused to move a Pattern, another one is left under its number.
    [[nodiscard]] bool IsShown(int number, const std::wstring& name) const;

private:
    [[nodiscard]] Pattern& At(int index) { return records_.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] const Pattern& At(int index) const { return records_.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] int StoredCount() const;
    void Append(Pattern pattern, const std::wstring& name);
    void SaveRenamed(int index, const std::wstring& name);
    void WriteNumber(const wchar_t* key, int number);

    RegIniFunc& store_;
    PatternStore& patterns_;
    const Pattern& defaults_;
    std::vector<Pattern> records_;
    int currentPattern_ = 1;
    int shown_; ///< 0 once it was deleted, or a new Pattern was stored under its number
};
