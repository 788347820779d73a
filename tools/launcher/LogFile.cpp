#include "LogFile.h"

LogFile::LogFile(const std::wstring& path) {
    if (!path.empty()) {
        file_ = CreateFileW(path.c_str(), FILE_APPEND_DATA,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
        usable_ = file_ != INVALID_HANDLE_VALUE;
    }
}

LogFile::~LogFile() {
    if (file_ != INVALID_HANDLE_VALUE) {
        CloseHandle(file_);
    }
}

void LogFile::Append(const std::wstring& text) {
    if (file_ == INVALID_HANDLE_VALUE) {
        return;
    }
    const int length = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
    // One write per block, so that blocks of two programs do not mix.
    DWORD written = 0;
    WriteFile(file_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}
