#include "platform/windows/WindowsRegistry.h"

#include "platform/windows/Ansi.h"
#include "platform/windows/Handles.h"

#include <algorithm>
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

BYTE* BytesOf(void* buffer) {
    return static_cast<BYTE*>(buffer);
}

std::optional<RegistryValue> ValueOf(HKEY key, const std::string& name) {
    // Nearly every value fits here at the first call; a longer one is asked for again until another program
    // stops growing it.
    constexpr std::size_t kUsualSize = 256;
    RegistryValue value;
    value.bytes.resize(kUsualSize);
    for (;;) {
        DWORD type = 0;
        auto size = static_cast<DWORD>(value.bytes.size());
        const LSTATUS status =
            RegQueryValueExA(key, name.c_str(), nullptr, &type, BytesOf(value.bytes.data()), &size);
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

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

/// `text`: the value's data, `size` bytes of it. Text in UTF-16 that is whole and that the code page keeps needs
/// no second question.
std::optional<NamedRegistryValue> NamedValue(HKEY key, const std::wstring& name, DWORD type,
                                             const std::wstring& text, DWORD size) {
    NamedRegistryValue found{name, {type, {}}};
    if (!IsText(type)) {
        found.value.bytes.assign(static_cast<const char*>(static_cast<const void*>(text.data())), size);
        return found;
    }
    const std::wstring_view whole(text.data(), size / sizeof(wchar_t));
    const bool ended = size % sizeof(wchar_t) == 0 && (whole.empty() || whole.back() == L'\0');
    found.value.bytes = ToAnsi(whole);
    const auto isAscii = [](wchar_t c) { return c < 0x80; };
    found.exact = std::ranges::all_of(whole, isAscii) || FromAnsi(found.value.bytes) == whole;
    if (!ended || !found.exact) {
        auto value = ValueOf(key, ToAnsi(name));
        if (!value) {
            return std::nullopt;
        }
        found.value = *std::move(value);
    }
    return found;
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
    const Key key = Open(hive, path, View(hive));
    return key ? ValueOf(key.get(), ToAnsi(name)) : std::nullopt;
}

std::vector<NamedRegistryValue> WindowsRegistry::Values(RegistryHive hive, const std::wstring& path) const {
    constexpr std::size_t kLongestName = 16'384; // of a value, with its NUL
    constexpr std::size_t kUsualName = 64;
    constexpr std::size_t kUsualSize = 512;
    const Key key = Open(hive, path, View(hive));
    std::vector<NamedRegistryValue> values;
    std::wstring name(kUsualName, L'\0');
    std::wstring data(kUsualSize, L'\0');
    for (DWORD index = 0; key;) {
        DWORD type = 0;
        auto nameLength = static_cast<DWORD>(name.size());
        auto size = static_cast<DWORD>(data.size() * sizeof(wchar_t));
        const LSTATUS status = RegEnumValueW(key.get(), index, name.data(), &nameLength, nullptr, &type,
                                             BytesOf(data.data()), &size);
        const bool grows = size > data.size() * sizeof(wchar_t);
        if (status == ERROR_MORE_DATA && (grows || name.size() < kLongestName)) {
            data.resize(grows ? size / sizeof(wchar_t) + 1 : data.size());
            name.resize(kLongestName);
            continue;
        }
        if (status != ERROR_SUCCESS) {
            break;
        }
        if (auto value = NamedValue(key.get(), name.substr(0, nameLength), type, data, size)) {
            values.push_back(*std::move(value));
        }
        ++index;
    }
    return values;
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

bool WindowsRegistry::DeleteValue(RegistryHive hive, const std::wstring& path, const std::wstring& name) {
    HKEY opened = nullptr;
    const LSTATUS status = RegOpenKeyExA(HiveHandle(hive), ToAnsi(path).c_str(), 0, KEY_SET_VALUE, &opened);
    if (status != ERROR_SUCCESS) {
        return status == ERROR_FILE_NOT_FOUND;
    }
    const Key key(opened);
    const LSTATUS deleted = RegDeleteValueA(key.get(), ToAnsi(name).c_str());
    return deleted == ERROR_SUCCESS || deleted == ERROR_FILE_NOT_FOUND;
}

void WindowsRegistry::DeleteKeyIfEmpty(RegistryHive hive, const std::wstring& path) {
    DWORD keys = 0;
    DWORD values = 0;
    {
        const Key key = Open(hive, path, View(hive));
        if (!key || RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                                     nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
            return;
        }
    }
    if (keys == 0 && values == 0 && !path.empty()) {
        RegDeleteKeyA(HiveHandle(hive), ToAnsi(path).c_str());
    }
}

bool WindowsRegistry::DeleteKey(RegistryHive hive, const std::wstring& path) {
    if (path.empty()) {
        return false; // that would be the whole hive
    }
    const LSTATUS status = RegDeleteTreeA(HiveHandle(hive), ToAnsi(path).c_str());
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}
