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
    kTextSettingsChanged = 110,
    kTextUpdateUserData = 111,
    kTextWizard = 200,
    kTextFnKey = 275,
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
