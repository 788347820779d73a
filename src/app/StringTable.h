#pragma once

#include "platform/StringSource.h"

#include <string>

/// Offsets of the texts in the string table; the id is the process-wide resource base + offset.
enum TextOffset : int {
    kTextTitle = 0,
    kTextIniFileName = 1,
    kTextDialogFontName = 2,
    kTextHelp = 3,
    kTextCommandListFileName = 4,
    kTextFontStep1 = 5, ///< ... kTextFontStep1 + 4
    kTextButtonSettings = 10,
    kTextOnScreenSettings = 11,
    kTextPatternName = 12,
    kTextSettingManager = 13,
    kTextDefault = 14,
    kTextWizardButton = 15,
    kTextButtonNumber = 16,
    kTextMenuFileName = 18,
    kTextOk = 20,
    kTextCancel = 21,
    kTextApply = 22,
    kTextHelpButton = 23,
    kTextPrint = 24,
    kTextDisplayOnScreen = 30,
    kTextFont = 31,
    kTextSize = 32,
    kTextColor = 33,
    kTextSelect = 34,
    kTextPreview = 35,
    kTextManagerTitle = 40,
    kTextNameList = 41,
    kTextAdd = 42,
    kTextDelete = 43,
    kTextCopy = 44,
    kTextRename = 45,
    kTextClose = 46,
    kTextWillBeDeleted = 47,
    kTextInputTitle = 50,
    kTextInputOk = 51,
    kTextInputCancel = 52,
    kTextEnterPatternName = 53,
    kTextNameUsed = 55,
    kTextInputError = 56,
    kTextNameEmpty = 57,
    kTextNameTooLong = 58,
    kTextProgramRegistration = 70,
    kTextRegisterOk = 76,
    kTextRegisterCancel = 77,
    kTextProgramNumber = 78,
    kTextRegisterPrograms = 79,
    kTextExecMethod1 = 80, ///< ... kTextExecMethod1 + 2
    kTextStartupMethod = 83,
    kTextMyComputer = 100,
    kTextStartMenu = 101,
    kTextDeleteProgram = 103,
    kTextCancelMenu = 104,
    kTextParameterSetting = 106,
    kTextInputParameter = 107,
    kTextSettingsChanged = 110,
    kTextUpdateUserData = 111,
    kTextSend = 120,
    kTextSendProgram1 = 121, ///< ... kTextSendProgram1 + 4
    kTextWizard = 200,
    kTextNext = 201,
    kTextBack = 202,
    kTextWizardCancel = 203,
    kTextFinish = 204,
    kTextClickNext = 205,
    kTextSelectButtonHeading = 210,
    kTextSelectButton = 211,
    kTextWizardButton1 = 212, ///< ... kTextWizardButton1 + 4
    kTextLaunchMethodHeading = 220,
    kTextLaunchMethod = 221,
    kTextLaunchMethod1 = 222, ///< ... kTextLaunchMethod1 + 2
    kTextSelectMenuHeading = 230,
    kTextSelectMenu = 231,
    kTextSelectProgramHeading = 240,
    kTextSelectProgram = 241,
    kTextFinishHeading = 250,
    kTextFinishMessage = 251,
    kTextClickFinish = 252,
    kTextButtonNameHeading = 260,
    kTextTypeButtonName = 261,
    kTextSomeProgramsHeading = 270,
    kTextWizardProgram = 271,
    kTextSomePrograms = 272,
    kTextNoMorePrograms = 273,
    kTextCloseWizard = 274,
    kTextFnKey = 275,
    kTextWizardFnKey1 = 276, ///< ... kTextWizardFnKey1 + 4
    kTextStartMenuTab = 290,
    kTextMediaCenterTab = 291,
    kTextIeFavorites = 292,
    kTextAllFilesTab = 293,
    kTextShortcutKey = 294,
    kTextFromStartMenu = 295,
    kTextFromMediaCenter = 296,
    kTextFromIeFavorites = 297,
    kTextFromAllFiles = 298,
    kTextFromShortcutKey = 299,
    kTextWizardLabelled = 300,
    kTextInternetShortcut = 301,
    // What only screen readers say.
    kTextSingle = 1000,
    kTextSequential = 1001,
    kTextSimultaneous = 1002,
    kTextListSeparator = 1003,
    kTextOneProgram = 1004,
    kTextSomeNumberOfPrograms = 1005,
    kTextNoProgram = 1006,
    kTextPages = 1007,
    kTextProgramSources = 1008,
};

/// The program's texts in the one language that the system picked.
class StringTable {
public:
    explicit StringTable(const StringSource& source) : source_(source) {}

    /// Text of id resource base + `offset`.
    [[nodiscard]] std::wstring ResText(int offset) const;

private:
    const StringSource& source_;
};

/// Sets the process-wide values as they stand at the program's start, the names from the string table.
void ResetGlobals(const StringSource& strings);
