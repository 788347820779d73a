#include "browse/CEnumFileMinor.h"

#include "browse/Paths.h"
#include "platform/PendingEvents.h"
#include "settings/StdModule.h"

#include <utility>

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
    events_.Process();
    if (path.empty()) {
        return false; // the search would list the root of the current drive
    }
    if (!IsFolder(system_, path)) {
        return true;
    }
    parents_.push_back(WithoutTrailingBackslash(path));
    const std::size_t parent = parents_.size() - 1;
    (void)system_.Find(PatternIn(path), [&](const FoundFile& found) {
        const FoundFile entry{CutAtNul(found.name), found.attributes};
        if (!Counts(entry) || (entry.attributes & kAttributeHidden) != 0) {
            return true;
        }
        if (!IsFolder(entry)) {
            files_.push_back(entry.name);
        } else if (!IsRecycleBin(entry)) {
            folders_.push_back({entry.name, parent, std::nullopt});
        }
        return true;
    });
    return false;
}

bool CEnumFileMinor::CheckSubDirectory(const std::wstring& path) {
    events_.Process();
    if (path.empty() || !IsFolder(system_, path)) {
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
    return InList(folders_, index) ? folders_[static_cast<std::size_t>(index)].name : std::wstring();
}

bool CEnumFileMinor::GetSubDirCheck(std::int32_t index) {
    if (!InList(folders_, index)) {
        return false;
    }
    const auto position = static_cast<std::size_t>(index);
    if (!folders_[position].hasSubfolders) {
        const std::wstring path = parents_[folders_[position].parent] + L'\\' + folders_[position].name;
        const bool hasSubfolders = CheckSubDirectory(path);
        // The events that were worked off meanwhile may have cleared the lists.
        if (!InList(folders_, index) ||
            path != parents_[folders_[position].parent] + L'\\' + folders_[position].name) {
            return false;
        }
        folders_[position].hasSubfolders = hasSubfolders;
    }
    return *folders_[position].hasSubfolders;
}

std::vector<std::wstring> CEnumFileMinor::TakeDirNames() {
    std::vector<std::wstring> names;
    names.reserve(folders_.size());
    for (Folder& folder : folders_) {
        names.push_back(std::move(folder.name));
    }
    folders_.clear();
    return names;
}

std::vector<std::wstring> CEnumFileMinor::TakeFileNames() {
    return std::exchange(files_, {});
}

void CEnumFileMinor::Clear() {
    parents_.clear();
    folders_.clear();
    files_.clear();
}
