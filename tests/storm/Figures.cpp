#include "Figures.h"

#include "driver/Handle.h"
#include "driver/Message.h"

#include <psapi.h>
#include <winternl.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <vector>

namespace {

using UiDriver::Fail;
using UiDriver::Process;

template <class Function> Function* NtFunction(const char* name) {
    const FARPROC address = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name);
    if (address == nullptr) {
        Fail(L"ntdll.dll lacks " + UiDriver::FromUtf8(name));
    }
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
}

void Read(HANDLE process, const std::byte* address, void* target, std::size_t bytes) {
    SIZE_T read = 0;
    if (!ReadProcessMemory(process, address, target, bytes, &read) || read != bytes) {
        UiDriver::FailLastError(L"reading the program's memory");
    }
}

std::size_t CountWindows(std::optional<DWORD> processId) {
    std::size_t count = 0;
    for (const UiDriver::Window& window : UiDriver::FindWindows({processId, {}, {}, false})) {
        count += 1 + UiDriver::WindowsInside(window.Hwnd()).size();
    }
    HWND window = nullptr;
    while ((window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        count += owner == processId.value_or(owner) ? 1U : 0U;
    }
    return count;
}

/// Wine keeps its GDI objects where older systems did: in a table that the process block points to.
std::size_t CountInGdiTable(HANDLE process) {
    constexpr std::size_t kTableInBlock = sizeof(void*) == 8 ? 0xF8 : 0x94;
    constexpr std::size_t kEntries = 0x10000;
    struct Entry {
        std::array<std::byte, 14> unused;
        std::byte type;
        std::array<std::byte, 9> rest;
    };
    static_assert(sizeof(Entry) == 24);

    PROCESS_BASIC_INFORMATION information{};
    static const auto query = NtFunction<decltype(NtQueryInformationProcess)>("NtQueryInformationProcess");
    if (query(process, ProcessBasicInformation, &information, sizeof information, nullptr) != 0) {
        Fail(L"the program does not tell where its process block is");
    }
    const std::byte* table = nullptr;
    Read(process, reinterpret_cast<const std::byte*>(information.PebBaseAddress) + kTableInBlock, &table,
         sizeof table);
    std::vector<Entry> entries(kEntries);
    Read(process, table, entries.data(), entries.size() * sizeof(Entry));
    return static_cast<std::size_t>(std::count_if(
        entries.begin(), entries.end(), [](const Entry& entry) { return entry.type != std::byte{}; }));
}

std::size_t CountGdiObjects(HANDLE process) {
    const DWORD counted = GetGuiResources(process, GR_GDIOBJECTS);
    return counted != 0 ? counted : CountInGdiTable(process);
}

std::size_t CountInHandleTable(std::optional<DWORD> processId) {
    using Query = NTSTATUS NTAPI(ULONG, void*, ULONG, ULONG*);
    constexpr ULONG kExtendedHandles = 64;
    constexpr NTSTATUS kTooSmall = static_cast<NTSTATUS>(0xC0000004);
    struct Entry {
        void* object;
        ULONG_PTR processId;
        ULONG_PTR handle;
        std::array<ULONG, 4> rest;
    };
    struct Header {
        ULONG_PTR count;
        ULONG_PTR reserved;
    };
    static const auto query = NtFunction<Query>("NtQuerySystemInformation");
    std::vector<std::byte> buffer(std::size_t{1} << 18U);
    NTSTATUS status = 0;
    ULONG needed = 0;
    while ((status = query(kExtendedHandles, buffer.data(), static_cast<ULONG>(buffer.size()), &needed)) ==
           kTooSmall) {
        buffer.resize(2 * buffer.size());
    }
    if (status != 0) {
        Fail(L"the system does not list its handles");
    }
    const auto* const header = reinterpret_cast<const Header*>(buffer.data());
    const auto* const entries = reinterpret_cast<const Entry*>(buffer.data() + sizeof(Header));
    return static_cast<std::size_t>(std::count_if(entries, entries + header->count, [&](const Entry& entry) {
        return !processId || entry.processId == *processId;
    }));
}

std::size_t CountHandles(const Process& process) {
    DWORD count = 0;
    const bool counted = GetProcessHandleCount(process.Handle(), &count) != FALSE && count != 0;
    return counted ? count : CountInHandleTable(process.Id());
}

std::size_t PrivateBytes(HANDLE process) {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    if (!K32GetProcessMemoryInfo(process, reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                                 sizeof counters)) {
        UiDriver::FailLastError(L"asking for the program's memory");
    }
    return std::max(counters.PrivateUsage,
                    counters.PagefileUsage); // each system fills in one of them at least
}

} // namespace

Figures Figures::Of(const Process& process) {
    return {CountWindows(process.Id()), CountGdiObjects(process.Handle()), CountHandles(process),
            PrivateBytes(process.Handle())};
}

Figures Figures::OfSystem() {
    return {CountWindows({}), 0, CountInHandleTable({}), 0};
}

std::ostream& operator<<(std::ostream& out, const Figures& each) {
    return out << each.windows << " windows, " << each.gdiObjects << " GDI objects, " << each.kernelHandles
               << " handles, " << each.privateBytes / 1024 << " KB";
}
