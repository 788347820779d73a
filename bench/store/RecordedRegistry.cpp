#include "store/RecordedRegistry.h"

#include "platform/windows/Ansi.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <utility>

namespace {

HKEY HiveHandle(RegistryHive hive) {
    return hive == RegistryHive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

} // namespace

void RecordedRegistry::Keep(std::vector<Access>& accesses, Access access) {
    const auto same = std::find_if(accesses.begin(), accesses.end(), [&](const Access& other) {
        return other.hive == access.hive && other.path == access.path && other.name == access.name;
    });
    if (same == accesses.end()) {
        accesses.push_back(std::move(access));
    } else {
        *same = std::move(access);
    }
}

std::optional<RegistryValue> RecordedRegistry::Query(RegistryHive hive, const std::wstring& path,
                                                     const std::wstring& name) const {
    Keep(reads_, {hive, ToAnsi(path), ToAnsi(name), {}});
    return real_.Query(hive, path, name);
}

bool RecordedRegistry::Set(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                           const RegistryValue& value) {
    Keep(writes_, {hive, ToAnsi(path), ToAnsi(name), value});
    return real_.Set(hive, path, name, value);
}

void RecordedRegistry::Forget() {
    reads_.clear();
    writes_.clear();
}

bool RecordedRegistry::ReadBare() const {
    for (const Access& access : reads_) {
        HKEY key = nullptr;
        if (RegOpenKeyExA(HiveHandle(access.hive), access.path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
            continue;
        }
        std::array<char, 4096> bytes{};
        auto size = static_cast<DWORD>(bytes.size());
        RegQueryValueExA(key, access.name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(bytes.data()),
                         &size);
        RegCloseKey(key);
    }
    return true;
}

bool RecordedRegistry::WriteBare() const {
    bool written = true;
    for (const Access& access : writes_) {
        HKEY key = nullptr;
        if (RegCreateKeyA(HiveHandle(access.hive), access.path.c_str(), &key) != ERROR_SUCCESS) {
            return false;
        }
        const std::string& bytes = access.value.bytes;
        written = RegSetValueExA(key, access.name.c_str(), 0, access.value.type,
                                 reinterpret_cast<const BYTE*>(bytes.data()),
                                 static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS &&
                  written;
        RegCloseKey(key);
    }
    return written;
}
