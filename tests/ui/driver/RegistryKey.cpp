#include "RegistryKey.h"

#include "Handle.h"
#include "Wait.h"

#include <algorithm>
#include <map>

namespace UiDriver {
namespace {

constexpr DWORD kLongestName = 16384;

void RequireSuccess(LSTATUS status, const std::wstring& action) {
    if (status != ERROR_SUCCESS) {
        Fail(action + L" failed with system error " + std::to_wstring(status));
    }
}

UniqueRegistryKey OpenForReading(HKEY root, const std::wstring& path, REGSAM view) {
    UniqueRegistryKey key;
    const LSTATUS status = RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, key.Out());
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
        RequireSuccess(status, L"opening the key " + path);
    }
    return key;
}

UniqueRegistryKey OpenForWriting(HKEY root, const std::wstring& path, REGSAM view) {
    UniqueRegistryKey key;
    RequireSuccess(RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE | view, nullptr,
                                   key.Out(), nullptr),
                   L"creating the key " + path);
    return key;
}

std::optional<RawValue> QueryRaw(HKEY key, const std::wstring& name) {
    RawValue value;
    DWORD size = 0;
    LSTATUS status = RegQueryValueExW(key, name.c_str(), nullptr, &value.type, nullptr, &size);
    while (status == ERROR_SUCCESS) {
        value.bytes.resize(size);
        status = RegQueryValueExW(key, name.c_str(), nullptr, &value.type, value.bytes.data(), &size);
        if (status == ERROR_SUCCESS) {
            value.bytes.resize(size);
            return value;
        }
        if (status == ERROR_MORE_DATA) {
            status = ERROR_SUCCESS; // the program wrote a longer one meanwhile
        }
    }
    if (status == ERROR_FILE_NOT_FOUND) {
        return std::nullopt;
    }
    RequireSuccess(status, L"reading the value " + name);
    return value;
}

std::wstring WideText(const std::vector<std::uint8_t>& bytes) {
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<wchar_t>(bytes[i] | bytes[i + 1] << 8);
    }
    return text;
}

std::wstring UpToNul(const std::wstring& text) {
    return text.substr(0, text.find(L'\0'));
}

std::wstring Hex(std::uint8_t byte) {
    constexpr wchar_t kDigits[] = L"0123456789abcdef";
    return {kDigits[byte >> 4], kDigits[byte & 15]};
}

std::wstring DescribeValue(const RawValue& value) {
    std::wstring text = std::to_wstring(value.type) + L':';
    for (const std::uint8_t byte : value.bytes) {
        text += Hex(byte);
    }
    if (value.type == REG_SZ || value.type == REG_EXPAND_SZ) {
        text += L" \"" + UpToNul(WideText(value.bytes)) + L'"';
    }
    return text;
}

void DumpInto(std::wstring& text, HKEY root, const std::wstring& path, REGSAM view) {
    const UniqueRegistryKey key = OpenForReading(root, path, view);
    if (!key) {
        return;
    }
    text += L'[' + path + L"]\n";

    std::map<std::wstring, std::wstring> values;
    std::wstring name(kLongestName, L'\0');
    for (DWORD index = 0;; ++index) {
        DWORD length = kLongestName;
        if (RegEnumValueW(key.Get(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            break;
        }
        const std::wstring found = name.substr(0, length);
        if (const std::optional<RawValue> value = QueryRaw(key.Get(), found)) {
            values[found] = DescribeValue(*value);
        }
    }
    for (const auto& [valueName, value] : values) {
        text.append(valueName).append(1, L'=').append(value).append(1, L'\n');
    }

    std::vector<std::wstring> subkeys;
    for (DWORD index = 0;; ++index) {
        DWORD length = kLongestName;
        if (RegEnumKeyExW(key.Get(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            break;
        }
        subkeys.push_back(name.substr(0, length));
    }
    std::sort(subkeys.begin(), subkeys.end());
    for (const std::wstring& subkey : subkeys) {
        DumpInto(text, root, std::wstring(path).append(1, L'\\').append(subkey), view);
    }
}

} // namespace

bool RegistryKey::Exists() const {
    return static_cast<bool>(OpenForReading(root_, path_, view_));
}

void RegistryKey::SetDword(const std::wstring& name, DWORD value) const {
    const UniqueRegistryKey key = OpenForWriting(root_, path_, view_);
    RequireSuccess(RegSetValueExW(key.Get(), name.c_str(), 0, REG_DWORD,
                                  reinterpret_cast<const BYTE*>(&value), sizeof value),
                   L"writing the value " + name);
}

void RegistryKey::SetString(const std::wstring& name, const std::wstring& value) const {
    const UniqueRegistryKey key = OpenForWriting(root_, path_, view_);
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    RequireSuccess(RegSetValueExW(key.Get(), name.c_str(), 0, REG_SZ,
                                  reinterpret_cast<const BYTE*>(value.c_str()), size),
                   L"writing the value " + name);
}

void RegistryKey::SetAnsi(const std::string& name, const std::string& value) const {
    const UniqueRegistryKey key = OpenForWriting(root_, path_, view_);
    RequireSuccess(RegSetValueExA(key.Get(), name.c_str(), 0, REG_SZ,
                                  reinterpret_cast<const BYTE*>(value.c_str()),
                                  static_cast<DWORD>(value.size() + 1)),
                   L"writing a value in " + path_);
}

void RegistryKey::SetRaw(const std::wstring& name, const RawValue& value) const {
    const UniqueRegistryKey key = OpenForWriting(root_, path_, view_);
    RequireSuccess(RegSetValueExW(key.Get(), name.c_str(), 0, value.type, value.bytes.data(),
                                  static_cast<DWORD>(value.bytes.size())),
                   L"writing the value " + name);
}

std::optional<RawValue> RegistryKey::Raw(const std::wstring& name) const {
    const UniqueRegistryKey key = OpenForReading(root_, path_, view_);
    return key ? QueryRaw(key.Get(), name) : std::nullopt;
}

std::optional<DWORD> RegistryKey::Dword(const std::wstring& name) const {
    const std::optional<RawValue> value = Raw(name);
    if (!value) {
        return std::nullopt;
    }
    if (value->type != REG_DWORD || value->bytes.size() != sizeof(DWORD)) {
        Fail(L"the value " + name + L" in " + path_ + L" is no number but " + DescribeValue(*value));
    }
    DWORD number = 0;
    std::copy(value->bytes.begin(), value->bytes.end(), reinterpret_cast<std::uint8_t*>(&number));
    return number;
}

std::optional<std::wstring> RegistryKey::String(const std::wstring& name) const {
    const std::optional<RawValue> value = Raw(name);
    if (!value) {
        return std::nullopt;
    }
    if (value->type != REG_SZ) {
        Fail(L"the value " + name + L" in " + path_ + L" is no text but " + DescribeValue(*value));
    }
    return UpToNul(WideText(value->bytes));
}

std::optional<std::string> RegistryKey::Ansi(const std::string& name) const {
    const UniqueRegistryKey key = OpenForReading(root_, path_, view_);
    DWORD type = REG_NONE;
    DWORD size = 0;
    if (!key || RegQueryValueExA(key.Get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    if (type != REG_SZ) {
        Fail(L"a value in " + path_ + L" is no text but of type " + std::to_wstring(type));
    }
    std::string bytes(size, '\0');
    RequireSuccess(RegQueryValueExA(key.Get(), name.c_str(), nullptr, nullptr,
                                    reinterpret_cast<BYTE*>(bytes.data()), &size),
                   L"reading a value in " + path_);
    return bytes.substr(0, bytes.find('\0'));
}

void RegistryKey::Erase(const std::wstring& name) const {
    const UniqueRegistryKey key = OpenForWriting(root_, path_, view_);
    const LSTATUS status = RegDeleteValueW(key.Get(), name.c_str());
    if (status != ERROR_FILE_NOT_FOUND) {
        RequireSuccess(status, L"removing the value " + name);
    }
}

void RegistryKey::EraseTree() const {
    const std::size_t name = path_.rfind(L'\\');
    UniqueRegistryKey parent;
    if (RegOpenKeyExW(root_, path_.substr(0, name).c_str(), 0, KEY_READ | KEY_WRITE | DELETE | view_,
                      parent.Out()) == ERROR_FILE_NOT_FOUND) {
        return;
    }
    const LSTATUS status = RegDeleteTreeW(parent.Get(), path_.c_str() + name + 1);
    if (status != ERROR_FILE_NOT_FOUND) {
        RequireSuccess(status, L"removing the key " + path_);
    }
}

void RegistryKey::CopyTo(const RegistryKey& target) const {
    const UniqueRegistryKey from = OpenForReading(root_, path_, view_);
    const UniqueRegistryKey to = OpenForWriting(target.root_, target.path_, target.view_);
    RequireSuccess(RegCopyTreeW(from.Get(), nullptr, to.Get()), L"copying the key " + path_);
}

std::wstring RegistryKey::Dump() const {
    std::wstring text;
    DumpInto(text, root_, path_, view_);
    return text;
}

} // namespace UiDriver
