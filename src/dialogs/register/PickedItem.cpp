#include "dialogs/register/PickedItem.h"

#include "browse/Paths.h"
#include "platform/FileSystem.h"
#include "settings/StdModule.h"

std::optional<PickedItem> PickedRow(const ProgramSources& sources, ProgramSource list, std::size_t row) {
    if (list == ProgramSource::MediaCenter) {
        if (row >= sources.MediaCenterTable().size()) {
            return std::nullopt;
        }
        const MediaCenterRow& item = sources.MediaCenterTable()[row];
        return PickedItem{list, item.commandLine, item.title, item.displayName};
    }
    if (row >= sources.ShortcutKeys().size()) {
        return std::nullopt;
    }
    const ShortcutKeyRow& key = sources.ShortcutKeys()[row];
    return PickedItem{list, DecimalText(key.keyCode), key.name};
}

PickedItem PickedPath(const std::wstring& path) {
    const std::wstring key = WithoutTrailingBackslash(path);
    return {ProgramSource::AllFiles, key, LastPart(key)};
}

bool IsFavorite(const PickedItem& item) {
    return item.source == ProgramSource::IeFavorites && EndsInUrl(item.command);
}

bool IsProgram(const PickedItem& item) {
    switch (item.source) {
    case ProgramSource::IeFavorites:
        return IsFavorite(item);
    case ProgramSource::AllFiles:
        return !item.root;
    default:
        return true;
    }
}

ProgramEntry ProgramOf(const PickedItem& item, const PickedItemServices& services) {
    if (IsFavorite(item)) {
        const std::wstring address = services.addressOf(item.command);
        return {L"iexplore.exe|" + address, address, item.name};
    }
    return {item.command, {}, item.source == ProgramSource::MediaCenter ? item.name : std::wstring()};
}

std::wstring NameOf(const PickedItem& item, const FileSystem& files) {
    const bool whole = IsList(item.source) || IsFavorite(item) || IsFolder(files, item.command);
    return whole ? item.name : WithoutExtension(item.name);
}
