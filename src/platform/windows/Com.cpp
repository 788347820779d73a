#include "platform/windows/Com.h"

#include "platform/windows/SystemLibrary.h"

namespace {

template <class Procedure> Procedure* OleProcedure(const char* name) {
    return SystemProcedure<Procedure>(L"ole32.dll", name);
}

} // namespace

ComApartment::ComApartment() {
    static const auto kInitialize = OleProcedure<decltype(CoInitializeEx)>("CoInitializeEx");
    entered_ = kInitialize != nullptr &&
               SUCCEEDED(kInitialize(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
}

ComApartment::~ComApartment() {
    static const auto kUninitialize = OleProcedure<decltype(CoUninitialize)>("CoUninitialize");
    if (entered_ && kUninitialize != nullptr) {
        kUninitialize();
    }
}

HRESULT CreateComInstance(const CLSID& classId, const IID& interfaceId, void** object, DWORD context) {
    static const auto kCreate = OleProcedure<decltype(CoCreateInstance)>("CoCreateInstance");
    return kCreate == nullptr ? E_FAIL : kCreate(classId, nullptr, context, interfaceId, object);
}

void FreeComMemory(void* memory) {
    static const auto kFree = OleProcedure<decltype(CoTaskMemFree)>("CoTaskMemFree");
    if (kFree != nullptr) {
        kFree(memory);
    }
}
