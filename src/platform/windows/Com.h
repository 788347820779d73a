#pragma once

#include "platform/windows/Handles.h"

#include <objbase.h>

inline void ReleaseComObject(IUnknown* object) {
    object->Release();
}
template <class Interface> using ComObject = Owned<Interface*, ReleaseComObject>;

/// COM on this thread for as long as this lives. Shell, automation, printer drivers and screen readers ask for it.
class ComApartment {
public:
    ComApartment();
    ~ComApartment();
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

private:
    bool entered_;
};

/// CoCreateInstance, of an object in this process or, where `context` says so, another one.
[[nodiscard]] HRESULT CreateComInstance(const CLSID& classId, const IID& interfaceId, void** object,
                                        DWORD context = CLSCTX_INPROC_SERVER);

/// An object of the class; null when it is missing, or lacks the interface.
template <class Interface>
[[nodiscard]] ComObject<Interface> CreateComObject(const CLSID& classId, const IID& interfaceId,
                                                   DWORD context = CLSCTX_INPROC_SERVER) {
    void* object = nullptr;
    return ComObject<Interface>(SUCCEEDED(CreateComInstance(classId, interfaceId, &object, context))
                                    ? static_cast<Interface*>(object)
                                    : nullptr);
}

/// Another interface of an object; null when it has none.
template <class Interface>
[[nodiscard]] ComObject<Interface> QueryComObject(IUnknown& from, const IID& interfaceId) {
    void* object = nullptr;
    return ComObject<Interface>(
        SUCCEEDED(from.QueryInterface(interfaceId, &object)) ? static_cast<Interface*>(object) : nullptr);
}

/// CoTaskMemFree.
void FreeComMemory(void* memory);
