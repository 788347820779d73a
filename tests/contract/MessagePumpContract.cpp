#include "HiddenForm.h"
#include "Rigs.h"
#include "fakes/FakePendingEvents.h"
#include "ui/MessagePump.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using namespace std::chrono_literals;

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakePendingEvents events;

    /// Lets an event wait.
    void Happen(const std::function<void()>& event) { events.whenProcessed = event; }
};

class WindowsRig {
    HiddenForm form_;

public:
    static constexpr const char* kName = "Windows";
    MessagePump events{form_};

    WindowsRig() { form_.Pump(); }
    void Happen(const std::function<void()>& event) {
        form_.whenPosted = [event](UINT) { event(); };
        form_.Post();
    }
};

template <class Rig> class PendingEventsContract : public testing::Test {
protected:
    Rig rig_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(PendingEventsContract, Rigs, RigName);

TYPED_TEST(PendingEventsContract, WhatWaitsIsWorkedOff) {
    int happened = 0;
    this->rig_.Happen([&] { ++happened; });
    EXPECT_EQ(happened, 0);
    EXPECT_TRUE(this->rig_.events.Process());
    EXPECT_EQ(happened, 1);
}

TYPED_TEST(PendingEventsContract, AnEventMayAskForEventsItself) {
    int happened = 0;
    this->rig_.Happen([&] {
        EXPECT_TRUE(this->rig_.events.Process());
        ++happened;
    });
    EXPECT_TRUE(this->rig_.events.Process());
    EXPECT_EQ(happened, 1);
}

class MessagePumpTest : public testing::Test {
protected:
    MessagePumpTest() { form_.Pump(); }
    ~MessagePumpTest() override {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            // a WM_QUIT must not end the next test
        }
    }
    /// The exit code of the WM_QUIT that waits; nothing when another message does, or none.
    [[nodiscard]] static std::optional<int> Quit() {
        MSG message{};
        if (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) == FALSE || message.message != WM_QUIT) {
            return std::nullopt;
        }
        return static_cast<int>(message.wParam);
    }

    HiddenForm form_;
    MessagePump pump_{form_};
};

TEST_F(MessagePumpTest, TheEndOfTheProgramIsToldAndPassedOn) {
    PostQuitMessage(7);
    EXPECT_FALSE(pump_.Process());
    EXPECT_EQ(Quit(), 7);
    EXPECT_FALSE(pump_.Process());
    EXPECT_EQ(Quit(), 7);
}

TEST_F(MessagePumpTest, AStormOfMessagesDoesNotHoldProcessForEver) {
    int answered = 0;
    bool over = false;
    form_.whenPosted = [&, end = std::chrono::steady_clock::now() + kPatience](UINT) {
        ++answered;
        if (std::chrono::steady_clock::now() < end) {
            form_.Post();
        } else {
            over = true;
        }
    };
    form_.Post();
    form_.Post();
    EXPECT_TRUE(pump_.Process());
    EXPECT_FALSE(over);
    EXPECT_GT(answered, 0);
}

TEST_F(MessagePumpTest, SlowWorkShowsTheHourglassWhenEventsAreProcessed_UntilItsEnd) {
    {
        const MessagePump::SlowWork slow(pump_);
        EXPECT_TRUE(pump_.Process());
        std::this_thread::sleep_for(400ms);
        EXPECT_FALSE(pump_.ShowsHourglass());
        EXPECT_TRUE(pump_.Process());
        EXPECT_TRUE(pump_.ShowsHourglass());
    }
    EXPECT_FALSE(pump_.ShowsHourglass());
}

TEST_F(MessagePumpTest, WorkThatNobodyCallsSlowHasNoHourglass) {
    EXPECT_TRUE(pump_.Process());
    std::this_thread::sleep_for(400ms);
    EXPECT_TRUE(pump_.Process());
    EXPECT_FALSE(pump_.ShowsHourglass());
}

} // namespace
