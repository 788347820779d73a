#pragma once

#include <string>

class FileSystem;

/// The two Start Menus that are shown as one. Paths without trailing "\"; empty when unknown.
struct StartMenuFolders {
    std::wstring user;
    std::wstring allUsers;
    std::wstring userName;

    /// The other Start Menu's folder for one of either, whether it exists or not: found by the roots, or
    /// where the path has "All Users" instead of the user's name. Empty when there is none.
    [[nodiscard]] std::wstring Counterpart(const FileSystem& files, const std::wstring& path) const;
};
