#include "browse/StartMenuFolders.h"

#include "browse/Paths.h"
#include "platform/FileSystem.h"
#include "settings/StdModule.h"

#include <utility>
#include <vector>

namespace {

constexpr const wchar_t* kAllUsersProfile = L"All Users";

std::wstring Joined(const std::vector<std::wstring>& parts) {
    std::wstring path = parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i) {
        path += L'\\' + parts[i];
    }
    return path;
}

bool FolderExists(const FileSystem& files, const std::wstring& path) {
    const std::uint32_t attributes = files.Attributes(path);
    return attributes != kAttributesUnknown && (attributes & kAttributeDirectory) != 0;
}

/// The user's name may also be the name of another folder on the way: what counts is the place where the
/// All Users folder really is.
std::wstring WithAllUsersFor(const FileSystem& files, const std::wstring& path,
                             const std::wstring& userName) {
    if (userName.empty()) {
        return {};
    }
    std::vector<std::wstring> parts = SplitPath(path);
    for (std::wstring& part : parts) {
        if (!EqualsIgnoreCase(part, userName)) {
            continue;
        }
        const std::wstring replaced = std::exchange(part, kAllUsersProfile);
        std::wstring candidate = Joined(parts);
        if (FolderExists(files, candidate)) {
            return candidate;
        }
        part = replaced;
    }
    return {};
}

} // namespace

std::wstring StartMenuFolders::Counterpart(const FileSystem& files, const std::wstring& path) const {
    if (LiesUnder(path, user)) {
        const std::wstring otherRoot = allUsers.empty() ? WithAllUsersFor(files, user, userName) : allUsers;
        return otherRoot.empty() ? std::wstring() : otherRoot + path.substr(user.size());
    }
    if (LiesUnder(path, allUsers)) {
        return user.empty() ? std::wstring() : user + path.substr(allUsers.size());
    }
    return WithAllUsersFor(files, path, userName);
}
