#include "dialogs/register/ShownPrograms.h"

#include "browse/Paths.h"
#include "dialogs/register/ProgramSources.h"
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

} // namespace

std::wstring ShownProgram(const ButtonSlot& slot, int number, const FileSystem& files) {
    if (!slot.Title(number).empty()) {
        return slot.Title(number);
    }
    const std::wstring& command = slot.AP(number);
    if (command.empty()) {
        return {};
    }
    const std::wstring name = LastPart(command);
    return IsFolder(files, command) ? name : WithoutExtension(name);
}

std::wstring ShownKey(const ButtonSlot& slot, const std::vector<ShortcutKeyRow>& keys) {
    const auto key = std::find_if(keys.begin(), keys.end(), [&](const ShortcutKeyRow& row) {
        return DecimalText(row.keyCode) == slot.AP(1);
    });
    return key == keys.end() ? std::wstring() : key->name;
}

std::wstring ProgramLines(const ButtonSlot& slot, const FileSystem& files,
                          const std::function<std::vector<ShortcutKeyRow>()>& keys) {
    const bool pressesKey = LaunchMethodFromText(slot.Exec) == LaunchMethod::ShortcutKey;
    std::wstring lines;
    for (int number = 1; number <= ProgramCount(slot); ++number) {
        const std::wstring name = pressesKey ? ShownKey(slot, keys()) : ShownProgram(slot, number, files);
        if (!name.empty()) {
            lines += (lines.empty() ? L"" : L"\r\n") + OnOneLine(name);
        }
    }
    return lines;
}
