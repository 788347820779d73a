#pragma once

#include "Waiting.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

/// A folder of the test's own, empty at first and gone with this object.
class ScratchFolder {
public:
    ScratchFolder()
        : path_(std::filesystem::temp_directory_path() /
                (L"QLBUtlContract." + std::to_wstring(GetCurrentProcessId()))) {
        Remove();
        std::filesystem::create_directories(path_);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() { Remove(); }

    [[nodiscard]] std::wstring File(const std::wstring& name) const { return (path_ / name).wstring(); }

private:
    /// A program that a test started may take a moment to leave the folder.
    void Remove() const {
        WaitUntil([this] {
            std::error_code error;
            std::filesystem::remove_all(path_, error);
            return !error;
        });
    }

    std::filesystem::path path_;
};

/// The Windows directory, without a "\" at its end.
[[nodiscard]] inline std::wstring WindowsDirectory() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetWindowsDirectoryW(path.data(), MAX_PATH));
    return path;
}

inline void WriteBytes(const std::wstring& file, std::string_view bytes) {
    std::ofstream(std::filesystem::path(file), std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

[[nodiscard]] inline std::string ReadBytes(const std::wstring& file) {
    std::ifstream stream(std::filesystem::path(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}
