#include "Gate.h"
#include "HiddenForm.h"
#include "Rigs.h"
#include "fakes/FakePendingEvents.h"
#include "platform/windows/Worker.h"
#include "ui/MessagePump.h"

#include <gtest/gtest.h>

#include <optional>
#include <thread>

namespace {

using namespace std::chrono_literals;

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakePendingEvents events;

    /// Lets an event wait.
    void Happen(const std::function<void()>& event) { events.whenProcessed = event; }
    void LetGivenUpWorkEnd() { EXPECT_TRUE(events.RunGivenUpWork()); }
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
    static void LetGivenUpWorkEnd() {
        EXPECT_TRUE(WaitUntil([] { return !WorkersRun(); }));
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
    this->rig_.events.Process();
    EXPECT_EQ(happened, 1);
}

TYPED_TEST(PendingEventsContract, TheWorkIsDoneWhenItReturns) {
    std::atomic<bool> done = false;
    EXPECT_TRUE(this->rig_.events.RunBeside([&] { done = true; }, [] { return true; }));
    EXPECT_TRUE(done);
}

TYPED_TEST(PendingEventsContract, EventsAreAnsweredWhileTheWorkGoesOn) {
    std::atomic<bool> happened = false;
    bool seenByWork = false;
    this->rig_.Happen([&] { happened = true; });
    EXPECT_TRUE(this->rig_.events.RunBeside([&] { seenByWork = WaitUntil([&] { return happened.load(); }); },
                                            [] { return true; }));
    EXPECT_TRUE(seenByWork);
}

TYPED_TEST(PendingEventsContract, WorkThatAnEventMakesUselessIsGivenUpAndEndsLater) {
    struct Shared {
        Gate gate;
        std::atomic<bool> done = false;
    };
    const auto shared = std::make_shared<Shared>();
    shared->gate.Close();
    bool goOn = true;
    this->rig_.Happen([&] { goOn = false; });
    EXPECT_FALSE(this->rig_.events.RunBeside(
        [shared] {
            shared->gate.Await();
            shared->done = true;
        },
        [&] { return goOn; }));
    EXPECT_FALSE(shared->done);
    shared->gate.Open();
    this->rig_.LetGivenUpWorkEnd();
    EXPECT_TRUE(shared->done);
    EXPECT_EQ(shared.use_count(), 1) << "the work still holds what it touched";
}

TYPED_TEST(PendingEventsContract, AnEventMayRunWorkOfItsOwn) {
    std::atomic<int> done = 0;
    bool inner = false;
    this->rig_.Happen([&] { inner = this->rig_.events.RunBeside([&] { ++done; }, [] { return true; }); });
    EXPECT_TRUE(this->rig_.events.RunBeside(
        [&] {
            WaitUntil([&] { return done > 0; });
            ++done;
        },
        [] { return true; }));
    EXPECT_TRUE(inner);
    EXPECT_EQ(done, 2);
}

TYPED_TEST(PendingEventsContract, TheWorkMayAskForEventsItself) {
    this->rig_.Happen([] {});
    bool done = false;
    EXPECT_TRUE(this->rig_.events.RunBeside(
        [&] {
            this->rig_.events.Process();
            done = true;
        },
        [] { return true; }));
    EXPECT_TRUE(done);
}

class MessagePumpTest : public testing::Test {
protected:
    MessagePumpTest() { form_.Pump(); }
    ~MessagePumpTest() override {
        gate_.Open();
        EXPECT_TRUE(WaitUntil([] { return !WorkersRun(); }));
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
    /// Messages that come as fast as they are worked off, for as long as a test has patience.
    void Storm() {
        form_.whenPosted = [this, end = std::chrono::steady_clock::now() + kPatience](UINT) {
            ++answered_;
            if (std::chrono::steady_clock::now() < end) {
                form_.Post();
            } else {
                stormOver_ = true;
            }
        };
        form_.Post();
        form_.Post();
    }

    HiddenForm form_;
    MessagePump pump_{form_};
    Gate gate_;
    int answered_ = 0;
    bool stormOver_ = false;
};

TEST_F(MessagePumpTest, TheEndOfTheProgramIsPassedOn) {
    PostQuitMessage(7);
    pump_.Process();
    EXPECT_EQ(Quit(), 7);
    pump_.Process();
    EXPECT_EQ(Quit(), 7);
}

TEST_F(MessagePumpTest, WorkIsGivenUpWhenTheProgramEnds) {
    gate_.Close();
    form_.whenPosted = [](UINT) { PostQuitMessage(3); };
    form_.Post();
    EXPECT_FALSE(pump_.RunBeside([this] { gate_.Await(); }, [] { return true; }));
    EXPECT_EQ(Quit(), 3);
}

TEST_F(MessagePumpTest, AfterTheEndOfTheProgramNoWorkIsWaitedFor) {
    PostQuitMessage(3);
    pump_.Process();
    gate_.Close();
    EXPECT_FALSE(pump_.RunBeside([this] { gate_.Await(); }, [] { return true; }));
    EXPECT_EQ(Quit(), 3);
}

TEST_F(MessagePumpTest, WorkThatIsUselessFromTheStartIsNotWaitedFor) {
    gate_.Close();
    EXPECT_FALSE(pump_.RunBeside([this] { gate_.Await(); }, [] { return false; }));
}

TEST_F(MessagePumpTest, AnotherThreadsMessagesStayWhereTheyAre) {
    bool processedThere = true;
    form_.whenPosted = [this](UINT) { ++answered_; };
    form_.Post();
    std::jthread([&] {
        MSG message{};
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE); // makes the queue
        PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
        pump_.Process();
        processedThere = PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) == FALSE;
    }).join();
    EXPECT_FALSE(processedThere);
    EXPECT_EQ(answered_, 0);
    pump_.Process();
    EXPECT_EQ(answered_, 1);
}

TEST_F(MessagePumpTest, AStormOfMessagesDoesNotHoldProcessForEver) {
    Storm();
    pump_.Process();
    EXPECT_FALSE(stormOver_);
    EXPECT_GT(answered_, 0);
}

TEST_F(MessagePumpTest, AStormOfMessagesDoesNotHideThatTheWorkIsDone) {
    Storm();
    EXPECT_TRUE(pump_.RunBeside([] {}, [] { return true; }));
    EXPECT_FALSE(stormOver_);
}

TEST_F(MessagePumpTest, TheWorkMaySendTheFormAMessage) {
    int answered = 0;
    form_.whenPosted = [&](UINT message) { answered += message == WM_APP + 5; };
    bool sent = false;
    EXPECT_TRUE(pump_.RunBeside(
        [&] {
            DWORD_PTR result = 0;
            const auto patience = static_cast<UINT>(kPatience.count());
            sent = SendMessageTimeoutW(form_.Window(), WM_APP + 5, 0, 0, SMTO_NORMAL, patience, &result) != 0;
        },
        [] { return true; }));
    EXPECT_TRUE(sent);
    EXPECT_EQ(answered, 1);
}

TEST_F(MessagePumpTest, SlowWorkShowsTheHourglassUntilItsEnd) {
    gate_.Close();
    {
        const MessagePump::SlowWork slow(pump_);
        EXPECT_FALSE(pump_.ShowsHourglass());
        EXPECT_TRUE(pump_.RunBeside([this] { gate_.Await(); },
                                    [this] {
                                        if (pump_.ShowsHourglass()) {
                                            gate_.Open();
                                        }
                                        return true;
                                    }));
        EXPECT_TRUE(pump_.ShowsHourglass());
        {
            const MessagePump::SlowWork within(pump_);
            EXPECT_TRUE(pump_.ShowsHourglass());
        }
        EXPECT_TRUE(pump_.ShowsHourglass());
    }
    EXPECT_FALSE(pump_.ShowsHourglass());
}

TEST_F(MessagePumpTest, SlowWorkOnTheThreadItselfShowsTheHourglassWhenEventsAreProcessed) {
    const MessagePump::SlowWork slow(pump_);
    std::this_thread::sleep_for(400ms);
    EXPECT_FALSE(pump_.ShowsHourglass());
    pump_.Process();
    EXPECT_TRUE(pump_.ShowsHourglass());
}

TEST_F(MessagePumpTest, WorkThatNobodyCallsSlowHasNoHourglass) {
    EXPECT_TRUE(pump_.RunBeside([] { std::this_thread::sleep_for(400ms); }, [] { return true; }));
    EXPECT_FALSE(pump_.ShowsHourglass());
}

TEST_F(MessagePumpTest, ManyWorksHoldNoThreadOrEventAtTheirEnd) {
    for (int i = 0; i < 200; ++i) {
        std::atomic<bool> done = false;
        ASSERT_TRUE(pump_.RunBeside([&] { done = true; }, [] { return true; }));
        ASSERT_TRUE(done);
    }
    EXPECT_TRUE(WaitUntil([] { return !WorkersRun(); }));
}

TEST(WorkerTest, AWorkerRunsUntilItsWorkIsDone) {
    ASSERT_TRUE(WaitUntil([] { return !WorkersRun(); }));
    const auto gate = std::make_shared<Gate>();
    gate->Close();
    const DWORD here = GetCurrentThreadId();
    std::atomic<DWORD> there = here;
    ASSERT_TRUE(StartWorker([gate, &there] {
        there = GetCurrentThreadId();
        gate->Await();
    }));
    EXPECT_TRUE(WorkersRun());
    EXPECT_TRUE(WaitUntil([&] { return there != here; }));
    EXPECT_TRUE(WorkersRun());
    gate->Open();
    EXPECT_TRUE(WaitUntil([] { return !WorkersRun(); }));
    EXPECT_EQ(gate.use_count(), 1);
}

} // namespace
