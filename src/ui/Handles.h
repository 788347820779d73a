#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

/// Owners of GDI handles: the handle goes when its owner goes.
struct GdiObjectDeleter {
    void operator()(void* object) const { DeleteObject(object); }
};
template <class Handle> using GdiObject = std::unique_ptr<std::remove_pointer_t<Handle>, GdiObjectDeleter>;

using Font = GdiObject<HFONT>;
using Bitmap = GdiObject<HBITMAP>;
using Region = GdiObject<HRGN>;

struct MenuDeleter {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using PopupMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuDeleter>;

struct MemoryDcDeleter {
    void operator()(HDC hdc) const { DeleteDC(hdc); }
};
using MemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, MemoryDcDeleter>;

/// Selects an object into a device context for as long as this lives.
class Selected {
public:
    Selected(HDC hdc, HGDIOBJ object) : hdc_(hdc), previous_(SelectObject(hdc, object)) {}
    ~Selected() { SelectObject(hdc_, previous_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC hdc_;
    HGDIOBJ previous_;
};
