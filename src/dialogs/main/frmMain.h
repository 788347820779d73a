#pragma once

#include "app/CommandLine.h"
#include "dialogs/main/ButtonPictures.h"
#include "dialogs/main/MainSettings.h"
#include "dialogs/main/OnScreenPage.h"
#include "dialogs/main/ProgramTips.h"
#include "ui/Form.h"
#include "ui/PictureButton.h"
#include "ui/PictureList.h"

#include <array>
#include <memory>
#include <string_view>
#include <vector>

class FontList;
class RegIniFunc;
class StringTable;
struct Platform;

/// The settings dialog: button pages and the on-screen page.
class frmMain final : public Form {
public:
    frmMain(const Platform& platform, const StringTable& texts, RegIniFunc& store, FontList& fonts,
            MainSettings& settings);

    /// Start-up, and the hidden window. False: the program ends without a word.
    [[nodiscard]] bool Load(std::wstring_view commandLine);
    void Show();

    /// The back end of the settings store: true for the ini file.
    [[nodiscard]] bool IniFileExist() const;

protected:
    void OnCreate() override;
    SIZE OnLayout() override;
    void OnCommand(int id, int notification) override;
    LRESULT OnNotify(NMHDR& header) override;
    void OnDrawItem(const DRAWITEMSTRUCT& item) override;
    void OnMouseOverPage() override;
    bool OnHelpKey() override;
    void OnClose() override;
    void OnDestroy() override;
    bool OnPrivateMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool OnKeyDown(WPARAM key) override;
    bool OnMouseMessage(const MSG& message) override;

private:
    struct Page {
        MainPage kind;
        HWND window; ///< null until the page is first selected
    };
    /// A picture and the point of its page, in dialog units, that its centre stands on.
    struct PlacedPicture {
        int button;
        POINT centre;
        std::unique_ptr<PictureButton> picture;
    };

    HWND CreatePage(MainPage kind);
    void CreateButtonPage(HWND page, MainPage kind);
    void CreateOnScreenPage(HWND page);
    void CreateDialogButtons();
    void AddButton(HWND page, int button, int indexOnPage, const std::wstring& label);
    void AddPageButton(HWND page, int id, int textOffset, const DluRect& place, bool enabled);
    [[nodiscard]] int PageHeight() const;
    /// In pixels of its page.
    [[nodiscard]] RECT PicturePlace(const POINT& centre) const;
    void ShapePicture(const PlacedPicture& placed);
    void PlacePictures();

    void FillPatternBox(HWND box);
    void SelectCurrentPattern();
    void ShowButton(int button);
    void ShowButtons();
    void ShowPictures(const std::vector<int>& buttons);
    void EnterPicture(int button);
    void LeavePicture(int button);

    void SelectPage(int tabIndex);
    void TurnPage(int step);
    void ChoosePattern(int box, int notification);
    void SwitchToChosenPattern(int number);
    void RestoreDefaults(MainPage page);
    SaveAnswer AskToSave();
    template <class Operation> void WhileSaving(Operation operation);
    void ManagePatterns();
    void EditButton(int button);
    void RunWizard(MainPage page);
    /// Wizard mode: the wizard alone, for the button that the command line names.
    void RunWizardAlone();
    void Ok();
    void Apply();
    void Help(HWND owner);
    [[nodiscard]] bool HasHelp() const;

    const Platform& platform_;
    const StringTable& texts_;
    RegIniFunc& store_;
    FontList& fonts_;
    MainSettings& settings_;
    StartUp startUp_;
    OnScreenPage onScreenPage_;

    PictureList imlResource_;
    std::vector<Page> pages_;
    std::array<std::wstring, 3> captions_; ///< of the pages
    RECT pageArea_{};                      ///< of the tab control, in pixels of the client area
    std::vector<PlacedPicture> pictures_;
    std::array<std::wstring, kMaxButtons> labels_;
    ButtonHover hover_;
    ProgramTips tips_;
    int editedButton_ = 0; ///< 1...8 while its dialog is open: its picture stays pressed
    bool filling_ = false; ///< the form itself changes its controls
    bool switchPending_ = false;
    bool saving_ = false; ///< while the launcher is told, another program's messages come through
};
