#pragma once

#include "settings/Pattern.h"

#include <functional>
#include <string>
#include <vector>

class Drives;
class FileSystem;
struct ShortcutKeyRow;

/// What stands for program `number` (1...5) of a button: its title, else its command's last part, without the
/// extension of a file.
[[nodiscard]] std::wstring ShownProgram(const ButtonSlot& slot, int number,
                                        const std::function<bool(const std::wstring&)>& isFolder);

/// What stands for the key of a button that presses one; empty when the list doesn't have it.
[[nodiscard]] std::wstring ShownKey(const ButtonSlot& slot, const std::vector<ShortcutKeyRow>& keys);

/// All that the button starts, one a line, long names cut. Only paths on this computer's own drives are looked at;
/// others keep their extension. `keys` is called only for a button that presses a key.
[[nodiscard]] std::wstring ProgramLines(const ButtonSlot& slot, const FileSystem& files, const Drives& drives,
                                        const std::function<std::vector<ShortcutKeyRow>()>& keys);
