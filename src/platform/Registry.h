#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

enum class RegistryHive { LocalMachine, CurrentUser };

/// Value types as Windows numbers them (REG_SZ, REG_DWORD).
inline constexpr std::uint32_t kRegistryString = 1;
inline constexpr std::uint32_t kRegistryDword = 4;

/// A stored value as the system hands it out. Text is in bytes of the ANSI code page; nothing
/// promises that it ends with a NUL, or that `type` fits the bytes.
struct RegistryValue {
    std::uint32_t type = 0;
    std::string bytes;

    bool operator==(const RegistryValue&) const = default;
};

struct NamedRegistryValue {
    std::wstring name;
    RegistryValue value;
    bool exact =
        true; ///< false: the text has characters that the code page lacks, and `value` others for them
};

/// The Windows registry. Every call opens the key, makes its one access and closes the key.
class Registry {
public:
    virtual ~Registry() = default;

    /// RegQueryValueExA. Empty when the key or the value is missing or can't be read.
    [[nodiscard]] virtual std::optional<RegistryValue> Query(RegistryHive hive, const std::wstring& path,
                                                             const std::wstring& name) const = 0;

    /// RegCreateKeyA and RegSetValueExA; creates missing keys. False when the system refuses.
    virtual bool Set(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                     const RegistryValue& value) = 0;

    /// All values of one key, as Query hands them out, in the system's order. Empty when there are none, or the
    /// key is missing or can't be read.
    [[nodiscard]] virtual std::vector<NamedRegistryValue> Values(RegistryHive hive,
                                                                 const std::wstring& path) const = 0;

    /// RegDeleteValueA. True when it is gone, or was not there.
    virtual bool DeleteValue(RegistryHive hive, const std::wstring& path, const std::wstring& name) = 0;

    /// A key that has neither values nor keys below it goes; any other stays.
    virtual void DeleteKeyIfEmpty(RegistryHive hive, const std::wstring& path) = 0;

    /// RegDeleteTreeA: the key with everything below it. True when it is gone, or was not there.
    virtual bool DeleteKey(RegistryHive hive, const std::wstring& path) = 0;
};
