#pragma once

#include "platform/windows/Handles.h"

#include <array>

class FontList;
class Form;
class MainSettings;
class StringTable;

/// The controls that set how a button's name is shown on the screen. The main dialog creates them.
class OnScreenPage {
public:
    OnScreenPage(Form& form, MainSettings& settings, const FontList& fonts, const StringTable& texts);

    /// Fills the lists of faces and sizes, once.
    void FillLists();
    /// Shows the settings in the controls.
    void Refresh();
    /// True when the command came from one of this page's controls.
    bool OnCommand(int id, int notification);
    /// The name that the preview shows follows the first button's.
    void RefreshPreview();
    void DrawPreview(const DRAWITEMSTRUCT& item) const;

private:
    static constexpr std::size_t kCustomColors = 16;

    void EnableChoices();
    void SelectEntries();
    void OnChoice(HWND combo, int id, int notification);
    void ChooseTextColor();

    Form& form_;
    MainSettings& settings_;
    const FontList& fonts_;
    const StringTable& texts_;
    std::array<COLORREF, kCustomColors> customColors_{};
};
