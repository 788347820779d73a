// From the key to the first instruction of the program that it starts: our launcher beside a bare one, in turn.
//
//   LauncherBench.exe QLBLauncher.exe [/rounds:N]

#include "common/Comparison.h"

#include <windows.h>

#include <string>

namespace {

std::wstring BesideThisProgram(const wchar_t* name) {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1) + name;
}

HANDLE Start(const std::wstring& program, const std::wstring& arguments) {
    std::wstring line = L'"' + program + L"\" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &started) == FALSE) {
        return nullptr;
    }
    CloseHandle(started.hThread);
    WaitForInputIdle(started.hProcess, 30'000);
    return started.hProcess;
}

void Put(const wchar_t* key, const wchar_t* name, const wchar_t* text) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key, name, REG_SZ, text,
                    static_cast<DWORD>((wcslen(text) + 1) * sizeof(wchar_t)));
}

void Put(const wchar_t* key, const wchar_t* name, DWORD number) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key, name, REG_DWORD, &number, sizeof number);
}

/// The bench's own prefix: nobody's settings.
void StoreButton(const std::wstring& program) {
    constexpr const wchar_t* kProduct = L"Software\\Korvo\\KORVOQLB";
    constexpr const wchar_t* kButton = L"Software\\Korvo\\KORVOQLB\\Setting\\Set1\\AppKey1";
    Put(kProduct, L"CurrSetting", 1);
    Put(kProduct, L"NumSetting", 1);
    Put(L"Software\\Korvo\\KORVOQLB\\OnScreen", L"OnScreen", DWORD{1});
    Put(kButton, L"DispTitle", L"Started");
    Put(kButton, L"Execute", L"M");
    Put(kButton, L"NumAP", 1);
    Put(kButton, L"AP1", program.c_str());
}

void SendKey(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 2) {
        return 2;
    }
    const std::wstring program = BesideThisProgram(L"StartedProgram.exe");
    StoreButton(program);
    const HANDLE memory = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                             sizeof(LONGLONG), L"QLBLauncherBench");
    auto* const time = static_cast<LONGLONG*>(MapViewOfFile(memory, FILE_MAP_READ, 0, 0, sizeof(LONGLONG)));
    const HANDLE started = CreateEventW(nullptr, FALSE, FALSE, L"QLBLauncherBenchStarted");
    const HANDLE bare = Start(BesideThisProgram(L"BareLauncher.exe"), program);
    const HANDLE ours = Start(arguments[1], L"/s");
    if (time == nullptr || started == nullptr || bare == nullptr || ours == nullptr) {
        return 1;
    }
    const auto press = [&](WORD key) -> std::optional<double> {
        constexpr double kMsPerSecond = 1000;
        constexpr DWORD kKeyMs = 60; // longer than a key counts as held
        LARGE_INTEGER frequency{};
        LARGE_INTEGER begin{};
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&begin);
        SendKey(key, 0);
        const DWORD result = WaitForSingleObject(started, 10'000);
        SendKey(key, KEYEVENTF_KEYUP);
        Sleep(kKeyMs);
        if (result != WAIT_OBJECT_0) {
            return std::nullopt;
        }
        return static_cast<double>(*time - begin.QuadPart) * kMsPerSecond /
               static_cast<double>(frequency.QuadPart);
    };
    constexpr int kUsualRounds = 40;
    Comparison comparison(RoundsFrom(count, arguments, kUsualRounds));
    comparison.Row(
        "key to first instruction", 0, [&] { return press(VK_LAUNCH_APP2); },
        [&] { return press(VK_LAUNCH_MAIL); });
    TerminateProcess(bare, 0);
    TerminateProcess(ours, 0);
    return comparison.Finish();
}
