#include "Process.h"

#include <psapi.h>

#include <vector>

namespace UiDriver {
namespace {

struct NameLess {
    bool operator()(const std::wstring& a, const std::wstring& b) const {
        return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_LESS_THAN;
    }
};

std::wstring EnvironmentBlock(const Environment& changes) {
    std::map<std::wstring, std::wstring, NameLess> variables;
    wchar_t* const own = GetEnvironmentStringsW();
    for (const wchar_t* entry = own; entry != nullptr && *entry != L'\0'; entry += wcslen(entry) + 1) {
        const std::wstring text = entry;
        // Names such as "=C:" begin with the sign that ends other names.
        const std::size_t equals = text.find(L'=', 1);
        if (equals != std::wstring::npos) {
            variables[text.substr(0, equals)] = text.substr(equals + 1);
        }
    }
    FreeEnvironmentStringsW(own);
    for (const auto& [name, value] : changes) {
        variables[name] = value;
    }

    std::wstring block;
    for (const auto& [name, value] : variables) {
        block.append(name).append(1, L'=').append(value).append(1, L'\0');
    }
    block += L'\0';
    return block;
}

} // namespace

Process::Process(UniqueKernelHandle handle, DWORD id, DWORD threadId, std::wstring commandLine)
    : handle_(std::move(handle)), id_(id), threadId_(threadId), commandLine_(std::move(commandLine)) {}

Process Process::Start(const std::wstring& exePath, const std::wstring& arguments,
                       const Environment& environment) {
    std::wstring commandLine = L'"' + exePath + L'"';
    if (!arguments.empty()) {
        commandLine += L' ' + arguments;
    }
    std::wstring mutableLine = commandLine;
    std::wstring block = EnvironmentBlock(environment);

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    const auto create = [&] {
        return CreateProcessW(exePath.c_str(), mutableLine.data(), nullptr, nullptr, FALSE,
                              CREATE_UNICODE_ENVIRONMENT, block.data(), nullptr, &startup, &started) != FALSE;
    };
    // Wine says so once in some hundred starts of a program that was killed just before.
    constexpr Milliseconds kBreath{200};
    bool created = create();
    if (!created && GetLastError() == ERROR_INTERNAL_ERROR) {
        Pause(kBreath);
        created = create();
    }
    if (!created) {
        FailLastError(L"starting " + commandLine);
    }
    CloseHandle(started.hThread);
    return Process(UniqueKernelHandle(started.hProcess), started.dwProcessId, started.dwThreadId,
                   std::move(commandLine));
}

Process::~Process() {
    if (handle_ && Running()) {
        TerminateProcess(Handle(), 1);
        WaitForSingleObject(Handle(), static_cast<DWORD>(kDefaultTimeout.count()));
    }
}

bool Process::Running() const {
    return WaitForSingleObject(Handle(), 0) == WAIT_TIMEOUT;
}

std::optional<DWORD> Process::ExitCode() const {
    DWORD code = 0;
    if (Running() || !GetExitCodeProcess(Handle(), &code)) {
        return std::nullopt;
    }
    return code;
}

DWORD Process::WaitForExit(Milliseconds timeout) const {
    if (WaitForSingleObject(Handle(), static_cast<DWORD>(timeout.count())) != WAIT_OBJECT_0) {
        Fail(L"timed out after " + std::to_wstring(timeout.count()) + L" ms waiting for the end of " +
             commandLine_);
    }
    DWORD code = 0;
    if (!GetExitCodeProcess(Handle(), &code)) {
        FailLastError(L"reading the exit code of " + commandLine_);
    }
    return code;
}

void Process::WaitForInputIdle(Milliseconds timeout) const {
    const DWORD result = ::WaitForInputIdle(Handle(), static_cast<DWORD>(timeout.count()));
    if (result != 0) {
        Fail(commandLine_ + (Running() ? L" did not become idle" : L" ended before it became idle"));
    }
}

void Process::Kill() {
    if (Running() && !TerminateProcess(Handle(), 1)) {
        FailLastError(L"killing " + commandLine_);
    }
    WaitForExit();
}

std::size_t Process::PeakWorkingSet() const {
    PROCESS_MEMORY_COUNTERS counters{};
    if (!K32GetProcessMemoryInfo(Handle(), &counters, sizeof counters)) {
        FailLastError(L"asking for the memory of " + commandLine_);
    }
    return counters.PeakWorkingSetSize;
}

} // namespace UiDriver
