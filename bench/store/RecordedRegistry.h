#pragma once

#include "platform/Registry.h"

#include <string>
#include <vector>

/// Hands every access on, and keeps what the bare calls for the same ones need: each value once.
class RecordedRegistry final : public Registry {
public:
    explicit RecordedRegistry(Registry& real) : real_(real) {}

    [[nodiscard]] std::optional<RegistryValue> Query(RegistryHive hive, const std::wstring& path,
                                                     const std::wstring& name) const override;
    bool Set(RegistryHive hive, const std::wstring& path, const std::wstring& name,
             const RegistryValue& value) override;
    [[nodiscard]] std::vector<NamedRegistryValue> Values(RegistryHive hive,
                                                         const std::wstring& path) const override {
        return real_.Values(hive, path);
    }
    bool DeleteValue(RegistryHive hive, const std::wstring& path, const std::wstring& name) override {
        return real_.DeleteValue(hive, path, name);
    }
    void DeleteKeyIfEmpty(RegistryHive hive, const std::wstring& path) override {
        real_.DeleteKeyIfEmpty(hive, path);
    }
    bool DeleteKey(RegistryHive hive, const std::wstring& path) override {
        return real_.DeleteKey(hive, path);
    }

    void Forget();

    /// Opens the key, makes the access and closes the key, for each that was recorded. False when a write fails.
    [[nodiscard]] bool ReadBare() const;
    [[nodiscard]] bool WriteBare() const;

    [[nodiscard]] std::size_t Reads() const { return reads_.size(); }
    [[nodiscard]] std::size_t Writes() const { return writes_.size(); }

private:
    struct Access {
        RegistryHive hive;
        std::string path; ///< in the ANSI code page, as the calls take it
        std::string name;
        RegistryValue value;
    };

    static void Keep(std::vector<Access>& accesses, Access access);

    Registry& real_;
    mutable std::vector<Access> reads_;
    std::vector<Access> writes_;
};
