#include "platform/windows/WindowsSession.h"

#include <gtest/gtest.h>

#include <optional>
#include <thread>

namespace {

bool ComIsEntered() {
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    return CoGetApartmentType(&type, &qualifier) == S_OK && type != APTTYPE_MTA;
}

TEST(WindowsSessionTest, HasComAndNoBoxesForDisks_AsLongAsItLives) {
    const UINT before = GetErrorMode();
    // On a thread of its own: this one is in COM already.
    std::jthread([] {
        EXPECT_FALSE(ComIsEntered());
        std::optional<WindowsSession> session(std::in_place);
        EXPECT_TRUE(ComIsEntered());
        EXPECT_NE(GetErrorMode() & SEM_FAILCRITICALERRORS, 0U);
        EXPECT_NE(GetErrorMode() & SEM_NOOPENFILEERRORBOX, 0U);
        session.reset();
        EXPECT_FALSE(ComIsEntered());
    }).join();
    EXPECT_EQ(GetErrorMode(), before);
}

} // namespace
