// qlb on ten full Patterns, beside a bare console program that reads and prints the same values, each from its start
// to its end:
//
//   CommandBench.exe FOLDER-OF-qlb.exe FOLDER-OF-BareReader.exe [/rounds:N]
//
// It fills the registry of the user who runs it.

#include "common/Comparison.h"
#include "common/FullPattern.h"
#include "common/Statistics.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/Handles.h"
#include "platform/windows/WindowsProfileFiles.h"
#include "platform/windows/WindowsRegistry.h"
#include "settings/PatternStore.h"
#include "settings/RegIniFunc.h"

#include <windows.h>

#include <cstdio>

namespace {

constexpr const wchar_t* kIniFile = L"KORVOQLB.INI";

void FillStore() {
    WindowsRegistry registry(kProductKey);
    WindowsProfileFiles files;
    const WindowsAnsiText ansiText;
    RegIniFunc store(registry, files, ansiText, kIniFile);
    PatternStore patterns(store, kMaxButtons);
    for (int number = 1; number <= kMaxPatterns; ++number) {
        Pattern pattern = FullPattern(number);
        patterns.SavePattern(number, pattern);
    }
    store.IniSetString(kProgramSection, L"CurrUser", L"1", kIniFile);
    store.IniSetString(kProgramSection, L"NumUser", L"10", kIniFile);
}

/// Milliseconds until the program has ended; its output goes to a file, as a script's would.
std::optional<double> RunOnce(std::wstring commandLine, HANDLE output) {
    SetFilePointer(output, 0, nullptr, FILE_BEGIN);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = output;
    start.hStdError = output;
    PROCESS_INFORMATION process{};
    DWORD code = 1;
    LARGE_INTEGER frequency{};
    LARGE_INTEGER begin{};
    LARGE_INTEGER end{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&begin);
    if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                       &process) == FALSE) {
        return std::nullopt;
    }
    const KernelHandle owner(process.hProcess);
    const KernelHandle thread(process.hThread);
    constexpr DWORD kPatienceMs = 30'000;
    if (WaitForSingleObject(process.hProcess, kPatienceMs) != WAIT_OBJECT_0) {
        return std::nullopt;
    }
    QueryPerformanceCounter(&end);
    if (GetExitCodeProcess(process.hProcess, &code) == FALSE || code != 0) {
        return std::nullopt;
    }
    constexpr double kMillisecondsOfASecond = 1000;
    return static_cast<double>(end.QuadPart - begin.QuadPart) * kMillisecondsOfASecond /
           static_cast<double>(frequency.QuadPart);
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 3) {
        std::puts("CommandBench.exe FOLDER-OF-qlb.exe FOLDER-OF-BareReader.exe [/rounds:N]");
        return 2;
    }
    constexpr int kRounds = 40;
    const std::wstring ours = std::wstring(L"\"") + arguments[1] + L"\\qlb.exe\" ";
    const std::wstring bare = std::wstring(L"\"") + arguments[2] + L"\\BareReader.exe\" ";
    FillStore();
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const KernelHandle output =
        OwnedFile(CreateFileW(L"CommandBench.out", GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                              FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    if (!output) {
        return 1;
    }
    Comparison table(RoundsFrom(count, arguments, kRounds));
    table.Row(
        "qlb list", 0, [&] { return RunOnce(bare + L"list", output.get()); },
        [&] { return RunOnce(ours + L"list", output.get()); });
    table.Row(
        "qlb export -", 0, [&] { return RunOnce(bare + L"export", output.get()); },
        [&] { return RunOnce(ours + L"export -", output.get()); });
    return table.Finish();
}
