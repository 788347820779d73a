#include "dialogs/register/ShownPrograms.h"

#include "browse/Paths.h"
#include "dialogs/register/ProgramSources.h"
#include "platform/Drives.h"
#include "platform/FileSystem.h"
#include "settings/StdModule.h"

#include <algorithm>

namespace {

/// A tip has room for so many characters of a name.
constexpr std::size_t kLongestLine = 80;

std::wstring OnOneLine(std::wstring name) {
    std::replace_if(
        name.begin(), name.end(), [](wchar_t c) { return c < L' '; }, L' ');
    if (name.size() > kLongestLine) {
        name.resize(kLongestLine - 1);
        name += L'…';
    }
    return name;
}

int ProgramCount(const ButtonSlot& slot) {
    switch (LaunchMethodFromText(slot.Exec)) {
    case LaunchMethod::Sequential:
    case LaunchMethod::Simultaneous:
        return std::clamp<int>(slot.NumAP, 0, kMaxPrograms);
    default:
        return slot.NumAP > 0 ? 1 : 0;
    }
}

/// A path on a network may take half a minute to answer.
bool IsOnOwnDrive(const std::wstring& path, const Drives& drives) {
    return path.size() > 1 && path[1] == L':' && drives.Type({path[0], L':', L'\\'}) != kDriveRemote;
}

} // namespace

std::wstring ShownProgram(const ButtonSlot& slot, int number,
                          const std::function<bool(const std::wstring&)>& isFolder) {
    if (!slot.Program(number).Title.empty()) {
        return slot.Program(number).Title;
    }
    const std::wstring& command = slot.Program(number).AP;
    if (command.empty()) {
        return {};
    }
    const std::wstring name = LastPart(command);
    return isFolder(command) ? name : WithoutExtension(name);
}

std::wstring ShownKey(const ButtonSlot& slot, const std::vector<ShortcutKeyRow>& keys) {
    const auto key = std::find_if(keys.begin(), keys.end(), [&](const ShortcutKeyRow& row) {
        return DecimalText(row.keyCode) == slot.Program(1).AP;
    });
    return key == keys.end() ? std::wstring() : key->name;
}

std::wstring ProgramLines(const ButtonSlot& slot, const FileSystem& files, const Drives& drives,
                          const std::function<std::vector<ShortcutKeyRow>()>& keys) {
    const bool pressesKey = LaunchMethodFromText(slot.Exec) == LaunchMethod::ShortcutKey;
    const auto isFolder = [&](const std::wstring& path) {
        return !IsOnOwnDrive(path, drives) || IsFolder(files, path);
    };
    std::wstring lines;
    for (int number = 1; number <= ProgramCount(slot); ++number) {
        const std::wstring name = pressesKey ? ShownKey(slot, keys()) : ShownProgram(slot, number, isFolder);
        if (!name.empty()) {
            lines += (lines.empty() ? L"" : L"\r\n") + OnOneLine(name);
        }
    }
    return lines;
}
