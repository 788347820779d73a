#include "InstanceRole.h"
#include "OtherProgram.h"
#include "Rigs.h"
#include "fakes/FakeInstanceGuard.h"
#include "platform/windows/WindowsInstanceGuard.h"

#include <latch>
#include <thread>

namespace {

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    [[nodiscard]] std::unique_ptr<InstanceGuard> Start() {
        return std::make_unique<FakeInstanceGuard>(session_);
    }

private:
    FakeSession session_;
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";
    [[nodiscard]] static std::unique_ptr<InstanceGuard> Start() {
        return std::make_unique<WindowsInstanceGuard>();
    }
};

template <class Rig> class InstanceGuardContract : public testing::Test {
protected:
    Rig rig_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(InstanceGuardContract, Rigs, RigName);

TYPED_TEST(InstanceGuardContract, TheFirstInstanceIsAlone) {
    EXPECT_FALSE(this->rig_.Start()->AnotherInstanceRuns());
}

TYPED_TEST(InstanceGuardContract, EveryLaterInstanceIsNot) {
    const auto first = this->rig_.Start();
    const auto second = this->rig_.Start();
    const auto third = this->rig_.Start();
    EXPECT_FALSE(first->AnotherInstanceRuns());
    EXPECT_TRUE(second->AnotherInstanceRuns());
    EXPECT_TRUE(third->AnotherInstanceRuns());
}

TYPED_TEST(InstanceGuardContract, AnInstanceThatHasNotAskedClaimsNothing) {
    const auto silent = this->rig_.Start();
    EXPECT_FALSE(this->rig_.Start()->AnotherInstanceRuns());
}

TYPED_TEST(InstanceGuardContract, AfterTheFirstHasEndedTheNextIsAlone) {
    auto first = this->rig_.Start();
    ASSERT_FALSE(first->AnotherInstanceRuns());
    first.reset();
    EXPECT_FALSE(this->rig_.Start()->AnotherInstanceRuns());
}

TYPED_TEST(InstanceGuardContract, AfterTheFirstHasGivenUpTheNextIsAlone) {
    const auto first = this->rig_.Start();
    ASSERT_FALSE(first->AnotherInstanceRuns());
    first->GiveUp();
    const auto next = this->rig_.Start();
    EXPECT_FALSE(next->AnotherInstanceRuns());
    first->GiveUp();
    EXPECT_TRUE(this->rig_.Start()->AnotherInstanceRuns()) << "giving up twice took the next one's claim";
}

TYPED_TEST(InstanceGuardContract, ARefusedInstanceThatGivesUpLeavesTheFirstItsClaim) {
    const auto first = this->rig_.Start();
    ASSERT_FALSE(first->AnotherInstanceRuns());
    const auto second = this->rig_.Start();
    ASSERT_TRUE(second->AnotherInstanceRuns());
    second->GiveUp();
    EXPECT_TRUE(this->rig_.Start()->AnotherInstanceRuns());
}

TYPED_TEST(InstanceGuardContract, TheFirstInstanceDoesNotMistakeItselfForAnother) {
    const auto first = this->rig_.Start();
    EXPECT_FALSE(first->AnotherInstanceRuns());
    EXPECT_FALSE(first->AnotherInstanceRuns());
}

TYPED_TEST(InstanceGuardContract, ARefusedInstanceThatEndsLeavesTheFirstItsClaim) {
    const auto first = this->rig_.Start();
    ASSERT_FALSE(first->AnotherInstanceRuns());
    EXPECT_TRUE(this->rig_.Start()->AnotherInstanceRuns());
    EXPECT_TRUE(this->rig_.Start()->AnotherInstanceRuns());
}

TYPED_TEST(InstanceGuardContract, OfThreadsThatAskAtTheSameMomentOneIsFirst) {
    constexpr int kThreads = 16, kRounds = 20;
    for (int round = 0; round < kRounds; ++round) {
        std::vector<std::unique_ptr<InstanceGuard>> guards;
        for (int i = 0; i < kThreads; ++i) {
            guards.push_back(this->rig_.Start());
        }
        std::latch start(kThreads);
        std::atomic<int> first = 0;
        {
            std::vector<std::jthread> threads;
            for (const auto& guard : guards) {
                threads.emplace_back([&] {
                    start.arrive_and_wait();
                    first += guard->AnotherInstanceRuns() ? 0 : 1;
                });
            }
        }
        ASSERT_EQ(first, 1) << "round " << round;
    }
}

/// Instances of the program in processes of their own, held back until they may all ask at once.
class OtherInstances {
public:
    explicit OtherInstances(int count) : name_(UniqueName()), report_(name_), go_(name_ + L".Go") {
        for (int i = 0; i < count; ++i) {
            programs_.push_back(
                std::make_unique<OtherProgram>(kInstanceRole, std::vector<std::wstring>{name_}));
        }
    }
    /// False when not all of them got as far.
    [[nodiscard]] bool AllAsk() {
        const int count = static_cast<int>(programs_.size());
        const bool ready = WaitUntil([&] { return report_->ready == count; });
        go_.Set();
        return ready && WaitUntil([&] { return report_->asked == count; });
    }
    [[nodiscard]] int First() const { return report_->first; }
    void KillAll() { programs_.clear(); }

private:
    std::wstring name_;
    Shared<InstanceReport> report_;
    Signal go_;
    std::vector<std::unique_ptr<OtherProgram>> programs_;
};

TEST(WindowsInstanceGuardTest, OfProcessesThatAskAtTheSameMomentOneIsFirst) {
    OtherInstances others(8);
    ASSERT_TRUE(others.AllAsk());
    EXPECT_EQ(others.First(), 1);
}

TEST(WindowsInstanceGuardTest, AnInstanceInAnotherProcessIsSeen) {
    OtherInstances other(1);
    ASSERT_TRUE(other.AllAsk());
    EXPECT_EQ(other.First(), 1);
    EXPECT_TRUE(WindowsInstanceGuard().AnotherInstanceRuns());
}

TEST(WindowsInstanceGuardTest, AnInstanceThatCrashedHoldsNoClaim) {
    OtherInstances other(1);
    ASSERT_TRUE(other.AllAsk());
    other.KillAll();
    EXPECT_FALSE(WindowsInstanceGuard().AnotherInstanceRuns());
}

} // namespace
