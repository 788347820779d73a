#pragma once

#include "LogEntry.h"

/// Adds to `entry` what a launcher finds in the settings store at this moment. A value that is missing in the
/// store is left out; one of a type that a launcher could not use is given under its key with `.wrongType`
/// appended, as type number and bytes in hexadecimal.
///
/// The reading is written anew here rather than shared with the settings program: a mistake in the program's
/// own idea of the layout must show.
void AddSettings(LogEntry& entry);
