#pragma once

#include "platform/ProfileFiles.h"

class WindowsProfileFiles final : public ProfileFiles {
public:
    [[nodiscard]] std::wstring GetString(const std::wstring& section, const std::wstring& key,
                                         const std::wstring& fallback, const std::wstring& file,
                                         std::size_t bufferBytes) const override;
    [[nodiscard]] std::int32_t GetInt(const std::wstring& section, const std::wstring& key,
                                      std::int32_t fallback, const std::wstring& file) const override;
    bool SetString(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                   const std::wstring& file) override;
    bool DeleteEntry(const std::wstring& section, const std::wstring& key, const std::wstring& file) override;
    bool DeleteSection(const std::wstring& section, const std::wstring& file) override;
};
