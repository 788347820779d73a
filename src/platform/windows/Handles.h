#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

template <class Handle, auto kClose> struct OwnedHandleCloser {
    using pointer = Handle;
    void operator()(Handle handle) const { kClose(handle); }
};
/// Owner of a handle, which `kClose` closes when its owner goes. Null owns nothing.
template <class Handle, auto kClose>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, OwnedHandleCloser<Handle, kClose>>;

using Bitmap = Owned<HBITMAP, DeleteObject>;
using Cursor = Owned<HCURSOR, DestroyCursor>;
using Font = Owned<HFONT, DeleteObject>;
using Icon = Owned<HICON, DestroyIcon>;
using KernelHandle = Owned<HANDLE, CloseHandle>;
using MemoryDc = Owned<HDC, DeleteDC>;
using PopupMenu = Owned<HMENU, DestroyMenu>;
using Region = Owned<HRGN, DeleteObject>;

/// For functions that answer INVALID_HANDLE_VALUE on failure.
[[nodiscard]] inline KernelHandle OwnedFile(HANDLE handle) {
    return KernelHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

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
