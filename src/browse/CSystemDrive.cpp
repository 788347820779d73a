#include "browse/CSystemDrive.h"

#include "platform/Drives.h"
#include "settings/StdModule.h"

DriveRecord ParseDriveEntry(std::wstring_view entry) {
    const std::size_t open = entry.find(L'[');
    if (open == std::wstring_view::npos) {
        return {std::wstring(entry), {}};
    }
    const std::size_t begin = open + 1;
    const std::size_t close = entry.rfind(L']');
    // A label without its end is what there is of it.
    const std::size_t end = close == std::wstring_view::npos || close < begin ? entry.size() : close;
    return {TrimBlanks(entry.substr(0, open)), std::wstring(entry.substr(begin, end - begin))};
}

void CSystemDrive::DriveBoxControl(const Drives& drives) {
    drives_.clear();
    for (const std::wstring& entry : drives.Entries()) {
        DriveRecord record = ParseDriveEntry(entry);
        const std::uint32_t type = drives.Type(record.drive + L'\\');
        if (type == kDriveRemovable || type == kDriveFixed || type == kDriveCdRom) {
            drives_.push_back(std::move(record));
        }
    }
}

DriveRecord CSystemDrive::Record(std::int32_t index) const {
    return index >= 0 && index < LocalDriveCount() ? drives_[static_cast<std::size_t>(index)] : DriveRecord{};
}

std::wstring CSystemDrive::GetLocalDrive(std::int32_t index) const {
    return Record(index).drive;
}

std::wstring CSystemDrive::GetLocalDriveVolume(std::int32_t index) const {
    return Record(index).label;
}
