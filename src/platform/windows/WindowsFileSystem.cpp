#include "platform/windows/WindowsFileSystem.h"

#include "platform/windows/Ansi.h"
#include "platform/windows/Handles.h"

#include <windows.h>

#include <vector>

namespace {

constexpr DWORD kBlockBytes = 64 * 1024;

/// False at the end. A name that is too long in the ANSI code page fails alone; the next ones follow.
bool FindNext(HANDLE search, WIN32_FIND_DATAA& found) {
    constexpr int kMostFailures = 100; // in a row: the drive may be gone
    for (int failures = 0; failures < kMostFailures; ++failures) {
        if (FindNextFileA(search, &found) != FALSE) {
            return true;
        }
        if (GetLastError() == ERROR_NO_MORE_FILES) {
            return false;
        }
    }
    return false;
}

} // namespace

std::uint32_t WindowsFileSystem::Attributes(const std::wstring& path) const {
    return GetFileAttributesA(ToAnsi(path).c_str());
}

bool WindowsFileSystem::Find(const std::wstring& pattern,
                             const std::function<bool(const FoundFile&)>& take) const {
    WIN32_FIND_DATAA found{};
    // Without the short names, and many entries at a time: large folders take a fraction of the time.
    const HANDLE handle = FindFirstFileExA(ToAnsi(pattern).c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    const Owned<HANDLE, FindClose> search(handle);
    do {
        if (!take({FromAnsi(found.cFileName), found.dwFileAttributes})) {
            break;
        }
    } while (FindNext(search.get(), found));
    return true;
}

bool WindowsFileSystem::Read(const std::wstring& path,
                             const std::function<bool(std::string_view)>& take) const {
    const KernelHandle file =
        OwnedFile(CreateFileA(ToAnsi(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file) {
        return false;
    }
    std::vector<char> block(kBlockBytes);
    for (;;) {
        DWORD bytes = 0;
        if (ReadFile(file.get(), block.data(), kBlockBytes, &bytes, nullptr) == FALSE) {
            return false;
        }
        if (bytes == 0 || !take({block.data(), bytes})) {
            return true;
        }
    }
}
