#pragma once

#include "settings/Pattern.h"

#include <functional>
#include <string>
#include <vector>

class FileSystem;
struct ShortcutKeyRow;

/// What stands for program `number` (1...5) of a button: its title, else its command's last part. Asks the
/// file system, which may take long.
[[nodiscard]] std::wstring ShownProgram(const ButtonSlot& slot, int number, const FileSystem& files);

/// What stands for the key of a button that presses one; empty when the list doesn't have it.
[[nodiscard]] std::wstring ShownKey(const ButtonSlot& slot, const std::vector<ShortcutKeyRow>& keys);

/// All that the button starts, one a line, long names cut. Asks the file system; `keys` is called only for a
/// button that presses a key.
[[nodiscard]] std::wstring ProgramLines(const ButtonSlot& slot, const FileSystem& files,
                                        const std::function<std::vector<ShortcutKeyRow>()>& keys);
