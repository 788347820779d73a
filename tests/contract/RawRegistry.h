#pragma once

#include "platform/Registry.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// The tests' own hives: everything below this key of the current user is theirs, and goes with each test.
inline constexpr const wchar_t* kTestKey = L"Software\\QLBUtlContractTest";

/// The registry as another program sees it, without the code that is tested.
namespace RawRegistry {

/// RegSetValueExA: text is in bytes of the code page.
void Put(RegistryHive hive, const std::wstring& path, const std::wstring& name, std::uint32_t type,
         std::string_view bytes);
/// RegSetValueExW: text is in UTF-16, as the registry keeps it.
void PutStored(RegistryHive hive, const std::wstring& path, const std::wstring& name, std::uint32_t type,
               std::string_view bytes);

/// RegQueryValueExA.
[[nodiscard]] std::optional<RegistryValue> Value(RegistryHive hive, const std::wstring& path,
                                                 const std::wstring& name);
/// RegQueryValueExW: a text's length in bytes is twice its length in characters.
[[nodiscard]] std::optional<RegistryValue> StoredValue(RegistryHive hive, const std::wstring& path,
                                                       const std::wstring& name);

/// A key that ends with the session: the system creates no lasting keys below it.
void CreateVolatile(RegistryHive hive, const std::wstring& path);

/// The bytes of UTF-16 text, without a NUL.
[[nodiscard]] std::string StoredBytes(std::wstring_view text);

} // namespace RawRegistry

enum class KeyRight { Read, Write, Delete };

/// Takes a right on a key away from everyone until it is destroyed. Creates the key when it is missing.
class DeniedRight {
public:
    DeniedRight(RegistryHive hive, const std::wstring& path, KeyRight right);
    DeniedRight(const DeniedRight&) = delete;
    DeniedRight& operator=(const DeniedRight&) = delete;
    ~DeniedRight();

private:
    struct KeyCloser {
        void operator()(void* key) const;
    };
    std::unique_ptr<void, KeyCloser> key_;
};

/// While it lives, HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE of this process are empty keys below kTestKey: the
/// user's own settings are out of reach.
class ScratchHives {
public:
    ScratchHives();
    ScratchHives(const ScratchHives&) = delete;
    ScratchHives& operator=(const ScratchHives&) = delete;
    ~ScratchHives();
};
