// The runtime's own versions of these print what went wrong, to an output that a program with windows does
// not have, and bring 85 KB of demangling and formatting along.

#include <cstdlib>

namespace __gnu_cxx {                // NOLINT(bugprone-reserved-identifier): the runtime's own name
void __verbose_terminate_handler() { // NOLINT(bugprone-reserved-identifier)
    std::abort();
}
} // namespace __gnu_cxx

namespace std { // NOLINT(cert-dcl58-cpp): the runtime asks for it by this name
[[noreturn]] void __glibcxx_assert_fail(
    const char* /*file*/, int /*line*/, const char* /*function*/,
    const char* /*condition*/) noexcept { // NOLINT(bugprone-reserved-identifier)
    std::abort();
}
} // namespace std
