#include "Scaling.h"

#include "Handle.h"
#include "Message.h"
#include "RemoteMemory.h"
#include "Wait.h"

#include <tlhelp32.h>

#include <cstring>
#include <string_view>
#include <vector>

namespace UiDriver {
namespace {

/// The program as it lies in the memory of its process.
class LoadedProgram {
public:
    explicit LoadedProgram(DWORD processId)
        : process_(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId)) {
        const UniqueKernelHandle modules(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, processId));
        MODULEENTRY32W program{};
        program.dwSize = sizeof program;
        if (!process_ || modules.Get() == INVALID_HANDLE_VALUE ||
            Module32FirstW(modules.Get(), &program) == FALSE) {
            FailLastError(L"looking into the program");
        }
        base_ = reinterpret_cast<std::byte*>(program.modBaseAddr);
        image_.resize(program.modBaseSize);
        if (ReadProcessMemory(process_.Get(), base_, image_.data(), image_.size(), nullptr) == FALSE) {
            FailLastError(L"reading the program");
        }
    }

    /// Where the program keeps the address of a function that it imports.
    [[nodiscard]] std::byte* ImportSlot(std::string_view function) const {
        const auto dos = At<IMAGE_DOS_HEADER>(0);
        const auto headers = At<IMAGE_NT_HEADERS>(static_cast<DWORD>(dos.e_lfanew));
        DWORD library = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
        for (auto each = At<IMAGE_IMPORT_DESCRIPTOR>(library); each.Name != 0;
             library += sizeof each, each = At<IMAGE_IMPORT_DESCRIPTOR>(library)) {
            for (DWORD offset = 0;; offset += sizeof(IMAGE_THUNK_DATA)) {
                const auto name = At<IMAGE_THUNK_DATA>(each.OriginalFirstThunk + offset);
                if (name.u1.AddressOfData == 0) {
                    break;
                }
                constexpr DWORD kHint = 2;
                if (!IMAGE_SNAP_BY_ORDINAL(name.u1.Ordinal) &&
                    function == TextAt(static_cast<DWORD>(name.u1.AddressOfData) + kHint)) {
                    return base_ + each.FirstThunk + offset;
                }
            }
        }
        Fail(L"the program does not import the function");
    }

    /// Memory of its process with this code in it.
    [[nodiscard]] std::byte* Put(const std::vector<unsigned char>& code) const {
        auto* const place = static_cast<std::byte*>(VirtualAllocEx(
            process_.Get(), nullptr, code.size(), MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
        if (place == nullptr) {
            FailLastError(L"making room in the program");
        }
        Write(place, code.data(), code.size());
        return place;
    }

    void Write(std::byte* place, const void* source, std::size_t bytes) const {
        DWORD former = 0;
        if (VirtualProtectEx(process_.Get(), place, bytes, PAGE_EXECUTE_READWRITE, &former) == FALSE ||
            WriteProcessMemory(process_.Get(), place, source, bytes, nullptr) == FALSE) {
            FailLastError(L"writing into the program");
        }
    }

private:
    template <class Part> [[nodiscard]] Part At(DWORD offset) const {
        Part part{};
        if (offset + sizeof part > image_.size()) {
            Fail(L"the program's headers lead out of it");
        }
        std::memcpy(&part, image_.data() + offset, sizeof part);
        return part;
    }
    [[nodiscard]] std::string_view TextAt(DWORD offset) const {
        const auto* const text = reinterpret_cast<const char*>(image_.data() + offset);
        return {text, strnlen(text, image_.size() - offset)};
    }

    UniqueKernelHandle process_;
    std::byte* base_ = nullptr;
    std::vector<std::byte> image_;
};

} // namespace

void FakeScaling(HWND window, UINT dpi) {
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    const LoadedProgram program(processId);
    std::vector<unsigned char> code{0xB8}; // mov eax, dpi
    for (int shift = 0; shift < 32; shift += 8) {
        code.push_back(static_cast<unsigned char>(dpi >> shift));
    }
    if constexpr (sizeof(void*) == 8) {
        code.push_back(0xC3); // ret
    } else {
        code.insert(code.end(), {0xC2, 0x04, 0x00}); // ret 4
    }
    const std::byte* const function = program.Put(code);
    program.Write(program.ImportSlot("GetDpiForWindow"), &function, sizeof function);
}

void TellScaling(HWND form, UINT dpi) {
    RECT place{};
    if (GetWindowRect(form, &place) == FALSE) {
        FailLastError(L"asking for the form's place");
    }
    const RemoteMemory memory(form, sizeof place);
    memory.Write(0, &place, sizeof place);
    Send(form, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), memory.Param());
}

void ScaleTo(HWND form, UINT dpi) {
    FakeScaling(form, dpi);
    TellScaling(form, dpi);
}

} // namespace UiDriver
