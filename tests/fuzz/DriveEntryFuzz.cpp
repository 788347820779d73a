#include "browse/CSystemDrive.h"

#include "Fuzz.h"

namespace {

bool IsBlank(std::wstring_view text) {
    return text.find_first_not_of(L' ') == std::wstring_view::npos;
}

void CheckLabelled(std::wstring_view entry, std::size_t open, const DriveRecord& record) {
    const std::wstring_view before = entry.substr(0, open);
    const std::wstring_view behind = entry.substr(open + 1);
    Require(!record.drive.starts_with(L' ') && !record.drive.ends_with(L' '),
            "the drive has blanks around it");
    const std::size_t begin = before.find(record.drive);
    Require(begin != std::wstring_view::npos, "the drive is not what stands before the bracket");
    Require(IsBlank(before.substr(0, begin)) && IsBlank(before.substr(begin + record.drive.size())),
            "the drive lacks some of what stands before the bracket");
    Require(behind.starts_with(record.label), "the label is not what stands behind the bracket");
    const std::wstring_view rest = behind.substr(record.label.size());
    const bool closed = behind.find(L']') != std::wstring_view::npos;
    Require(closed == rest.starts_with(L']') && closed != rest.empty(), "the label ends in the wrong place");
    Require(rest.find(L']', 1) == std::wstring_view::npos, "the label ends before the last bracket");
    const std::wstring again = record.drive + L" [" + record.label + L']';
    Require(ParseDriveEntry(again) == record, "an entry made of drive and label gives others");
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring entry(data, data + size);
    const DriveRecord record = ParseDriveEntry(entry);
    const std::size_t open = entry.find(L'[');
    if (open == std::wstring::npos) {
        Require(record == DriveRecord{entry, {}}, "an entry without a bracket is not the drive as it stands");
    } else {
        CheckLabelled(entry, open, record);
    }
    return 0;
}
