#include "FileSystemRigs.h"

#include <array>
#include <stdexcept>

namespace {

/// Runs a program of the system that Wine runs on. False on Windows itself.
bool RunOutsideWine(const std::wstring& program, std::wstring commandLine) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &start, &process) == FALSE) {
        return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

std::wstring UnixPath(const std::wstring& path) {
    using UnixName = char*(CDECL*)(LPCWSTR);
    const auto unixName = reinterpret_cast<UnixName>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    const char* name = unixName == nullptr ? nullptr : unixName(path.c_str());
    if (name == nullptr) {
        return {};
    }
    std::array<wchar_t, 2 * MAX_PATH> text{};
    MultiByteToWideChar(CP_UTF8, 0, name, -1, text.data(), static_cast<int>(text.size()));
    return text.data();
}

bool Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool MakeLink(const std::wstring& link, const std::wstring& folder) {
    constexpr DWORD kWithoutPrivilege = 2; // SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE
    CreateSymbolicLinkW(link.c_str(), folder.c_str(), SYMBOLIC_LINK_FLAG_DIRECTORY | kWithoutPrivilege);
    if (Exists(link)) {
        return true;
    }
    // Wine answers that it made one, and makes none.
    const std::wstring name = link.substr(link.rfind(L'\\') + 1);
    const std::wstring target = UnixPath(folder);
    return RunOutsideWine(L"\\\\?\\unix\\bin\\ln",
                          L"ln -s \"" + target + L"\" \"" + target + L'/' + name + L'"') &&
           WaitUntil([&] { return Exists(link); });
}

/// The link alone: a folder that still has it would be emptied through it.
void RemoveLink(const std::wstring& link) {
    // Wine looks whether what the link shows is empty.
    if (RemoveDirectoryW(link.c_str()) == FALSE &&
        RunOutsideWine(L"\\\\?\\unix\\bin\\rm", L"rm \"" + UnixPath(link) + L'"')) {
        WaitUntil([&] { return !Exists(link); });
    }
}

} // namespace

WindowsFilesRig::~WindowsFilesRig() {
    if (!link_.empty()) {
        RemoveLink(link_);
    }
    for (const std::wstring& path : readOnly_) {
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL); // otherwise it can't be deleted
    }
}

void WindowsFilesRig::SetAttributes(const std::wstring& name, std::uint32_t attributes) {
    constexpr std::uint32_t kNotToBeSet = kAttributeDirectory;
    const std::uint32_t wanted = attributes & ~kNotToBeSet;
    if (wanted != 0 && SetFileAttributesW(Path(name).c_str(), wanted) == FALSE) {
        throw std::runtime_error("the attributes could not be set");
    }
    if ((wanted & kAttributeReadOnly) != 0) {
        readOnly_.push_back(Path(name));
    }
}

void WindowsFilesRig::AddFolder(const std::wstring& name, std::uint32_t attributes) {
    std::filesystem::create_directories(Path(name));
    SetAttributes(name, attributes);
}

void WindowsFilesRig::AddFile(const std::wstring& name, const std::string& content,
                              std::uint32_t attributes) {
    WriteBytes(Path(name), content);
    SetAttributes(name, attributes);
}

void WindowsFilesRig::AddLockedFile(const std::wstring& name) {
    AddFile(name);
    locked_ = OwnedFile(CreateFileW(Path(name).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!locked_) {
        throw std::runtime_error("the file could not be locked");
    }
}

void WindowsFilesRig::AddLinkToTheFolderItself(const std::wstring& name) {
    link_ = Path(name);
    if (!MakeLink(link_, Path())) {
        throw std::runtime_error("no link could be made");
    }
}
