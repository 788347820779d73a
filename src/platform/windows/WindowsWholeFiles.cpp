#include "platform/windows/WindowsWholeFiles.h"

#include "platform/windows/Handles.h"
#include "platform/windows/SystemLibrary.h"

#include <windows.h>

#include <shlobj.h>

#include <algorithm>

namespace {

constexpr DWORD kBlockBytes = 64 * 1024;

/// From its root on, because some functions fail on a bare name, and long names need it.
std::wstring FullPath(const std::wstring& path) {
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (length < full.size()) {
            full.resize(length);
            break;
        }
        full.resize(length);
    }
    // Names beyond MAX_PATH are taken in this form alone where long paths are not switched on.
    const bool isLocal = full.size() > 2 && full[1] == L':' && full[2] == L'\\';
    return full.size() >= MAX_PATH - 12 && isLocal ? L"\\\\?\\" + full : full;
}

bool IsFile(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool WriteAll(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kBlockBytes));
        if (WriteFile(file, bytes.data(), size, &written, nullptr) == FALSE || written == 0) {
            return false;
        }
        bytes.remove_prefix(written);
    }
    return FlushFileBuffers(file) != FALSE;
}

bool WriteNew(const std::wstring& path, std::string_view bytes) {
    const KernelHandle file = OwnedFile(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file && WriteAll(file.get(), bytes);
}

/// A name beside `path` that this process alone uses.
std::wstring NameBeside(const std::wstring& path) {
    std::wstring name = path + L".";
    for (DWORD number = GetCurrentProcessId(); number != 0; number /= 10) {
        name += static_cast<wchar_t>(L'0' + number % 10);
    }
    return name + L".new";
}

/// Whether a file may be taken away from under its name, as by a program that reads it and shares it for that.
bool MayGo(const std::wstring& path) {
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return OwnedFile(CreateFileW(path.c_str(), DELETE, kShared, nullptr, OPEN_EXISTING, 0, nullptr)) !=
           nullptr;
}

DWORD Rename(const std::wstring& from, const std::wstring& to, bool mayReplace) {
    const DWORD flags = MOVEFILE_WRITE_THROUGH | (mayReplace ? MOVEFILE_REPLACE_EXISTING : 0U);
    if (MoveFileExW(from.c_str(), to.c_str(), flags) != FALSE) {
        return ERROR_SUCCESS;
    }
    const DWORD error = GetLastError();
    // This one replaces a file that is open, too. Where it fails, some systems leave a file of their own.
    const bool replaced = mayReplace && MayGo(to) &&
                          ReplaceFileW(to.c_str(), from.c_str(), nullptr, 0, nullptr, nullptr) != FALSE;
    return replaced ? ERROR_SUCCESS : error;
}

} // namespace

std::optional<std::string> WindowsWholeFiles::Read(const std::wstring& path, std::size_t longest) const {
    const KernelHandle file = OwnedFile(CreateFileW(
        FullPath(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
        OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file) {
        return std::nullopt;
    }
    std::string bytes;
    for (;;) {
        const std::size_t end = bytes.size();
        DWORD size = 0;
        bytes.resize(end + kBlockBytes);
        if (ReadFile(file.get(), bytes.data() + end, kBlockBytes, &size, nullptr) == FALSE ||
            end + size > longest) {
            return std::nullopt;
        }
        bytes.resize(end + size);
        if (size == 0) {
            return bytes;
        }
    }
}

FileWriting WindowsWholeFiles::Write(const std::wstring& path, std::string_view bytes, bool mayReplace) {
    const std::wstring target = FullPath(path);
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (!mayReplace || !IsFile(attributes))) {
        return mayReplace ? FileWriting::Failed : FileWriting::AlreadyThere;
    }
    if (IsFile(attributes) && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        return FileWriting::Failed;
    }
    const std::wstring beside = NameBeside(target);
    if (!WriteNew(beside, bytes)) {
        DeleteFileW(beside.c_str());
        return FileWriting::Failed;
    }
    const DWORD status = Rename(beside, target, mayReplace);
    if (status == ERROR_SUCCESS) {
        return FileWriting::Done;
    }
    DeleteFileW(beside.c_str());
    return !mayReplace && (status == ERROR_ALREADY_EXISTS || status == ERROR_FILE_EXISTS)
               ? FileWriting::AlreadyThere
               : FileWriting::Failed;
}

bool WindowsWholeFiles::Exists(const std::wstring& path) const {
    return GetFileAttributesW(FullPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::vector<std::wstring> WindowsWholeFiles::Names(const std::wstring& folder) const {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const HANDLE handle = FindFirstFileExW((FullPath(folder) + L"\\*").c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, 0);
    if (handle == INVALID_HANDLE_VALUE) {
        return names;
    }
    const Owned<HANDLE, FindClose> search(handle);
    do {
        if (IsFile(found.dwFileAttributes)) {
            names.emplace_back(found.cFileName);
        }
    } while (FindNextFileW(search.get(), &found) != FALSE);
    return names;
}

bool WindowsWholeFiles::MakeFolder(const std::wstring& folder) {
    const std::wstring path = FullPath(folder);
    if (CreateDirectoryW(path.c_str(), nullptr) == FALSE && GetLastError() == ERROR_PATH_NOT_FOUND) {
        const std::size_t end = folder.rfind(L'\\');
        if (end != std::wstring::npos && end > 2 && MakeFolder(folder.substr(0, end))) {
            CreateDirectoryW(path.c_str(), nullptr);
        }
    }
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool WindowsWholeFiles::Remove(const std::wstring& path) {
    return DeleteFileW(FullPath(path).c_str()) != FALSE;
}

std::wstring WindowsWholeFiles::LocalApplicationData() const {
    const auto getPath = SystemProcedure<decltype(SHGetFolderPathW)>(L"shell32.dll", "SHGetFolderPathW");
    std::wstring path(MAX_PATH, L'\0');
    if (getPath == nullptr || getPath(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr,
                                      SHGFP_TYPE_CURRENT, path.data()) != S_OK) {
        return {};
    }
    path.resize(path.find(L'\0'));
    return path;
}
