#include "platform/windows/WindowsProfileFiles.h"

#include "platform/windows/Ansi.h"

#include <windows.h>

std::wstring WindowsProfileFiles::GetString(const std::wstring& section, const std::wstring& key,
                                            const std::wstring& fallback, const std::wstring& file,
                                            std::size_t bufferBytes) const {
    std::string buffer(bufferBytes, '\0');
    const DWORD length =
        GetPrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), ToAnsi(fallback).c_str(),
                                 buffer.data(), static_cast<DWORD>(buffer.size()), ToAnsi(file).c_str());
    buffer.resize(length);
    return FromAnsi(buffer);
}

std::int32_t WindowsProfileFiles::GetInt(const std::wstring& section, const std::wstring& key,
                                         std::int32_t fallback, const std::wstring& file) const {
    return static_cast<std::int32_t>(
        GetPrivateProfileIntA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), fallback, ToAnsi(file).c_str()));
}

bool WindowsProfileFiles::SetString(const std::wstring& section, const std::wstring& key,
                                    const std::wstring& value, const std::wstring& file) {
    // Some systems' profile functions fail badly beyond 32,767 characters; nothing reads that much back.
    constexpr std::size_t kLongestText = 16'000;
    return WritePrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(),
                                      ToAnsi(value.substr(0, kLongestText)).c_str(),
                                      ToAnsi(file).c_str()) != FALSE;
}

bool WindowsProfileFiles::DeleteEntry(const std::wstring& section, const std::wstring& key,
                                      const std::wstring& file) {
    return WritePrivateProfileStringA(ToAnsi(section).c_str(), ToAnsi(key).c_str(), nullptr,
                                      ToAnsi(file).c_str()) != FALSE;
}

bool WindowsProfileFiles::DeleteSection(const std::wstring& section, const std::wstring& file) {
    return WritePrivateProfileStringA(ToAnsi(section).c_str(), nullptr, nullptr, ToAnsi(file).c_str()) !=
           FALSE;
}
