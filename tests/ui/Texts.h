#pragma once

#include <string>

/// Whether this session's user reads Japanese; the program shows its texts in the same language.
bool Japanese();

/// The text of a string table id in the session's language.
std::wstring Text(int id);

/// One of two texts by language, each with characters that only its own ANSI code page has.
std::wstring Local(const wchar_t* english, const wchar_t* japanese);

inline constexpr int kTitleText = 3000;
inline constexpr int kHelpText = 3003;
inline constexpr int kDialogFontText = 3002;
inline constexpr int kFirstSizeText = 3005;
inline constexpr int kButtonSettingsText = 3010;
inline constexpr int kOnScreenSettingsText = 3011;
inline constexpr int kPatternNameText = 3012;
inline constexpr int kSettingManagerText = 3013;
inline constexpr int kDefaultText = 3014;
inline constexpr int kWizardButtonText = 3015;
inline constexpr int kButtonNumberText = 3016;
inline constexpr int kOkText = 3020;
inline constexpr int kCancelText = 3021;
inline constexpr int kApplyText = 3022;
inline constexpr int kHelpButtonText = 3023;
inline constexpr int kPrintText = 3024;
inline constexpr int kDisplayOnScreenText = 3030;
inline constexpr int kFontText = 3031;
inline constexpr int kSizeText = 3032;
inline constexpr int kColorText = 3033;
inline constexpr int kSelectText = 3034;
inline constexpr int kPreviewText = 3035;
inline constexpr int kSettingsChangedText = 3110;
inline constexpr int kUpdateUserDataText = 3111;
inline constexpr int kFnKeyText = 3275;
