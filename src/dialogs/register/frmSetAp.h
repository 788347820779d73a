#pragma once

#include "dialogs/register/ButtonSlotEditor.h"
#include "dialogs/register/DragCursor.h"
#include "dialogs/register/SourcePanes.h"
#include "ui/ModalForm.h"

#include <shellapi.h>

#include <optional>
#include <vector>

class RegIniFunc;
class StringTable;
struct Platform;

/// The registration dialog: what one button starts. Edits a copy of EditedButtonSlot; OK alone writes it back.
class frmSetAp final : public ModalForm {
public:
    frmSetAp(Form& owner, const Platform& platform, const RegIniFunc& store, const StringTable& texts);

protected:
    void OnCreate() override;
    SIZE OnLayout() override;
    void OnCommand(int id, int notification) override;
    LRESULT OnNotify(NMHDR& header) override;
    [[nodiscard]] bool ShowsHourglass() const override { return panes_.ShowsHourglass(); }
    bool OnIdle() override { return panes_.OnIdle(); }
    bool OnKeyDown(WPARAM key) override;
    bool OnMouseMessage(const MSG& message) override;
    void OnCaptureLost() override { EndDrag(); }
    bool OnContextMenu(HWND control, std::optional<POINT> at) override;
    HBRUSH OnStaticColour(HWND control, HDC hdc) override;
    void OnClose() override;

private:
    /// What the mouse carries.
    struct Drag {
        PickedItem item;
        Cursor cursor;
        int slot = -1; ///< the slot under the mouse that takes it
    };

    void CreateMethodControls();
    void CreateSlotControls();
    void CreateTabs();
    void ShiftRightColumn(int pixels);
    void LoadSources();

    void ShowSlots();
    void EnableControl(int id, bool enabled);
    void ShowTab(int tab);
    void TurnTab(int step);
    [[nodiscard]] ProgramSource ShownSource() const;

    void StartDrag(const std::optional<PickedItem>& item, const Icon& icon);
    void MoveDrag();
    void FinishDrag();
    void EndDrag();
    void HighlightSlot(int slot);
    /// The slot whose box holds a point of the screen and that can take a program; -1 when there is none.
    [[nodiscard]] int SlotAt(POINT screen) const;
    [[nodiscard]] bool WatchListForDrag(const MSG& message);
    void DropFiles(HWND box, HDROP files);

    /// The chosen entry; 0 when there is none.
    int Track(HMENU menu, POINT place);
    void ShowSendMenu(ProgramSource source, std::optional<POINT> at);
    /// Selects what the mouse points at; false when that is nothing.
    bool SelectAt(ProgramSource source, POINT screen);
    [[nodiscard]] POINT MenuPlace(ProgramSource source);
    void ShowSlotMenu(int slot, std::optional<POINT> at);
    void AskForParameter(int slot);
    void Accept();

    static LRESULT CALLBACK SlotProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    const Platform& platform_;
    const StringTable& texts_;
    SourcePanes panes_;
    std::optional<ButtonSlotEditor> editor_;
    std::vector<ProgramSource> tabs_; ///< the offered ones, in the order of the tabs
    std::optional<Drag> drag_;
    bool cancelledByRight_ = false;  ///< a drag; the button is still down
    std::optional<POINT> listPress_; ///< where the left button went down on a list, on the screen
};
