#include "dialogs/register/ButtonSlotEditor.h"

#include "browse/Paths.h"
#include "dialogs/register/ProgramSources.h"
#include "dialogs/register/ShownPrograms.h"
#include "platform/FileSystem.h"
#include "settings/GlobalValue.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <utility>

PickedItem PickedPath(const std::wstring& path) {
    const std::wstring key = WithoutTrailingBackslash(path);
    return {PickedItem::Kind::Tree, key, LastPart(key)};
}

ButtonSlotEditor::ButtonSlotEditor(ButtonSlot slot, Surroundings surroundings)
    : surroundings_(std::move(surroundings)), slot_(std::move(slot)) {
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
        shown_[0] = ShownKey(slot_, surroundings_.sources.ShortcutKeys());
        return;
    }
    if (Method() == LaunchMethod::Single && !slot_.Title(1).empty() && slot_.AP(2).empty()) {
        ShowMediaCenterItem();
        return;
    }
    for (int slot = 0; slot < kSlots; ++slot) {
        shown_.at(Index(slot)) = ShownProgram(slot_, slot + 1, surroundings_.files);
    }
}

void ButtonSlotEditor::ShowMediaCenterItem() {
    // Without such an item the slot stays empty: what has a title but no second program may not be taken for
    // a program of the user's choice.
    for (const MediaCenterRow& row : surroundings_.sources.MediaCenterTable()) {
        if (row.title == slot_.Title(1)) {
            shown_[0] = slot_.Title(1);
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
        slot_.NumAP = slot_.AP(1).empty() ? 0 : 1;
        return;
    }
    slot_.Exec = option == 1 ? L"S" : L"P";
    std::int16_t count = 0;
    while (count < kMaxPrograms && !slot_.AP(count + 1).empty()) {
        ++count;
    }
    slot_.NumAP = count;
}

void ButtonSlotEditor::Begin(const PickedItem& item) {
    bool& picked = Globals().MediaCenterPicked;
    pickedBefore_ = picked;
    if (item.kind == PickedItem::Kind::MediaCenter) {
        picked = true;
    } else if (item.kind == PickedItem::Kind::ShortcutKey) {
        picked = false;
    }
}

void ButtonSlotEditor::Cancel() const {
    Globals().MediaCenterPicked = pickedBefore_;
}

bool ButtonSlotEditor::CanDrag(const PickedItem& item) const {
    return item.kind != PickedItem::Kind::None &&
           (item.kind != PickedItem::Kind::Tree || item.key != surroundings_.myComputer);
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
    const bool alwaysFirst = item.kind != PickedItem::Kind::Tree;
    return alwaysFirst ? 0 : std::min<int>(slot, slot_.NumAP);
}

void ButtonSlotEditor::DropPaths(int slot, const std::vector<std::wstring>& paths) {
    for (const std::wstring& path : paths) {
        if (slot >= kSlots || !IsSlotEnabled(slot)) {
            return;
        }
        const PickedItem item = PickedPath(path);
        if (item.key.empty()) {
            continue;
        }
        const int target = DropTarget(slot, item);
        Drop(target, item);
        slot = target + 1;
    }
}

int ButtonSlotEditor::SendTargets(const PickedItem& item) const {
    switch (item.kind) {
    case PickedItem::Kind::None:
        return 0;
    case PickedItem::Kind::Tree:
        if (item.key == surroundings_.myComputer ||
            (item.rootText == surroundings_.favoritesRoot && !EndsInUrl(item.key))) {
            return 0;
        }
        return IsSingle() ? 1 : std::min(slot_.NumAP + 1, kSlots);
    default:
        return 1;
    }
}

void ButtonSlotEditor::Send(int slot, const PickedItem& item) {
    ReleaseMethod();
    if (slot >= slot_.NumAP && slot_.NumAP < kMaxPrograms) {
        ++slot_.NumAP;
    }
    Place(slot, item);
}

void ButtonSlotEditor::Place(int slot, const PickedItem& item) {
    const std::wstring formerCommand = slot_.AP(1);
    switch (item.kind) {
    case PickedItem::Kind::Tree:
        PlaceTreeItem(slot, item);
        break;
    case PickedItem::Kind::ShortcutKey:
        PlaceShortcutKey(item.row);
        break;
    case PickedItem::Kind::MediaCenter:
        PlaceMediaCenterItem(item.row);
        break;
    case PickedItem::Kind::None:
        break;
    }
    if (slot_.AP(1) != formerCommand) {
        slot_.Name = item.kind == PickedItem::Kind::MediaCenter
                         ? surroundings_.sources.MediaCenterTable().at(item.row).displayName
                         : shown_[0];
    }
}

void ButtonSlotEditor::PlaceTreeItem(int slot, const PickedItem& item) {
    const int number = slot + 1;
    slot_.AP(number) = item.key;
    slot_.Param(number).clear();
    slot_.Title(number).clear();
    shown_.at(Index(slot)) =
        IsFolder(surroundings_.files, item.key) ? item.text : WithoutExtension(item.text);
    if (EndsInUrl(item.key) && item.rootText == surroundings_.favoritesRoot) {
        const std::wstring address = surroundings_.addressOf(item.key);
        slot_.AP(number) = BrowserCommand(address);
        slot_.Param(number) = address;
        slot_.Title(number) = item.text;
        shown_.at(Index(slot)) = item.text;
    }
}

void ButtonSlotEditor::PlaceShortcutKey(std::size_t row) {
    const ShortcutKeyRow& key = surroundings_.sources.ShortcutKeys().at(row);
    ClearSlotsFrom(0); // no parameter or title of the former program stays with a key
    slot_.AP(1) = DecimalText(key.keyCode);
    shown_[0] = key.name;
    slot_.Exec = L"K";
    slot_.NumAP = 1;
}

void ButtonSlotEditor::PlaceMediaCenterItem(std::size_t row) {
    const MediaCenterRow& item = surroundings_.sources.MediaCenterTable().at(row);
    ClearSlotsFrom(0);
    slot_.AP(1) = item.commandLine;
    slot_.Title(1) = item.title;
    shown_[0] = item.title;
    slot_.Exec = L"M";
    slot_.NumAP = 1;
    Globals().MediaCenterPicked = true;
}

void ButtonSlotEditor::ClearSlot(int slot) {
    slot_.AP(slot + 1).clear();
    slot_.Param(slot + 1).clear();
    slot_.Title(slot + 1).clear();
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
        slot_.AP(i + 1) = slot_.AP(i + 2);
        slot_.Param(i + 1) = slot_.Param(i + 2);
        slot_.Title(i + 1) = slot_.Title(i + 2);
        shown_.at(Index(i)) = shown_.at(Index(i + 1));
    }
    ClearSlot(kSlots - 1);
    if (Method() == LaunchMethod::Single) {
        slot_.NumAP = slot_.AP(1).empty() ? 0 : 1;
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
    if (slot_.AP(slot + 1).empty()) {
        return;
    }
    Remove(slot);
    if (slot == 0) {
        slot_.Name = WithoutExtension(shown_[0]); // unlike the menu's Delete
    }
}
