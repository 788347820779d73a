#pragma once

#include "platform/TopLevelWindows.h"

#include <cstdint>
#include <optional>
#include <string>

/// Special folders as Windows numbers them (CSIDL_...).
inline constexpr std::int32_t kFolderFavorites = 6;
inline constexpr std::int32_t kFolderAllUsersStartMenu = 22;

/// What is asked of the Windows shell and of the program's own place on disk.
class Shell {
public:
    virtual ~Shell() = default;

    /// The folder that holds the program's file, without a trailing "\" unless it is a drive's root.
    [[nodiscard]] virtual std::wstring ProgramDirectory() const = 0;

    [[nodiscard]] virtual bool FileExists(const std::wstring& path) const = 0;

    /// ShellExecute, verb "open", shown normally. False when nothing could be started.
    virtual bool Open(const std::wstring& file, const std::wstring& workingDirectory, WindowId owner) = 0;

    /// GetWindowsDirectoryA, at most 259 ANSI bytes. Empty on failure.
    [[nodiscard]] virtual std::wstring WindowsDirectory() const = 0;
    /// Empty when there is no such variable.
    [[nodiscard]] virtual std::wstring EnvironmentVariable(const std::wstring& name) const = 0;
    /// GetUserNameA, at most 127 ANSI bytes. Empty on failure.
    [[nodiscard]] virtual std::wstring UserName() const = 0;

    /// SHGetSpecialFolderLocation and SHGetPathFromIDListA. Nothing when the folder has no path.
    [[nodiscard]] virtual std::optional<std::wstring> SpecialFolder(std::int32_t folder,
                                                                    WindowId owner) const = 0;
    /// SHGetSpecialFolderPathA, without creating the folder. Nothing when the folder has no path.
    [[nodiscard]] virtual std::optional<std::wstring> SpecialFolderPath(std::int32_t folder) const = 0;

    /// "TargetPath" of what the automation object "WScript.Shell" makes of a shortcut file. Nothing when the
    /// object is missing or fails.
    [[nodiscard]] virtual std::optional<std::wstring> ShortcutTarget(const std::wstring& file) const = 0;
    /// The address in an Internet shortcut file, from the shell's own object for such files. Nothing when the
    /// object is missing or can't load the file.
    [[nodiscard]] virtual std::optional<std::wstring> InternetShortcutAddress(
        const std::wstring& file) const = 0;
};
