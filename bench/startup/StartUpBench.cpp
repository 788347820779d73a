// How long the settings program takes until its window can be used, against an empty dialog and against
// programs that come with the system, all measured in turn in the same run:
//
//   StartUpBench.exe PROGRAM... [/rounds:N]
//
// Several programs are builds to be compared. It tells, it does not judge: slow is no failure.

#include "Measurement.h"

#include "common/Comparison.h"
#include "common/Statistics.h"

#include <windows.h>

#include <array>
#include <cstdio>
#include <string_view>

namespace {

std::wstring BesideThisProgram(const wchar_t* name) {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1) + name;
}

std::wstring WindowsFile(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> directory{};
    GetWindowsDirectoryW(directory.data(), MAX_PATH);
    return std::wstring(directory.data()) + L'\\' + name;
}

std::vector<Subject> Subjects(int count, wchar_t** arguments) {
    const std::wstring dialog = BesideThisProgram(L"EmptyDialog.exe");
    std::vector<Subject> subjects{{L"empty dialog", dialog},
                                  {L"our first page's controls, bare", dialog, L"/controls"}};
    for (int i = 1; i < count; ++i) {
        if (!std::wstring_view(arguments[i]).starts_with(L"/rounds:")) {
            subjects.push_back({arguments[i], arguments[i], L"/k"});
        }
    }
    subjects.push_back({L"winecfg (tabs)", WindowsFile(L"system32\\winecfg.exe")});
    subjects.push_back({L"Internet settings (tabs)", WindowsFile(L"system32\\control.exe"), L"inetcpl.cpl"});
    subjects.push_back({L"game controllers (tabs)", WindowsFile(L"system32\\control.exe"), L"joy.cpl"});
    subjects.push_back({L"taskmgr (tabs)", WindowsFile(L"system32\\taskmgr.exe")});
    subjects.push_back({L"regedit", WindowsFile(L"regedit.exe")});
    subjects.push_back({L"notepad", WindowsFile(L"system32\\notepad.exe")});
    return subjects;
}

void Print(const Subject& subject, const Subject& floor) {
    if (subject.milliseconds.empty() || floor.milliseconds.empty()) {
        return;
    }
    const double median = Median(subject.milliseconds);
    constexpr double kLowerQuartile = 0.25;
    constexpr double kUpperQuartile = 0.75;
    const double least = Quantile(subject.milliseconds, 0);
    std::wprintf(L"%-36ls %8.1f %7.1f-%6.1f %8.1f %6.2f %8.1f %6.2f %8.1f\n", subject.label.c_str(), median,
                 Quantile(subject.milliseconds, kLowerQuartile),
                 Quantile(subject.milliseconds, kUpperQuartile), median - Median(floor.milliseconds),
                 Median(Ratios(subject.milliseconds, floor.milliseconds)), least,
                 least / Quantile(floor.milliseconds, 0), Median(subject.peakMegabytes));
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    std::vector<Subject> subjects = Subjects(argc, argv);
    const int rounds = RoundsFrom(argc, argv, 10);
    for (Subject& subject : subjects) {
        MeasureOnce(subject); // warms up
        subject.milliseconds.clear();
    }
    for (int round = 0; round < rounds; ++round) {
        for (Subject& subject : subjects) {
            MeasureOnce(subject);
        }
    }
    std::wprintf(L"%-36ls %8ls %14ls %8ls %6ls %8ls %6ls %8ls\n", L"until usable, in milliseconds", L"median",
                 L"quartiles", L"beyond", L"ratio", L"least", L"ratio", L"peak MB");
    bool failed = false;
    for (const Subject& subject : subjects) {
        Print(subject, subjects.front());
        if (!subject.failure.empty()) {
            std::wprintf(L"%-36ls %ls\n", subject.label.c_str(), subject.failure.c_str());
            failed = failed || &subject == &subjects.front() || subject.arguments == L"/k";
        }
    }
    std::wprintf(L"%d rounds\n", rounds);
    return failed ? 1 : 0;
}
