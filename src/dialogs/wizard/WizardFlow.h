#pragma once

#include "dialogs/register/ButtonSlotEditor.h"
#include "dialogs/register/ProgramSources.h"
#include "settings/Pattern.h"

#include <array>
#include <bitset>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// What was pressed last.
enum class WizardAction { None, Next, Back, Finish };

enum class WizardPage {
    NotShown,
    SelectButton,
    SelectLaunchMethod,
    SelectMenu, ///< where the single program comes from
    SelectProgramForSingle,
    Finish,
    ButtonName,
    SomePrograms
};

/// The frames that are shown and hidden; the program list stands beside the pages that pick programs.
enum class WizardFrame {
    SelectButton,
    SelectLaunchMethod,
    SelectMenu,
    SelectProgramForSingle,
    Finish,
    ButtonName,
    SomePrograms,
    ProgramList
};
inline constexpr std::size_t kWizardFrameCount = 8;

/// The wizard's pages and buttons, and the settings that it collects. Shows nothing itself: a form asks it
/// after each event what is to be seen.
class WizardFlow {
public:
    /// What the flow asks about things outside.
    struct Surroundings {
        const ProgramSources& sources;
        const FileSystem& files;
        /// The address in an Internet shortcut file.
        std::function<std::wstring(const std::wstring& file)> addressOf;
        /// What is selected in a source's tree or list.
        std::function<PickedItem(ProgramSource)> selectionOf;
        std::wstring favoritesRoot; ///< root text of the favourites' tree, string id 3292
        std::wstring myComputer;    ///< key of the root of all files, string id 3100
    };

    /// `forButton`: opened for one button, WizardForButton.
    WizardFlow(Surroundings surroundings, bool forButton);

    /// Whether the single program, or one of several, can come from a source. The tags of the options.
    [[nodiscard]] bool OffersForSingle(ProgramSource source) const;
    [[nodiscard]] bool OffersForSeveral(ProgramSource source) const;

    /// The first page, when the form is first activated.
    void Start();
    // The buttons. Each does nothing while it is disabled or hidden.
    void Next();
    void Back();
    void PressFinish();

    /// 0-based options.
    void ChooseButton(int option) { button_ = option; }
    void ChooseLaunchMethod(int option);
    void ChooseSourceForSingle(ProgramSource source);
    void ChooseSource(ProgramSource source);
    void SetButtonName(const std::wstring& name);
    void ClickNode(const PickedItem& node);
    void ClickRow(const PickedItem& row);

    [[nodiscard]] WizardPage Page() const { return page_; }
    [[nodiscard]] bool Shows(WizardFrame frame) const {
        return frames_.test(static_cast<std::size_t>(frame));
    }
    [[nodiscard]] bool BackEnabled() const { return backEnabled_; }
    [[nodiscard]] bool NextEnabled() const { return nextEnabled_; }
    /// The caption of `cmdNext` is "Finish".
    [[nodiscard]] bool NextSaysFinish() const { return nextSaysFinish_; }
    /// Of `cmdFinish`, a button of its own.
    [[nodiscard]] bool FinishVisible() const { return finishVisible_; }
    [[nodiscard]] bool FinishEnabled() const { return finishEnabled_; }
    /// The source whose list or tree is shown; nothing when none is.
    [[nodiscard]] std::optional<ProgramSource> ShownSource() const { return shownSource_; }
    /// The box of the next program, 0...4; -1 before the first mark.
    [[nodiscard]] int MarkedSlot() const { return markedSlot_; }
    [[nodiscard]] const std::wstring& ProgramText(int slot) const {
        return programTexts_.at(static_cast<std::size_t>(slot));
    }
    /// The checked options; nothing when no source is offered.
    [[nodiscard]] std::optional<ProgramSource> CheckedForSingle() const { return checkedForSingle_; }
    [[nodiscard]] std::optional<ProgramSource> CheckedForSeveral() const { return checkedForSeveral_; }
    [[nodiscard]] int ButtonOption() const { return button_; }
    [[nodiscard]] int LaunchOption() const { return launchOption_; }
    [[nodiscard]] const std::wstring& ButtonName() const { return buttonName_; }
    /// The settings as collected so far.
    [[nodiscard]] const ButtonSlot& Slot() const { return slot_; }
    /// The wizard was finished; EditedButtonSlot holds the result.
    [[nodiscard]] bool Committed() const { return committed_; }

private:
    enum class Condition;
    enum class Effect;
    struct Row;
    static const std::vector<Row>& Table();

    void Step(WizardAction action);
    [[nodiscard]] bool Holds(Condition condition) const;
    void Do(Effect effect);
    void DoToPrograms(Effect effect);
    void HideFramesOfPage();
    void Show(WizardFrame frame, bool shown = true) { frames_.set(static_cast<std::size_t>(frame), shown); }
    void ShowSource();
    [[nodiscard]] bool CanPick(ProgramSource source, const PickedItem& item) const;
    void Pick(const PickedItem& item);
    void BuildSingleProgram();
    void AddProgram();
    void PlaceAddress(int slot);
    void ClearSlot(int slot);
    void RemoveLastProgram();
    void DropFifthProgram();

    Surroundings surroundings_;
    bool forButton_;

    WizardPage page_ = WizardPage::NotShown;
    std::bitset<kWizardFrameCount> frames_;
    bool backEnabled_ = false;
    bool nextEnabled_ = false;
    bool savedNextEnabled_ = false;
    bool nextSaysFinish_ = false;
    bool finishVisible_ = false;
    bool finishEnabled_ = false;
    bool committed_ = false;
    std::optional<ProgramSource> shownSource_;
    int markedSlot_ = -1;
    std::array<std::wstring, kSlots> programTexts_;

    int button_ = 0;
    int launchOption_ = 0;
    std::wstring letter_ = L"M";
    std::optional<ProgramSource> source_;
    std::optional<ProgramSource> checkedForSingle_;
    std::optional<ProgramSource> checkedForSeveral_;
    std::wstring buttonName_;
    std::wstring command_;     ///< of the picked item
    std::wstring displayName_; ///< of the picked item
    ButtonSlot slot_;
};
