#pragma once

#include "platform/ShellIcons.h"

class WindowsShellIcons final : public ShellIcons {
public:
    [[nodiscard]] ShellFileInfo Query(const std::wstring& path, std::uint32_t flags) const override;
};
