#include "LauncherUse.h"

namespace {

using testing::ElementsAre;
using testing::SizeIs;
using UiDriver::Keyboard::Down;
using UiDriver::Keyboard::Press;
using UiDriver::Keyboard::Up;

class Keys : public LauncherUse {
protected:
    static constexpr WORD kLaunchKeys[] = {VK_LAUNCH_MAIL, VK_BROWSER_HOME, VK_LAUNCH_MEDIA_SELECT,
                                           VK_LAUNCH_APP1, VK_LAUNCH_APP2};

    std::wstring Line(const std::wstring& parameters) const {
        return L'"' + Folder() + L"\\probe.exe\" " + parameters;
    }
};

TEST_F(Keys, EveryButtonHasACombination_AndTheFirstFiveTheirLaunchKeys) {
    std::vector<std::wstring> wanted;
    for (int button = 1; button <= 8; ++button) {
        SetButton(button, Single(L"of " + std::to_wstring(button)));
    }
    Start();
    for (int button = 1; button <= 8; ++button) {
        Press({VK_CONTROL, VK_MENU}, static_cast<WORD>('0' + button));
        wanted.push_back(Line(L"of " + std::to_wstring(button)));
        AwaitReports(wanted.size());
    }
    for (int button = 1; button <= 5; ++button) {
        Press(kLaunchKeys[button - 1]);
        wanted.push_back(Line(L"of " + std::to_wstring(button)));
        AwaitReports(wanted.size());
    }
    EXPECT_EQ(CommandLines(Reports()), wanted);
}

TEST_F(Keys, AHeldKeyStartsOnce_AndTheNextPressStartsAgain) {
    SetButton(1, Single());
    SetButton(2, Single(L"second"));
    Start();
    constexpr int kRepeats = 20;
    for (int i = 0; i < kRepeats; ++i) {
        Down(VK_LAUNCH_MAIL); // as a keyboard repeats a key
    }
    Up(VK_LAUNCH_MAIL);
    // Handled in order, so that what too many presses had started would report before.
    Press(VK_BROWSER_HOME);
    AwaitReports(2);
    EXPECT_THAT(Reports(), SizeIs(2));
    UiDriver::WaitUntil(
        [&] {
            Press(VK_LAUNCH_MAIL);
            return Reports().size() >= 3;
        },
        L"the key to start again");
}

TEST_F(Keys, KeysOfButtonsThatStartNothingAreLeftToOthers) {
    SetButton(1, Single());
    Start();
    EXPECT_FALSE(RegisterHotKey(nullptr, 1, 0, VK_LAUNCH_MAIL));
    EXPECT_TRUE(RegisterHotKey(nullptr, 2, 0, VK_BROWSER_HOME));
    UnregisterHotKey(nullptr, 2);
    SetButton(1, {L"Empty", L"M", 0, {}, {}});
    EXPECT_TRUE(RegisterHotKey(nullptr, 1, 0, VK_LAUNCH_MAIL));
    UnregisterHotKey(nullptr, 1);
}

TEST_F(Keys, AreTakenAnewAfterTheSessionWasAway) {
    EXPECT_TRUE(RegisterHotKey(nullptr, 1, 0, VK_LAUNCH_MAIL));
    SetButton(1, Single());
    Start();
    UnregisterHotKey(nullptr, 1);
    constexpr WPARAM kUnlocked = 8;
    constexpr UINT kSessionChange = 0x02B1;
    SendMessageW(Window().Hwnd(), kSessionChange, kUnlocked, 0);
    Press(VK_LAUNCH_MAIL);
    AwaitReports(1);

    End();
    EXPECT_TRUE(RegisterHotKey(nullptr, 1, 0, VK_LAUNCH_MAIL));
    Start();
    UnregisterHotKey(nullptr, 1);
    SendMessageW(Window().Hwnd(), WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
    Press(VK_LAUNCH_MAIL);
    AwaitReports(2);
}

TEST_F(Keys, OnesThatTheUserChoseCount) {
    SetButton(3, Single(L"chosen"));
    LauncherKey().SetDword(L"Key3", 'Q' | 512 | 256);
    LauncherKey().SetDword(L"LaunchKey3", 0);
    Start();
    Press(VK_LAUNCH_MEDIA_SELECT);
    Press({VK_CONTROL, VK_MENU}, '3');
    Press({VK_CONTROL, VK_SHIFT}, 'Q');
    EXPECT_THAT(CommandLines(AwaitReports(1)), ElementsAre(Line(L"chosen")));
}

} // namespace
