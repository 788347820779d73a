#include "LauncherUse.h"
#include "Shortcut.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using UiDriver::Milliseconds;
using UiDriver::Keyboard::Press;

class Starts : public LauncherUse {
protected:
    /// A class of files and a scheme of addresses that probe programs open.
    class Opener {
    public:
        explicit Opener(const std::wstring& probe) {
            Key(L".qlbprobe").SetString(L"", L"QLBProbeFile");
            for (const wchar_t* name : {L"QLBProbeFile", L"qlbprobe"}) {
                Key(name).Sub(L"shell\\open\\command").SetString(L"", L'"' + probe + L"\" opens %1");
            }
            Key(L"qlbprobe").SetString(L"URL Protocol", L"");
        }
        Opener(const Opener&) = delete;
        Opener& operator=(const Opener&) = delete;
        ~Opener() {
            for (const wchar_t* name : {L".qlbprobe", L"QLBProbeFile", L"qlbprobe"}) {
                Key(name).EraseTree();
            }
        }

    private:
        static UiDriver::RegistryKey Key(const std::wstring& name) { return {HKEY_CLASSES_ROOT, name}; }
    };

    std::wstring Quoted(const std::wstring& name) const { return L'"' + Folder() + L'\\' + name + L'"'; }
    void PressButton(const StoredButton& button) {
        SetButton(1, button);
        Press(VK_LAUNCH_MAIL);
    }
};

TEST_F(Starts, AProgramGetsItsParametersAsTheyAreStored_AndWorksInItsFolder) {
    const std::wstring name = Local(L"Pröbe with blanks.exe", L"試験 プログラム.exe");
    const std::wstring program = Probe(name);
    Start();
    std::vector<std::wstring> wanted;
    for (const std::wstring& parameters :
         {std::wstring(), std::wstring(L"one two"), std::wstring(L"\"in quotes\" /x"),
          std::wstring(L"C:\\ends with\\"), std::wstring(L"a\"b | c"), Local(L"é ü", L"日本語")}) {
        PressButton({L"Probe", L"M", 1, {program + (parameters.empty() ? L"" : L"|") + parameters}, {}});
        wanted.push_back(Quoted(name) + (parameters.empty() ? L"" : L" ") + parameters);
        EXPECT_EQ(AwaitReports(wanted.size()).back().directory, Folder());
    }
    EXPECT_EQ(CommandLines(Reports()), wanted);
}

TEST_F(Starts, AProgramWithItsParametersInOneLineIsTakenApart) {
    Probe();
    Start();
    PressButton({L"Media", L"M", 1, {Folder() + L"\\probe.exe /directmedia:tv"}, {}});
    EXPECT_THAT(CommandLines(AwaitReports(1)), ElementsAre(Quoted(L"probe.exe") + L" /directmedia:tv"));
}

TEST_F(Starts, FilesAddressesAndShortcutsOpen) {
    const Opener opener(Probe());
    const std::wstring file = Folder() + L"\\" + Local(L"nöte.qlbprobe", L"メモ.qlbprobe");
    UiDriver::WriteBytes(file, "text");
    const std::wstring shortcut = Folder() + L"\\link.lnk";
    MakeShortcut(shortcut, Folder() + L"\\probe.exe", L"of the link", {});
    Start();
    PressButton({L"File", L"M", 1, {file}, {}});
    EXPECT_THAT(AwaitReports(1).back().commandLine, testing::EndsWith(L"opens " + file));
    PressButton({L"Address", L"M", 1, {L"qlbprobe:some/where?a=b%20c"}, {}});
    EXPECT_THAT(AwaitReports(2).back().commandLine, testing::EndsWith(L"opens qlbprobe:some/where?a=b%20c"));
    PressButton({L"Link", L"M", 1, {shortcut}, {}});
    const ProbeReport byLink = AwaitReports(3).back();
    EXPECT_THAT(byLink.commandLine, testing::EndsWith(L"of the link"));
    EXPECT_EQ(byLink.directory, Folder());
}

TEST_F(Starts, AFavouriteOpensInTheUsersBrowser_WhereTheOldOneIsGone) {
    const Opener opener(Probe());
    Start();
    PressButton({L"Favourite", L"M", 1, {L"C:\\no such folder\\iexplore.exe|qlbprobe:favourite"}, {}});
    EXPECT_THAT(AwaitReports(1).back().commandLine, testing::EndsWith(L"opens qlbprobe:favourite"));
}

TEST_F(Starts, AFolderOpens) {
    Start();
    PressButton({L"Folder", L"M", 1, {Folder()}, {}});
    UiDriver::WindowQuery query;
    query.className = L"ExplorerWClass";
    const UiDriver::Window window = UiDriver::WaitForWindow(query);
    PostMessageW(window.Hwnd(), WM_CLOSE, 0, 0);
    UiDriver::WaitForNoWindow(query);
}

TEST_F(Starts, SimultaneousStartsAllInTheOrderOfTheirPlaces_AndGoesOnAfterOneThatCantStart) {
    const std::wstring probe = Probe();
    Start();
    PressButton({L"All",
                 L"P",
                 5,
                 {probe + L"|one /linger:100", L"C:\\no such.exe", L"", probe + L"|four", probe + L"|five"},
                 {}});
    EXPECT_THAT(AwaitReports(3), SizeIs(3));
}

TEST_F(Starts, SequentialWaitsForAWindowThatTakesInput_OrForTheEnd) {
    const std::wstring probe = Probe();
    Start();
    PressButton({L"Row",
                 L"S",
                 4,
                 {probe + L"|first /late:300 /window", L"C:\\no such.exe", probe + L"|second /linger:300",
                  probe + L"|third /window"},
                 {}});
    AwaitProbeWindow(L"third /window");
    const auto started = Reports();
    ASSERT_THAT(started, SizeIs(3));
    EXPECT_GT(started[1].time, AwaitReports(1, L"shown").front().time);
    EXPECT_GT(started[2].time, AwaitReports(1, L"ended").front().time);
}

TEST_F(Starts, SequentialWaitsForWhatAShortcutPointsTo) {
    const std::wstring probe = Probe();
    const std::wstring shortcut = Folder() + L"\\row.lnk";
    MakeShortcut(shortcut, probe, L"linked", {});
    Start();
    PressButton({L"Row", L"S", 2, {shortcut + L"|/linger:400", probe + L"|second"}, {}});
    const auto started = AwaitReports(2);
    EXPECT_EQ(started[0].commandLine, L'"' + probe + L"\" linked /linger:400");
    EXPECT_GT(started[1].time, AwaitReports(1, L"ended").front().time);
}

TEST_F(Starts, ASecondPressEndsTheSequence_AndAThirdBeginsItAgain) {
    const std::wstring probe = Probe();
    Start();
    SetButton(1, {L"Row", L"S", 2, {probe + L"|first /late:1000", probe + L"|second"}, {}});
    SetButton(2, Single(L"other"));
    Press(VK_LAUNCH_MAIL);
    AwaitReports(1);
    Request(1);
    AwaitReports(1, L"ended");
    Request(2);
    EXPECT_THAT(AwaitReports(2).back().commandLine, testing::EndsWith(L"other"));
    Request(1);
    AwaitReports(4);
    EXPECT_THAT(Reports().back().commandLine, testing::EndsWith(L"second"));
}

TEST_F(Starts, AProgramThatHangsHoldsUpNothingElse) {
    const std::wstring probe = Probe();
    Start();
    SetButton(1, {L"Row", L"S", 2, {probe + L"|hangs /late:3000", probe + L"|after"}, {}});
    SetButton(2, Single(L"other"));
    Press(VK_LAUNCH_MAIL);
    AwaitReports(1);
    Press(VK_BROWSER_HOME);
    AwaitReports(2);
    Reload();
    EXPECT_THAT(Reports(L"ended"), SizeIs(1));
    EXPECT_THAT(AwaitReports(3).back().commandLine, testing::EndsWith(L"after"));
}

TEST_F(Starts, WhatStartsComesToTheFront) {
    const std::wstring probe = Probe();
    Start();
    PressButton({L"Row", L"S", 3, {probe + L"|a /window", probe + L"|b /window", probe + L"|c /window"}, {}});
    const UiDriver::Window last = AwaitProbeWindow(L"c /window");
    UiDriver::WaitUntil([&] { return last.Foreground(); }, L"the last program to come to the front");
}

TEST_F(Starts, RequestsPressButtons_AndOtherNumbersNone) {
    for (int button = 1; button <= 8; ++button) {
        SetButton(button, Single(L"of " + std::to_wstring(button)));
    }
    Start();
    constexpr UINT kPress = 1332;
    for (const WPARAM other : {0U, 1U, 83U, 85U, 103U, 111U, 65535U}) {
        PostMessageW(Window().Hwnd(), kPress, other, 0);
    }
    Window().WaitUntilAnswers();
    EXPECT_THAT(Reports(), IsEmpty());
    for (int button = 1; button <= 8; ++button) {
        Request(button);
        const auto reports = AwaitReports(static_cast<std::size_t>(button));
        EXPECT_THAT(reports.back().commandLine, testing::EndsWith(L" of " + std::to_wstring(button)));
    }
}

} // namespace
