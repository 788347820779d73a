#include "RegistrationDialog.h"

#include <algorithm>
#include <optional>
#include <random>

namespace {

using testing::Test;

/// What the dialog must know by itself, told from the operations alone.
enum class Holds { Programs, ShortcutKey, MediaCenterItem };

class RandomEditing : public Test, public RegistrationDialog {
public:
    void Run(unsigned seed) {
        random_.seed(seed);
        Globals().MediaCenterPicked = Below(2) == 0;
        editor_.emplace(Open(Button(Below(2) == 0 ? L"M" : L"S", {})));
        holds_ = Holds::Programs;
        dragged_.reset();
        constexpr int kOperations = 40;
        for (int step = 0; step < kOperations && !HasFailure(); ++step) {
            Step();
            Check();
        }
    }

private:
    int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

    [[nodiscard]] PickedItem AnyItem() {
        static const std::vector<std::wstring> kPaths{
            L"C:\\Apps\\Mail.exe",  L"C:\\Apps\\app.v2.exe", L"C:\\Apps\\Paint.exe", L"C:\\Apps\\Calc.exe",
            L"C:\\Apps\\Clock.exe", L"C:\\Apps\\Tools.d",    L"C:\\Gone\\tool.exe",  L"C:\\Menu\\News.url"};
        switch (Below(8)) {
        case 0:
            return Key(Below(2) == 0 ? kCopyKey : kPasteKey);
        case 1:
            return MediaCenter(Below(2) == 0 ? kMusic : kFilms);
        case 2:
            return Favorite(Below(2) == 0 ? L"C:\\Favorites\\News.url" : L"C:\\Favorites\\MAPS.URL");
        default:
            return Node(kPaths[static_cast<std::size_t>(Below(static_cast<int>(kPaths.size())))]);
        }
    }
    [[nodiscard]] int AnyEnabledSlot() { return editor_->IsSlotEnabled(1) ? Below(kSlots) : 0; }

    void Step() {
        if (dragged_) {
            EndDrag();
            return;
        }
        const int slot = AnyEnabledSlot();
        switch (Below(10)) {
        case 0:
        case 1:
        case 2:
            BeginDrag();
            break;
        case 3:
        case 4:
            SendAny();
            break;
        case 5:
            if (!editor_->IsMethodLocked()) {
                editor_->ChooseOption(Below(3));
            }
            break;
        case 6:
            Delete(slot);
            break;
        case 7:
            if (editor_->CanSetParameter() && !editor_->ShownText(slot).empty()) {
                editor_->SetParameter(slot, L"/p");
            }
            break;
        case 8: {
            std::vector<std::wstring> paths;
            for (int file = Below(7); file >= 0; --file) {
                paths.push_back(L"D:\\dropped" + std::to_wstring(Below(9)) + L".exe");
            }
            editor_->DropPaths(slot, paths);
            holds_ = Holds::Programs;
            EXPECT_EQ(Globals().MediaCenterPicked, false);
            break;
        }
        default:
            OpenAgain();
            break;
        }
    }

    void BeginDrag() {
        slotBefore_ = editor_->Slot();
        shownBefore_ = Shown(*editor_);
        pickedBefore_ = Globals().MediaCenterPicked;
        dragged_ = AnyItem();
        editor_->Begin(*dragged_);
    }

    void EndDrag() {
        const PickedItem item = *dragged_;
        dragged_.reset();
        if (Below(3) == 0) {
            editor_->Cancel();
            EXPECT_EQ(editor_->Slot(), slotBefore_);
            EXPECT_EQ(Shown(*editor_), shownBefore_);
            EXPECT_EQ(Globals().MediaCenterPicked, pickedBefore_);
            return;
        }
        const int slot = AnyEnabledSlot();
        const int target = editor_->DropTarget(slot, item);
        const int countBefore = editor_->Slot().NumAP;
        editor_->Drop(slot, item);
        ExpectPlaced(target, countBefore, item);
    }

    void SendAny() {
        const PickedItem item = AnyItem();
        const int targets = editor_->SendTargets(item);
        const int countBefore = editor_->Slot().NumAP;
        ASSERT_GE(targets, 1);
        ASSERT_LE(targets, kSlots);
        ASSERT_LE(targets, countBefore + 1);
        slotBefore_ = editor_->Slot();
        const int target = Below(targets);
        SendTo(*editor_, target, item);
        ExpectPlaced(target, countBefore, item);
    }

    void ExpectPlaced(int target, int countBefore, const PickedItem& item) {
        EXPECT_NE(editor_->Slot().Program(target + 1).AP, L"");
        EXPECT_NE(editor_->ShownText(target), L"");
        if (editor_->Slot().Program(1).AP == slotBefore_.Program(1).AP) {
            EXPECT_EQ(editor_->Slot().Name, slotBefore_.Name);
        } else if (item.source != ProgramSource::MediaCenter) {
            EXPECT_EQ(editor_->Slot().Name, editor_->ShownText(0));
        }
        if (!IsList(item.source)) {
            EXPECT_EQ(editor_->Slot().NumAP, std::max(countBefore, target + 1));
            holds_ = Holds::Programs;
            return;
        }
        holds_ = item.source == ProgramSource::ShortcutKey ? Holds::ShortcutKey : Holds::MediaCenterItem;
        EXPECT_EQ(editor_->Slot().NumAP, 1);
        EXPECT_EQ(Filled(), 1);
    }

    void Delete(int slot) {
        const bool shows = !editor_->ShownText(slot).empty();
        const bool starts = !editor_->Slot().Program(slot + 1).AP.empty();
        const int filledBefore = Filled();
        const bool byMenu = Below(2) == 0;
        byMenu ? editor_->DeleteByMenu(slot) : editor_->DeleteByKey(slot);
        EXPECT_EQ(Filled(), filledBefore - ((byMenu ? shows : starts) ? 1 : 0));
        if (slot == 0 && Filled() < filledBefore) {
            holds_ = Holds::Programs;
        }
    }

    /// OK, and a click on the same button.
    void OpenAgain() {
        const ButtonSlot slot = editor_->Slot();
        editor_.emplace(Open(slot));
        EXPECT_EQ(editor_->Slot(), slot);
    }

    [[nodiscard]] int Filled() const {
        int filled = 0;
        for (const std::wstring& command : Commands(*editor_)) {
            filled += command.empty() ? 0 : 1;
        }
        return filled;
    }

    void Check() const {
        const ButtonSlot& slot = editor_->Slot();
        const int filled = Filled();
        ASSERT_GE(slot.NumAP, 0);
        ASSERT_LE(slot.NumAP, kMaxPrograms);
        EXPECT_EQ(slot.NumAP, editor_->Option() == 0 ? std::min(filled, 1) : filled);
        for (int number = 1; number <= kMaxPrograms; ++number) {
            EXPECT_EQ(slot.Program(number).AP.empty(), number > filled) << "a gap";
            if (slot.Program(number).AP.empty()) {
                EXPECT_EQ(editor_->ShownText(number - 1), L"");
                EXPECT_EQ(slot.Program(number).Param, L"");
                EXPECT_EQ(slot.Program(number).Title, L"");
            }
        }
        CheckMethod();
    }

    void CheckMethod() const {
        const ButtonSlot& slot = editor_->Slot();
        EXPECT_EQ(slot.Exec == L"K", holds_ == Holds::ShortcutKey);
        EXPECT_EQ(editor_->IsMethodLocked(), slot.Exec == L"K" || Globals().MediaCenterPicked);
        if (!dragged_) {
            EXPECT_EQ(editor_->IsMethodLocked(), holds_ != Holds::Programs);
        }
        if (editor_->IsMethodLocked() && !dragged_) {
            EXPECT_EQ(editor_->Option(), 0);
            EXPECT_LE(Filled(), 1);
            EXPECT_FALSE(editor_->CanSetParameter());
        }
        if (dragged_ && dragged_->source == ProgramSource::MediaCenter) {
            EXPECT_TRUE(Globals().MediaCenterPicked);
        } else if (dragged_ && dragged_->source == ProgramSource::ShortcutKey) {
            EXPECT_FALSE(Globals().MediaCenterPicked);
        } else {
            EXPECT_EQ(Globals().MediaCenterPicked, holds_ == Holds::MediaCenterItem);
        }
        if (holds_ == Holds::MediaCenterItem && Filled() != 0) {
            EXPECT_TRUE(slot.Program(1).Title == L"Music" || slot.Program(1).Title == L"Films");
            EXPECT_EQ(slot.Program(1).AP, slot.Program(1).Title == L"Music" ? L"C:\\mc\\mc.exe /music"
                                                                            : L"C:\\mc\\mc.exe /films");
        }
    }

    std::mt19937 random_;
    std::optional<ButtonSlotEditor> editor_;
    Holds holds_ = Holds::Programs;
    std::optional<PickedItem> dragged_;
    ButtonSlot slotBefore_;
    std::vector<std::wstring> shownBefore_;
    bool pickedBefore_ = false;
};

TEST_F(RandomEditing, KeepsTheButtonInOrder) {
    constexpr unsigned kSequences = 3000;
    for (unsigned seed = 1; seed <= kSequences && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Run(seed);
        disk.Forget();
    }
}

} // namespace
