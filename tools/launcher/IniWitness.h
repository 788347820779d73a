#pragma once

#include "LogEntry.h"

/// The user's settings as the ini file holds them, under the same keys as those of the registry.
void AddIniSettings(LogEntry& entry);
