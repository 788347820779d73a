#include "platform/windows/WindowsLogonStart.h"

#include "platform/windows/ProgramFile.h"

#include <windows.h>

#include <array>
#include <string>

namespace {

constexpr const wchar_t* kRunKey = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
/// What the user switched off in Windows' own list of programs that start.
constexpr const wchar_t* kApprovedKey =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\StartupApproved\\Run";
constexpr const wchar_t* kValue = L"QLBLauncher";

bool IsSwitchedOff() {
    std::array<BYTE, 64> data{};
    auto size = static_cast<DWORD>(data.size());
    return RegGetValueW(HKEY_CURRENT_USER, kApprovedKey, kValue, RRF_RT_REG_BINARY, nullptr, data.data(),
                        &size) == ERROR_SUCCESS &&
           size > 0 && (data[0] & 1U) != 0;
}

bool Remove(const wchar_t* key) {
    const LSTATUS status = RegDeleteKeyValueW(HKEY_CURRENT_USER, key, kValue);
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

} // namespace

bool WindowsLogonStart::IsOn() const {
    return RegGetValueW(HKEY_CURRENT_USER, kRunKey, kValue, RRF_RT_REG_SZ, nullptr, nullptr, nullptr) ==
               ERROR_SUCCESS &&
           !IsSwitchedOff();
}

bool WindowsLogonStart::Set(bool on) {
    if (!Remove(kApprovedKey) || !on) {
        return Remove(kRunKey);
    }
    const std::wstring command = L'"' + ProgramFile() + L"\" /s";
    return RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, kValue, REG_SZ, command.c_str(),
                           static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}
