#include "TestDrive.h"

#include "BrowseUse.h"
#include "driver/Handle.h"

#include <winioctl.h>

#include <bit>
#include <cstring>
#include <filesystem>

namespace {

// Wine's mount manager takes drives from programs, as its own settings program does.
constexpr DWORD kDefineUnixDrive = CTL_CODE('m', 32, METHOD_BUFFERED, FILE_READ_ACCESS | FILE_WRITE_ACCESS);

struct UnixDrive {
    ULONG size;
    ULONG type;
    ULONG fileSystem;
    DWORD serial;
    ULONGLONG device;
    wchar_t letter;
    USHORT mountPointOffset;
    USHORT deviceOffset;
    USHORT labelOffset;
};

/// Without a folder the drive goes.
bool Define(wchar_t letter, DWORD type, const std::string& folder) {
    const HANDLE opened = CreateFileW(L"\\\\.\\MountPointManager", GENERIC_READ | GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    const UiDriver::UniqueKernelHandle manager(opened == INVALID_HANDLE_VALUE ? nullptr : opened);
    std::string request(sizeof(UnixDrive), '\0');
    UnixDrive drive{};
    drive.letter = letter;
    drive.type = type;
    if (!folder.empty()) {
        drive.mountPointOffset = sizeof drive;
        request.append(folder).append(1, '\0');
    }
    drive.size = static_cast<ULONG>(request.size());
    std::memcpy(request.data(), &drive, sizeof drive);
    return manager && DeviceIoControl(manager.Get(), kDefineUnixDrive, request.data(),
                                      static_cast<DWORD>(request.size()), nullptr, 0, nullptr, nullptr);
}

} // namespace

TestDrive::TestDrive(wchar_t letter, DWORD type, const std::string& label) : letter_(letter) {
    std::filesystem::create_directories(Folder());
    if (!label.empty()) {
        UiDriver::WriteBytes(Folder() + L"\\.windows-label", label + '\n');
    }
    if (!Define(letter_, type, UiDriver::UnixPath(Folder()))) {
        UiDriver::FailLastError(L"making a drive");
    }
    const std::wstring root{letter_, L':', L'\\'};
    UiDriver::WaitUntil([&] { return GetDriveTypeW(root.c_str()) == type; }, L"the drive " + root);
}

TestDrive::~TestDrive() {
    if (!Define(letter_, DRIVE_UNKNOWN, {})) {
        ADD_FAILURE() << "a drive could not be removed";
    }
}

std::wstring TestDrive::Folder() const {
    return ScratchFolder::Path() + L"\\drive-" + letter_;
}
