#pragma once

#include "Handle.h"

#include <cstddef>

namespace UiDriver {

/// A block in the address space of the process that owns a window, for messages the system does not marshal.
class RemoteMemory {
public:
    RemoteMemory(HWND hwnd, std::size_t bytes);
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;
    ~RemoteMemory();

    [[nodiscard]] std::byte* Address() const { return address_; }
    [[nodiscard]] LPARAM Param() const { return reinterpret_cast<LPARAM>(address_); }

    void Write(std::size_t offset, const void* source, std::size_t bytes) const;
    void Read(std::size_t offset, void* target, std::size_t bytes) const;

private:
    UniqueKernelHandle process_;
    std::byte* address_ = nullptr;
};

} // namespace UiDriver
