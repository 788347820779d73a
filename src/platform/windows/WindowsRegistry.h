#pragma once

#include "platform/Registry.h"

class WindowsRegistry final : public Registry {
public:
    [[nodiscard]] std::optional<RegistryValue> Query(RegistryHive hive, const std::wstring& path,
                                                     const std::wstring& name) const override;
    bool Set(RegistryHive hive, const std::wstring& path, const std::wstring& name,
             const RegistryValue& value) override;
    bool DeleteKey(RegistryHive hive, const std::wstring& path) override;
};
