#pragma once

#include "Win32.h"

#include <utility>

namespace UiDriver {

/// Owns one handle and hands it to `Traits::Close` when it goes.
template <class Traits> class UniqueHandle {
public:
    using Type = typename Traits::Type;

    UniqueHandle() = default;
    explicit UniqueHandle(Type handle) noexcept : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, Type{})) {}
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~UniqueHandle() {
        if (handle_ != Type{}) {
            Traits::Close(handle_);
        }
    }

    [[nodiscard]] Type Get() const noexcept { return handle_; }
    Type* Out() noexcept { return &handle_; }
    explicit operator bool() const noexcept { return handle_ != Type{}; }

private:
    Type handle_{};
};

struct KernelHandleTraits {
    using Type = HANDLE;
    static void Close(HANDLE handle) { CloseHandle(handle); }
};

struct RegistryHandleTraits {
    using Type = HKEY;
    static void Close(HKEY key) { RegCloseKey(key); }
};

struct GdiObjectTraits {
    using Type = HGDIOBJ;
    static void Close(HGDIOBJ object) { DeleteObject(object); }
};

struct MemoryDcTraits {
    using Type = HDC;
    static void Close(HDC hdc) { DeleteDC(hdc); }
};

using UniqueKernelHandle = UniqueHandle<KernelHandleTraits>;
using UniqueRegistryKey = UniqueHandle<RegistryHandleTraits>;
using UniqueGdiObject = UniqueHandle<GdiObjectTraits>;
using UniqueMemoryDc = UniqueHandle<MemoryDcTraits>;

} // namespace UiDriver
