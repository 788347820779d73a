#include "platform/windows/WindowsRegistry.h"

#include "platform/windows/Ansi.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <type_traits>

namespace {

struct KeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

HKEY HiveHandle(RegistryHive hive) {
    return hive == RegistryHive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

/// The name of a key or a value as the system takes it; a usual one needs no memory of its own.
class AnsiName {
public:
    explicit AnsiName(const std::wstring& name) {
        const auto end = name.end();
        const bool usual =
            name.size() < short_.size() && std::all_of(name.begin(), end, [](wchar_t c) { return c < 0x80; });
        if (usual) {
            std::transform(name.begin(), end, short_.begin(), [](wchar_t c) { return static_cast<char>(c); });
            short_.at(name.size()) = '\0';
        } else {
            long_ = ToAnsi(name);
            text_ = long_.c_str();
        }
    }
    ~AnsiName() = default;
    AnsiName(const AnsiName&) = delete;
    AnsiName& operator=(const AnsiName&) = delete;

    [[nodiscard]] const char* Text() const { return text_; }

private:
    std::array<char, 128> short_{};
    std::string long_;
    const char* text_ = short_.data();
};

} // namespace

std::optional<RegistryValue> WindowsRegistry::Query(RegistryHive hive, const std::wstring& path,
                                                    const std::wstring& name) const {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HiveHandle(hive), AnsiName(path).Text(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    const Key key(opened);
    const AnsiName valueName(name);
    // Nearly every value fits here at the first call; a longer one is asked for again until another program
    // stops growing it.
    constexpr std::size_t kUsualSize = 256;
    RegistryValue value;
    value.bytes.resize(kUsualSize);
    for (;;) {
        DWORD type = 0;
        auto size = static_cast<DWORD>(value.bytes.size());
        const LSTATUS status =
            RegQueryValueExA(key.get(), valueName.Text(), nullptr, &type,
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
    if (RegCreateKeyA(HiveHandle(hive), AnsiName(path).Text(), &opened) != ERROR_SUCCESS) {
        return false;
    }
    const Key key(opened);
    return RegSetValueExA(key.get(), AnsiName(name).Text(), 0, value.type,
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
