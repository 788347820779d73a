#include "LauncherUse.h"

#include <sstream>

using UiDriver::FromUtf8;
using UiDriver::Process;

namespace {

constexpr UINT kReload = 1336;
constexpr UINT kPress = 1332;

std::wstring TempFolder() {
    wchar_t path[MAX_PATH + 1] = L"";
    GetTempPathW(MAX_PATH, path);
    return path;
}

std::vector<std::wstring> FilesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
                names.emplace_back(found.cFileName);
            }
        } while (FindNextFileW(search, &found) != FALSE);
        FindClose(search);
    }
    return names;
}

std::wstring BackupFolder() {
    wchar_t path[MAX_PATH + 1] = L"";
    GetEnvironmentVariableW(L"LOCALAPPDATA", path, MAX_PATH);
    return path + std::wstring(L"\\QLBUtl\\Backups");
}

/// False while a program in it runs.
bool RemoveFolder(const std::wstring& folder) {
    for (const std::wstring& name : FilesIn(folder)) {
        DeleteFileW((folder + L'\\' + name).c_str());
    }
    return RemoveDirectoryW(folder.c_str()) != FALSE || GetLastError() == ERROR_FILE_NOT_FOUND;
}

} // namespace

LauncherUse::LauncherUse() : folder_(TempFolder() + Local(L"Pröbe folder", L"試験 フォルダー")) {
    CreateDirectoryW(folder_.c_str(), nullptr);
    UiDriver::RemoveFile(LogFile());
    RemoveFolder(BackupFolder());
    Machine().SetDword(L"QLBB", 1);
    Machine().SetDword(L"NTNumAPBtn", 3);
    User().SetDword(L"CurrSetting", 1);
    User().SetDword(L"NumSetting", 1);
    User().Sub(L"OnScreen").SetDword(L"OnScreen", 0);
    pattern_.name = Local(L"Café", L"家庭");
    for (StoredButton& button : pattern_.buttons) {
        button = {L" ", L"M", 0, {}, {}};
    }
    WritePattern(User().Sub(L"Setting\\Set1"), pattern_);
}

LauncherUse::~LauncherUse() {
    End();
    RemoveFolder(BackupFolder());
    try {
        CloseProbes();
        UiDriver::WaitUntil([&] { return RemoveFolder(folder_); }, L"all probe programs to end");
        UiDriver::RemoveFile(LogFile());
    } catch (const std::exception& failure) {
        ADD_FAILURE() << failure.what();
    }
}

void LauncherUse::Start(const std::wstring& arguments) {
    program_.emplace(Process::Start(UiDriver::OnDriveZ(QLB_OWN_LAUNCHER_PATH), arguments));
    UiDriver::WindowQuery query;
    query.processId = program_->Id();
    query.className = L"KORVOQLBCLASS";
    query.onlyVisible = false;
    window_ = UiDriver::WaitForWindow(query).Hwnd();
    // It looks for messages when it has done all else of its start.
    program_->WaitForInputIdle();
    Window().WaitUntilAnswers();
}

void LauncherUse::End() {
    program_.reset();
}

void LauncherUse::SetButton(int number, const StoredButton& button) {
    pattern_.Button(number) = button;
    WritePattern(User().Sub(L"Setting\\Set1"), pattern_);
    if (program_) {
        Reload();
    }
}

void LauncherUse::Reload() const {
    SendMessageW(window_, kReload, 1, 0);
}

void LauncherUse::Request(int button) const {
    PostMessageW(window_, kPress, button == 8 ? 84 : static_cast<WPARAM>(103 + button), 0);
    Window().WaitUntilAnswers();
}

std::wstring LauncherUse::Probe(const std::wstring& name) const {
    const std::wstring path = folder_ + L'\\' + name;
    if (!CopyFileW(UiDriver::OnDriveZ(QLB_PROBE_PATH).c_str(), path.c_str(), FALSE)) {
        UiDriver::FailLastError(L"copying the probe program");
    }
    return path;
}

StoredButton LauncherUse::Single(const std::wstring& parameters) const {
    return {
        Local(L"Prôbe", L"試験"), L"M", 1, {Probe() + (parameters.empty() ? L"" : L"|" + parameters)}, {}};
}

std::wstring LauncherUse::LogFile() {
    return TempFolder() + L"qlbprobe.log";
}

std::vector<ProbeReport> LauncherUse::Reports(const std::wstring& event) {
    std::vector<ProbeReport> reports;
    std::wistringstream lines(FromUtf8(UiDriver::ReadBytes(LogFile()).value_or("")));
    for (std::wstring line; std::getline(lines, line);) {
        std::wistringstream fields(line);
        ProbeReport report;
        std::wstring time;
        std::getline(fields, report.event, L'\t');
        std::getline(fields, report.file, L'\t');
        std::getline(fields, report.commandLine, L'\t');
        std::getline(fields, report.directory, L'\t');
        std::getline(fields, time, L'\t');
        report.time = std::stoll(time.empty() ? L"0" : time);
        if (report.event == event) {
            reports.push_back(report);
        }
    }
    return reports;
}

std::vector<ProbeReport> LauncherUse::AwaitReports(std::size_t count, const std::wstring& event) {
    UiDriver::WaitUntil([&] { return Reports(event).size() >= count; },
                        std::to_wstring(count) + L" probe programs to report " + event);
    return Reports(event);
}

std::vector<std::wstring> LauncherUse::CommandLines(const std::vector<ProbeReport>& reports) {
    std::vector<std::wstring> lines;
    for (const ProbeReport& report : reports) {
        lines.push_back(report.commandLine);
    }
    return lines;
}

UiDriver::Window LauncherUse::AwaitProbeWindow(const std::wstring& parameters) {
    UiDriver::WindowQuery query;
    query.className = L"QLBProbe";
    query.title = parameters;
    // On a busy machine each program of a sequence may have its 20 s.
    constexpr UiDriver::Milliseconds kLongestSequence{110'000};
    return UiDriver::WaitForWindow(query, kLongestSequence);
}

void LauncherUse::CloseProbes() {
    UiDriver::WindowQuery query;
    query.className = L"QLBProbe";
    for (const UiDriver::Window& window : UiDriver::FindWindows(query)) {
        PostMessageW(window.Hwnd(), WM_CLOSE, 0, 0);
    }
    UiDriver::WaitForNoWindow(query);
}

std::vector<std::wstring> LauncherUse::Backups() {
    return FilesIn(BackupFolder());
}

UiDriver::PopupMenu LauncherUse::OpenMenu() const {
    // As the taskbar reports the menu key or a right click.
    PostMessageW(window_, WM_APP + 1, MAKEWPARAM(400, 300), MAKELPARAM(WM_CONTEXTMENU, 1));
    return UiDriver::PopupMenu::Wait(*program_);
}
