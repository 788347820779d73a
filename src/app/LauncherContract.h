#pragma once

#include <cstdint>

/// What the programs that set the buttons and the one that watches them say to each other: messages to the window
/// of this class.
inline constexpr const wchar_t* kLauncherClass = L"KORVOQLBCLASS";

/// The settings were stored: read them again. wParam is 1.
inline constexpr std::uint32_t kSettingsChangedMessage = 1336;
/// Press a button. wParam is 104...110 for buttons 1...7, and 84 for button 8.
inline constexpr std::uint32_t kButtonRequestMessage = 1332;
inline constexpr std::uintptr_t kFirstButtonRequest = 104;
inline constexpr std::uintptr_t kEighthButtonRequest = 84;
