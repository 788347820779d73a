// 1,000 presses by the real keyboard, in the middle of whatever else may happen. tools/soak runs it.

#include "../storm/Figures.h"
#include "LauncherUse.h"

#include <iostream>

namespace {

class LauncherSoak : public LauncherUse {
protected:
    static constexpr int kPresses = 1000;
    static constexpr int kWarmUp = 100;

    static std::size_t OfProbe(const std::wstring& event) {
        std::size_t count = 0;
        for (const ProbeReport& report : Reports(event)) {
            count += report.file.ends_with(L"probe.exe") ? 1U : 0U;
        }
        return count;
    }

    void PressOnce() {
        constexpr UiDriver::Milliseconds kBetween{50}; // faster than any finger
        UiDriver::Keyboard::Press(VK_LAUNCH_MAIL);
        ++pressed_;
        // Of a thousand starts the system refuses one now and then; the next press has to work again.
        constexpr UiDriver::Milliseconds kPatience{5000};
        if (UiDriver::HoldsFor([&] { return OfProbe(L"started") < pressed_; }, kPatience)) {
            --pressed_;
            ++lost_;
            std::cout << "a press started nothing\n";
        }
        UiDriver::Pause(kBetween);
    }
    Figures Now() const {
        UiDriver::WaitUntil([&] { return OfProbe(L"ended") >= pressed_; },
                            L"every press to start its program");
        Window().WaitUntilAnswers();
        return Figures::Of(Program());
    }

    std::size_t pressed_ = 0;
    int lost_ = 0;
};

TEST_F(LauncherSoak, AThousandPressesWhileItReloads_WhileAProgramHangs_AndTheStoreIsDamaged) {
    User().Sub(L"OnScreen").SetDword(L"OnScreen", 1);
    User().Sub(L"OnScreen").SetDword(L"Time", 1);
    SetButton(1, Single());
    const std::wstring hangs = Probe(L"hangs.exe") + L"|/late:20000";
    SetButton(2, {L"Row", L"S", 2, {hangs, L"C:\\no such.exe"}, {}});
    Start();
    for (int i = 0; i < kWarmUp; ++i) {
        PressOnce();
    }
    const Figures before = Now();
    std::cout << "after " << kWarmUp << " presses: " << before << '\n';
    for (int i = kWarmUp; i < kPresses; ++i) {
        if (i % 10 == 0) {
            PostMessageW(Window().Hwnd(), 1336, 1, 0);
        }
        if (i == kWarmUp + 1) {
            Request(2);
        }
        if (i % 50 == 0) {
            // Another program writes rubbish beside what the button needs.
            User().SetString(L"NumSetting", std::wstring(500, L'x'));
            User().Sub(L"OnScreen").SetString(L"Time", L"rubbish");
            User().Sub(L"Setting\\Set1\\AppKey7").SetRaw(L"NumAP", {REG_BINARY, {1, 2, 3, 4, 5, 6, 7, 8}});
        }
        PressOnce();
    }
    const Figures after = Now();
    std::cout << "after " << kPresses << " presses: " << after << '\n';
    EXPECT_EQ(OfProbe(L"started"), pressed_);
    EXPECT_TRUE(Program().Running());
    EXPECT_LE(lost_, 3);
    EXPECT_LE(after.windows, before.windows + 1); // a name that is still shown
    EXPECT_LE(after.gdiObjects, before.gdiObjects + 5);
    EXPECT_LE(after.kernelHandles, before.kernelHandles + 5);
    EXPECT_LE(after.privateBytes, before.privateBytes + 512 * 1024);
}

} // namespace
