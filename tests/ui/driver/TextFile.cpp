#include "TextFile.h"

#include "Handle.h"
#include "Wait.h"

namespace UiDriver {
namespace {

UniqueKernelHandle Open(const std::wstring& path, DWORD access, DWORD disposition) {
    const HANDLE handle =
        CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    return UniqueKernelHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

} // namespace

std::optional<std::string> ReadBytes(const std::wstring& path) {
    const UniqueKernelHandle file = Open(path, GENERIC_READ, OPEN_EXISTING);
    if (!file) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) {
            return std::nullopt;
        }
        FailLastError(L"opening " + path);
    }
    std::string bytes;
    char buffer[4096];
    for (;;) {
        DWORD got = 0;
        if (!ReadFile(file.Get(), buffer, sizeof buffer, &got, nullptr)) {
            FailLastError(L"reading " + path);
        }
        if (got == 0) {
            return bytes;
        }
        bytes.append(buffer, got);
    }
}

void WriteBytes(const std::wstring& path, const std::string& bytes) {
    const UniqueKernelHandle file = Open(path, GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = 0;
    if (!file || !WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        written != bytes.size()) {
        FailLastError(L"writing " + path);
    }
}

void RemoveFile(const std::wstring& path) {
    if (!DeleteFileW(path.c_str()) && GetLastError() != ERROR_FILE_NOT_FOUND) {
        FailLastError(L"removing " + path);
    }
}

std::wstring WindowsDirectory() {
    wchar_t path[MAX_PATH] = L"";
    const UINT length = GetWindowsDirectoryW(path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        FailLastError(L"asking for the Windows directory");
    }
    return path;
}

std::wstring OwnDirectory() {
    std::wstring path(32768, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    path.resize(length);
    const std::size_t slash = path.find_last_of(L'\\');
    if (slash == std::wstring::npos) {
        FailLastError(L"asking for the test program's own path");
    }
    return path.substr(0, slash);
}

} // namespace UiDriver
