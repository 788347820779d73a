#include "BrowseUse.h"

namespace {

using UiDriver::PopupMenu;

/// The system's own menu of an edit field.
class BrowseKeyLine : public BrowseUse {
protected:
    // Undo, -, Cut, Copy, Paste, Delete, -, Select All
    static constexpr char kRows[] = "x-xxxx-x";
    static constexpr int kSelectAllRow = 7;
    static constexpr int kSelectAllItem = 5;

    PopupMenu OpenMenu() {
        Start();
        Form().BringToFrontForGood();
        StartMenu().ClickNode(InMenu());
        KeyLine().Focus();
        SendMessageW(KeyLine().Hwnd(), EM_SETSEL, 0, 0);
        KeyLine().Click(UiDriver::MouseButton::Right);
        return PopupMenu::Wait(Program());
    }

    void AwaitSelected(std::size_t length) const {
        const auto selected = [&] {
            const auto range = static_cast<DWORD>(SendMessageW(KeyLine().Hwnd(), EM_GETSEL, 0, 0));
            return static_cast<std::size_t>(HIWORD(range) - LOWORD(range)) == length;
        };
        UiDriver::WaitUntil(selected, std::to_wstring(length) + L" characters to be selected");
    }
};

TEST_F(BrowseKeyLine, AllOfTheKeyCanBeSelectedFromItsMenuByMouse) {
    OpenMenu().ChooseByMouse(kSelectAllRow, kRows);
    AwaitSelected(UserMenu().size());
}

TEST_F(BrowseKeyLine, AllOfTheKeyCanBeSelectedFromItsMenuByKeys) {
    OpenMenu().ChooseByKeys(kSelectAllItem);
    AwaitSelected(UserMenu().size());
}

TEST_F(BrowseKeyLine, EscapeLeavesItsMenuWithoutClosingTheWindow) {
    OpenMenu().Close();
    PopupMenu::RequireNone(Program(), UiDriver::Milliseconds(300));
    AwaitSelected(0);
    EXPECT_TRUE(Form().Visible());
}

} // namespace
