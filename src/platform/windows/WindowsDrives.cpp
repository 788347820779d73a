#include "platform/windows/WindowsDrives.h"

#include "platform/windows/Ansi.h"

#include <windows.h>

#include <array>
#include <utility>

namespace {

constexpr std::size_t kLetters = 26;

std::wstring RootOf(std::size_t letter) {
    return {static_cast<wchar_t>(L'a' + letter), L':', L'\\'};
}

std::wstring LabelOf(const std::wstring& root) {
    std::array<char, MAX_PATH + 1> label{};
    const BOOL answered =
        GetVolumeInformationA(ToAnsi(root).c_str(), label.data(), static_cast<DWORD>(label.size()), nullptr,
                              nullptr, nullptr, nullptr, 0);
    return answered == FALSE ? std::wstring() : FromAnsi(label.data());
}

bool IsLocal(std::uint32_t type) {
    return type == DRIVE_REMOVABLE || type == DRIVE_FIXED || type == DRIVE_CDROM;
}

} // namespace

std::vector<std::wstring> WindowsDrives::Entries() const {
    const DWORD present = GetLogicalDrives();
    std::vector<std::wstring> entries;
    for (std::size_t letter = 0; letter < kLetters; ++letter) {
        if ((present & (1U << letter)) == 0) {
            continue;
        }
        const std::wstring root = RootOf(letter);
        std::wstring entry = root.substr(0, 2);
        // A network drive may take half a minute to answer, and is not listed anyway.
        if (const std::wstring label = IsLocal(Type(root)) ? LabelOf(root) : L""; !label.empty()) {
            entry += L" [" + label + L']';
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::uint32_t WindowsDrives::Type(const std::wstring& root) const {
    return GetDriveTypeA(ToAnsi(root).c_str());
}
