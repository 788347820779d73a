#include "StoredSettings.h"

#include "AnsiBytes.h"

#include <functional>
#include <ostream>

using UiDriver::LauncherEntry;
using UiDriver::ProfileFile;
using UiDriver::RegistryKey;
using UiDriver::ToUtf8;

namespace {

constexpr int kButtons = 8;
constexpr std::size_t kPrograms = 5;

std::wstring Require(std::optional<std::wstring> text, const std::wstring& name) {
    if (!text) {
        UiDriver::Fail(L"the value " + name + L" is missing");
    }
    return std::move(*text);
}

DWORD ToNumber(const std::wstring& text, const std::wstring& name) {
    wchar_t* end = nullptr;
    const unsigned long number = wcstoul(text.c_str(), &end, 10);
    if (text.empty() || *end != L'\0') {
        UiDriver::Fail(L"the value " + name + L" is no number but \"" + text + L"\"");
    }
    return number;
}

std::wstring Numbered(const std::wstring& name, std::size_t index) {
    return name + std::to_wstring(index + 1);
}

/// A button read value by value, whatever holds the values.
StoredButton CollectButton(const std::function<std::wstring(const std::wstring&)>& text,
                           const std::function<DWORD(const std::wstring&)>& number) {
    StoredButton button;
    button.name = text(L"DispTitle");
    button.method = text(L"Execute");
    button.count = number(L"NumAP");
    for (std::size_t i = 0; i < kPrograms; ++i) {
        button.programs[i] = text(Numbered(L"AP", i));
        button.titles[i] = text(Numbered(L"ProgName", i));
    }
    return button;
}

std::string Section(int pattern) {
    return "USER" + std::to_string(pattern);
}

std::string IniKey(int button, const std::string& field) {
    return "Btn" + std::to_string(button) + "_" + field;
}

std::wstring IniText(const ProfileFile& file, const std::string& section, const std::string& key) {
    const std::optional<std::string> bytes = file.Get(section, key);
    return Require(bytes ? std::optional(FromAnsi(*bytes)) : std::nullopt, FromAnsi(key));
}

} // namespace

std::ostream& operator<<(std::ostream& out, const StoredPattern& pattern) {
    out << "pattern \"" << ToUtf8(pattern.name) << "\"\n";
    for (int number = 1; number <= kButtons; ++number) {
        const StoredButton& button = pattern.Button(number);
        out << "  " << number << ": \"" << ToUtf8(button.name) << "\" " << ToUtf8(button.method) << ' '
            << button.count;
        for (const std::wstring& program : button.programs) {
            out << " [" << ToUtf8(program) << ']';
        }
        for (const std::wstring& title : button.titles) {
            out << " (" << ToUtf8(title) << ')';
        }
        out << '\n';
    }
    return out;
}

std::ostream& operator<<(std::ostream& out, const StoredOnScreen& settings) {
    return out << "on " << settings.on << ", face \"" << ToUtf8(settings.face) << "\", size " << settings.size
               << ", colour " << settings.color;
}

void WriteText(const RegistryKey& key, const std::wstring& name, const std::wstring& text) {
    if (text.empty()) {
        key.SetRaw(name, {REG_SZ, {0, 0, 0, 0}});
    } else {
        key.SetString(name, text);
    }
}

void WritePattern(const RegistryKey& set, const StoredPattern& pattern) {
    WriteText(set, L"SetName", pattern.name);
    for (int number = 1; number <= kButtons; ++number) {
        const RegistryKey key = set.Sub(L"AppKey" + std::to_wstring(number));
        const StoredButton& button = pattern.Button(number);
        WriteText(key, L"DispTitle", button.name);
        WriteText(key, L"Execute", button.method);
        key.SetDword(L"NumAP", button.count);
        for (std::size_t i = 0; i < kPrograms; ++i) {
            WriteText(key, Numbered(L"AP", i), button.programs[i]);
            WriteText(key, Numbered(L"ProgName", i), button.titles[i]);
        }
    }
}

StoredPattern ReadPattern(const RegistryKey& set) {
    StoredPattern pattern;
    pattern.name = Require(set.String(L"SetName"), L"SetName");
    for (int number = 1; number <= kButtons; ++number) {
        const RegistryKey key = set.Sub(L"AppKey" + std::to_wstring(number));
        pattern.Button(number) = CollectButton(
            [&](const std::wstring& name) { return Require(key.String(name), name); },
            [&](const std::wstring& name) {
                const std::optional<DWORD> value = key.Dword(name);
                return ToNumber(Require(value ? std::optional(std::to_wstring(*value)) : std::nullopt, name),
                                name);
            });
    }
    return pattern;
}

void WriteOnScreen(const RegistryKey& onScreen, const StoredOnScreen& settings) {
    onScreen.SetDword(L"OnScreen", settings.on);
    WriteText(onScreen, L"FontFace", settings.face);
    onScreen.SetDword(L"size", settings.size);
    onScreen.SetDword(L"Color", settings.color);
}

StoredOnScreen ReadOnScreen(const RegistryKey& onScreen) {
    const auto number = [&](const wchar_t* name) {
        const std::optional<DWORD> value = onScreen.Dword(name);
        if (!value) {
            UiDriver::Fail(std::wstring(L"the value ") + name + L" is missing");
        }
        return *value;
    };
    return {number(L"OnScreen"), Require(onScreen.String(L"FontFace"), L"FontFace"), number(L"size"),
            number(L"Color")};
}

std::string IniSection(int number, const StoredPattern& pattern) {
    std::string text = "[" + Section(number) + "]\r\n";
    const auto add = [&](const std::string& key, const std::wstring& value) {
        text += key + '=' + ToAnsi(value) + "\r\n";
    };
    add("UserName", pattern.name);
    for (int b = 1; b <= kButtons; ++b) {
        const StoredButton& button = pattern.Button(b);
        add(IniKey(b, "Exec"), button.method);
        add(IniKey(b, "NumAP"), std::to_wstring(button.count));
        add(IniKey(b, "Name"), button.name);
        for (std::size_t i = 0; i < kPrograms; ++i) {
            const std::wstring& program = button.programs[i];
            add(IniKey(b, "AP" + std::to_string(i + 1)), program.empty() ? L" " : program);
        }
        for (std::size_t i = 0; i < kPrograms; ++i) {
            add(IniKey(b, "Title" + std::to_string(i + 1)), button.titles[i]);
        }
    }
    return text;
}

std::string IniSection(const StoredOnScreen& settings) {
    return "[ONSCREEN]\r\nOnScreen=" + std::to_string(settings.on) + "\r\nFontName=" + ToAnsi(settings.face) +
           "\r\nFontSize=" + std::to_string(settings.size) + "\r\nColor=" + std::to_string(settings.color) +
           "\r\n";
}

StoredPattern ReadPattern(const ProfileFile& file, int number) {
    const std::string section = Section(number);
    StoredPattern pattern;
    pattern.name = IniText(file, section, "UserName");
    for (int b = 1; b <= kButtons; ++b) {
        StoredButton& button = pattern.Button(b);
        button.name = IniText(file, section, IniKey(b, "Name"));
        button.method = IniText(file, section, IniKey(b, "Exec"));
        button.count = ToNumber(IniText(file, section, IniKey(b, "NumAP")), L"NumAP");
        for (std::size_t i = 0; i < kPrograms; ++i) {
            button.programs[i] = IniText(file, section, IniKey(b, "AP" + std::to_string(i + 1)));
            button.titles[i] = IniText(file, section, IniKey(b, "Title" + std::to_string(i + 1)));
        }
    }
    return pattern;
}

StoredOnScreen ReadOnScreen(const ProfileFile& file) {
    const auto number = [&](const char* key) {
        return ToNumber(IniText(file, "ONSCREEN", key), FromAnsi(key));
    };
    return {number("OnScreen"), IniText(file, "ONSCREEN", "FontName"), number("FontSize"), number("Color")};
}

StoredPattern SeenPattern(const LauncherEntry& entry) {
    StoredPattern pattern;
    pattern.name = Require(entry.Value(L"pattern.name"), L"pattern.name");
    for (int number = 1; number <= kButtons; ++number) {
        const std::wstring prefix = L"button" + std::to_wstring(number) + L'.';
        const auto text = [&](const std::wstring& name) {
            return Require(entry.Value(prefix + name), prefix + name);
        };
        pattern.Button(number) = CollectButton(
            text, [&](const std::wstring& name) { return ToNumber(text(name), prefix + name); });
    }
    return pattern;
}

StoredOnScreen SeenOnScreen(const LauncherEntry& entry) {
    const auto text = [&](const wchar_t* name) { return Require(entry.Value(name), name); };
    return {ToNumber(text(L"onscreen.OnScreen"), L"OnScreen"), text(L"onscreen.FontFace"),
            ToNumber(text(L"onscreen.Size"), L"Size"), ToNumber(text(L"onscreen.Color"), L"Color")};
}
