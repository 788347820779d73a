#pragma once

#include "SourceUse.h"

#include <optional>
#include <string>

inline constexpr int kWizardTitleText = 3200;
inline constexpr int kNextText = 3201;
inline constexpr int kFinishText = 3204;
inline constexpr int kCloseWizardText = 3274;

/// The wizard, from a button of the main dialog or alone.
class WizardUse : public SourceUse {
protected:
    void TearDown() override;

    static std::wstring WizardTitle() { return Text(kTitleText) + L' ' + Text(kWizardTitleText); }

    /// Starts the program, presses its wizard button and waits for the first page.
    void Open();
    /// The same in a program that runs.
    void OpenFrom(int wizardButton);
    void StartAlone(const std::wstring& arguments);
    /// Of either kind.
    const UiDriver::Process& Running() const { return alone_ ? *alone_ : Program(); }

    const UiDriver::Window& Wizard() const { return *wizard_; }
    UiDriver::Control Part(int id) const { return Wizard().Control(id); }
    UiDriver::TreeView Menu() const { return TreeIn(Wizard(), IDC_tvTreeView0); }

    /// Waits for the page of which this is the frame.
    void AwaitPage(int frame) const;
    /// Presses a button that leads to another page, or stays on this one.
    void Press(int button, int frameAfter) const;
    void Next(int frameAfter) const { Press(IDC_cmdNext, frameAfter); }
    void Back(int frameAfter) const { Press(IDC_cmdBack, frameAfter); }
    void Check(int option) const;

    /// From the method page to the page where one program is picked from this source.
    void GoToPick(Source source) const;
    /// From the method page to the page where several are: option 1 or 2, and the button's name.
    void GoToSeveral(int method, const std::wstring& name) const;
    /// Clicks the offer, whose source is shown, with the real mouse.
    void Pick(const Offer& offer) const;
    void PickFile(int number) const;
    /// Picks and presses Next; `count` programs are there afterwards.
    void AddFile(int number, int count) const;
    void AwaitPrograms(const Names& texts) const;
    void AwaitNext(bool enabled) const;

    /// The closing page's Finish; waits until the wizard is gone.
    void Finish() const;
    /// Expects the question whether to close the wizard.
    UiDriver::ModalBox AwaitQuestion() const;

    /// Sequential or simultaneous, of the Start Menu's first `count` files.
    static StoredButton Several(const std::wstring& name, const std::wstring& method, int count);

private:
    void AwaitWizard();

    std::optional<UiDriver::Process> alone_;
    std::optional<UiDriver::Window> wizard_;
};
