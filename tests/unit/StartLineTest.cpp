#include "launcher/StartLine.h"

#include "fakes/FakeFileSystem.h"
#include "fakes/FakeLauncherPlatform.h"
#include "launcher/ButtonStarts.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StartLine : public testing::Test {
public:
    FakeProgramStarter starter;
    FakeFileSystem files;

    [[nodiscard]] StartRequest For(const std::wstring& command, const std::wstring& parameters = {}) const {
        return RequestFor({command, parameters, {}}, starter, files);
    }
};

TEST_F(StartLine, KeepsCommandAndParametersApart_AndWorksInThePrograms_Folder) {
    EXPECT_EQ(For(L"C:\\Mail\\mail.exe", L"/inbox \"a b\""),
              (StartRequest{L"C:\\Mail\\mail.exe", L"/inbox \"a b\"", L"C:\\Mail"}));
    EXPECT_EQ(For(L"C:\\a.exe").directory, L"C:\\");
    EXPECT_EQ(For(L"\\\\server\\share\\x.exe").directory, L"\\\\server\\share");
    EXPECT_EQ(For(L"  C:\\a.exe ", L" "), (StartRequest{L"C:\\a.exe", L"", L"C:\\"}));
}

TEST_F(StartLine, OfANameAloneTheFolderIsWhereItIsFound) {
    starter.located[L"notepad.exe"] = L"C:\\Windows\\notepad.exe";
    EXPECT_EQ(For(L"notepad.exe"), (StartRequest{L"notepad.exe", L"", L"C:\\Windows"}));
    EXPECT_EQ(For(L"nowhere.exe"), (StartRequest{L"nowhere.exe", L"", L""}));
}

TEST_F(StartLine, AddressesHaveNoFolder) {
    EXPECT_EQ(For(L"http://example/a%20b"), (StartRequest{L"http://example/a%20b", L"", L""}));
    EXPECT_EQ(For(L"shell:appsFolder\\Some.App"), (StartRequest{L"shell:appsFolder\\Some.App", L"", L""}));
}

TEST_F(StartLine, NamesOfVariablesAtTheBeginningAreReplaced) {
    EXPECT_EQ(For(L"%windir%\\regedit.exe"),
              (StartRequest{L"C:\\Windows\\regedit.exe", L"", L"C:\\Windows"}));
    EXPECT_EQ(For(L"\"%windir%\\regedit.exe\" /s"),
              (StartRequest{L"C:\\Windows\\regedit.exe", L"/s", L"C:\\Windows"}));
    EXPECT_EQ(For(L"C:\\%windir%\\x.exe").file, L"C:\\%windir%\\x.exe");
}

TEST_F(StartLine, ACommandWithItsParametersBehindItIsTakenApart) {
    EXPECT_EQ(For(L"C:\\Windows\\ehome\\ehshell.exe /directmedia:tv"),
              (StartRequest{L"C:\\Windows\\ehome\\ehshell.exe", L"/directmedia:tv", L"C:\\Windows\\ehome"}));
    EXPECT_EQ(For(L"\"C:\\a b\\c.exe\" /x", L"/y"), (StartRequest{L"C:\\a b\\c.exe", L"/x /y", L"C:\\a b"}));
    EXPECT_EQ(For(L"\"C:\\a b\\c.exe\"").file, L"C:\\a b\\c.exe");
    EXPECT_EQ(For(L"\"C:\\unclosed.exe").file, L"C:\\unclosed.exe");
    EXPECT_EQ(For(L"C:\\a b\\my file.txt").file, L"C:\\a b\\my file.txt");
    files.AddFile(L"C:\\old.exe files\\list.txt");
    EXPECT_EQ(For(L"C:\\old.exe files\\list.txt").file, L"C:\\old.exe files\\list.txt");
}

TEST_F(StartLine, AFavouriteGoesToTheUsersBrowser_OnlyWhereTheOldOneIsGone) {
    EXPECT_EQ(For(L"IEXPLORE.EXE", L"http://example/?a=b"), (StartRequest{L"http://example/?a=b", L"", L""}));
    starter.located[L"iexplore.exe"] = L"C:\\Internet\\iexplore.exe";
    EXPECT_EQ(For(L"iexplore.exe", L"http://example/"),
              (StartRequest{L"iexplore.exe", L"http://example/", L"C:\\Internet"}));
    EXPECT_EQ(For(L"C:\\gone\\iexplore.exe", L"http://example/").file, L"http://example/");
    EXPECT_EQ(For(L"C:\\gone\\iexplore.exe").file, L"C:\\gone\\iexplore.exe");
}

TEST_F(StartLine, AShortcutIsReplacedByWhatItPointsTo) {
    files.AddFile(L"C:\\App\\app.exe");
    starter.shortcuts[L"C:\\App.LNK"] = {L"C:\\App\\app.exe", L"/own", {}};
    EXPECT_EQ(For(L"C:\\App.LNK", L"/more"), (StartRequest{L"C:\\App\\app.exe", L"/own /more", L"C:\\App"}));
    starter.shortcuts[L"C:\\App.LNK"].directory = L"D:\\Work";
    starter.shortcuts[L"C:\\App.LNK"].minimized = true;
    EXPECT_EQ(For(L"C:\\App.LNK"),
              (StartRequest{L"C:\\App\\app.exe", L"/own", L"D:\\Work", /*minimized=*/true}));
}

TEST_F(StartLine, AShortcutThatPointsToNoFile_OrWantsMoreRights_IsLeftToTheSystem) {
    starter.shortcuts[L"C:\\Store app.lnk"] = {};
    EXPECT_EQ(For(L"C:\\Store app.lnk"), (StartRequest{L"C:\\Store app.lnk", L"", L""}));
    starter.shortcuts[L"C:\\lost.lnk"] = {L"C:\\gone\\app.exe", {}, {}};
    EXPECT_EQ(For(L"C:\\lost.lnk"), (StartRequest{L"C:\\lost.lnk", L"", L"C:\\gone"}));
    files.AddFile(L"C:\\admin.exe");
    starter.shortcuts[L"C:\\admin.lnk"] = {L"C:\\admin.exe", {}, {}, /*elevated=*/true};
    EXPECT_EQ(For(L"C:\\admin.lnk").file, L"C:\\admin.lnk");
    EXPECT_EQ(For(L"C:\\unreadable.lnk"), (StartRequest{L"C:\\unreadable.lnk", L"", L"C:\\"}));
}

ButtonSlot Slot(const std::wstring& method, int count, const std::vector<std::wstring>& commands) {
    ButtonSlot slot;
    slot.Exec = method;
    slot.NumAP = static_cast<std::int16_t>(count);
    int place = 0;
    for (const std::wstring& command : commands) {
        slot.Program(++place).AP = command;
    }
    return slot;
}

std::vector<std::wstring> Commands(const ButtonSlot& slot) {
    std::vector<std::wstring> commands;
    for (const ProgramEntry& program : StartedPrograms(slot)) {
        commands.push_back(program.AP);
    }
    return commands;
}

TEST(ProgramsOfAButton, AreAsManyAsItsMethodStarts) {
    EXPECT_THAT(Commands(Slot(L"M", 3, {L"a", L"b", L"c"})), ElementsAre(L"a"));
    EXPECT_THAT(Commands(Slot(L"?", 1, {L"a"})), ElementsAre(L"a"));
    EXPECT_THAT(Commands(Slot(L"s", 2, {L"a", L"b", L"c"})), ElementsAre(L"a", L"b"));
    EXPECT_THAT(Commands(Slot(L"P", 4, {L"a", L" ", L"", L"d"})), ElementsAre(L"a", L"d"));
    EXPECT_THAT(Commands(Slot(L"P", 9, {L"a", L"b"})), ElementsAre(L"a", L"b"));
    EXPECT_THAT(Commands(Slot(L"M", 0, {L"a"})), IsEmpty());
    EXPECT_THAT(Commands(Slot(L"P", -1, {L"a"})), IsEmpty());
    EXPECT_THAT(Commands(Slot(L"K", 1, {L"65"})), IsEmpty());
}

TEST(ProgramsOfAButton, DecideWhetherAPressDoesAnything) {
    EXPECT_TRUE(StartsAnything(Slot(L"M", 1, {L"a"})));
    EXPECT_TRUE(StartsAnything(Slot(L"K", 1, {L"579"})));
    EXPECT_FALSE(StartsAnything(Slot(L"K", 1, {L"none"})));
    EXPECT_FALSE(StartsAnything(Slot(L"K", 1, {L"512"})));
    EXPECT_FALSE(StartsAnything(Slot(L"K", 0, {L"579"})));
    EXPECT_FALSE(StartsAnything(Slot(L"M", 0, {})));
    EXPECT_FALSE(StartsAnything(Slot(L"S", 2, {L" ", L""})));
}

class Sequence : public testing::Test {
public:
    FakeProgramStarter starter;
    FakeFileSystem files;
    std::vector<std::wstring> told;
    ButtonStarts starts{starter, files,
                        [this](int button, const std::wstring& program, const std::wstring& reason) {
                            told.push_back(std::to_wstring(button) + L" " + program + L": " + reason);
                        }};
};

TEST_F(Sequence, SimultaneousStartsAllAtOnce_AndGoesOnAfterOneThatCantStart) {
    starter.refused[L"b"] = L"not there";
    EXPECT_TRUE(starts.Press(4, Slot(L"P", 3, {L"a", L"b", L"c"})));
    EXPECT_THAT(starter.Files(), ElementsAre(L"a", L"c"));
    EXPECT_THAT(starter.tickets, ElementsAre(0, 0));
    EXPECT_THAT(told, ElementsAre(L"4 b: not there"));
}

TEST_F(Sequence, StartsEachWhenTheOneBeforeIsReady_AndWaitsForAllButTheLast) {
    EXPECT_TRUE(starts.Press(2, Slot(L"S", 3, {L"a", L"b", L"c"})));
    EXPECT_THAT(starter.Files(), ElementsAre(L"a"));
    starter.BecomeReady(2);
    EXPECT_THAT(starter.Files(), ElementsAre(L"a", L"b"));
    starter.BecomeReady(2);
    EXPECT_THAT(starter.Files(), ElementsAre(L"a", L"b", L"c"));
    EXPECT_THAT(starter.tickets, ElementsAre(2, 2, 0));
    EXPECT_TRUE(starts.Press(2, Slot(L"S", 3, {L"a", L"b", L"c"})));
    EXPECT_EQ(starter.Files().back(), L"a");
}

TEST_F(Sequence, OneThatCantStartIsTold_AndTheNextStartsAtOnce) {
    starter.refused = {{L"a", L"no"}, {L"b", L"never"}};
    starts.Press(1, Slot(L"S", 3, {L"a", L"b", L"c"}));
    EXPECT_THAT(starter.Files(), ElementsAre(L"c"));
    EXPECT_THAT(told, ElementsAre(L"1 a: no", L"1 b: never"));
}

TEST_F(Sequence, ALastOneThatCantStartEndsIt) {
    starter.refused = {{L"b", L"no"}};
    starts.Press(1, Slot(L"S", 2, {L"a", L"b"}));
    starter.BecomeReady(1);
    EXPECT_TRUE(starts.Press(1, Slot(L"S", 2, {L"a", L"b"})));
}

TEST_F(Sequence, ASecondPressEndsIt_AndLeavesThoseOfOtherButtons) {
    starts.Press(1, Slot(L"S", 2, {L"a", L"b"}));
    starts.Press(2, Slot(L"S", 2, {L"c", L"d"}));
    EXPECT_FALSE(starts.Press(1, Slot(L"S", 2, {L"a", L"b"})));
    starter.BecomeReady(1);
    starter.BecomeReady(2);
    EXPECT_THAT(starter.Files(), ElementsAre(L"a", L"c", L"d"));
}

TEST_F(Sequence, TitlesNameWhatCouldNotStart) {
    starter.refused[L"a"] = L"no";
    ButtonSlot slot = Slot(L"M", 1, {L"a"});
    slot.Program(1).Title = L"Title";
    starts.Press(1, slot);
    EXPECT_THAT(told, ElementsAre(L"1 Title: no"));
}

} // namespace
