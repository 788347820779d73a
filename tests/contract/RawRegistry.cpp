#include "RawRegistry.h"

#include "platform/windows/Ansi.h"

#include <windows.h>

#include <sddl.h>

#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>
#include <type_traits>

namespace {

struct KeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

struct LocalFreer {
    void operator()(void* memory) const { LocalFree(memory); }
};

/// A test that can't set its stage must fail, not pass on an empty one.
void Require(LSTATUS status, const char* what) {
    if (status != ERROR_SUCCESS) {
        throw std::runtime_error(std::string(what) + ": error " + std::to_string(status));
    }
}

DWORD AccessOf(KeyRight right) {
    switch (right) {
    case KeyRight::Read:
        return KEY_QUERY_VALUE;
    case KeyRight::Write:
        return KEY_SET_VALUE;
    default:
        // Not every system asks for DELETE, but all list what is below before they remove it.
        return DELETE | KEY_ENUMERATE_SUB_KEYS;
    }
}

HKEY HiveHandle(RegistryHive hive) {
    return hive == RegistryHive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

Key Create(HKEY parent, const std::wstring& path, REGSAM access, DWORD options = REG_OPTION_NON_VOLATILE) {
    HKEY key = nullptr;
    Require(RegCreateKeyExW(parent, path.c_str(), 0, nullptr, options, access, nullptr, &key, nullptr),
            "RegCreateKeyExW");
    return Key(key);
}

const BYTE* Bytes(std::string_view bytes) {
    return static_cast<const BYTE*>(static_cast<const void*>(bytes.data()));
}

using Query = std::function<LSTATUS(HKEY key, DWORD* type, BYTE* data, DWORD* size)>;

std::optional<RegistryValue> Read(RegistryHive hive, const std::wstring& path, const Query& query) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HiveHandle(hive), path.c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    const Key key(opened);
    DWORD type = 0;
    DWORD size = 0;
    if (query(key.get(), &type, nullptr, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::string bytes(size, '\0');
    Require(query(key.get(), &type, static_cast<BYTE*>(static_cast<void*>(bytes.data())), &size),
            "RegQueryValueEx");
    bytes.resize(size);
    return RegistryValue{type, std::move(bytes)};
}

/// KEY_ALL_ACCESS for everyone but for the rights that are denied.
void SetRights(HKEY key, DWORD denied) {
    const std::wstring denial = denied == 0 ? L"" : L"(D;;" + std::to_wstring(denied) + L";;;WD)";
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (ConvertStringSecurityDescriptorToSecurityDescriptorW(
            (L"D:P" + denial + L"(A;;KA;;;WD)").c_str(), SDDL_REVISION_1, &descriptor, nullptr) == FALSE) {
        Require(static_cast<LSTATUS>(GetLastError()), "security descriptor");
    }
    const std::unique_ptr<void, LocalFreer> owner(descriptor);
    Require(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor), "RegSetKeySecurity");
}

void Redirect(HKEY hive, const wchar_t* name) {
    const Key key = Create(HKEY_CURRENT_USER, std::wstring(kTestKey) + name, KEY_ALL_ACCESS);
    Require(RegOverridePredefKey(hive, key.get()), "RegOverridePredefKey");
}

} // namespace

namespace RawRegistry {

void Put(RegistryHive hive, const std::wstring& path, const std::wstring& name, std::uint32_t type,
         std::string_view bytes) {
    Require(RegSetValueExA(Create(HiveHandle(hive), path, KEY_SET_VALUE).get(), ToAnsi(name).c_str(), 0, type,
                           Bytes(bytes), static_cast<DWORD>(bytes.size())),
            "RegSetValueExA");
}

void PutStored(RegistryHive hive, const std::wstring& path, const std::wstring& name, std::uint32_t type,
               std::string_view bytes) {
    Require(RegSetValueExW(Create(HiveHandle(hive), path, KEY_SET_VALUE).get(), name.c_str(), 0, type,
                           Bytes(bytes), static_cast<DWORD>(bytes.size())),
            "RegSetValueExW");
}

std::optional<RegistryValue> Value(RegistryHive hive, const std::wstring& path, const std::wstring& name) {
    return Read(hive, path, [&](HKEY key, DWORD* type, BYTE* data, DWORD* size) {
        return RegQueryValueExA(key, ToAnsi(name).c_str(), nullptr, type, data, size);
    });
}

std::optional<RegistryValue> StoredValue(RegistryHive hive, const std::wstring& path,
                                         const std::wstring& name) {
    return Read(hive, path, [&](HKEY key, DWORD* type, BYTE* data, DWORD* size) {
        return RegQueryValueExW(key, name.c_str(), nullptr, type, data, size);
    });
}

void CreateVolatile(RegistryHive hive, const std::wstring& path) {
    Create(HiveHandle(hive), path, KEY_ALL_ACCESS, REG_OPTION_VOLATILE);
}

std::string StoredBytes(std::wstring_view text) {
    std::string bytes(text.size() * sizeof(wchar_t), '\0');
    std::memcpy(bytes.data(), text.data(), bytes.size());
    return bytes;
}

} // namespace RawRegistry

DeniedRight::DeniedRight(RegistryHive hive, const std::wstring& path, KeyRight right) {
    HKEY key = Create(HiveHandle(hive), path, WRITE_DAC).release();
    key_.reset(key);
    SetRights(key, AccessOf(right));
}

DeniedRight::~DeniedRight() {
    SetRights(static_cast<HKEY>(key_.get()), 0);
}

void DeniedRight::KeyCloser::operator()(void* key) const {
    RegCloseKey(static_cast<HKEY>(key));
}

ScratchHives::ScratchHives() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
    // The machine first: both keys lie below the true HKEY_CURRENT_USER.
    Redirect(HKEY_LOCAL_MACHINE, L"\\Machine");
    Redirect(HKEY_CURRENT_USER, L"\\User");
}

ScratchHives::~ScratchHives() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, kTestKey);
}
