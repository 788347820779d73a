#include "browse/FolderLevel.h"

#include "browse/CEnumFileMinor.h"
#include "browse/Paths.h"
#include "platform/NameOrder.h"
#include "platform/PendingEvents.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <set>

namespace {

using Entries = std::vector<LevelEntry>;

void KeepFirstOfEachName(Entries& entries) {
    std::set<std::wstring, LessIgnoreCase> names;
    std::erase_if(entries, [&](const LevelEntry& entry) { return !names.insert(entry.name).second; });
}

/// By keys that are made while events go on: comparing the names themselves would take much longer, at once.
bool Sort(Entries& entries, const NameOrder& order, PendingEvents& events) {
    std::size_t made = 0;
    for (LevelEntry& entry : entries) {
        entry.sortKey = order.SortKey(entry.name);
        if (++made % CEnumFileMinor::kEntriesAtOnce == 0 && !events.Process()) {
            return false;
        }
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const LevelEntry& a, const LevelEntry& b) { return a.sortKey < b.sortKey; });
    return true;
}

} // namespace

std::optional<FolderLevel> ReadFolderLevel(const FileSystem& files, PendingEvents& events,
                                           const NameOrder& order, const std::vector<std::wstring>& places) {
    FolderLevel level;
    for (const std::wstring& path : places) {
        const std::size_t place = level.places.size();
        level.places.push_back(WithoutTrailingBackslash(path));
        CEnumFileMinor folder(files, events);
        folder.EnumDisk(path);
        for (std::int32_t i = 0; i < folder.GetDirCount(); ++i) {
            level.folders.push_back({{}, folder.GetDirName(i), place});
        }
        for (std::int32_t i = 0; i < folder.GetFileCount(); ++i) {
            level.files.push_back({{}, folder.GetFileName(i), place});
        }
    }
    for (Entries* entries : {&level.folders, &level.files}) {
        if (places.size() > 1) {
            KeepFirstOfEachName(*entries);
        }
        if (!Sort(*entries, order, events)) {
            return std::nullopt;
        }
    }
    return events.Process() ? std::optional(std::move(level)) : std::nullopt;
}
