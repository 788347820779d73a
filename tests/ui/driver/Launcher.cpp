#include "Launcher.h"

#include "Message.h"
#include "TextFile.h"
#include "Window.h"

#include <algorithm>
#include <exception>

namespace UiDriver {
namespace {

std::wstring NewLogPath() {
    wchar_t folder[MAX_PATH + 1] = L"";
    wchar_t path[MAX_PATH + 1] = L"";
    if (GetTempPathW(MAX_PATH, folder) == 0 || GetTempFileNameW(folder, L"qlb", 0, path) == 0) {
        FailLastError(L"making a log file for the launcher");
    }
    return path;
}

std::wstring Unescape(const std::wstring& text) {
    std::wstring plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != L'\\' || i + 1 == text.size()) {
            plain += text[i];
            continue;
        }
        ++i;
        switch (text[i]) {
        case L'n':
            plain += L'\n';
            break;
        case L'r':
            plain += L'\r';
            break;
        case L't':
            plain += L'\t';
            break;
        default:
            plain += text[i];
        }
    }
    return plain;
}

unsigned long RequireNumber(const LauncherEntry& entry, const std::wstring& key) {
    const std::optional<std::wstring> text = entry.Value(key);
    wchar_t* end = nullptr;
    const unsigned long number = text ? wcstoul(text->c_str(), &end, 10) : 0;
    if (!text || text->empty() || *end != L'\0') {
        Fail(L"an entry of the launcher's log has no number under " + key);
    }
    return number;
}

} // namespace

UINT LauncherEntry::Message() const {
    return RequireNumber(*this, L"message");
}

WPARAM LauncherEntry::WParam() const {
    return RequireNumber(*this, L"wParam");
}

bool LauncherEntry::Sent() const {
    return Value(L"how") == L"sent";
}

std::optional<std::wstring> LauncherEntry::Value(const std::wstring& key) const {
    const auto found = values.find(key);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

Launcher::Launcher(const std::wstring& exePath, const std::wstring& options)
    : logPath_(NewLogPath()), process_(Process::Start(exePath, L"/log:\"" + logPath_ + L"\" " + options)) {
    const bool vistacast = options.find(L"/vistacast") != std::wstring::npos;
    WindowQuery query;
    query.processId = process_.Id();
    query.className = vistacast ? L"Korvo Vistacast MainWnd Class" : L"KORVOQLBCLASS";
    query.onlyVisible = false;
    window_ = WaitForWindow(query).Hwnd();
}

Launcher::~Launcher() {
    try {
        process_.Kill();
        RemoveFile(logPath_);
    } catch (const std::exception&) {
        // What stays behind is one file in the temporary folder.
    }
}

std::vector<LauncherEntry> Launcher::AllEntries() const {
    return ParseLauncherLog(ReadBytes(logPath_).value_or(std::string()));
}

std::vector<LauncherEntry> Launcher::Entries() const {
    std::vector<LauncherEntry> entries = AllEntries();
    const auto skip = static_cast<std::ptrdiff_t>(std::min(forgotten_, entries.size()));
    entries.erase(entries.begin(), entries.begin() + skip);
    return entries;
}

std::vector<LauncherEntry> Launcher::WaitForEntries(std::size_t count, Milliseconds timeout) const {
    std::vector<LauncherEntry> entries;
    const auto enough = [&] {
        entries = Entries();
        return entries.size() >= count;
    };
    WaitUntil(enough, std::to_wstring(count) + L" messages to the launcher", timeout);
    return entries;
}

void Launcher::RequireEntries(std::size_t count) const {
    // Its window's own messages, which it handles after all that was posted before.
    constexpr UINT kMark = WM_APP;
    constexpr UINT kAskForMark = WM_APP + 1;
    PostMessageW(window_, kMark, ++marks_, 0);
    WaitUntil([&] { return static_cast<WPARAM>(Send(window_, kAskForMark)) == marks_; },
              L"the launcher to handle its messages");
    const std::vector<LauncherEntry> entries = Entries();
    if (entries.size() != count) {
        const std::wstring last = entries.empty() ? L"none" : std::to_wstring(entries.back().Message());
        Fail(L"the launcher got " + std::to_wstring(entries.size()) + L" messages, the last one " + last +
             L", not " + std::to_wstring(count));
    }
}

void Launcher::Clear() {
    forgotten_ = AllEntries().size();
}

std::vector<LauncherEntry> ParseLauncherLog(const std::string& utf8) {
    std::vector<LauncherEntry> entries;
    LauncherEntry current;
    std::size_t start = 0;
    for (std::size_t stop = utf8.find('\n'); stop != std::string::npos; stop = utf8.find('\n', start)) {
        const std::wstring line = FromUtf8(std::string_view(utf8).substr(start, stop - start));
        start = stop + 1;
        if (line == L"end") {
            entries.push_back(std::exchange(current, LauncherEntry{}));
            continue;
        }
        const std::size_t equals = line.find(L'=');
        if (equals == std::wstring::npos) {
            Fail(L"the launcher's log has a line that is none: " + line);
        }
        current.values[line.substr(0, equals)] = Unescape(line.substr(equals + 1));
    }
    return entries;
}

} // namespace UiDriver
