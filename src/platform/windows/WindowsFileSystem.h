#pragma once

#include "platform/FileSystem.h"

class WindowsFileSystem final : public FileSystem {
public:
    [[nodiscard]] std::uint32_t Attributes(const std::wstring& path) const override;
    [[nodiscard]] bool Find(const std::wstring& pattern,
                            const std::function<bool(const FoundFile&)>& take) const override;
    [[nodiscard]] bool Read(const std::wstring& path,
                            const std::function<bool(std::string_view)>& take) const override;
};
