#pragma once

#include "platform/Shell.h"

class WindowsShell final : public Shell {
public:
    [[nodiscard]] std::wstring ProgramDirectory() const override;
    [[nodiscard]] bool FileExists(const std::wstring& path) const override;
    bool Open(const std::wstring& file, const std::wstring& workingDirectory, WindowId owner) override;
};
