#pragma once

#include "dialogs/register/PickedItem.h"
#include "settings/Pattern.h"

#include <array>
#include <optional>
#include <string>

enum class WizardPage {
    SelectButton,
    SelectLaunchMethod,
    SelectMenu, ///< where the single program comes from
    SelectProgramForSingle,
    Finish,
    ButtonName,
    SomePrograms,
    NotShown ///< the wizard is finished
};

/// The wizard's pages and buttons, and the settings that it collects. Shows nothing itself: a form asks it
/// after each event what is to be seen.
class WizardFlow {
public:
    /// `forButton`: opened for one button, WizardForButton.
    WizardFlow(PickedItemServices services, bool forButton);

    // The buttons. Each does nothing while it is disabled or hidden.
    void Next();
    void Back();
    void PressFinish();

    /// 0-based options.
    void ChooseButton(int option) { button_ = option; }
    /// 0 single, 1 sequential, 2 simultaneous.
    void ChooseLaunchMethod(int option) { launchOption_ = option; }
    void ChooseSourceForSingle(ProgramSource source) { single_ = source; }
    void ChooseSource(ProgramSource source);
    void SetButtonName(const std::wstring& name) { buttonName_ = name; }
    /// The user selects in the tree or list that is shown.
    void Click(const std::optional<PickedItem>& item);

    [[nodiscard]] WizardPage Page() const { return page_; }
    [[nodiscard]] bool BackEnabled() const;
    [[nodiscard]] bool NextEnabled() const;
    /// The caption of `cmdNext` is "Finish".
    [[nodiscard]] bool NextSaysFinish() const { return page_ == WizardPage::Finish; }
    /// Of `cmdFinish`, a button of its own.
    [[nodiscard]] bool FinishVisible() const { return page_ == WizardPage::SomePrograms; }
    [[nodiscard]] bool FinishEnabled() const { return FinishVisible() && slot_.NumAP > 0; }
    /// The source whose tree or list stands beside the page; nothing beside a page that picks no program.
    [[nodiscard]] std::optional<ProgramSource> ShownSource() const;
    /// What the user has selected there, which need not be a program.
    [[nodiscard]] const std::optional<PickedItem>& Selected() const;
    /// The box of the next program, 0...4.
    [[nodiscard]] int MarkedSlot() const { return slot_.NumAP; }
    [[nodiscard]] const std::wstring& ProgramText(int slot) const {
        return programTexts_.at(static_cast<std::size_t>(slot));
    }

    [[nodiscard]] ProgramSource SourceForSingle() const { return single_; }
    [[nodiscard]] ProgramSource SourceForSeveral() const { return several_; }
    [[nodiscard]] int ButtonOption() const { return button_; }
    [[nodiscard]] int LaunchOption() const { return launchOption_; }
    [[nodiscard]] const std::wstring& ButtonName() const { return buttonName_; }
    /// The settings as collected so far.
    [[nodiscard]] const ButtonSlot& Slot() const { return slot_; }
    /// The wizard was finished; EditedButtonSlot holds the result.
    [[nodiscard]] bool Committed() const { return page_ == WizardPage::NotShown; }

private:
    [[nodiscard]] bool Several() const { return launchOption_ != 0; }
    [[nodiscard]] ProgramSource Source() const { return Several() ? several_ : single_; }
    void GoTo(WizardPage page);
    void TellWhatIsPicked() const;
    void BuildSingleProgram();
    void AddProgram();
    void RemoveLastProgram();

    PickedItemServices services_;
    bool forButton_;

    WizardPage page_;
    int button_ = 0;
    int launchOption_ = 0;
    ProgramSource single_;
    ProgramSource several_;
    std::wstring buttonName_;
    /// For each source. A tree selects its root by itself when it gets the keyboard: that is no choice, and
    /// not kept here.
    std::array<std::optional<PickedItem>, kProgramSourceCount> selected_;
    ButtonSlot slot_;
    std::array<std::wstring, kMaxPrograms> programTexts_;
};
