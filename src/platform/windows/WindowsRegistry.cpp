#include "platform/windows/WindowsRegistry.h"

#include "platform/windows/Ansi.h"
#include "platform/windows/Handles.h"

#include <string>

namespace {

using Key = Owned<HKEY, RegCloseKey>;

HKEY HiveHandle(RegistryHive hive) {
    return hive == RegistryHive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

Key Open(RegistryHive hive, const std::wstring& path, REGSAM view) {
    HKEY key = nullptr;
    return Key(RegOpenKeyExA(HiveHandle(hive), ToAnsi(path).c_str(), 0, KEY_READ | view, &key) ==
                       ERROR_SUCCESS
                   ? key
                   : nullptr);
}

} // namespace

WindowsRegistry::WindowsRegistry(const std::wstring& machineKey) {
    constexpr REGSAM kOtherHalf = sizeof(void*) == sizeof(std::uint64_t) ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    if (!Open(RegistryHive::LocalMachine, machineKey, 0) &&
        Open(RegistryHive::LocalMachine, machineKey, kOtherHalf)) {
        machineView_ = kOtherHalf;
    }
}

std::optional<RegistryValue> WindowsRegistry::Query(RegistryHive hive, const std::wstring& path,
                                                    const std::wstring& name) const {
    const Key key = Open(hive, path, hive == RegistryHive::LocalMachine ? machineView_ : 0);
    if (!key) {
        return std::nullopt;
    }
    const std::string valueName = ToAnsi(name);
    // Nearly every value fits here at the first call; a longer one is asked for again until another program
    // stops growing it.
    constexpr std::size_t kUsualSize = 256;
    RegistryValue value;
    value.bytes.resize(kUsualSize);
    for (;;) {
        DWORD type = 0;
        auto size = static_cast<DWORD>(value.bytes.size());
        const LSTATUS status =
            RegQueryValueExA(key.get(), valueName.c_str(), nullptr, &type,
                             static_cast<BYTE*>(static_cast<void*>(value.bytes.data())), &size);
        if (status == ERROR_SUCCESS) {
            value.type = type;
            value.bytes.resize(size);
            return value;
        }
        if (status != ERROR_MORE_DATA || size <= value.bytes.size()) {
            return std::nullopt;
        }
        value.bytes.resize(size);
    }
}

bool WindowsRegistry::Set(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                          const RegistryValue& value) {
    HKEY opened = nullptr;
    if (RegCreateKeyA(HiveHandle(hive), ToAnsi(path).c_str(), &opened) != ERROR_SUCCESS) {
        return false;
    }
    const Key key(opened);
    return RegSetValueExA(key.get(), ToAnsi(name).c_str(), 0, value.type,
                          static_cast<const BYTE*>(static_cast<const void*>(value.bytes.data())),
                          static_cast<DWORD>(value.bytes.size())) == ERROR_SUCCESS;
}

bool WindowsRegistry::DeleteKey(RegistryHive hive, const std::wstring& path) {
    if (path.empty()) {
        return false; // that would be the whole hive
    }
    const LSTATUS status = RegDeleteTreeA(HiveHandle(hive), ToAnsi(path).c_str());
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}
