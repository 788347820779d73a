#pragma once

#include "platform/WholeFiles.h"

class WindowsWholeFiles final : public WholeFiles {
public:
    [[nodiscard]] std::optional<std::string> Read(const std::wstring& path,
                                                  std::size_t longest) const override;
    [[nodiscard]] FileWriting Write(const std::wstring& path, std::string_view bytes,
                                    bool mayReplace) override;
    [[nodiscard]] bool Exists(const std::wstring& path) const override;
    [[nodiscard]] std::vector<std::wstring> Names(const std::wstring& folder) const override;
    [[nodiscard]] bool MakeFolder(const std::wstring& folder) override;
    bool Remove(const std::wstring& path) override;
    [[nodiscard]] std::wstring LocalApplicationData() const override;
};
