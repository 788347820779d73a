#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

struct CursorDeleter {
    void operator()(HCURSOR cursor) const { DestroyCursor(cursor); }
};
using Cursor = std::unique_ptr<std::remove_pointer_t<HCURSOR>, CursorDeleter>;

/// The arrow with an icon at its side: what is dragged. Null when the system can't make it.
[[nodiscard]] Cursor CreateDragCursor(HICON icon, int iconSize);
