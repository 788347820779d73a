#pragma once

#include "platform/Shell.h"

class WindowsShell final : public Shell {
public:
    [[nodiscard]] std::wstring ProgramDirectory() const override;
    [[nodiscard]] bool FileExists(const std::wstring& path) const override;
    bool Open(const std::wstring& file, const std::wstring& workingDirectory, WindowId owner) override;
    [[nodiscard]] std::wstring WindowsDirectory() const override;
    [[nodiscard]] std::wstring EnvironmentVariable(const std::wstring& name) const override;
    [[nodiscard]] std::wstring UserName() const override;
    [[nodiscard]] std::optional<std::wstring> SpecialFolder(std::int32_t folder,
                                                            WindowId owner) const override;
    [[nodiscard]] std::optional<std::wstring> SpecialFolderPath(std::int32_t folder) const override;
    [[nodiscard]] std::optional<std::wstring> ShortcutTarget(const std::wstring& file) const override;
    [[nodiscard]] std::optional<std::wstring> InternetShortcutAddress(
        const std::wstring& file) const override;
};
