#pragma once

#include "platform/ProgramStarter.h"
#include "settings/Pattern.h"

#include <vector>

class FileSystem;

/// What is handed to the system for a stored program: file and parameters apart, and the folder to work in. A
/// shortcut is replaced by what it points to, which can be waited for; where that is no file, or not there, the
/// system makes of the shortcut what it can.
[[nodiscard]] StartRequest RequestFor(const ProgramEntry& program, const ProgramStarter& starter,
                                      const FileSystem& files);

/// The programs that a press of the button starts, in the order of their places; none for a shortcut key.
[[nodiscard]] std::vector<ProgramEntry> StartedPrograms(const ButtonSlot& slot);

/// Whether a press does anything.
[[nodiscard]] bool StartsAnything(const ButtonSlot& slot);
