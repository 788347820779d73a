#include "platform/windows/WindowsShell.h"

#include "platform/windows/Ansi.h"
#include "platform/windows/AutomationObject.h"
#include "platform/windows/Com.h"
#include "platform/windows/ProgramFile.h"
#include "platform/windows/SystemLibrary.h"

#include <windows.h>

#include <intshcut.h>
#include <shellapi.h>
#include <shlobj.h>

#include <array>
#include <cstdint>

std::wstring WindowsShell::ProgramDirectory() const {
    const std::wstring path = ProgramFile();
    const std::size_t separator = path.rfind(L'\\');
    if (separator == std::wstring::npos) {
        return {};
    }
    const bool driveRoot = separator > 0 && path[separator - 1] == L':';
    return path.substr(0, driveRoot ? separator + 1 : separator);
}

bool WindowsShell::FileExists(const std::wstring& path) const {
    const DWORD attributes = GetFileAttributesA(ToAnsi(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool WindowsShell::Open(const std::wstring& file, const std::wstring& workingDirectory, WindowId owner) {
    constexpr std::intptr_t kLastErrorCode = 32;
    const auto execute = SystemProcedure<decltype(ShellExecuteA)>(L"shell32.dll", "ShellExecuteA");
    if (execute == nullptr) {
        return false;
    }
    const HINSTANCE result = execute(reinterpret_cast<HWND>(owner), "open", ToAnsi(file).c_str(), nullptr,
                                     ToAnsi(workingDirectory).c_str(), SW_SHOWNORMAL);
    return reinterpret_cast<std::intptr_t>(result) > kLastErrorCode;
}

std::wstring WindowsShell::WindowsDirectory() const {
    std::array<char, MAX_PATH> path{};
    const UINT length = GetWindowsDirectoryA(path.data(), static_cast<UINT>(path.size()));
    return length < 1 || length >= path.size() ? std::wstring() : FromAnsi(path.data());
}

std::wstring WindowsShell::EnvironmentVariable(const std::wstring& name) const {
    std::wstring value(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetEnvironmentVariableW(name.c_str(), value.data(), static_cast<DWORD>(value.size()));
        if (length < value.size()) {
            value.resize(length);
            return value;
        }
        value.resize(length);
    }
}

std::wstring WindowsShell::UserName() const {
    std::array<char, 128> name{};
    auto size = static_cast<DWORD>(name.size());
    return GetUserNameA(name.data(), &size) == FALSE ? std::wstring() : FromAnsi(name.data());
}

std::optional<std::wstring> WindowsShell::SpecialFolder(std::int32_t folder, WindowId owner) const {
    static const auto kGetLocation =
        SystemProcedure<decltype(SHGetSpecialFolderLocation)>(L"shell32.dll", "SHGetSpecialFolderLocation");
    static const auto kGetPath =
        SystemProcedure<decltype(SHGetPathFromIDListA)>(L"shell32.dll", "SHGetPathFromIDListA");
    static const auto kFree = SystemProcedure<decltype(ILFree)>(L"shell32.dll", "ILFree");
    if (kGetLocation == nullptr || kGetPath == nullptr || kFree == nullptr) {
        return std::nullopt;
    }
    PIDLIST_ABSOLUTE list = nullptr;
    if (FAILED(kGetLocation(reinterpret_cast<HWND>(owner), folder, &list))) {
        return std::nullopt;
    }
    std::array<char, MAX_PATH> path{};
    const BOOL hasPath = kGetPath(list, path.data());
    kFree(list);
    return hasPath == FALSE ? std::nullopt : std::optional(FromAnsi(path.data()));
}

std::optional<std::wstring> WindowsShell::SpecialFolderPath(std::int32_t folder) const {
    static const auto kGetPath =
        SystemProcedure<decltype(SHGetSpecialFolderPathA)>(L"shell32.dll", "SHGetSpecialFolderPathA");
    std::array<char, MAX_PATH> path{};
    if (kGetPath == nullptr || kGetPath(nullptr, path.data(), folder, FALSE) == FALSE) {
        return std::nullopt;
    }
    return FromAnsi(path.data());
}

std::optional<std::wstring> WindowsShell::ShortcutTarget(const std::wstring& file) const {
    const auto automation = AutomationObject::Create(L"WScript.Shell");
    const auto shortcut = automation ? automation->CallForObject(L"CreateShortcut", file) : std::nullopt;
    return shortcut ? shortcut->GetText(L"TargetPath") : std::nullopt;
}

std::optional<std::wstring> WindowsShell::InternetShortcutAddress(const std::wstring& file) const {
    constexpr CLSID kInternetShortcut{
        0xFBF23B40, 0xE3F0, 0x101B, {0x84, 0x88, 0x00, 0xAA, 0x00, 0x3E, 0x56, 0xF8}};
    constexpr IID kUniformResourceLocator{
        0xCABB0DA0, 0xDA57, 0x11CF, {0x99, 0x74, 0x00, 0x20, 0xAF, 0xD7, 0x97, 0x62}};
    constexpr IID kPersistFile{0x0000010B, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    const auto locator =
        CreateComObject<IUniformResourceLocatorW>(kInternetShortcut, kUniformResourceLocator);
    if (!locator) {
        return std::nullopt;
    }
    const auto persistFile = QueryComObject<IPersistFile>(*locator, kPersistFile);
    if (!persistFile || FAILED(persistFile->Load(file.c_str(), STGM_READ))) {
        return std::nullopt;
    }
    wchar_t* address = nullptr;
    if (locator->GetURL(&address) != S_OK || address == nullptr) {
        return std::nullopt;
    }
    std::wstring text = address;
    FreeComMemory(address);
    return text;
}
