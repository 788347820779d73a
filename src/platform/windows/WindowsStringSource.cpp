#include "platform/windows/WindowsStringSource.h"

#include <windows.h>

std::wstring WindowsStringSource::Load(int id) const {
    // With a buffer size of 0 the call answers with a pointer into the resource itself.
    const wchar_t* text = nullptr;
    const int length = LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(id),
                                   static_cast<wchar_t*>(static_cast<void*>(&text)), 0);
    return length > 0 ? std::wstring(text, static_cast<std::size_t>(length)) : std::wstring();
}
