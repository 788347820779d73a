#pragma once

#include "dialogs/register/SourcePanes.h"
#include "dialogs/wizard/WizardFlow.h"
#include "platform/windows/Handles.h"
#include "settings/Pattern.h"
#include "ui/ModalForm.h"

#include <cstdint>
#include <optional>

class RegIniFunc;
class StringTable;
struct Platform;

inline constexpr std::int32_t kWizardClosed = 0;
inline constexpr std::int32_t kWizardFinished = 4;

/// Sets up one button step by step. The result is handed over in EditedButtonSlot; nothing is stored.
class frmWizard final : public ModalForm {
public:
    /// `owner` is null when the wizard runs alone (WizardForButton).
    frmWizard(Form* owner, const Platform& platform, const RegIniFunc& store, const StringTable& texts,
              const Pattern& defaults);

    /// The buttons on offer: 5 for the desktop's, 1...3 for that many notebook keys. 5 at first.
    void QLBeyCount(std::int32_t count) { buttonSet_ = count; }
    /// kWizardFinished, or kWizardClosed.
    [[nodiscard]] std::int32_t ReturnStatus() const { return returnStatus_; }
    /// The chosen button, 0...7.
    [[nodiscard]] std::int32_t ButtonIndex() const;

protected:
    void OnCreate() override;
    HWND OnShow() override;
    SIZE OnLayout() override;
    void OnCommand(int id, int notification) override;
    LRESULT OnNotify(NMHDR& header) override;
    [[nodiscard]] bool ShowsHourglass() const override { return panes_.ShowsHourglass(); }
    bool OnIdle() override { return panes_.OnIdle(); }
    HBRUSH OnStaticColour(HWND control, HDC hdc) override;
    bool OnHelpKey() override;
    void OnClose() override;

private:
    void CreateFrames();
    void CreateProgramFrames();
    void AddSourceOptions(HWND frame, int firstId);
    void CreateButtons();
    void ShowButtonOptions();
    void StackOptions();

    /// Shows what the flow says, and moves the keyboard to what is first to do on a new page.
    void Refresh();
    void ShowCommandButton(int id, bool visible, bool enabled);
    [[nodiscard]] HWND FirstFocus() const;
    bool OnOption(int id);
    void Cancel();

    const Platform& platform_;
    const RegIniFunc& store_;
    const StringTable& texts_;
    const Pattern& defaults_;
    SourcePanes panes_;
    std::optional<WizardFlow> flow_;
    std::int32_t buttonSet_ = 5;
    int shownButtons_ = 0; ///< options of the first page
    std::int32_t returnStatus_ = kWizardClosed;
    std::optional<WizardPage> focusedPage_; ///< the page whose first focus was given
    int markedSlot_ = -1;                   ///< as it is painted
    Font headingFont_;
    Bitmap image_;
};
