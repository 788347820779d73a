#include "IniWitness.h"

#include "Win32.h"

#include <cstdlib>
#include <optional>

namespace {

constexpr char kFile[] = "KORVOQLB.INI";

std::string ReadWithDefault(const std::string& section, const std::string& name, const char* fallback) {
    std::string text(32768, '\0');
    const DWORD length = GetPrivateProfileStringA(section.c_str(), name.c_str(), fallback, text.data(),
                                                  static_cast<DWORD>(text.size()), kFile);
    text.resize(length);
    return text;
}

std::optional<std::string> Look(const std::string& section, const std::string& name) {
    // Only a missing value follows two different defaults.
    const std::string first = ReadWithDefault(section, name, "missing-1");
    if (first == "missing-1" && ReadWithDefault(section, name, "missing-2") == "missing-2") {
        return std::nullopt;
    }
    return first;
}

std::wstring Widen(const std::string& ansi) {
    const int length = static_cast<int>(ansi.size());
    const int needed = MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, text.data(), needed);
    return text;
}

void Add(LogEntry& entry, const std::wstring& key, const std::string& section, const std::string& name) {
    const std::optional<std::string> found = Look(section, name);
    if (found) {
        entry.Add(key, Widen(*found));
    }
}

} // namespace

void AddIniSettings(LogEntry& entry) {
    Add(entry, L"current", "KORVOQLB", "CurrUser");
    Add(entry, L"count", "KORVOQLB", "NumUser");
    Add(entry, L"keyboard", "KORVOQLB", "QLBKeyboard");

    Add(entry, L"onscreen.OnScreen", "ONSCREEN", "OnScreen");
    Add(entry, L"onscreen.FontFace", "ONSCREEN", "FontName");
    Add(entry, L"onscreen.Size", "ONSCREEN", "FontSize");
    Add(entry, L"onscreen.Color", "ONSCREEN", "Color");
    Add(entry, L"onscreen.Time", "ONSCREEN", "DelayTime");

    const std::string text = Look("KORVOQLB", "CurrUser").value_or("1");
    const long stored = std::strtol(text.c_str(), nullptr, 10);
    const long pattern = stored >= 1 && stored <= 10 ? stored : 1;
    entry.Add(L"pattern", static_cast<unsigned long>(pattern));
    const std::string section = "USER" + std::to_string(pattern);
    Add(entry, L"pattern.name", section, "UserName");
    for (int button = 1; button <= 8; ++button) {
        const std::string name = "Btn" + std::to_string(button);
        const std::wstring prefix = L"button" + std::to_wstring(button) + L'.';
        Add(entry, prefix + L"DispTitle", section, name + "_Name");
        Add(entry, prefix + L"Execute", section, name + "_Exec");
        Add(entry, prefix + L"NumAP", section, name + "_NumAP");
        for (int program = 1; program <= 5; ++program) {
            Add(entry, prefix + L"AP" + std::to_wstring(program), section,
                name + "_AP" + std::to_string(program));
        }
        for (int program = 1; program <= 5; ++program) {
            Add(entry, prefix + L"ProgName" + std::to_wstring(program), section,
                name + "_Title" + std::to_string(program));
        }
    }
}
