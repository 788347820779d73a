// The runtime's own versions of these print what went wrong, to an output that a program with windows does
// not have, and bring 85 KB of demangling and formatting along. It finds them by its own names.

#include <cstdlib>

// NOLINTBEGIN(bugprone-reserved-identifier, cert-*, readability-identifier-naming)

namespace __gnu_cxx {
void __verbose_terminate_handler() {
    std::abort();
}
} // namespace __gnu_cxx

namespace std {
void __glibcxx_assert_fail(const char* /*file*/, int /*line*/, const char* /*function*/,
                           const char* /*condition*/) noexcept {
    std::abort();
}
} // namespace std

// NOLINTEND(bugprone-reserved-identifier, cert-*, readability-identifier-naming)
