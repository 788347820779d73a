#pragma once

#include "app/FormClass.h"
#include "platform/InstanceGuard.h"
#include "platform/TopLevelWindows.h"

class StringTable;

/// Brings the settings dialog, or the wizard that runs alone, forward. False when neither is open.
bool BringDialogForward(TopLevelWindows& windows, const StringTable& texts);

/// True when another instance runs; its settings dialog, or its wizard that runs alone, is then brought
/// forward.
[[nodiscard]] bool YieldToOtherInstance(InstanceGuard& guard, TopLevelWindows& windows,
                                        const StringTable& texts);
