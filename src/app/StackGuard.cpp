// What the compiler's checks for overrun stack frames compare with. The compiler's own library asks the
// system's cryptographic provider for it, which loads four libraries at every start; this is made of what the
// C runtimes of Windows make theirs of.

#include <windows.h>

#include <bit>
#include <cstdint>

// NOLINTBEGIN(bugprone-reserved-identifier, cert-*, readability-identifier-naming)

extern "C" {

std::uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail() {
    // What __fastfail is: no handler runs on a stack that was written over.
    asm volatile("int $0x29" : : "c"(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE));
    __builtin_unreachable();
}

} // extern "C"

// NOLINTEND(bugprone-reserved-identifier, cert-*, readability-identifier-naming)

namespace {

constexpr int kFirstOfAll = 101; ///< before every other constructor; lower ones belong to the compiler

/// Every bit of the result depends on every bit of the value.
constexpr std::uint64_t Mix(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
    return value ^ (value >> 31);
}

__attribute__((constructor(kFirstOfAll), no_stack_protector)) void MakeStackGuard() {
    FILETIME time{};
    GetSystemTimeAsFileTime(&time);
    LARGE_INTEGER counter{};
    QueryPerformanceCounter(&counter);
    std::uint64_t guard = Mix(std::bit_cast<std::uint64_t>(time));
    guard = Mix(guard ^ static_cast<std::uint64_t>(counter.QuadPart));
    guard = Mix(guard ^ (std::uint64_t{GetCurrentProcessId()} << 32 | GetCurrentThreadId()));
    guard = Mix(guard ^ std::bit_cast<std::uintptr_t>(&time)); // where the system put our stack
    guard = Mix(guard ^ __builtin_ia32_rdtsc());
    // A text that runs over ends before it. 32 bits have none to spare for a wide one.
    constexpr std::uintptr_t kTextEnd = sizeof(std::uintptr_t) > 4 ? 0xFFFF : 0xFF;
    __stack_chk_guard = static_cast<std::uintptr_t>(guard) & ~kTextEnd;
}

} // namespace
