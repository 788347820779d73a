#include "OtherProgram.h"
#include "Rigs.h"
#include "WindowRole.h"
#include "fakes/FakeWindows.h"
#include "platform/windows/WindowsTopLevelWindows.h"

#include <gmock/gmock.h>

#include <bit>
#include <stdexcept>
#include <thread>

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const wchar_t* kClass = L"QLBUtlContractWindow";
constexpr const wchar_t* kOtherClass = L"QLBUtlContractOther";
constexpr std::uint32_t kMessage = 1336;
constexpr WindowId kNoWindow = 0;

/// A window of another process, and what has become of it.
class OtherWindow {
public:
    OtherWindow(const std::wstring& className, const std::wstring& title, const std::wstring& how)
        : name_(UniqueName()), report_(name_), answer_(name_ + L".Answer"),
          program_(kWindowRole, {name_, className, title, how}) {
        if (!WaitUntil([&] { return report_->window != 0; })) {
            throw std::runtime_error("the other program opened no window");
        }
    }

    [[nodiscard]] WindowId Id() const { return report_->window; }
    [[nodiscard]] WindowId Dialog() const { return report_->dialog; }
    [[nodiscard]] HWND Handle() const { return std::bit_cast<HWND>(Id()); }
    [[nodiscard]] std::vector<WindowMessage> Received() const {
        const auto begin = report_->messages.begin();
        return {begin, begin + report_->received};
    }
    [[nodiscard]] std::uint32_t Answered() const { return report_->answered; }
    void LetAnswer() { answer_.Set(); }
    void Close() {
        PostMessageW(Handle(), WM_CLOSE, 0, 0);
        if (!program_.WaitForEnd(kPatience)) {
            throw std::runtime_error("the other program did not end");
        }
    }

private:
    std::wstring name_;
    Shared<WindowReport> report_;
    Signal answer_;
    OtherProgram program_;
};

class FakeRig {
public:
    static constexpr const char* kName = "Fake";

    FakeWindows windows;

    WindowId Open(const std::wstring& className, const std::wstring& title) {
        return windows.Add(className, title);
    }
    WindowId OpenHung(const std::wstring& className) {
        const WindowId window = windows.Add(className);
        windows.Hang(window);
        return window;
    }
    WindowId OpenMinimised(const std::wstring& className) { return windows.Add(className); }
    void Close(WindowId window) { windows.Close(window); }
    /// The messages that came, once there are `count`.
    [[nodiscard]] std::vector<WindowMessage> Received(WindowId window, std::size_t /*count*/) const {
        std::vector<WindowMessage> messages;
        for (const FakeWindows::Event& event : windows.Events()) {
            if (event.window == window && event.deed != FakeWindows::Deed::BroughtForward) {
                messages.push_back({event.message, event.wParam, 0});
            }
        }
        return messages;
    }
    [[nodiscard]] bool ComesToTheFront(WindowId window) const {
        return windows.Events().back() ==
               FakeWindows::Event{FakeWindows::Deed::BroughtForward, window, 0, 0, std::nullopt};
    }
};

bool ComesToTheForeground(WindowId window, std::chrono::milliseconds patience = kPatience) {
    return WaitUntil([&] { return GetForegroundWindow() == std::bit_cast<HWND>(window); }, patience);
}

/// Brings a window forward and sees `expected` come. A desktop that is still busy with a window that was only just
/// opened may put that one in front again: then once more.
bool BringsForward(WindowId window, WindowId expected) {
    return WaitUntil([&] {
        WindowsTopLevelWindows().BringForward(window);
        return ComesToTheForeground(expected, 1s);
    });
}

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";

    WindowsTopLevelWindows windows;

    WindowId Open(const std::wstring& className, const std::wstring& title) {
        return Start(className, title, kHiddenWindow);
    }
    WindowId OpenHung(const std::wstring& className) { return Start(className, L"", kHungWindow); }
    WindowId OpenMinimised(const std::wstring& className) { return Start(className, L"", kMinimisedWindow); }
    void Close(WindowId window) { Find(window).Close(); }
    [[nodiscard]] std::vector<WindowMessage> Received(WindowId window, std::size_t count) {
        const OtherWindow& other = Find(window);
        WaitUntil([&] { return other.Received().size() >= count; });
        std::vector<WindowMessage> messages = other.Received();
        for (WindowMessage& message : messages) {
            message.lParam = 0;
        }
        return messages;
    }
    [[nodiscard]] static bool ComesToTheFront(WindowId window) {
        return ComesToTheForeground(window) &&
               WaitUntil([&] { return IsIconic(std::bit_cast<HWND>(window)) == FALSE; });
    }

private:
    WindowId Start(const std::wstring& className, const std::wstring& title, const std::wstring& how) {
        return others_.emplace_back(std::make_unique<OtherWindow>(className, title, how))->Id();
    }
    OtherWindow& Find(WindowId window) {
        for (const auto& other : others_) {
            if (other->Id() == window) {
                return *other;
            }
        }
        throw std::logic_error("no such window");
    }

    std::vector<std::unique_ptr<OtherWindow>> others_;
};

template <class Rig> class TopLevelWindowsContract : public testing::Test {
protected:
    Rig rig_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(TopLevelWindowsContract, Rigs, RigName);

TYPED_TEST(TopLevelWindowsContract, WithoutAWindowOfTheClassNoneIsFound) {
    EXPECT_EQ(this->rig_.windows.Find(kClass, std::nullopt), kNoWindow);
    EXPECT_EQ(this->rig_.windows.Find(kClass, L"Title"), kNoWindow);
}

TYPED_TEST(TopLevelWindowsContract, AWindowIsFoundByItsClassWhateverItsTitle) {
    this->rig_.Open(kOtherClass, L"Title");
    const WindowId window = this->rig_.Open(kClass, L"Any title");
    EXPECT_EQ(this->rig_.windows.Find(kClass, std::nullopt), window);
}

TYPED_TEST(TopLevelWindowsContract, AWindowIsFoundByClassAndTitle) {
    const WindowId first = this->rig_.Open(kClass, L"First");
    const WindowId second = this->rig_.Open(kClass, L"Second");
    this->rig_.Open(kOtherClass, L"Third");
    EXPECT_EQ(this->rig_.windows.Find(kClass, L"First"), first);
    EXPECT_EQ(this->rig_.windows.Find(kClass, L"Second"), second);
    EXPECT_EQ(this->rig_.windows.Find(kClass, L"Third"), kNoWindow);
    EXPECT_EQ(this->rig_.windows.Find(kClass, L"Fir"), kNoWindow);
}

TYPED_TEST(TopLevelWindowsContract, AWindowIsFoundByAJapaneseTitle) {
    const WindowId english = this->rig_.Open(kClass, L"Quickfire Button Settings");
    const WindowId japanese = this->rig_.Open(kClass, L"クイックファイアボタンの設定");
    EXPECT_EQ(this->rig_.windows.Find(kClass, L"クイックファイアボタンの設定"), japanese);
    EXPECT_EQ(this->rig_.windows.Find(kClass, L"Quickfire Button Settings"), english);
}

TYPED_TEST(TopLevelWindowsContract, ClassAndTitleCountWithoutRegardToCase) {
    const WindowId window = this->rig_.Open(kClass, L"Title");
    EXPECT_EQ(this->rig_.windows.Find(L"qlbutlCONTRACTwindow", L"tITLE"), window);
}

TYPED_TEST(TopLevelWindowsContract, AnEmptyTitleIsATitle) {
    this->rig_.Open(kClass, L"Title");
    EXPECT_EQ(this->rig_.windows.Find(kClass, L""), kNoWindow);
    const WindowId untitled = this->rig_.Open(kClass, L"");
    EXPECT_EQ(this->rig_.windows.Find(kClass, L""), untitled);
}

TYPED_TEST(TopLevelWindowsContract, AClosedWindowIsNotFound) {
    const WindowId window = this->rig_.Open(kClass, L"Title");
    this->rig_.Close(window);
    EXPECT_EQ(this->rig_.windows.Find(kClass, std::nullopt), kNoWindow);
}

TYPED_TEST(TopLevelWindowsContract, APostedMessageArrives) {
    const WindowId window = this->rig_.Open(kClass, L"");
    const std::int32_t number = 0;
    EXPECT_TRUE(this->rig_.windows.Post(window, kMessage, 1, &number));
    EXPECT_TRUE(this->rig_.windows.Post(window, 1332, 106, nullptr));
    EXPECT_THAT(this->rig_.Received(window, 2),
                ElementsAre(WindowMessage{kMessage, 1, 0}, WindowMessage{1332, 106, 0}));
}

TYPED_TEST(TopLevelWindowsContract, ASentMessageHasArrivedWhenTheCallIsOver) {
    const WindowId window = this->rig_.Open(kClass, L"");
    const std::int32_t number = 0;
    EXPECT_TRUE(this->rig_.windows.Send(window, kMessage, 1, &number));
    EXPECT_THAT(this->rig_.Received(window, 0), ElementsAre(WindowMessage{kMessage, 1, 0}));
}

TYPED_TEST(TopLevelWindowsContract, AMessageReachesOnlyItsWindow) {
    const WindowId window = this->rig_.Open(kClass, L"");
    const WindowId other = this->rig_.Open(kOtherClass, L"");
    EXPECT_TRUE(this->rig_.windows.Send(window, kMessage, 1, nullptr));
    EXPECT_THAT(this->rig_.Received(other, 0), IsEmpty());
}

TYPED_TEST(TopLevelWindowsContract, AClosedWindowTakesNoMessages) {
    const WindowId window = this->rig_.Open(kClass, L"");
    this->rig_.Close(window);
    EXPECT_FALSE(this->rig_.windows.Post(window, kMessage, 1, nullptr));
    EXPECT_FALSE(this->rig_.windows.Send(window, kMessage, 1, nullptr));
}

TYPED_TEST(TopLevelWindowsContract, AHungWindowTakesPostsAndGivesNoAnswer) {
    const WindowId window = this->rig_.OpenHung(kClass);
    EXPECT_TRUE(this->rig_.windows.Post(window, kMessage, 1, nullptr));
    EXPECT_FALSE(this->rig_.windows.Send(window, kMessage, 1, nullptr));
}

TYPED_TEST(TopLevelWindowsContract, AMinimisedWindowBroughtForwardIsRestoredInFront) {
    const WindowId window = this->rig_.OpenMinimised(kClass);
    this->rig_.windows.BringForward(window);
    EXPECT_TRUE(this->rig_.ComesToTheFront(window));
}

TEST(WindowsTopLevelWindowsTest, NoWindowTakesNoMessages) {
    EXPECT_FALSE(WindowsTopLevelWindows().Send(kNoWindow, kMessage, 1, nullptr));
}

TEST(WindowsTopLevelWindowsTest, TheReceiverGetsTheAddressAsANumber) {
    const OtherWindow other(kClass, L"", kHiddenWindow);
    const std::int32_t number = 0;
    const WindowMessage expected{kMessage, 1, std::bit_cast<std::intptr_t>(&number)};
    EXPECT_TRUE(WindowsTopLevelWindows().Send(other.Id(), kMessage, 1, &number));
    EXPECT_TRUE(WindowsTopLevelWindows().Post(other.Id(), kMessage, 1, &number));
    EXPECT_TRUE(WaitUntil([&] { return other.Received().size() == 2; }));
    EXPECT_THAT(other.Received(), ElementsAre(expected, expected));
}

TEST(WindowsTopLevelWindowsTest, PostDoesNotWaitForTheAnswer) {
    OtherWindow other(kClass, L"", kSlowWindow);
    EXPECT_TRUE(WindowsTopLevelWindows().Post(other.Id(), kMessage, 1, nullptr));
    EXPECT_EQ(other.Answered(), 0U);
    other.LetAnswer();
    EXPECT_TRUE(WaitUntil([&] { return other.Answered() == 1; }));
}

TEST(WindowsTopLevelWindowsTest, SendWaitsForTheAnswer) {
    OtherWindow other(kClass, L"", kSlowWindow);
    const std::jthread helper([&] {
        WaitUntil([&] { return !other.Received().empty(); });
        std::this_thread::sleep_for(300ms);
        other.LetAnswer();
    });
    EXPECT_TRUE(WindowsTopLevelWindows().Send(other.Id(), kMessage, 1, nullptr));
    EXPECT_EQ(other.Answered(), 1U);
}

TEST(WindowsTopLevelWindowsTest, AWindowBehindAnotherProgramsIsBroughtForward) {
    const OtherWindow window(kClass, L"", kShownWindow);
    const OtherWindow before(kOtherClass, L"", kShownWindow);
    ASSERT_TRUE(BringsForward(before.Id(), before.Id()));
    EXPECT_TRUE(BringsForward(window.Id(), window.Id()));
}

TEST(WindowsTopLevelWindowsTest, TheDialogOfAWindowIsBroughtForwardInItsPlace) {
    const OtherWindow window(kClass, L"", kWindowWithDialog);
    const OtherWindow before(kOtherClass, L"", kShownWindow);
    ASSERT_TRUE(BringsForward(before.Id(), before.Id()));
    EXPECT_TRUE(BringsForward(window.Id(), window.Dialog()));
}

TEST(WindowsTopLevelWindowsTest, BringingAClosedWindowForwardLeavesTheOthersAlone) {
    const OtherWindow shown(kOtherClass, L"", kShownWindow);
    ASSERT_TRUE(BringsForward(shown.Id(), shown.Id()));
    OtherWindow closed(kClass, L"", kHiddenWindow);
    closed.Close();
    WindowsTopLevelWindows().BringForward(closed.Id());
    EXPECT_EQ(GetForegroundWindow(), shown.Handle());
}

} // namespace
