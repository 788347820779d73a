#include "OtherProgram.h"

#include "InstanceRole.h"
#include "WindowRole.h"

#include <shellapi.h>

#include <stdexcept>
#include <system_error>
#include <thread>

namespace {

constexpr const wchar_t* kRoleOption = L"--role";

std::vector<std::wstring> Arguments() {
    struct Freer {
        void operator()(wchar_t** memory) const { LocalFree(static_cast<HLOCAL>(memory)); }
    };
    int count = 0;
    const std::unique_ptr<wchar_t*, Freer> arguments(CommandLineToArgvW(GetCommandLineW(), &count));
    return {arguments.get(), arguments.get() + count};
}

/// A killed test must not leave its other programs behind.
void EndWith(DWORD parentId) {
    OwnedHandle parent(OpenProcess(SYNCHRONIZE, FALSE, parentId));
    std::thread([parent = std::move(parent)] {
        if (parent) {
            WaitForSingleObject(parent.get(), INFINITE);
        }
        ExitProcess(1);
    }).detach();
}

} // namespace

Signal::Signal(const std::wstring& name) : event_(CreateEventW(nullptr, TRUE, FALSE, name.c_str())) {
    if (!event_) {
        throw std::runtime_error("CreateEventW");
    }
}

void Signal::Set() {
    SetEvent(event_.get());
}

bool Signal::Wait(std::chrono::milliseconds patience) const {
    return WaitForSingleObject(event_.get(), static_cast<DWORD>(patience.count())) == WAIT_OBJECT_0;
}

SharedMemory::SharedMemory(const std::wstring& name, std::size_t size)
    : mapping_(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, static_cast<DWORD>(size),
                                  name.c_str())) {
    data_ = mapping_ ? MapViewOfFile(mapping_.get(), FILE_MAP_ALL_ACCESS, 0, 0, size) : nullptr;
    if (data_ == nullptr) {
        throw std::runtime_error("MapViewOfFile");
    }
}

SharedMemory::~SharedMemory() {
    UnmapViewOfFile(data_);
}

OtherProgram::OtherProgram(const std::wstring& role, const std::vector<std::wstring>& arguments) {
    std::wstring program(MAX_PATH, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
    std::wstring commandLine =
        L'"' + program + L"\" " + kRoleOption + L' ' + role + L' ' + std::to_wstring(GetCurrentProcessId());
    for (const std::wstring& argument : arguments) {
        commandLine += L" \"" + argument + L'"';
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &started) == FALSE) {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "CreateProcessW");
    }
    CloseHandle(started.hThread);
    process_.reset(started.hProcess);
}

void OtherProgram::Kill() {
    TerminateProcess(process_.get(), 0);
    WaitForSingleObject(process_.get(), INFINITE);
}

bool OtherProgram::WaitForEnd(std::chrono::milliseconds patience) const {
    return WaitForSingleObject(process_.get(), static_cast<DWORD>(patience.count())) == WAIT_OBJECT_0;
}

std::optional<int> OtherProgram::PlayRole() {
    const std::vector<std::wstring> arguments = Arguments();
    if (arguments.size() < 4 || arguments[1] != kRoleOption) {
        return std::nullopt;
    }
    EndWith(static_cast<DWORD>(std::stoul(arguments[3])));
    const std::vector<std::wstring> rest(arguments.begin() + 4, arguments.end());
    if (arguments[2] == kWindowRole) {
        return PlayWindow(rest);
    }
    if (arguments[2] == kInstanceRole) {
        return PlayInstance(rest);
    }
    return 2;
}

std::wstring UniqueName() {
    static int count = 0;
    return L"Local\\QLBUtlContract." + std::to_wstring(GetCurrentProcessId()) + L'.' +
           std::to_wstring(++count);
}
