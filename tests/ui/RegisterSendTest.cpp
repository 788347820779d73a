#include "RegisterUse.h"

namespace {

using UiDriver::Milliseconds;
using UiDriver::PopupMenu;
using UiDriver::WaitUntil;
namespace Keyboard = UiDriver::Keyboard;

class RegisterSend : public RegisterUse {
protected:
    static constexpr Milliseconds kNoMenu{300};

    /// Asks for the menu of the selected item with a key and waits for it.
    PopupMenu AskByKey(const UiDriver::Control& pane, bool shiftF10) const {
        Form().BringToFrontForGood();
        pane.Focus();
        if (shiftF10) {
            Keyboard::Press({VK_SHIFT}, VK_F10);
        } else {
            Keyboard::PressContextMenuKey();
        }
        return PopupMenu::Wait(Program());
    }

    PopupMenu OpenPrograms(POINT point) const { return RightClick(point).OpenByMouse(0, kSendRows); }

    static POINT TopLeft(const RECT& rect) { return {rect.left, rect.top}; }
};

TEST_F(RegisterSend, ToASingleProgramOffersTheFirstAlone) {
    Open(Empty());
    const PopupMenu programs = OpenPrograms(PointOfFile(3));
    for (int row = 1; row < kSlots; ++row) {
        programs.RequireDisabled(row, kProgramRows);
    }
    programs.ChooseByMouse(0, kProgramRows);
    AwaitSlots({ShownFile(3)});
    ExpectRegistered({ShownFile(3), L"M", 1, {MenuPath(MenuFile(3))}, {}});
}

TEST_F(RegisterSend, ToASequenceOffersItsProgramsAndTheNextFreeSlot) {
    Open(Sequence(2));
    const PopupMenu programs = OpenPrograms(PointOfFile(3));
    programs.RequireDisabled(3, kProgramRows);
    programs.RequireDisabled(4, kProgramRows);
    programs.ChooseByMouse(2, kProgramRows);
    AwaitSlots({ShownFile(1), ShownFile(2), ShownFile(3)});
    OpenPrograms(PointOfFile(4)).ChooseByMouse(3, kProgramRows);
    AwaitSlots({ShownFile(1), ShownFile(2), ShownFile(3), ShownFile(4)});
    OpenPrograms(PointOfFile(5)).ChooseByMouse(1, kProgramRows);
    AwaitSlots({ShownFile(1), ShownFile(5), ShownFile(3), ShownFile(4)});
    StoredButton expected = Sequence(4);
    expected.programs[1] = MenuPath(MenuFile(5));
    ExpectRegistered(expected);
}

TEST_F(RegisterSend, TheContextMenuKeyOpensItAtTheSelectedNode) {
    Open(Sequence(1));
    Menu().Select(MenuNode(MenuFile(4)));
    const PopupMenu menu = AskByKey(Menu(), false);
    const RECT node = Menu().NodeRect(MenuNode(MenuFile(4)));
    EXPECT_NEAR(menu.Shown().Rect().left, node.left, 8);
    EXPECT_NEAR(menu.Shown().Rect().top, node.bottom, 8);
    SendByKeys(menu, 2);
    AwaitSlots({ShownFile(1), ShownFile(4)});
    StoredButton expected = Sequence(2);
    expected.programs[1] = MenuPath(MenuFile(4));
    ExpectRegistered(expected);
}

TEST_F(RegisterSend, ShiftF10OpensItForATree) {
    Open(Empty());
    Menu().Select(MenuNode(MenuFile(4)));
    SendByKeys(AskByKey(Menu(), true), 1);
    AwaitSlots({ShownFile(4)});
}

TEST_F(RegisterSend, ShiftF10OpensItForAList) {
    const Offer offer = OfferOf(Source::ShortcutKey);
    Open(Empty());
    OpenTab(offer.tabText);
    AwaitPane(offer.pane);
    Form().List(offer.pane).Choose(offer.row);
    SendByKeys(AskByKey(Form().Control(offer.pane), true), 1);
    AwaitSlots({offer.shown});
}

TEST_F(RegisterSend, ARightClickSelectsTheNodeFirst) {
    Open(Empty());
    Menu().Select(MenuNode(MenuFile(1)));
    const PopupMenu menu = RightClick(PointOfFile(4));
    EXPECT_EQ(Menu().Selected(), MenuNode(MenuFile(4)));
    const POINT at = TopLeft(menu.Shown().Rect());
    const POINT mouse = PointOfFile(4);
    EXPECT_NEAR(at.x, mouse.x, 8);
    EXPECT_NEAR(at.y, mouse.y, 8);
    menu.Close();
    ExpectSlotsStay({});
    EXPECT_TRUE(Form().Visible());
    ExpectNothingChanged();
}

TEST_F(RegisterSend, ARightClickSelectsTheRowFirst) {
    Open(Empty());
    OpenTab(kShortcutKeyTabText);
    AwaitPane(IDC_lstListBox1);
    const UiDriver::ListBox keys = Form().List(IDC_lstListBox1);
    EXPECT_EQ(keys.Selected(), 0);
    const PopupMenu menu = RightClick(keys.ItemCentre(1));
    EXPECT_EQ(keys.Selected(), 1);
    menu.Close();
    ExpectNothingChanged();
}

TEST_F(RegisterSend, IsNotForMyComputer) {
    Open(Empty());
    OpenTab(kAllFilesTabText);
    AwaitPane(IDC_tvTreeView2);
    const UiDriver::TreeView files = TreeIn(Form(), IDC_tvTreeView2);
    files.WaitForNode({Text(kMyComputerText)});
    files.WaitUntilExpanded({Text(kMyComputerText)});
    files.RightClickNode({Text(kMyComputerText)});
    PopupMenu::RequireNone(Program(), kNoMenu);
    files.RightClickNode({Text(kMyComputerText), L"c:"});
    PopupMenu::Wait(Program()).Close();
}

TEST_F(RegisterSend, IsNotForAFolderOfTheFavourites) {
    Open(Empty());
    OpenTab(kIeFavoritesTabText);
    AwaitPane(IDC_tvTreeView1);
    const UiDriver::TreeView favorites = TreeIn(Form(), IDC_tvTreeView1);
    Reveal(favorites, FavoritesNode(FolderName()));
    favorites.RightClickNode(FavoritesNode(FolderName()));
    PopupMenu::RequireNone(Program(), kNoMenu);
    favorites.RightClickNode(FavoritesNode(L"News"));
    PopupMenu::Wait(Program()).OpenByMouse(0, kSendRows).ChooseByMouse(0, kProgramRows);
    AwaitSlots({L"News"});
    ExpectRegistered(OfferOf(Source::IeFavorites).stored);
}

TEST_F(RegisterSend, IsForAFolderOfTheStartMenu) {
    Open(Empty());
    OpenPrograms(Menu().NodeCentre(MenuNode(FolderName()))).ChooseByMouse(0, kProgramRows);
    AwaitSlots({FolderName()});
    ExpectRegistered({FolderName(), L"M", 1, {MenuPath(FolderName())}, {}});
}

struct SentFrom : NamedCase {
    Source source;
};

class RegisterSendRow : public RegisterSend, public testing::WithParamInterface<SentFrom> {};

TEST_P(RegisterSendRow, ByMouseOffersTheFirstAloneEvenInASequence) {
    const Offer offer = OfferOf(GetParam().source);
    Open(Sequence(2));
    OpenTab(offer.tabText);
    AwaitPane(offer.pane);
    const PopupMenu programs = OpenPrograms(PointOf(Form(), offer));
    programs.RequireDisabled(1, kProgramRows);
    programs.ChooseByMouse(0, kProgramRows);
    AwaitSlots({offer.shown});
    ExpectMethod(0, true);
    ExpectRegistered(offer.stored);
}

TEST_P(RegisterSendRow, ByKeyTakesTheSelectedRow) {
    const Offer offer = OfferOf(GetParam().source);
    Open(Empty());
    OpenTab(offer.tabText);
    AwaitPane(offer.pane);
    const UiDriver::Control list = Form().Control(offer.pane);
    list.Focus();
    Keyboard::Press(VK_DOWN);
    WaitUntil([&] { return Form().List(offer.pane).Selected() == offer.row; }, L"the row to be selected");
    SendByKeys(AskByKey(list, false), 1);
    AwaitSlots({offer.shown});
    ExpectRegistered(offer.stored);
}

INSTANTIATE_TEST_SUITE_P(, RegisterSendRow,
                         testing::Values(SentFrom{{"OfMediaCenter"}, Source::MediaCenter},
                                         SentFrom{{"OfShortcutKeys"}, Source::ShortcutKey}),
                         NameOfCase{});

} // namespace
