#include "RemoteMemory.h"

#include "Message.h"
#include "Wait.h"

namespace UiDriver {

RemoteMemory::RemoteMemory(HWND hwnd, std::size_t bytes) {
    RequireAlive(hwnd);
    DWORD processId = 0;
    GetWindowThreadProcessId(hwnd, &processId);
    process_ = UniqueKernelHandle(
        OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId));
    if (!process_) {
        FailLastError(L"opening the process of " + Describe(hwnd));
    }
    address_ = static_cast<std::byte*>(
        VirtualAllocEx(process_.Get(), nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    if (address_ == nullptr) {
        FailLastError(L"reserving memory in the process of " + Describe(hwnd));
    }
}

RemoteMemory::~RemoteMemory() {
    VirtualFreeEx(process_.Get(), address_, 0, MEM_RELEASE);
}

void RemoteMemory::Write(std::size_t offset, const void* source, std::size_t bytes) const {
    if (!WriteProcessMemory(process_.Get(), address_ + offset, source, bytes, nullptr)) {
        FailLastError(L"writing the memory of another process");
    }
}

void RemoteMemory::Read(std::size_t offset, void* target, std::size_t bytes) const {
    if (!ReadProcessMemory(process_.Get(), address_ + offset, target, bytes, nullptr)) {
        FailLastError(L"reading the memory of another process");
    }
}

} // namespace UiDriver
