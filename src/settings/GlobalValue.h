#pragma once

#include "settings/Pattern.h"

#include <string>

/// The process-wide values: all the state that is not owned by a form.
struct GlobalValue {
    static constexpr int kResourceBase = 3000;

    int ResourceBase = kResourceBase; ///< string id = ResourceBase + offset
    std::wstring IniFileName;         ///< string id 3001
    std::wstring DialogFontName;      ///< string id 3002
    std::wstring CommandListFileName; ///< string id 3004
    std::wstring MenuFileName;        ///< string id 3018
    ButtonSlot EditedButtonSlot;      ///< carries the button being edited between the dialogs
    bool MediaCenterPicked = false;   ///< the edited button's single program is a Media Center item
    bool WizardForButton = false;     ///< started with "/w:": the wizard runs alone for one button
};

[[nodiscard]] GlobalValue& Globals();
