#include "dialogs/register/ButtonSlotEditor.h"

#include "browse/Paths.h"
#include "dialogs/register/ProgramSources.h"
#include "dialogs/register/ShownPrograms.h"
#include "platform/FileSystem.h"
#include "settings/GlobalValue.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <utility>

ButtonSlotEditor::ButtonSlotEditor(ButtonSlot slot, PickedItemServices services)
    : services_(std::move(services)), slot_(std::move(slot)) {
    Show();
}

LaunchMethod ButtonSlotEditor::Method() const {
    const LaunchMethod method = LaunchMethodFromText(slot_.Exec);
    return method == LaunchMethod::Unknown ? LaunchMethod::Single : method;
}

int ButtonSlotEditor::Option() const {
    switch (Method()) {
    case LaunchMethod::Sequential:
        return 1;
    case LaunchMethod::Simultaneous:
        return 2;
    default:
        return 0;
    }
}

bool ButtonSlotEditor::IsMethodLocked() const {
    return Method() == LaunchMethod::ShortcutKey || Globals().MediaCenterPicked;
}

void ButtonSlotEditor::Show() {
    Globals().MediaCenterPicked = false;
    if (Method() == LaunchMethod::ShortcutKey) {
        shown_[0] = ShownKey(slot_, services_.sources.ShortcutKeys());
        return;
    }
    if (Method() == LaunchMethod::Single && !slot_.Program(1).Title.empty() && slot_.Program(2).AP.empty()) {
        ShowMediaCenterItem();
        return;
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        shown_.at(Index(slot)) = ShownProgram(
            slot_, slot + 1, [this](const std::wstring& path) { return IsFolder(services_.files, path); });
    }
}

void ButtonSlotEditor::ShowMediaCenterItem() {
    // Without such an item the slot stays empty: what has a title but no second program may not be taken for
    // a program of the user's choice.
    for (const MediaCenterRow& row : services_.sources.MediaCenterTable()) {
        if (row.title == slot_.Program(1).Title) {
            shown_[0] = slot_.Program(1).Title;
            Globals().MediaCenterPicked = true;
            return;
        }
    }
}

void ButtonSlotEditor::ChooseOption(int option) {
    if (option == 0) {
        if (Method() != LaunchMethod::ShortcutKey) {
            slot_.Exec = L"M";
        }
        slot_.NumAP = slot_.Program(1).AP.empty() ? 0 : 1;
        return;
    }
    slot_.Exec = option == 1 ? L"S" : L"P";
    std::int16_t count = 0;
    while (count < kMaxPrograms && !slot_.Program(count + 1).AP.empty()) {
        ++count;
    }
    slot_.NumAP = count;
}

void ButtonSlotEditor::Begin(const PickedItem& item) {
    bool& picked = Globals().MediaCenterPicked;
    pickedBefore_ = picked;
    if (IsList(item.source)) {
        picked = item.source == ProgramSource::MediaCenter;
    }
}

void ButtonSlotEditor::Cancel() const {
    Globals().MediaCenterPicked = pickedBefore_;
}

bool ButtonSlotEditor::CanDrag(const PickedItem& item) {
    return item.source != ProgramSource::AllFiles || !item.root;
}

void ButtonSlotEditor::ReleaseMethod() {
    if (Method() == LaunchMethod::ShortcutKey) {
        slot_.Exec = L"M";
    }
    Globals().MediaCenterPicked = false;
}

void ButtonSlotEditor::Drop(int slot, const PickedItem& item) {
    ReleaseMethod();
    if (slot >= slot_.NumAP) {
        slot = slot_.NumAP;
        ++slot_.NumAP;
    }
    Place(slot, item);
}

int ButtonSlotEditor::DropTarget(int slot, const PickedItem& item) const {
    return IsList(item.source) ? 0 : std::min<int>(slot, slot_.NumAP);
}

void ButtonSlotEditor::DropPaths(int slot, const std::vector<std::wstring>& paths) {
    for (const std::wstring& path : paths) {
        if (slot >= kSlots || !IsSlotEnabled(slot)) {
            return;
        }
        const PickedItem item = PickedPath(path);
        if (item.command.empty()) {
            continue;
        }
        const int target = DropTarget(slot, item);
        Drop(target, item);
        slot = target + 1;
    }
}

int ButtonSlotEditor::SendTargets(const PickedItem& item) const {
    if (!IsProgram(item)) {
        return 0;
    }
    return IsSingle() || IsList(item.source) ? 1 : std::min(slot_.NumAP + 1, kSlots);
}

void ButtonSlotEditor::Send(int slot, const PickedItem& item) {
    ReleaseMethod();
    if (slot >= slot_.NumAP && slot_.NumAP < kMaxPrograms) {
        ++slot_.NumAP;
    }
    Place(slot, item);
}

void ButtonSlotEditor::Place(int slot, const PickedItem& item) {
    const std::wstring formerCommand = slot_.Program(1).AP;
    const bool mediaCenter = item.source == ProgramSource::MediaCenter;
    if (IsList(item.source)) {
        ClearSlotsFrom(0); // no parameter or title of the former program stays
        slot = 0;
        slot_.Exec = mediaCenter ? L"M" : L"K";
        slot_.NumAP = 1;
        Globals().MediaCenterPicked = mediaCenter;
    }
    slot_.Program(slot + 1) = ProgramOf(item, services_);
    shown_.at(Index(slot)) = NameOf(item, services_.files);
    if (slot_.Program(1).AP != formerCommand) {
        slot_.Name = mediaCenter ? item.displayName : shown_[0];
    }
}

void ButtonSlotEditor::ClearSlot(int slot) {
    slot_.Program(slot + 1) = {};
    shown_.at(Index(slot)).clear();
}

void ButtonSlotEditor::ClearSlotsFrom(int slot) {
    for (; slot < kSlots; ++slot) {
        ClearSlot(slot);
    }
}

bool ButtonSlotEditor::CanSetParameter() const {
    return Method() != LaunchMethod::ShortcutKey &&
           !(Method() == LaunchMethod::Single && Globals().MediaCenterPicked);
}

void ButtonSlotEditor::Remove(int slot) {
    for (int i = slot; i < kSlots - 1; ++i) {
        slot_.Program(i + 1) = slot_.Program(i + 2);
        shown_.at(Index(i)) = shown_.at(Index(i + 1));
    }
    ClearSlot(kSlots - 1);
    if (Method() == LaunchMethod::Single) {
        slot_.NumAP = slot_.Program(1).AP.empty() ? 0 : 1;
    } else if (slot_.NumAP > 0) {
        --slot_.NumAP;
    }
    if (slot == 0) {
        ReleaseMethod(); // the button holds no shortcut key or Media Center item any more
    }
}

void ButtonSlotEditor::DeleteByMenu(int slot) {
    if (ShownText(slot).empty()) {
        return;
    }
    Remove(slot);
    if (slot == 0) {
        slot_.Name = shown_[0];
    }
}

void ButtonSlotEditor::DeleteByKey(int slot) {
    if (slot_.Program(slot + 1).AP.empty()) {
        return;
    }
    Remove(slot);
    if (slot == 0) {
        slot_.Name = WithoutExtension(shown_[0]); // unlike the menu's Delete
    }
}
