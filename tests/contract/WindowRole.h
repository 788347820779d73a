#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

/// Another program with one window, which notes what messages it gets.
inline constexpr const wchar_t* kWindowRole = L"window";

/// How the window is, in the role's last argument.
inline constexpr const wchar_t* kHiddenWindow = L"hidden";
inline constexpr const wchar_t* kHungWindow = L"hung"; ///< it takes no messages
inline constexpr const wchar_t* kSlowWindow = L"slow"; ///< it answers after the signal NAME.Answer
inline constexpr const wchar_t* kShownWindow = L"shown";
inline constexpr const wchar_t* kMinimisedWindow = L"minimised";
inline constexpr const wchar_t* kWindowWithDialog = L"dialog"; ///< shown, and disabled by a dialog of its own

struct WindowMessage {
    std::uint32_t message = 0;
    std::uintptr_t wParam = 0;
    std::intptr_t lParam = 0;

    bool operator==(const WindowMessage&) const = default;
};

/// Shared by the name NAME.
struct WindowReport {
    std::atomic<std::uintptr_t> window; ///< set when the window is as it should be
    std::atomic<std::uintptr_t> dialog;
    std::array<WindowMessage, 16> messages;
    std::atomic<std::uint32_t> received; ///< messages taken
    std::atomic<std::uint32_t> answered; ///< messages done with
};

/// Arguments: NAME, the window's class, its title, how it is.
int PlayWindow(const std::vector<std::wstring>& arguments);
