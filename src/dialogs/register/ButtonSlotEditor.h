#pragma once

#include "dialogs/register/PickedItem.h"
#include "settings/Pattern.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// Slots are numbered 0...4 here, as the dialog's controls are.
inline constexpr int kSlots = kMaxPrograms;

/// The registration dialog's rules on its private copy of a button's settings. Also keeps the process-wide
/// MediaCenterPicked.
class ButtonSlotEditor {
public:
    /// Shows the slot as the dialog opens with it.
    ButtonSlotEditor(ButtonSlot slot, PickedItemServices services);

    [[nodiscard]] const ButtonSlot& Slot() const { return slot_; }
    [[nodiscard]] const std::wstring& ShownText(int slot) const { return shown_.at(Index(slot)); }

    /// 0 single, 1 sequential, 2 simultaneous.
    [[nodiscard]] int Option() const;
    void ChooseOption(int option);
    /// Slot 0 always; the others unless the option is 0.
    [[nodiscard]] bool IsSlotEnabled(int slot) const { return slot == 0 || Option() != 0; }
    /// A shortcut key and a Media Center item are always a single program.
    [[nodiscard]] bool IsMethodLocked() const;

    /// A drag, or a Send menu, starts on the item.
    void Begin(const PickedItem& item);
    /// It ended without placing anything.
    void Cancel() const;

    /// False for the root of all files, which is no program.
    [[nodiscard]] static bool CanDrag(const PickedItem& item);
    /// Past the last program the item goes to the next free slot.
    void Drop(int slot, const PickedItem& item);
    /// The slot in which a drop onto this one ends.
    [[nodiscard]] int DropTarget(int slot, const PickedItem& item) const;
    /// Files from another program, the first one onto this slot, the others onto the following ones.
    void DropPaths(int slot, const std::vector<std::wstring>& paths);

    /// How many entries of the Send menu are enabled, from the first on; 0 when there is no menu.
    [[nodiscard]] int SendTargets(const PickedItem& item) const;
    void Send(int slot, const PickedItem& item);

    /// Not for a shortcut key or a Media Center item.
    [[nodiscard]] bool CanSetParameter() const;
    [[nodiscard]] const std::wstring& Parameter(int slot) const { return slot_.Program(slot + 1).Param; }
    void SetParameter(int slot, const std::wstring& parameter) { slot_.Program(slot + 1).Param = parameter; }

    /// Does nothing for a slot without text.
    void DeleteByMenu(int slot);
    /// Does nothing for a slot without a command.
    void DeleteByKey(int slot);

private:
    static std::size_t Index(int slot) { return static_cast<std::size_t>(slot); }
    /// An unknown letter is a single program.
    [[nodiscard]] LaunchMethod Method() const;
    [[nodiscard]] bool IsSingle() const { return Option() == 0; }

    void Show();
    void ShowMediaCenterItem();
    void ReleaseMethod();
    void Place(int slot, const PickedItem& item);
    void ClearSlot(int slot);
    void ClearSlotsFrom(int slot);
    void Remove(int slot);

    PickedItemServices services_;
    ButtonSlot slot_;
    std::array<std::wstring, kSlots> shown_;
    bool pickedBefore_ = false; ///< MediaCenterPicked before the drag or menu
};
