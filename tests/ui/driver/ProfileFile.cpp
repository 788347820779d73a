#include "ProfileFile.h"

#include "TextFile.h"
#include "Wait.h"
#include "Win32.h"

namespace UiDriver {

std::string ProfileFile::AnsiPath() const {
    std::string path(path_.size() * 4 + 1, '\0');
    BOOL lost = FALSE;
    const int length = WideCharToMultiByte(CP_ACP, 0, path_.c_str(), -1, path.data(),
                                           static_cast<int>(path.size()), nullptr, &lost);
    if (length == 0 || lost) {
        Fail(L"the path " + path_ + L" cannot be written in the ANSI code page");
    }
    path.resize(static_cast<std::size_t>(length) - 1);
    return path;
}

std::optional<std::string> ProfileFile::Get(const std::string& section, const std::string& key) const {
    const std::string path = AnsiPath();
    const auto read = [&](const char* fallback) {
        std::string text(65536, '\0');
        const DWORD length = GetPrivateProfileStringA(section.c_str(), key.c_str(), fallback, text.data(),
                                                      static_cast<DWORD>(text.size()), path.c_str());
        text.resize(length);
        return text;
    };
    // A missing key answers with whatever default it is given.
    std::string value = read("default-1");
    return value == "default-1" && read("default-2") == "default-2" ? std::nullopt
                                                                    : std::optional(std::move(value));
}

void ProfileFile::Set(const std::string& section, const std::string& key, const std::string& value) const {
    if (!WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), AnsiPath().c_str())) {
        FailLastError(L"writing into " + path_);
    }
}

void ProfileFile::Erase(const std::string& section, const std::string& key) const {
    if (!WritePrivateProfileStringA(section.c_str(), key.c_str(), nullptr, AnsiPath().c_str())) {
        FailLastError(L"removing a key from " + path_);
    }
}

void ProfileFile::EraseSection(const std::string& section) const {
    if (!WritePrivateProfileStringA(section.c_str(), nullptr, nullptr, AnsiPath().c_str())) {
        FailLastError(L"removing a section from " + path_);
    }
}

bool ProfileFile::Exists() const {
    return ReadBytes(path_).has_value();
}

std::string ProfileFile::Bytes() const {
    return ReadBytes(path_).value_or(std::string());
}

void ProfileFile::SetBytes(const std::string& bytes) const {
    WriteBytes(path_, bytes);
}

void ProfileFile::Remove() const {
    RemoveFile(path_);
}

} // namespace UiDriver
