#pragma once

#include "settings/Pattern.h"

#include <string>
#include <vector>

struct PatternEntry;
class RegIniFunc;

/// Loads and saves Patterns. A button whose storage the maker moved ("ConvAppKey") reads and writes the other
/// button's entries, in the defaults too.
class PatternStore {
public:
    /// `buttonCount`: MakerSwitches::ButtonCount. Reads where the maker moved buttons to: what is loaded goes
    /// back to the place it came from, whatever becomes of those values meanwhile.
    PatternStore(RegIniFunc& store, int buttonCount);

    /// The maker's defaults from HKLM "Default\Setting\Set1", or "Default\USER1" with the ini back end.
    [[nodiscard]] Pattern LoadDefaultPattern() const;

    /// Section "USER" + number (1...10); what is missing comes from `defaults`.
    [[nodiscard]] Pattern LoadPattern(int number, const Pattern& defaults) const;

    /// An empty button name becomes a single blank, in the record too.
    void SavePattern(int number, Pattern& pattern);

    /// "UserName" of the section; the default Pattern's name when it is missing.
    [[nodiscard]] std::wstring LoadPatternName(int number, const Pattern& defaults) const;

    /// The number under which button 1...8 is stored: "AppKey" + number of "UTLSetting\ConvAppKey" when that
    /// is another button that exists, else its own.
    [[nodiscard]] int StorageSlot(int button) const { return storageSlots_(button); }

    /// All entries of a Pattern, in the order in which they are read and written.
    [[nodiscard]] std::vector<PatternEntry> Entries() const;

private:
    RegIniFunc& store_;
    int buttonCount_;
    NumberedFrom1<int, kMaxButtons> storageSlots_;
};
