#include "browse/FolderLevel.h"

#include "browse/CEnumFileMinor.h"
#include "browse/Paths.h"
#include "platform/NameOrder.h"
#include "settings/StdModule.h"

#include <unordered_map>
#include <utility>

namespace {

using Names = std::vector<std::wstring>;

std::vector<LevelEntry> Sorted(Names names, const NameOrder& order) {
    order.Sort(names);
    std::vector<LevelEntry> entries;
    entries.reserve(names.size());
    for (std::wstring& name : names) {
        entries.push_back({std::move(name), 0});
    }
    return entries;
}

std::vector<LevelEntry> Merged(std::vector<Names> namesOfPlaces, const NameOrder& order) {
    if (namesOfPlaces.size() == 1) {
        return Sorted(std::move(namesOfPlaces.front()), order);
    }
    std::unordered_map<std::wstring, std::size_t> placeOf;
    Names all;
    for (std::size_t place = 0; place < namesOfPlaces.size(); ++place) {
        for (std::wstring& name : namesOfPlaces[place]) {
            if (placeOf.emplace(FoldCase(name), place).second) {
                all.push_back(std::move(name));
            }
        }
    }
    std::vector<LevelEntry> entries = Sorted(std::move(all), order);
    for (LevelEntry& entry : entries) {
        entry.place = placeOf.at(FoldCase(entry.name));
    }
    return entries;
}

} // namespace

FolderLevel ReadFolderLevel(const FileSystem& files, PendingEvents& events, const NameOrder& order,
                            const std::vector<std::wstring>& places) {
    FolderLevel level;
    std::vector<Names> folderNames;
    std::vector<Names> fileNames;
    for (const std::wstring& place : places) {
        level.places.push_back(WithoutTrailingBackslash(place));
        CEnumFileMinor folder(files, events);
        folder.EnumDisk(place);
        folderNames.push_back(folder.TakeDirNames());
        fileNames.push_back(folder.TakeFileNames());
    }
    level.folders = Merged(std::move(folderNames), order);
    level.files = Merged(std::move(fileNames), order);
    return level;
}
