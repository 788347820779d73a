#include "RegistrationDialog.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Test;

class Placing : public Test, public RegistrationDialog {
public:
    /// Five programs, all with parameter and title.
    [[nodiscard]] static ButtonSlot Full() {
        ButtonSlot slot = Sequence(5);
        for (int number = 1; number <= kMaxPrograms; ++number) {
            slot.Program(number).Param = L"parameter";
            slot.Program(number).Title = L"title";
        }
        return slot;
    }
    /// By both ways of placing.
    template <class Check> void PlaceAndCheck(const ButtonSlot& slot, const PickedItem& item, Check check) {
        for (const bool drag : {true, false}) {
            SCOPED_TRACE(drag ? "dragged" : "sent");
            ButtonSlotEditor editor = Open(slot);
            (drag ? DragOnto : SendTo)(editor, 0, item);
            check(editor);
        }
    }
};

// From a tree

TEST_F(Placing, AFileIsStoredByItsPath_AndShownWithoutTheLastExtension) {
    PlaceAndCheck(Full(), Node(L"C:\\Apps\\app.v2.exe"), [](const ButtonSlotEditor& editor) {
        EXPECT_EQ(editor.Slot().Program(1).AP, L"C:\\Apps\\app.v2.exe");
        EXPECT_EQ(editor.Slot().Program(1).Param, L"");
        EXPECT_EQ(editor.Slot().Program(1).Title, L"");
        EXPECT_EQ(editor.ShownText(0), L"app.v2");
        EXPECT_EQ(editor.Slot().Program(2).Param, L"parameter");
        EXPECT_EQ(editor.Slot().Program(2).Title, L"title");
    });
}

TEST_F(Placing, AFileIsShownByTheTextOfItsNode) {
    PickedItem item = Node(L"C:\\Apps\\Mail.exe");
    item.name = L"Post.box.lnk";
    PlaceAndCheck(Full(), item,
                  [](const ButtonSlotEditor& editor) { EXPECT_EQ(editor.ShownText(0), L"Post.box"); });
    item.name = L"Post";
    PlaceAndCheck(Full(), item,
                  [](const ButtonSlotEditor& editor) { EXPECT_EQ(editor.ShownText(0), L"Post"); });
}

TEST_F(Placing, AFolderIsAProgramToo_AndKeepsItsNameWhole) {
    PlaceAndCheck(Full(), Node(L"C:\\Apps\\Tools.d"), [](const ButtonSlotEditor& editor) {
        EXPECT_EQ(editor.Slot().Program(1).AP, L"C:\\Apps\\Tools.d");
        EXPECT_EQ(editor.ShownText(0), L"Tools.d");
    });
}

TEST_F(Placing, APathThatCannotBeReadKeepsItsExtension) {
    PlaceAndCheck(Full(), Node(L"C:\\Gone\\app.v2.exe"), [](const ButtonSlotEditor& editor) {
        EXPECT_EQ(editor.ShownText(0), L"app.v2.exe");
        EXPECT_EQ(editor.Slot().Name, L"app.v2.exe");
    });
}

TEST_F(Placing, AFavouriteIsStoredAsTheBrowserWithItsAddress) {
    PickedItem item = Favorite(L"C:\\Favorites\\News.url");
    item.name = L"World News 2.0";
    PlaceAndCheck(Full(), item, [](const ButtonSlotEditor& editor) {
        EXPECT_EQ(editor.Slot().Program(1).AP, L"iexplore.exe|http://news.example/");
        EXPECT_EQ(editor.Slot().Program(1).Param, L"http://news.example/");
        EXPECT_EQ(editor.Slot().Program(1).Title, L"World News 2.0");
        EXPECT_EQ(editor.ShownText(0), L"World News 2.0");
        EXPECT_EQ(editor.Slot().Name, L"World News 2.0");
        EXPECT_EQ(editor.Slot().Exec, L"S");
    });
}

TEST_F(Placing, AFavouriteMayEndInCapitals) {
    PlaceAndCheck(Full(), Favorite(L"C:\\Favorites\\MAPS.URL"), [](const ButtonSlotEditor& editor) {
        EXPECT_EQ(editor.Slot().Program(1).AP, L"iexplore.exe|http://maps.example/?q=1");
        EXPECT_EQ(editor.Slot().Program(1).Param, L"http://maps.example/?q=1");
        EXPECT_EQ(editor.Slot().Program(1).Title, L"MAPS.URL");
    });
}

TEST_F(Placing, AFavouriteWithoutAnAddressIsStoredAsTheBrowserAlone) {
    PlaceAndCheck(Full(), Favorite(L"C:\\Favorites\\Lost.url"), [](const ButtonSlotEditor& editor) {
        EXPECT_EQ(editor.Slot().Program(1).AP, L"iexplore.exe|");
        EXPECT_EQ(editor.Slot().Program(1).Param, L"");
        EXPECT_EQ(editor.Slot().Program(1).Title, L"Lost.url");
    });
}

TEST_F(Placing, AnInternetShortcutElsewhereIsStoredByItsPath) {
    for (const ProgramSource source : {ProgramSource::StartMenu, ProgramSource::AllFiles}) {
        PlaceAndCheck(Full(), Node(L"C:\\Favorites\\News.url", source), [](const ButtonSlotEditor& editor) {
            EXPECT_EQ(editor.Slot().Program(1).AP, L"C:\\Favorites\\News.url");
            EXPECT_EQ(editor.Slot().Program(1).Param, L"");
            EXPECT_EQ(editor.Slot().Program(1).Title, L"");
            EXPECT_EQ(editor.ShownText(0), L"News");
        });
    }
    EXPECT_THAT(shell.shortcutQuestions, testing::IsEmpty());
}

TEST_F(Placing, WhatIsNoInternetShortcutIsStoredByItsPath_EvenUnderTheFavourites) {
    PlaceAndCheck(Full(), Favorite(L"C:\\Favorites\\desktop.ini"), [](const ButtonSlotEditor& editor) {
        EXPECT_EQ(editor.Slot().Program(1).AP, L"C:\\Favorites\\desktop.ini");
        EXPECT_EQ(editor.ShownText(0), L"desktop");
    });
    ButtonSlotEditor editor = Open(Full());
    EXPECT_TRUE(editor.CanDrag(Favorite(L"C:\\Favorites\\Travel")));
    DragOnto(editor, 0, Favorite(L"C:\\Favorites\\Travel"));
    EXPECT_EQ(editor.Slot().Program(1).AP, L"C:\\Favorites\\Travel");
    EXPECT_EQ(editor.Slot().Program(1).Title, L"");
}

// From the lists

TEST_F(Placing, AShortcutKeyIsStoredAsItsCode_AloneInTheButton) {
    for (const wchar_t* letter : {L"S", L"P", L"M", L"X"}) {
        ButtonSlot slot = Full();
        slot.Exec = letter;
        PlaceAndCheck(slot, Key(kPasteKey), [](const ButtonSlotEditor& editor) {
            EXPECT_THAT(Commands(editor), ElementsAre(L"47", L"", L"", L"", L""));
            EXPECT_THAT(Shown(editor), ElementsAre(L"Paste", L"", L"", L"", L""));
            EXPECT_EQ(editor.Slot().Exec, L"K");
            EXPECT_EQ(editor.Slot().NumAP, 1);
            EXPECT_EQ(editor.Slot().Name, L"Paste");
            EXPECT_EQ(editor.Option(), 0);
            EXPECT_TRUE(editor.IsMethodLocked());
            EXPECT_FALSE(Globals().MediaCenterPicked);
        });
    }
}

TEST_F(Placing, AShortcutKeyKeepsNoParameterAndNoTitleOfFormerPrograms) {
    PlaceAndCheck(Full(), Key(kCopyKey), [](const ButtonSlotEditor& editor) {
        EXPECT_THAT(Parameters(editor), Each(L""));
        EXPECT_THAT(Titles(editor), Each(L""));
    });
}

TEST_F(Placing, AMediaCenterItemIsStoredAsItsCommandAndTitle_AloneInTheButton) {
    for (const wchar_t* letter : {L"S", L"P", L"M", L"X"}) {
        ButtonSlot slot = Full();
        slot.Exec = letter;
        PlaceAndCheck(slot, MediaCenter(kFilms), [](const ButtonSlotEditor& editor) {
            EXPECT_THAT(Commands(editor), ElementsAre(L"C:\\mc\\mc.exe /films", L"", L"", L"", L""));
            EXPECT_THAT(Shown(editor), ElementsAre(L"Films", L"", L"", L"", L""));
            EXPECT_THAT(Titles(editor), ElementsAre(L"Films", L"", L"", L"", L""));
            EXPECT_THAT(Parameters(editor), Each(L""));
            EXPECT_EQ(editor.Slot().Exec, L"M");
            EXPECT_EQ(editor.Slot().NumAP, 1);
            EXPECT_EQ(editor.Slot().Name, L"My Films");
            EXPECT_EQ(editor.Option(), 0);
            EXPECT_TRUE(editor.IsMethodLocked());
            EXPECT_TRUE(Globals().MediaCenterPicked);
        });
    }
}

TEST_F(Placing, AMediaCenterItemIsKnownAgain_WhenTheButtonIsOpenedAgain) {
    PlaceAndCheck(Full(), MediaCenter(kFilms), [this](const ButtonSlotEditor& editor) {
        const ButtonSlotEditor again = Open(editor.Slot());
        EXPECT_EQ(Shown(again), Shown(editor));
        EXPECT_TRUE(again.IsMethodLocked());
    });
}

TEST_F(Placing, ItemsOfTheListsGoToTheFirstSlot_OntoWhicheverTheyAreDropped) {
    for (int slot = 0; slot < kSlots; ++slot) {
        ButtonSlotEditor key = Open(Full());
        DragOnto(key, slot, Key(kCopyKey));
        EXPECT_THAT(Commands(key), ElementsAre(L"46", L"", L"", L"", L""));
        EXPECT_EQ(key.Slot().NumAP, 1);

        ButtonSlotEditor music = Open(Sequence(2));
        DragOnto(music, slot, MediaCenter(kMusic));
        EXPECT_THAT(Commands(music), ElementsAre(L"C:\\mc\\mc.exe /music", L"", L"", L"", L""));
        EXPECT_EQ(music.Slot().NumAP, 1);
    }
}

// One kind after the other

TEST_F(Placing, ATreeItemUnlocksTheMethod_OfAShortcutKey) {
    PlaceAndCheck(Button(L"k", {L"46"}), Node(L"C:\\Apps\\Mail.exe"), [](const ButtonSlotEditor& editor) {
        EXPECT_FALSE(editor.IsMethodLocked());
        EXPECT_EQ(editor.Slot().Exec, L"M");
        EXPECT_EQ(editor.Slot().NumAP, 1);
        EXPECT_THAT(Commands(editor), ElementsAre(L"C:\\Apps\\Mail.exe", L"", L"", L"", L""));
        EXPECT_EQ(editor.Slot().Name, L"Mail");
    });
}

TEST_F(Placing, ATreeItemUnlocksTheMethod_OfAMediaCenterItem) {
    PlaceAndCheck(MusicButton(), Node(L"C:\\Apps\\Mail.exe"), [](const ButtonSlotEditor& editor) {
        EXPECT_FALSE(editor.IsMethodLocked());
        EXPECT_FALSE(Globals().MediaCenterPicked);
        EXPECT_EQ(editor.Slot().Exec, L"M");
        EXPECT_EQ(editor.Slot().NumAP, 1);
        EXPECT_EQ(editor.Slot().Program(1).Title, L"");
        EXPECT_TRUE(editor.CanSetParameter());
    });
}

TEST_F(Placing, AShortcutKeyReplacesAMediaCenterItem) {
    PlaceAndCheck(MusicButton(), Key(kCopyKey), [](const ButtonSlotEditor& editor) {
        EXPECT_FALSE(Globals().MediaCenterPicked);
        EXPECT_TRUE(editor.IsMethodLocked());
        EXPECT_EQ(editor.Slot().Exec, L"K");
        EXPECT_EQ(editor.Slot().Program(1).Title, L"");
    });
}

TEST_F(Placing, AMediaCenterItemReplacesAShortcutKey) {
    PlaceAndCheck(Button(L"K", {L"46"}), MediaCenter(kMusic), [](const ButtonSlotEditor& editor) {
        EXPECT_TRUE(Globals().MediaCenterPicked);
        EXPECT_TRUE(editor.IsMethodLocked());
        EXPECT_EQ(editor.Slot().Exec, L"M");
    });
}

TEST_F(Placing, AMediaCenterItemReplacesAnother) {
    PlaceAndCheck(MusicButton(), MediaCenter(kFilms), [](const ButtonSlotEditor& editor) {
        EXPECT_TRUE(Globals().MediaCenterPicked);
        EXPECT_EQ(editor.Slot().Program(1).Title, L"Films");
        EXPECT_EQ(editor.Slot().Name, L"My Films");
    });
}

// The button's name

TEST_F(Placing, TheNameFollowsTheFirstSlot) {
    PlaceAndCheck(Full(), Node(L"C:\\Apps\\Notes.exe"),
                  [](const ButtonSlotEditor& editor) { EXPECT_EQ(editor.Slot().Name, L"Notes"); });
}

TEST_F(Placing, TheNameStays_WhenAnotherSlotIsFilled) {
    ButtonSlotEditor editor = Open(Sequence(2));
    DragOnto(editor, 1, Node(L"C:\\Apps\\Notes.exe"));
    EXPECT_EQ(editor.Slot().Name, L"Button");
    SendTo(editor, 2, Node(L"C:\\Apps\\Notes.exe"));
    EXPECT_EQ(editor.Slot().Name, L"Button");
}

TEST_F(Placing, TheNameStays_WhenTheFirstCommandIsTheSameAsBefore) {
    const auto keepsItsName = [](const ButtonSlotEditor& editor) {
        EXPECT_EQ(editor.Slot().Name, L"Button");
    };
    PickedItem mail = Node(L"C:\\Apps\\Mail.exe");
    mail.name = L"Other text.exe";
    PlaceAndCheck(Full(), mail, keepsItsName);
    PlaceAndCheck(Button(L"K", {L"46"}), Key(kCopyKey), keepsItsName);
    PlaceAndCheck(MusicButton(), MediaCenter(kMusic), keepsItsName);
}

TEST_F(Placing, TheNameFollowsACommandThatDiffersInCaseOnly) {
    PlaceAndCheck(Full(), Node(L"C:\\APPS\\MAIL.EXE"),
                  [](const ButtonSlotEditor& editor) { EXPECT_EQ(editor.Slot().Name, L"MAIL"); });
}

} // namespace
