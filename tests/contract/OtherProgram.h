#pragma once

#include "Waiting.h"

#include <windows.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

struct HandleCloser {
    void operator()(void* handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

/// Something that one process waits for and another one sets. It stays set.
class Signal {
public:
    explicit Signal(const std::wstring& name);
    void Set();
    /// False when the time is over.
    [[nodiscard]] bool Wait(std::chrono::milliseconds patience) const;

private:
    OwnedHandle event_;
};

/// Memory that two processes share by its name; all zero at first.
class SharedMemory {
public:
    SharedMemory(const std::wstring& name, std::size_t size);
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    ~SharedMemory();
    [[nodiscard]] void* Data() const { return data_; }

private:
    OwnedHandle mapping_;
    void* data_ = nullptr;
};

/// A T in shared memory.
template <class T> class Shared {
public:
    static_assert(std::is_trivially_destructible_v<T> && std::atomic<std::uintptr_t>::is_always_lock_free);

    explicit Shared(const std::wstring& name) : memory_(name, sizeof(T)) {}
    T* operator->() const { return static_cast<T*>(memory_.Data()); }

private:
    SharedMemory memory_;
};

/// This test program, run once more as another process with a role to play. It ends with this object, or with
/// the test that started it.
class OtherProgram {
public:
    /// `role` is one of those in PlayRole; `arguments` mean something to the role.
    OtherProgram(const std::wstring& role, const std::vector<std::wstring>& arguments);
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram() { Kill(); }

    /// As when it crashes: nothing of it runs any more.
    void Kill();
    /// False when it still runs when the time is over.
    [[nodiscard]] bool WaitForEnd(std::chrono::milliseconds patience) const;

    /// The exit code of a process that was started for a role; nothing for the test itself.
    static std::optional<int> PlayRole();

private:
    OwnedHandle process_;
};

/// A name that no other test, and no other run of this one, uses.
[[nodiscard]] std::wstring UniqueName();
