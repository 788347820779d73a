#pragma once

#include "platform/windows/Handles.h"

/// The arrow with an icon at its side: what is dragged. Null when the system can't make it.
[[nodiscard]] Cursor CreateDragCursor(HICON icon, int iconSize);
