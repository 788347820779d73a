#include "HiddenForm.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

using namespace std::chrono_literals;

/// A form that runs modally, and what it does while no message waits.
class ModalLoopTest : public testing::Test {
protected:
    ~ModalLoopTest() override {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            // a WM_QUIT must not end the next test
        }
    }

    HiddenForm form_;
};

TEST_F(ModalLoopTest, WhatCanWaitIsDoneStepByStep) {
    int steps = 0;
    form_.whenIdle = [&] {
        if (++steps == 20) {
            form_.End();
        }
        return true;
    };
    form_.ShowModal();
    EXPECT_EQ(steps, 20);
}

TEST_F(ModalLoopTest, WithoutMoreToDoItWaits) {
    int asked = 0;
    form_.whenIdle = [&] {
        ++asked;
        return false;
    };
    std::jthread end([&] {
        std::this_thread::sleep_for(kVigil);
        form_.Post();
    });
    form_.whenPosted = [&](UINT) { form_.End(); };
    form_.ShowModal();
    EXPECT_GT(asked, 0);
    EXPECT_LT(asked, 50) << "once for each of a new window's own messages, and no more";
}

TEST_F(ModalLoopTest, MessagesComeFirst) {
    int steps = 0;
    int answered = 0;
    form_.whenPosted = [&](UINT) { ++answered; };
    form_.whenIdle = [&] {
        EXPECT_EQ(answered, 3 * steps);
        if (++steps == 10) {
            form_.End();
        }
        for (int i = 0; i < 3; ++i) {
            form_.Post();
        }
        return true;
    };
    form_.ShowModal();
    EXPECT_EQ(steps, 10);
}

TEST_F(ModalLoopTest, AMessageThatWasSentMayLeaveSomethingToDo) {
    std::atomic<bool> waits = false;
    std::atomic<bool> posted = false;
    bool inTime = false;
    bool sent = false;
    std::atomic<int> steps = 0;
    form_.whenPosted = [&](UINT) { sent = true; };
    form_.whenIdle = [&] {
        waits = true;
        if (!sent) {
            return false;
        }
        ++steps;
        inTime = !posted;
        form_.End();
        return true;
    };
    std::jthread other([&] {
        WaitUntil([&] { return waits.load(); });
        std::this_thread::sleep_for(kVigil); // by then it waits for a message
        SendMessageW(form_.Window(), WM_APP, 0, 0);
        WaitUntil([&] { return steps > 0; }, 2s);
        posted = true;
        form_.Post(); // else a loop that missed it would never end
    });
    form_.ShowModal();
    EXPECT_TRUE(inTime);
}

TEST_F(ModalLoopTest, TheEndOfTheProgramEndsItAndIsPassedOn) {
    form_.whenIdle = [] {
        PostQuitMessage(7);
        return true;
    };
    form_.ShowModal();
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE && message.message != WM_QUIT) {
        DispatchMessageW(&message); // of the form that was hidden
    }
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 7U);
}

} // namespace
