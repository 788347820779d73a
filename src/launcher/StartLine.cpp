#include "launcher/StartLine.h"

#include "browse/Paths.h"
#include "platform/FileSystem.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr wchar_t kQuote = L'"';

bool IsFullPath(const std::wstring& file) {
    return file.starts_with(L"\\\\") || (file.size() > 2 && file[1] == L':' && file[2] == L'\\');
}

bool EndsWithIgnoreCase(const std::wstring& text, std::wstring_view end) {
    return text.size() >= end.size() && EqualsIgnoreCase(text.substr(text.size() - end.size()), end);
}

std::wstring FolderOf(const std::wstring& file) {
    const std::size_t separator = file.rfind(L'\\');
    if (separator == std::wstring::npos) {
        return {};
    }
    constexpr std::size_t kRootSeparator = 2; // of "C:\"
    return file.substr(0, separator == kRootSeparator ? separator + 1 : separator);
}

std::wstring Joined(const std::wstring& first, const std::wstring& second) {
    return first.empty() || second.empty() ? first + second : first + L' ' + second;
}

/// Where a program's file name ends in a line that has its parameters behind it, as those of the Media Center
/// menu have; nothing when there are none.
std::size_t EndOfProgram(const std::wstring& line) {
    for (const std::wstring_view end : {L".exe ", L".com ", L".bat ", L".cmd "}) {
        if (const std::size_t pos = FindIgnoreCase(line, end); pos != std::wstring_view::npos) {
            return pos + end.size() - 1;
        }
    }
    return std::wstring::npos;
}

/// Takes a command apart that has its parameters in the same line.
void TakeApart(StartRequest& request, const FileSystem& files) {
    std::wstring& file = request.file;
    std::size_t end = std::wstring::npos;
    std::size_t begin = 0;
    if (file.starts_with(kQuote)) {
        begin = 1;
        end = std::min(file.find(kQuote, begin), file.size());
    } else if (EndOfProgram(file) == std::wstring::npos ||
               files.Attributes(file) != kAttributesUnknown) { // a folder may be called "old.exe files"
        return;
    } else {
        end = EndOfProgram(file);
    }
    const std::wstring behind = end < file.size() ? TrimBlanks(file.substr(end + 1)) : std::wstring();
    request.parameters = Joined(behind, request.parameters);
    file = file.substr(begin, end - begin);
}

/// "iexplore.exe|address" of a favourite: the address alone, where that browser is gone.
void ReplaceLostBrowser(StartRequest& request, const ProgramStarter& starter) {
    if (!EqualsIgnoreCase(LastPart(request.file), L"iexplore.exe") || request.parameters.empty()) {
        return;
    }
    if (starter.Locate(request.file).empty()) {
        request = {.file = request.parameters};
    }
}

void FollowShortcut(StartRequest& request, const ShortcutContent& shortcut, const FileSystem& files) {
    request.directory = shortcut.directory.empty() ? FolderOf(shortcut.target) : shortcut.directory;
    if (shortcut.target.empty() || shortcut.elevated ||
        files.Attributes(shortcut.target) == kAttributesUnknown) {
        return;
    }
    request.file = shortcut.target;
    request.parameters = Joined(shortcut.arguments, request.parameters);
    request.minimized = shortcut.minimized;
    request.maximized = shortcut.maximized;
}

} // namespace

StartRequest RequestFor(const ProgramEntry& program, const ProgramStarter& starter, const FileSystem& files) {
    StartRequest request{.file = TrimBlanks(program.AP), .parameters = TrimBlanks(program.Param)};
    if (request.file.starts_with(L'%') || request.file.starts_with(L"\"%")) {
        request.file = starter.Expand(request.file);
    }
    TakeApart(request, files);
    ReplaceLostBrowser(request, starter);
    const bool mayBeShortcut = EndsWithIgnoreCase(request.file, L".lnk");
    if (const auto shortcut = mayBeShortcut ? starter.ReadShortcut(request.file) : std::nullopt) {
        FollowShortcut(request, *shortcut, files);
    } else {
        request.directory = FolderOf(IsFullPath(request.file) ? request.file : starter.Locate(request.file));
    }
    return request;
}

std::vector<ProgramEntry> StartedPrograms(const ButtonSlot& slot) {
    const LaunchMethod method = LaunchMethodFromText(slot.Exec);
    if (method == LaunchMethod::ShortcutKey) {
        return {};
    }
    const bool several = method == LaunchMethod::Sequential || method == LaunchMethod::Simultaneous;
    const int count = std::clamp<int>(slot.NumAP, 0, several ? kMaxPrograms : 1);
    std::vector<ProgramEntry> programs;
    for (int place = 1; place <= count; ++place) {
        if (!TrimBlanks(slot.Program(place).AP).empty()) {
            programs.push_back(slot.Program(place));
        }
    }
    return programs;
}

bool StartsAnything(const ButtonSlot& slot) {
    if (LaunchMethodFromText(slot.Exec) == LaunchMethod::ShortcutKey) {
        return slot.NumAP > 0 && (LeadingNumber(slot.Program(1).AP) & 0xFF) != 0;
    }
    return !StartedPrograms(slot).empty();
}
