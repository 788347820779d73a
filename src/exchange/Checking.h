#pragma once

#include "exchange/NameChoice.h"
#include "exchange/Words.h"
#include "settings/Pattern.h"

#include <functional>
#include <string>
#include <vector>

class AnsiText;
class FileSystem;
class StoredSettings;

/// Entries that no dialog would have written: numbers out of range, names that are empty, too long or there twice, texts
/// that the code page can't keep.
[[nodiscard]] std::vector<Finding> CheckEntries(const StoredSettings& store);

enum class PathKind { Missing, File, Folder };
using PathQuestion = std::function<PathKind(const std::wstring&)>;

/// A Pattern as it is shown.
struct CheckedPattern {
    Choice choice;
    Pattern pattern;
};
/// Programs, folders and shortcuts that are gone, and counts and methods that fit nothing. Asked for are full paths on
/// drives with a letter; names without a folder and addresses are left alone, and so is the network.
[[nodiscard]] std::vector<Finding> CheckPrograms(const std::vector<CheckedPattern>& patterns,
                                                 const std::vector<int>& buttons, const PathQuestion& kindOf);

/// `slotOf`: where a button is stored.
[[nodiscard]] std::vector<Finding> CheckPlaces(const std::vector<int>& buttons,
                                               const std::function<int(int)>& slotOf);

/// A data file that is there, but can't be read, or has texts that the code page can't keep.
[[nodiscard]] std::vector<Finding> CheckDataFile(const FileSystem& files, const AnsiText& codePage,
                                                 const std::wstring& path);
