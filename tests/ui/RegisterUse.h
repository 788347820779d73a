#pragma once

#include "PatternManagerUse.h"
#include "SourceUse.h"

#include <optional>
#include <string>
#include <string_view>

inline constexpr int kRegisterTitleText = 3070;
inline constexpr int kParameterText = 3106;

/// The registration dialog, open on button 1.
class RegisterUse : public SourceUse {
protected:
    static constexpr int kSlots = 5;
    static constexpr std::string_view kSendRows = "x";
    static constexpr std::string_view kProgramRows = "xxxxx";
    static constexpr std::string_view kSlotRows = "xx-x"; ///< Delete, Parameter, line, Cancel

    static StoredButton Empty() { return {L"Free", L"M", 0, {}, {}}; }
    /// The first `count` files of the Start Menu; the first one has a parameter.
    static StoredButton Sequence(int count);
    static std::wstring ShownFile(int number) { return L"Tool" + std::to_wstring(number); }

    /// Starts the program with this in its first button and opens the dialog.
    void Open(const StoredButton& button);
    /// Waits for the dialog that was asked for in another way.
    void AwaitForm();
    const UiDriver::Window& Form() const { return *form_; }

    UiDriver::TabControl SourceTabs() const { return Form().Tab(IDC_tabMenu); }
    void OpenTab(int captionText) const;
    void AwaitPane(int pane) const;
    UiDriver::TreeView Menu() const { return TreeIn(Form(), IDC_tvTreeView0); }

    UiDriver::Control Slot(int number) const { return Form().Control(IDC_txtApplication0 + number - 1); }
    Names ShownSlots() const;
    /// Waits until the slots show these, the rest nothing.
    void AwaitSlots(Names texts) const;
    /// Expects them to show these now, and for a while.
    void ExpectSlotsStay(Names texts) const;
    void ExpectEnabledSlots(int count) const;
    void ExpectMethod(int option, bool locked = false) const;

    void Drag(POINT from, POINT to) const;
    /// Opens the tab of the offer first.
    void DragOffer(const Offer& offer, int slot) const;
    /// Brings a file of the Start Menu half-way to a slot, with the left button down.
    void CarryFile(int number) const;
    POINT PointOfFile(int number) const;

    /// The menu that opens at a right click, or when a key asks for it.
    UiDriver::PopupMenu RightClick(POINT point) const;
    UiDriver::PopupMenu SlotMenu(int slot) const;

    /// Chooses in the Send menu with the real keyboard.
    void SendByKeys(const UiDriver::PopupMenu& menu, int slot) const;

    NameQuestion AwaitParameterQuestion() const;

    void PressOk() const;
    /// Presses OK, then Apply in the main dialog, and expects the store to have this button now.
    void ExpectRegistered(const StoredButton& button) const;
    /// The same for what was not changed.
    void ExpectNothingChanged() const;

private:
    std::optional<UiDriver::Window> form_;
};
