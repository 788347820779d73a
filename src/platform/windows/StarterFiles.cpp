// What a name or a shortcut stands for.

#include "platform/windows/Com.h"
#include "platform/windows/WindowsProgramStarter.h"

#include <objidl.h>
#include <shlobj.h>

namespace {

constexpr CLSID kShellLinkClass{0x00021401, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID kShellLink{0x000214F9, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID kLinkData{0x45E2B4AE, 0xB1C3, 0x11D0, {0xB9, 0x2F, 0x00, 0xA0, 0xC9, 0x03, 0x12, 0xE1}};
constexpr IID kPersistFile{0x0000010B, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
/// The longest path that Windows knows.
constexpr int kLongestPath = 32'768;

bool IsFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

/// Where a program says that it is found by its name alone.
std::wstring AppPath(HKEY hive, const std::wstring& name) {
    const std::wstring key = L"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\" + name;
    std::wstring path(kLongestPath, L'\0');
    auto size = static_cast<DWORD>(path.size() * sizeof(wchar_t));
    if (RegGetValueW(hive, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path.data(), &size) !=
        ERROR_SUCCESS) {
        return {};
    }
    path.resize(path.find(L'\0'));
    std::erase(path, L'"');
    return path;
}

/// The text that `get` writes into a buffer of so many characters.
template <class Get> std::wstring TextFrom(Get get) {
    std::wstring text(kLongestPath, L'\0');
    if (FAILED(get(text.data(), kLongestPath))) {
        return {};
    }
    text.resize(text.find(L'\0'));
    return text;
}

} // namespace

std::wstring WindowsProgramStarter::Locate(const std::wstring& name) const {
    if (name.find(L'\\') != std::wstring::npos) {
        return IsFile(name) ? name : std::wstring();
    }
    const std::wstring program =
        name.ends_with(L".exe") || name.find(L'.') != std::wstring::npos ? name : name + L".exe";
    for (HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        if (std::wstring path = AppPath(hive, program); !path.empty() && IsFile(path)) {
            return path;
        }
    }
    std::wstring path(kLongestPath, L'\0');
    const DWORD length = SearchPathW(nullptr, name.c_str(), L".exe", kLongestPath, path.data(), nullptr);
    path.resize(length < kLongestPath ? length : 0);
    return path;
}

std::wstring WindowsProgramStarter::Expand(const std::wstring& text) const {
    std::wstring expanded(kLongestPath, L'\0');
    const DWORD length = ExpandEnvironmentStringsW(text.c_str(), expanded.data(), kLongestPath);
    if (length == 0 || length > kLongestPath) {
        return text;
    }
    expanded.resize(length - 1);
    return expanded;
}

std::optional<ShortcutContent> WindowsProgramStarter::ReadShortcut(const std::wstring& file) const {
    const auto link = CreateComObject<IShellLinkW>(kShellLinkClass, kShellLink);
    const auto persistFile = link ? QueryComObject<IPersistFile>(*link, kPersistFile) : nullptr;
    if (!persistFile || FAILED(persistFile->Load(file.c_str(), STGM_READ))) {
        return std::nullopt;
    }
    DWORD flags = 0;
    if (const auto data = QueryComObject<IShellLinkDataList>(*link, kLinkData)) {
        if (FAILED(data->GetFlags(&flags))) {
            flags = 0;
        }
    }
    int show = SW_SHOWNORMAL;
    if (FAILED(link->GetShowCmd(&show))) {
        show = SW_SHOWNORMAL;
    }
    ShortcutContent content;
    content.minimized = show == SW_SHOWMINNOACTIVE || show == SW_SHOWMINIMIZED || show == SW_MINIMIZE;
    content.maximized = show == SW_SHOWMAXIMIZED;
    content.elevated = (flags & SLDF_RUNAS_USER) != 0;
    if ((flags & SLDF_HAS_DARWINID) == 0) { // there the path is that of an icon
        content.target = Expand(TextFrom(
            [&](wchar_t* text, int size) { return link->GetPath(text, size, nullptr, SLGP_RAWPATH); }));
    }
    content.arguments = TextFrom([&](wchar_t* text, int size) { return link->GetArguments(text, size); });
    content.directory =
        Expand(TextFrom([&](wchar_t* text, int size) { return link->GetWorkingDirectory(text, size); }));
    return content;
}
