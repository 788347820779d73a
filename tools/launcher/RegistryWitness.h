#pragma once

#include "LogEntry.h"

/// The maker's switch: the user's settings are in the ini file.
bool IniBackEndSelected();

/// The user's settings as the registry holds them.
void AddRegistrySettings(LogEntry& entry);
