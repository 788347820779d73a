#include "RegistrationDialog.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::Test;

class DropTargets : public Test, public RegistrationDialog {};
class SendMenu : public Test, public RegistrationDialog {};
class DroppedFiles : public Test, public RegistrationDialog {};
class CancelledDrag : public Test, public RegistrationDialog {};

int LastEnabledSlot(const ButtonSlotEditor& editor) {
    return editor.IsSlotEnabled(kSlots - 1) ? kSlots - 1 : 0;
}

class PickedRows : public Test, public RegistrationDialog {};

TEST_F(PickedRows, ARowThatAnotherProgramPutIntoAListIsNothing) {
    const std::size_t keys = sources.ShortcutKeys().size();
    const std::size_t items = sources.MediaCenterTable().size();
    ASSERT_TRUE(PickedRow(sources, ProgramSource::ShortcutKey, keys - 1).has_value());
    EXPECT_FALSE(PickedRow(sources, ProgramSource::ShortcutKey, keys).has_value());
    ASSERT_TRUE(PickedRow(sources, ProgramSource::MediaCenter, items - 1).has_value());
    EXPECT_FALSE(PickedRow(sources, ProgramSource::MediaCenter, items).has_value());
}

// Dropping

TEST_F(DropTargets, PastTheEndTheProgramGoesToTheNextFreeSlot) {
    ButtonSlotEditor editor = Open(Sequence(2));
    DragOnto(editor, 4, Node(L"C:\\Apps\\Notes.exe"));
    EXPECT_EQ(editor.Slot().NumAP, 3);
    EXPECT_THAT(Commands(editor), ElementsAre(L"C:\\Apps\\Mail.exe", L"C:\\Apps\\app.v2.exe",
                                              L"C:\\Apps\\Notes.exe", L"", L""));
    EXPECT_THAT(Shown(editor), ElementsAre(L"Mail", L"app.v2", L"Notes", L"", L""));
}

TEST_F(DropTargets, OntoAProgramItIsReplaced_AndTheCountStays) {
    for (int slot = 0; slot < 3; ++slot) {
        ButtonSlotEditor editor = Open(Sequence(3));
        DragOnto(editor, slot, Node(L"C:\\Apps\\Notes.exe"));
        EXPECT_EQ(editor.Slot().NumAP, 3);
        EXPECT_EQ(editor.Slot().Program(slot + 1).AP, L"C:\\Apps\\Notes.exe");
    }
}

TEST_F(DropTargets, AtFivePrograms_EverySlotIsReplaced) {
    for (int slot = 0; slot < kSlots; ++slot) {
        ButtonSlotEditor editor = Open(Sequence(5));
        DragOnto(editor, slot, Node(L"C:\\Apps\\Notes.exe"));
        EXPECT_EQ(editor.Slot().NumAP, 5);
        for (int number = 1; number <= kMaxPrograms; ++number) {
            EXPECT_EQ(editor.Slot().Program(number).AP,
                      number == slot + 1 ? L"C:\\Apps\\Notes.exe" : Sequence(5).Program(number).AP);
        }
    }
}

TEST_F(DropTargets, FillOneAfterTheOther_WhereverTheProgramsAreDropped) {
    ButtonSlotEditor editor = Open(Sequence(0));
    for (int count = 1; count <= kMaxPrograms; ++count) {
        DragOnto(editor, 4, Node(L"C:\\Apps\\" + std::to_wstring(count)));
        EXPECT_EQ(editor.Slot().NumAP, count);
    }
    EXPECT_THAT(Shown(editor), ElementsAre(L"1", L"2", L"3", L"4", L"5"));
}

TEST_F(DropTargets, ASingleProgramIsCountedOnce) {
    ButtonSlotEditor editor = Open(Button(L"M", {}));
    DragOnto(editor, 0, Node(L"C:\\Apps\\Mail.exe"));
    EXPECT_EQ(editor.Slot().NumAP, 1);
    DragOnto(editor, 0, Node(L"C:\\Apps\\Notes.exe"));
    EXPECT_EQ(editor.Slot().NumAP, 1);
    EXPECT_THAT(Commands(editor), ElementsAre(L"C:\\Apps\\Notes.exe", L"", L"", L"", L""));
    EXPECT_EQ(editor.Slot().Exec, L"M");
}

TEST_F(DropTargets, AreWhereTheDropEnds) {
    for (std::size_t programs = 0; programs <= 5; ++programs) {
        for (int slot = 0; slot < kSlots; ++slot) {
            for (const PickedItem& item :
                 {Node(L"C:\\Apps\\Notes.exe"), Key(kCopyKey), MediaCenter(kMusic)}) {
                ButtonSlotEditor editor = Open(Sequence(programs));
                const int target = editor.DropTarget(slot, item);
                DragOnto(editor, slot, item);
                EXPECT_NE(editor.Slot().Program(target + 1).AP, Sequence(programs).Program(target + 1).AP);
                EXPECT_LE(target, slot);
                EXPECT_TRUE(!IsList(item.source) || target == 0);
            }
        }
    }
}

TEST_F(DropTargets, TheRootOfAllFilesCannotBeDragged) {
    const ButtonSlotEditor editor = Open(Sequence(2));
    EXPECT_FALSE(editor.CanDrag(MyComputer()));
    EXPECT_TRUE(editor.CanDrag(File(L"C:")));
    EXPECT_TRUE(editor.CanDrag(File(L"My Computer"))) << "it is known by its place, not its name";
    EXPECT_TRUE(editor.CanDrag(Node(L"C:\\Apps\\Tools.d")));
    EXPECT_TRUE(editor.CanDrag(Key(kCopyKey)));
    EXPECT_TRUE(editor.CanDrag(MediaCenter(kMusic)));
}

// Sending

TEST_F(SendMenu, OffersTheFirstProgramOnly_OfASingleProgram) {
    for (const wchar_t* letter : {L"M", L"m", L"K", L"k", L"X"}) {
        for (std::size_t programs = 0; programs <= 5; ++programs) {
            ButtonSlot slot = Sequence(programs);
            slot.Exec = letter;
            EXPECT_EQ(Open(slot).SendTargets(Node(L"C:\\Apps\\Notes.exe")), 1);
        }
    }
}

TEST_F(SendMenu, OffersTheProgramsAndTheNextFreeSlot_OfSeveral) {
    for (const wchar_t* letter : {L"S", L"P"}) {
        for (std::size_t programs = 0; programs <= 5; ++programs) {
            ButtonSlot slot = Sequence(programs);
            slot.Exec = letter;
            EXPECT_EQ(Open(slot).SendTargets(Node(L"C:\\Apps\\Notes.exe")),
                      std::min(static_cast<int>(programs) + 1, 5));
        }
    }
}

TEST_F(SendMenu, OffersTheFirstProgramOnly_ForRowsOfTheLists) {
    for (const std::size_t programs : {0U, 3U, 5U}) {
        EXPECT_EQ(Open(Sequence(programs)).SendTargets(Key(kCopyKey)), 1);
        EXPECT_EQ(Open(Sequence(programs)).SendTargets(MediaCenter(kMusic)), 1);
    }
}

TEST_F(SendMenu, IsNotForTheRootOfAllFiles) {
    const ButtonSlotEditor editor = Open(Sequence(2));
    EXPECT_EQ(editor.SendTargets(MyComputer()), 0);
    EXPECT_EQ(editor.SendTargets(File(L"C:")), 3);
    EXPECT_EQ(editor.SendTargets(File(L"My Computer")), 3) << "it is known by its place, not its name";
}

TEST_F(SendMenu, IsForFoldersOfTheStartMenu) {
    EXPECT_EQ(Open(Sequence(2)).SendTargets(Node(L"C:\\Apps\\Tools.d")), 3);
}

TEST_F(SendMenu, IsForInternetShortcutsOnly_UnderTheFavourites) {
    const ButtonSlotEditor editor = Open(Sequence(2));
    EXPECT_EQ(editor.SendTargets(Favorite(L"C:\\Favorites\\News.url")), 3);
    EXPECT_EQ(editor.SendTargets(Favorite(L"C:\\Favorites\\MAPS.URL")), 3);
    EXPECT_EQ(editor.SendTargets(Favorite(L"C:\\Favorites\\Travel")), 0);
    EXPECT_EQ(editor.SendTargets(Favorite(L"C:\\Favorites\\desktop.ini")), 0);
    EXPECT_EQ(editor.SendTargets(Favorite(L"C:\\Favorites")), 0) << "its root";
    EXPECT_EQ(editor.SendTargets(File(L"C:\\Favorites\\desktop.ini")), 3);
}

TEST_F(SendMenu, TheNextFreeSlotIncreasesTheCount_AndAProgramDoesNot) {
    for (std::size_t programs = 0; programs <= 5; ++programs) {
        const int targets = Open(Sequence(programs)).SendTargets(Node(L"C:\\Apps\\Notes.exe"));
        for (int slot = 0; slot < targets; ++slot) {
            ButtonSlotEditor editor = Open(Sequence(programs));
            SendTo(editor, slot, Node(L"C:\\Apps\\Notes.exe"));
            const auto before = static_cast<int>(programs);
            EXPECT_EQ(editor.Slot().NumAP, std::max(before, slot + 1));
            EXPECT_EQ(editor.Slot().Program(slot + 1).AP, L"C:\\Apps\\Notes.exe");
            EXPECT_EQ(editor.Slot().Exec, L"S");
        }
    }
}

TEST_F(SendMenu, CountsASingleProgramOnce) {
    ButtonSlotEditor editor = Open(Button(L"M", {}));
    SendTo(editor, 0, Node(L"C:\\Apps\\Mail.exe"));
    EXPECT_EQ(editor.Slot().NumAP, 1);
    SendTo(editor, 0, Node(L"C:\\Apps\\Notes.exe"));
    EXPECT_EQ(editor.Slot().NumAP, 1);
    EXPECT_EQ(editor.Slot().Name, L"Notes");
}

// Files from other programs

TEST_F(DroppedFiles, AreTheTreeItemsOfTheirPaths) {
    for (const wchar_t* path :
         {L"C:\\Apps\\app.v2.exe", L"C:\\Apps\\Tools.d", L"C:\\Gone\\x.exe", L"C:\\Favorites\\News.url"}) {
        ButtonSlotEditor dropped = Open(Sequence(2));
        dropped.DropPaths(0, {path});
        ButtonSlotEditor dragged = Open(Sequence(2));
        DragOnto(dragged, 0, File(path));
        EXPECT_EQ(dropped.Slot(), dragged.Slot());
        EXPECT_EQ(Shown(dropped), Shown(dragged));
    }
}

TEST_F(DroppedFiles, ADriveIsNamedAsInTheTree) {
    EXPECT_EQ(PickedPath(L"D:\\").command, L"D:");
    EXPECT_EQ(PickedPath(L"D:\\").name, L"D:");
    EXPECT_EQ(PickedPath(L"\\\\server\\share\\").command, L"\\\\server\\share");
    EXPECT_EQ(PickedPath(L"C:\\Apps\\Mail.exe").name, L"Mail.exe");
}

TEST_F(DroppedFiles, FillSuccessiveSlots) {
    ButtonSlotEditor editor = Open(Sequence(2));
    editor.DropPaths(1, {L"D:\\1.exe", L"D:\\2.exe", L"D:\\3.exe"});
    EXPECT_THAT(Commands(editor),
                ElementsAre(L"C:\\Apps\\Mail.exe", L"D:\\1.exe", L"D:\\2.exe", L"D:\\3.exe", L""));
    EXPECT_EQ(editor.Slot().NumAP, 4);
}

TEST_F(DroppedFiles, LeaveNoGap_WhenTheyAreDroppedPastTheEnd) {
    ButtonSlotEditor editor = Open(Sequence(1));
    editor.DropPaths(4, {L"D:\\1.exe", L"D:\\2.exe"});
    EXPECT_THAT(Commands(editor), ElementsAre(L"C:\\Apps\\Mail.exe", L"D:\\1.exe", L"D:\\2.exe", L"", L""));
    EXPECT_EQ(editor.Slot().NumAP, 3);
}

TEST_F(DroppedFiles, TakeNoSlot_WithoutAName) {
    ButtonSlotEditor editor = Open(Sequence(1));
    editor.DropPaths(1, {L"", L"D:\\1.exe", L"\\", L"D:\\2.exe"});
    EXPECT_THAT(Commands(editor), ElementsAre(L"C:\\Apps\\Mail.exe", L"D:\\1.exe", L"D:\\2.exe", L"", L""));
    EXPECT_EQ(editor.Slot().NumAP, 3);
}

TEST_F(DroppedFiles, EndAtTheLastSlot) {
    ButtonSlotEditor editor = Open(Sequence(5));
    editor.DropPaths(3, {L"D:\\1.exe", L"D:\\2.exe", L"D:\\3.exe"});
    EXPECT_THAT(Commands(editor), ElementsAre(L"C:\\Apps\\Mail.exe", L"C:\\Apps\\app.v2.exe",
                                              L"C:\\Apps\\Paint.exe", L"D:\\1.exe", L"D:\\2.exe"));
    EXPECT_EQ(editor.Slot().NumAP, 5);
}

TEST_F(DroppedFiles, ASingleProgramTakesTheFirstOnly) {
    for (const ButtonSlot& slot : {Button(L"M", {}), Button(L"K", {L"46"}), MusicButton()}) {
        ButtonSlotEditor editor = Open(slot);
        editor.DropPaths(0, {L"D:\\1.exe", L"D:\\2.exe"});
        EXPECT_THAT(Commands(editor), ElementsAre(L"D:\\1.exe", L"", L"", L"", L""));
        EXPECT_EQ(editor.Slot().NumAP, 1);
        EXPECT_EQ(editor.Slot().Exec, L"M");
        EXPECT_EQ(editor.Slot().Program(1).Title, L"");
        EXPECT_EQ(editor.Slot().Name, L"1.exe");
        EXPECT_FALSE(editor.IsMethodLocked());
        EXPECT_FALSE(Globals().MediaCenterPicked);
    }
}

TEST_F(DroppedFiles, ADisabledSlotTakesNone) {
    const ButtonSlot slot = Button(L"M", {L"C:\\Apps\\Mail.exe"});
    ButtonSlotEditor editor = Open(slot);
    editor.DropPaths(1, {L"D:\\1.exe"});
    EXPECT_EQ(editor.Slot(), slot);
    editor.DropPaths(0, {});
    EXPECT_EQ(editor.Slot(), slot);
}

// MediaCenterPicked, and drags that come to nothing

TEST_F(CancelledDrag, TheListsSetMediaCenterPickedFromTheStart_AndTreesDoNot) {
    for (const ButtonSlot& slot : {Sequence(2), MusicButton()}) {
        ButtonSlotEditor editor = Open(slot);
        const bool before = Globals().MediaCenterPicked;
        editor.Begin(Node(L"C:\\Apps\\Mail.exe"));
        EXPECT_EQ(Globals().MediaCenterPicked, before);
        editor.Cancel();
        editor.Begin(MediaCenter(kMusic));
        EXPECT_TRUE(Globals().MediaCenterPicked);
        editor.Cancel();
        editor.Begin(Key(kCopyKey));
        EXPECT_FALSE(Globals().MediaCenterPicked);
        editor.Cancel();
    }
}

TEST_F(CancelledDrag, ChangesNothing) {
    for (const ButtonSlot& slot : {Sequence(0), Sequence(3), Sequence(5), MusicButton(),
                                   Button(L"K", {L"46"}), Button(L"M", {L"C:\\Apps\\Mail.exe"})}) {
        for (const PickedItem& item : {Node(L"C:\\Apps\\Notes.exe"), Favorite(L"C:\\Favorites\\News.url"),
                                       Key(kCopyKey), MediaCenter(kMusic), MediaCenter(kFilms)}) {
            ButtonSlotEditor editor = Open(slot);
            const std::vector<std::wstring> shown = Shown(editor);
            const bool picked = Globals().MediaCenterPicked;
            const bool locked = editor.IsMethodLocked();
            for (int times = 0; times < 2; ++times) {
                editor.Begin(item);
                for (int over = 0; over <= LastEnabledSlot(editor); ++over) {
                    EXPECT_LE(editor.DropTarget(over, item), over);
                }
                editor.Cancel();
                EXPECT_EQ(editor.Slot(), slot);
                EXPECT_EQ(Shown(editor), shown);
                EXPECT_EQ(Globals().MediaCenterPicked, picked);
                EXPECT_EQ(editor.IsMethodLocked(), locked);
            }
        }
    }
}

TEST_F(CancelledDrag, TakesBackItsOwnStartOnly) {
    ButtonSlotEditor editor = Open(Sequence(2));
    editor.Begin(Key(kCopyKey));
    editor.Cancel();
    DragOnto(editor, 0, MediaCenter(kMusic));
    editor.Begin(Key(kCopyKey));
    editor.Cancel();
    EXPECT_TRUE(Globals().MediaCenterPicked);
    DragOnto(editor, 0, Node(L"C:\\Apps\\Mail.exe"));
    editor.Begin(MediaCenter(kFilms));
    editor.Cancel();
    EXPECT_FALSE(Globals().MediaCenterPicked);
}

} // namespace
