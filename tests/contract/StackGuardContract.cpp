#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>

// NOLINTNEXTLINE(bugprone-reserved-identifier, cert-*, readability-identifier-naming)
extern "C" std::uintptr_t __stack_chk_guard;

namespace {

const std::uintptr_t kAtConstruction = __stack_chk_guard; // NOLINT(cert-err58-cpp): before main

/// Fills a local array, and more than that when `count` says so.
[[gnu::noinline]] int Fill(std::size_t count) {
    std::array<volatile char, 16> local{};
    volatile char* at = local.data();
    for (std::size_t i = 0; i < count; ++i) {
        at[i] = 'x'; // NOLINT(cppcoreguidelines-pro-bounds-pointer-arithmetic): what is tested
    }
    return local.front();
}

TEST(StackGuard, IsMadeBeforeTheProgramBegins) {
    EXPECT_NE(kAtConstruction, 0U);
    EXPECT_EQ(kAtConstruction, __stack_chk_guard) << "frames of before it changed would look written over";
}

TEST(StackGuard, BeginsAsATextEnds) {
    EXPECT_EQ(__stack_chk_guard & 0xFFFF, 0U);
}

TEST(StackGuard, LetsAFullArrayPass) {
    EXPECT_EQ(Fill(16), 'x');
}

TEST(StackGuardDeathTest, EndsAProgramWhoseFrameWasWrittenOver) {
    constexpr unsigned kStackOverrun = 0xC0000409; // STATUS_STACK_BUFFER_OVERRUN
    EXPECT_EXIT(Fill(48), testing::ExitedWithCode(static_cast<int>(kStackOverrun)), "");
}

} // namespace
