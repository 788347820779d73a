#pragma once

#include "platform/Registry.h"

class WindowsRegistry final : public Registry {
public:
    /// `machineKey`: a key under HKEY_LOCAL_MACHINE, which 64-bit Windows has once for 64-bit and once for 32-bit
    /// programs. Where this program's half lacks the key and the other half has it, all of HKEY_LOCAL_MACHINE is
    /// read there: an installer of either kind is heard. Looked at here only.
    explicit WindowsRegistry(const std::wstring& machineKey);

    [[nodiscard]] std::optional<RegistryValue> Query(RegistryHive hive, const std::wstring& path,
                                                     const std::wstring& name) const override;
    bool Set(RegistryHive hive, const std::wstring& path, const std::wstring& name,
             const RegistryValue& value) override;
    [[nodiscard]] std::vector<NamedRegistryValue> Values(RegistryHive hive,
                                                         const std::wstring& path) const override;
    bool DeleteValue(RegistryHive hive, const std::wstring& path, const std::wstring& name) override;
    void DeleteKeyIfEmpty(RegistryHive hive, const std::wstring& path) override;
    bool DeleteKey(RegistryHive hive, const std::wstring& path) override;

private:
    [[nodiscard]] std::uint32_t View(RegistryHive hive) const {
        return hive == RegistryHive::LocalMachine ? machineView_ : 0;
    }

    std::uint32_t machineView_ = 0; ///< KEY_WOW64_..., or 0 for the program's own half
};
