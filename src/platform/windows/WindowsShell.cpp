#include "platform/windows/WindowsShell.h"

#include "platform/windows/Ansi.h"
#include "platform/windows/SystemLibrary.h"

#include <windows.h>

#include <objbase.h>

#include <cstdint>

std::wstring WindowsShell::ProgramDirectory() const {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
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
    // Handlers of some file types are COM objects. Initialised for the rest of the run; a refusal only means
    // that somebody did it before.
    using Initialize = HRESULT WINAPI(void*, DWORD);
    if (const auto initialize = SystemProcedure<Initialize>(L"ole32.dll", "CoInitializeEx");
        initialize != nullptr) {
        initialize(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    }
    using Execute = HINSTANCE WINAPI(HWND, LPCSTR, LPCSTR, LPCSTR, LPCSTR, INT);
    const auto execute = SystemProcedure<Execute>(L"shell32.dll", "ShellExecuteA");
    if (execute == nullptr) {
        return false;
    }
    const HINSTANCE result = execute(reinterpret_cast<HWND>(owner), "open", ToAnsi(file).c_str(), nullptr,
                                     ToAnsi(workingDirectory).c_str(), SW_SHOWNORMAL);
    return reinterpret_cast<std::intptr_t>(result) > kLastErrorCode;
}
