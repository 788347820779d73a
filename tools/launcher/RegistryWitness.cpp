#include "RegistryWitness.h"

#include "Win32.h"

#include <cstring>
#include <optional>
#include <vector>

namespace {

constexpr wchar_t kProduct[] = L"Software\\Korvo\\KORVOQLB";

struct Found {
    DWORD type = REG_NONE;
    std::vector<BYTE> bytes{};
};

std::optional<Found> Look(HKEY hive, const std::wstring& path, const std::wstring& name) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(hive, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    Found found;
    DWORD size = 0;
    LSTATUS status = RegQueryValueExW(key, name.c_str(), nullptr, &found.type, nullptr, &size);
    if (status == ERROR_SUCCESS) {
        found.bytes.resize(size);
        status = RegQueryValueExW(key, name.c_str(), nullptr, &found.type, found.bytes.data(), &size);
        found.bytes.resize(size);
    }
    RegCloseKey(key);
    return status == ERROR_SUCCESS ? std::optional(found) : std::nullopt;
}

std::optional<DWORD> AsNumber(const std::optional<Found>& found) {
    if (!found || found->type != REG_DWORD || found->bytes.size() != sizeof(DWORD)) {
        return std::nullopt;
    }
    DWORD number = 0;
    std::memcpy(&number, found->bytes.data(), sizeof number);
    return number;
}

void AddWrongType(LogEntry& entry, const std::wstring& key, const Found& found) {
    constexpr wchar_t kDigits[] = L"0123456789abcdef";
    std::wstring text = std::to_wstring(found.type) + L':';
    for (const BYTE byte : found.bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    entry.Add(key + L".wrongType", text);
}

void AddNumber(LogEntry& entry, const std::wstring& key, const std::wstring& path, const std::wstring& name) {
    const std::optional<Found> found = Look(HKEY_CURRENT_USER, path, name);
    const std::optional<DWORD> number = AsNumber(found);
    if (number) {
        entry.Add(key, *number);
    } else if (found) {
        AddWrongType(entry, key, *found);
    }
}

void AddText(LogEntry& entry, const std::wstring& key, const std::wstring& path, const std::wstring& name) {
    const std::optional<Found> found = Look(HKEY_CURRENT_USER, path, name);
    if (!found) {
        return;
    }
    if (found->type != REG_SZ) {
        AddWrongType(entry, key, *found);
        return;
    }
    std::wstring text(found->bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), found->bytes.data(), text.size() * sizeof(wchar_t));
    entry.Add(key, text.substr(0, text.find(L'\0')));
}

} // namespace

bool IniBackEndSelected() {
    return AsNumber(Look(HKEY_LOCAL_MACHINE, kProduct, L"QLBINI")).value_or(0) != 0;
}

void AddRegistrySettings(LogEntry& entry) {
    AddNumber(entry, L"current", kProduct, L"CurrSetting");
    AddNumber(entry, L"count", kProduct, L"NumSetting");
    AddNumber(entry, L"keyboard", kProduct, L"QLBB");

    const std::wstring onScreen = std::wstring(kProduct) + L"\\OnScreen";
    AddNumber(entry, L"onscreen.OnScreen", onScreen, L"OnScreen");
    AddText(entry, L"onscreen.FontFace", onScreen, L"FontFace");
    AddNumber(entry, L"onscreen.Size", onScreen, L"size");
    AddNumber(entry, L"onscreen.Color", onScreen, L"Color");
    AddNumber(entry, L"onscreen.Time", onScreen, L"Time");

    const DWORD stored = AsNumber(Look(HKEY_CURRENT_USER, kProduct, L"CurrSetting")).value_or(1);
    const DWORD pattern = stored >= 1 && stored <= 10 ? stored : 1;
    entry.Add(L"pattern", pattern);
    const std::wstring set = std::wstring(kProduct) + L"\\Setting\\Set" + std::to_wstring(pattern);
    AddText(entry, L"pattern.name", set, L"SetName");
    for (int button = 1; button <= 8; ++button) {
        const std::wstring path = set + L"\\AppKey" + std::to_wstring(button);
        const std::wstring prefix = L"button" + std::to_wstring(button) + L'.';
        AddText(entry, prefix + L"DispTitle", path, L"DispTitle");
        AddText(entry, prefix + L"Execute", path, L"Execute");
        AddNumber(entry, prefix + L"NumAP", path, L"NumAP");
        for (const wchar_t* name : {L"AP", L"ProgName"}) {
            for (int program = 1; program <= 5; ++program) {
                const std::wstring numbered = name + std::to_wstring(program);
                AddText(entry, prefix + numbered, path, numbered);
            }
        }
    }
}
