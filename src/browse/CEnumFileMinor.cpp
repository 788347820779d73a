#include "browse/CEnumFileMinor.h"

#include "browse/Paths.h"
#include "platform/PendingEvents.h"
#include "settings/StdModule.h"

namespace {

bool IsRecycleBin(const FoundFile& folder) {
    return EqualsIgnoreCase(folder.name, L"RECYCLED");
}

bool IsFolder(const FoundFile& entry) {
    return (entry.attributes & kAttributeDirectory) != 0;
}

template <class List> bool InList(const List& list, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < list.size();
}

} // namespace

CEnumFileMinor::CEnumFileMinor(const FileSystem& files, PendingEvents& events)
    : system_(files), events_(events) {}

std::wstring CEnumFileMinor::PatternIn(const std::wstring& path) const {
    return WithoutTrailingBackslash(path) + L'\\' + filter_;
}

bool CEnumFileMinor::Counts(const FoundFile& entry) const {
    return entry.name != L"." && entry.name != L".." && (entry.attributes & attributes_) != 0;
}

bool CEnumFileMinor::EnumDisk(const std::wstring& path) {
    if (!events_.Process() || path.empty()) { // the search for nothing would list the current drive
        return false;
    }
    if (!IsFolder(system_, path)) {
        return true;
    }
    const std::wstring parent = WithoutTrailingBackslash(path) + L'\\';
    std::size_t seen = 0;
    (void)system_.Find(PatternIn(path), [&](const FoundFile& found) {
        if (++seen % kEntriesAtOnce == 0 && !events_.Process()) {
            return false;
        }
        const FoundFile entry{CutAtNul(found.name), found.attributes};
        if (!Counts(entry) || (entry.attributes & kAttributeHidden) != 0) {
            return true;
        }
        if (!IsFolder(entry)) {
            files_.push_back(entry.name);
        } else if (!IsRecycleBin(entry)) {
            folders_.push_back(parent + entry.name);
        }
        return true;
    });
    return false;
}

bool CEnumFileMinor::CheckSubDirectory(const std::wstring& path) const {
    if (!events_.Process() || path.empty() || !IsFolder(system_, path)) {
        return false;
    }
    bool found = false;
    (void)system_.Find(PatternIn(path), [&](const FoundFile& reported) {
        const FoundFile entry{CutAtNul(reported.name), reported.attributes};
        found = Counts(entry) && IsFolder(entry) && !IsRecycleBin(entry);
        return !found;
    });
    return found;
}

std::wstring CEnumFileMinor::GetFileName(std::int32_t index) const {
    return InList(files_, index) ? files_[static_cast<std::size_t>(index)] : std::wstring();
}

std::wstring CEnumFileMinor::GetDirName(std::int32_t index) const {
    return InList(folders_, index) ? LastPart(folders_[static_cast<std::size_t>(index)]) : std::wstring();
}

bool CEnumFileMinor::GetSubDirCheck(std::int32_t index) const {
    if (!InList(folders_, index)) {
        return false;
    }
    const std::wstring path = folders_[static_cast<std::size_t>(index)]; // a pending event may clear the list
    return CheckSubDirectory(path);
}

void CEnumFileMinor::Clear() {
    folders_.clear();
    files_.clear();
}
