#include "UnixPath.h"

#include "Process.h"
#include "Wait.h"
#include "Win32.h"

#include <algorithm>
#include <bit>

namespace UiDriver {

std::wstring OnDriveZ(const char* unixPath) {
    std::wstring path = L"Z:" + FromUtf8(unixPath);
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}

std::string UnixPath(const std::wstring& path) {
    using GetUnixFileName = char* CDECL(const wchar_t*);
    const auto getUnixFileName = std::bit_cast<GetUnixFileName*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name"));
    if (getUnixFileName == nullptr) {
        Fail(L"this is not Wine");
    }
    char* const unixPath = getUnixFileName(path.c_str());
    if (unixPath == nullptr) {
        FailLastError(L"asking where " + path + L" really lies");
    }
    const std::string result = unixPath;
    HeapFree(GetProcessHeap(), 0, unixPath);
    return result;
}

} // namespace UiDriver
