// The least that a console program takes to read and print the settings: BareReader.exe list|export. No C++ library,
// each key opened once, each value asked for once, one write.

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <initializer_list>

namespace {

constexpr DWORD kMostText = 2048;
constexpr int kPatterns = 10;
constexpr int kButtons = 8;
constexpr int kPrograms = 5;

char output[256 * 1024]; // NOLINT(cppcoreguidelines-avoid-c-arrays,readability-identifier-naming)
std::size_t length = 0;  // NOLINT(readability-identifier-naming)

void Print(const char* name, const char* text) {
    length += static_cast<std::size_t>(
        std::snprintf(output + length, sizeof output - length, "%s=%s\r\n", name, text));
}

void PrintText(HKEY key, const char* name) {
    char text[kMostText + 1];
    DWORD size = kMostText;
    if (RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size) ==
        ERROR_SUCCESS) {
        text[size] = '\0';
        Print(name, text);
    }
}

void PrintNumber(HKEY key, const char* name) {
    DWORD number = 0;
    DWORD size = sizeof number;
    if (RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size) ==
        ERROR_SUCCESS) {
        char text[16];
        std::snprintf(text, sizeof text, "%lu", number);
        Print(name, text);
    }
}

HKEY Open(HKEY above, const char* format, int number) {
    char name[64];
    std::snprintf(name, sizeof name, format, number);
    HKEY key = nullptr;
    return RegOpenKeyExA(above, name, 0, KEY_READ, &key) == ERROR_SUCCESS ? key : nullptr;
}

void PrintButton(HKEY key) {
    PrintText(key, "Execute");
    PrintNumber(key, "NumAP");
    PrintText(key, "DispTitle");
    for (const char* const kind : {"AP", "ProgName"}) {
        for (int k = 1; k <= kPrograms; ++k) {
            char name[16];
            std::snprintf(name, sizeof name, "%s%d", kind, k);
            PrintText(key, name);
        }
    }
}

} // namespace

int main(int count, char** arguments) {
    const bool all = count > 1 && std::strcmp(arguments[1], "export") == 0;
    HKEY product = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\Korvo\\KORVOQLB", 0, KEY_READ, &product) !=
        ERROR_SUCCESS) {
        return 1;
    }
    PrintNumber(product, "CurrSetting");
    PrintNumber(product, "NumSetting");
    for (int pattern = 1; pattern <= kPatterns; ++pattern) {
        const HKEY set = Open(product, "Setting\\Set%d", pattern);
        if (set == nullptr) {
            return 1;
        }
        PrintText(set, "SetName");
        for (int button = 1; all && button <= kButtons; ++button) {
            const HKEY key = Open(set, "AppKey%d", button);
            if (key == nullptr) {
                return 1;
            }
            PrintButton(key);
            RegCloseKey(key);
        }
        RegCloseKey(set);
    }
    RegCloseKey(product);
    DWORD written = 0;
    return WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), output, static_cast<DWORD>(length), &written,
                     nullptr) != FALSE
               ? 0
               : 1;
}
