#include "StormUse.h"

#include "driver/Message.h"

#include <cstdlib>

using UiDriver::Milliseconds;
using UiDriver::Window;

namespace {

constexpr Milliseconds kBetweenLooks{50};
constexpr Milliseconds kLongestUnrest{3000};
constexpr Milliseconds kAtOnce{10};
constexpr int kMostCloses = 100;
constexpr int kPages = 3;
constexpr int kMostLooks = 30;

/// Whether nothing has opened or closed between the two.
bool SameLevel(const Scene& a, const Scene& b) {
    const auto menu = [](const Scene& scene) { return scene.menu ? scene.menu->Hwnd() : nullptr; };
    return a.dialogs.size() == b.dialogs.size() && menu(a) == menu(b) && a.inMenuMode == b.inMenuMode;
}

} // namespace

StormUse::StormUse() : printer_(L"cat >/dev/null") {
    // What a random file name leaves goes with the folder.
    SetCurrentDirectoryW(ScratchFolder::Path().c_str());
    // The registration dialog shows only programs that are there.
    Hold({L"Held",
          L"S",
          3,
          {MenuPath(MenuFile(1)) + L"|/first", MenuPath(MenuFile(2)), MenuPath(MenuFile(3))},
          {L"Tool1", L"Tool2", L"Tool3"}});
}

void StormUse::TearDown() {
    watch_.reset(); // its program is killed now
    SourceUse::TearDown();
    SetCurrentDirectoryW(L"C:\\");
}

int Wanted(const char* environmentVariable, int otherwise) {
    const char* const text = std::getenv(environmentVariable);
    return text == nullptr || *text == '\0' ? otherwise : std::stoi(text);
}

void StormUse::StartWatched(const std::wstring& arguments) {
    StartHere(arguments);
    // A short run is one of many tests, which may not fail because the machine is busy.
    const bool longRun = Wanted("QLB_STORM_ROUNDS", 0) != 0 || Wanted("QLB_LEAK_TIMES", 0) != 0;
    watch_ = std::make_unique<Watch>(
        Program().Id(),
        longRun ? Watch::kLimits : Watch::Limits{UiDriver::kDefaultTimeout, UiDriver::kDefaultTimeout});
}

void StormUse::StartWarm() {
    StartWatched(L"/t:0");
    for (const int page : {0, 1, 2}) {
        OpenPage(page);
    }
    for (const int control : {IDC_picButton0, IDC_cmdUserManager0, IDC_cmdWizard0}) {
        OpenFrom(0, control);
        BackToDialog();
    }
    OpenFrom(2, IDC_CmdFontColor);
    BackToDialog();
    Print();
    BackToDialog();
}

void StormUse::ShowPage(int page) const {
    // By keys: once an arrow key has changed it, Wine's tab control takes no click.
    for (int turns = 0; Tabs().Selected() != page; ++turns) {
        if (turns == kPages) {
            UiDriver::Fail(L"page " + std::to_wstring(page) + L" does not open");
        }
        UiDriver::Keyboard::Press({VK_CONTROL}, VK_TAB);
        Settle();
    }
}

void StormUse::OpenFrom(int page, int control) const {
    ShowPage(page);
    PressIn(Dialog(), control);
}

void StormUse::PressIn(const Window& form, int control) const {
    form.Control(control).Press();
    AwaitOver(form);
    Settle();
}

void StormUse::Print() const {
    Dialog().Control(IDC_cmdPrint).Press();
    const Window dialog = AwaitOver(Dialog());
    dialog.Control(IDOK).Press();
    dialog.WaitUntilGone();
    // Between that dialog and the printing the settings dialog is enabled, but does not answer.
    const auto done = [&] {
        Dialog().WaitUntilAnswers();
        return Alone();
    };
    UiDriver::WaitUntil(done, L"the end of the printing");
}

Window StormUse::AwaitOver(const Window& owner) const {
    return UiDriver::WaitForValue(
        [&]() -> std::optional<Window> {
            const Scene scene = Scene::Of(Program().Id());
            const bool opened = scene.active.size() == 1 && scene.Active().Hwnd() != owner.Hwnd();
            return opened ? std::optional(scene.Active()) : std::nullopt;
        },
        L"a dialog over the one before");
}

void StormUse::AskParameter() const {
    OpenFrom(0, IDC_picButton0);
    const Window form = Scene::Of(Program().Id()).Active();
    form.BringToFront();
    UiDriver::Mouse::Click(form.Control(IDC_txtApplication0).Centre(), UiDriver::MouseButton::Right);
    UiDriver::PopupMenu::Wait(Program()).ChooseByMouse(1, "xx-x");
    AwaitOver(form);
    Settle();
}

void StormUse::Settle() const {
    const ULONGLONG start = GetTickCount64();
    std::vector<std::size_t> before;
    for (;;) {
        const bool sound = watch_->Look();
        // A program that is about to end has no windows any more.
        if (!IsWindow(Dialog().Hwnd())) {
            Program().WaitForExit();
            return;
        }
        std::vector<std::size_t> now = Appearance(Program());
        const bool atRest = sound && now == before;
        if (atRest || GetTickCount64() - start > static_cast<ULONGLONG>(kLongestUnrest.count())) {
            return;
        }
        before = std::move(now);
        UiDriver::Pause(kBetweenLooks);
    }
}

Figures StormUse::Held() const {
    Dialog().WaitUntilAnswers();
    Figures before = Figures::Of(Program());
    for (int i = 0; i < kMostLooks; ++i) {
        UiDriver::Pause(kAtOnce);
        const Figures now = Figures::Of(Program());
        const bool atRest = now.windows == before.windows && now.gdiObjects == before.gdiObjects &&
                            now.kernelHandles == before.kernelHandles;
        before = now;
        if (atRest) {
            break;
        }
    }
    return before;
}

bool StormUse::Stays(const Window& window) {
    return UiDriver::HoldsFor([&] { return window.Exists(); }, UiDriver::kDefaultTimeout);
}

void StormUse::CloseTop(const Scene& scene) const {
    if (scene.menu || scene.inMenuMode) {
        UiDriver::Keyboard::Press(VK_ESCAPE);
        return;
    }
    // When the last dialog has closed meanwhile, the settings dialog must not follow it.
    if (scene.active.empty() || scene.Active().Hwnd() == Dialog().Hwnd()) {
        return;
    }
    const Window& top = scene.Active();
    try {
        // A question that only has Yes and No has no close box.
        if (!scene.activeIsForm && top.HasControl(IDYES) && !top.HasControl(IDCANCEL)) {
            top.Control(IDYES).Press();
        } else {
            top.Close();
        }
    } catch (const std::exception&) {
        if (Stays(top)) {
            throw;
        } // else it was just closing by itself
    }
}

bool StormUse::Alone() const {
    const Scene scene = Scene::Of(Program().Id());
    return !scene.menu && !scene.inMenuMode && scene.dialogs.size() == 1 && scene.active.size() == 1;
}

void StormUse::CloseAll() const {
    for (int i = 0; i < kMostCloses; ++i) {
        if (!Program().Running() || Alone()) {
            return;
        }
        const Scene scene = Scene::Of(Program().Id());
        CloseTop(scene);
        // Until it is gone, or has asked something, or a moment has passed.
        const ULONGLONG start = GetTickCount64();
        while (GetTickCount64() - start < static_cast<ULONGLONG>(kLongestUnrest.count()) / 10 &&
               SameLevel(Scene::Of(Program().Id()), scene)) {
            UiDriver::Pause(kAtOnce);
        }
    }
    UiDriver::Fail(L"the open dialogs do not close: " +
                   UiDriver::FromUtf8(Description(Scene::Of(Program().Id()))));
}

void StormUse::BackToDialog() const {
    Settle();
    CloseAll();
    if (!Program().Running()) {
        return;
    }
    if (Dialog().Minimised()) {
        Dialog().Restore();
    }
    Dialog().BringToFront();
    ShowPage(0);
    UiDriver::Mouse::MoveTo({2, 2});
    Settle();
}
