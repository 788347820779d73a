#pragma once

#include "ScratchFolder.h"
#include "fakes/FakeFileSystem.h"
#include "platform/windows/Handles.h"
#include "platform/windows/WindowsFileSystem.h"

#include <windows.h>

#include <string>
#include <vector>

/// A name with letters that only the session's own code page has.
[[nodiscard]] inline std::wstring LocalName() {
    return GetACP() == 932 ? L"表示ソフト" : L"Größe";
}

/// A folder in memory.
class FakeFilesRig {
public:
    static constexpr const char* kName = "Fake";

    FakeFileSystem files;

    FakeFilesRig() { files.AddFolder(Path()); }

    [[nodiscard]] static std::wstring Path(const std::wstring& name = {}) {
        return name.empty() ? L"C:\\Contract" : L"C:\\Contract\\" + name;
    }
    void AddFolder(const std::wstring& name, std::uint32_t attributes = kAttributeDirectory) {
        files.AddFolder(Path(name), attributes | kAttributeDirectory);
    }
    void AddFile(const std::wstring& name, const std::string& content = "x",
                 std::uint32_t attributes = kAttributeArchive) {
        files.AddFile(Path(name), content, attributes);
    }
    /// A file that another program has open for itself alone.
    void AddLockedFile(const std::wstring& name) {
        AddFile(name);
        files.FailOpening(Path(name));
    }
    void AddLinkToTheFolderItself(const std::wstring& name) { files.AddLink(Path(name), Path()); }
};

/// A folder on disk.
class WindowsFilesRig {
public:
    static constexpr const char* kName = "Windows";

    WindowsFileSystem files;

    WindowsFilesRig() = default;
    WindowsFilesRig(const WindowsFilesRig&) = delete;
    WindowsFilesRig& operator=(const WindowsFilesRig&) = delete;
    ~WindowsFilesRig();

    [[nodiscard]] std::wstring Path(const std::wstring& name = {}) const {
        const std::wstring path = folder_.File(name);
        return name.empty() ? path.substr(0, path.size() - 1) : path;
    }
    void AddFolder(const std::wstring& name, std::uint32_t attributes = kAttributeDirectory);
    void AddFile(const std::wstring& name, const std::string& content = "x",
                 std::uint32_t attributes = kAttributeArchive);
    void AddLockedFile(const std::wstring& name);
    void AddLinkToTheFolderItself(const std::wstring& name);

private:
    void SetAttributes(const std::wstring& name, std::uint32_t attributes);

    ScratchFolder folder_;
    KernelHandle locked_;
    std::wstring link_;
    std::vector<std::wstring> readOnly_;
};
