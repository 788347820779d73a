// How long the settings program takes to show its window, against an empty dialog and against a settings
// dialog that comes with the system, all measured in turn in the same run:
//
//   StartUpBench.exe PROGRAM [/rounds:N] [/arguments:TEXT] [/title:TEXT] [/floor:EMPTYDIALOG]
//
// It tells, it does not judge: slow is no failure.

#include "Measurement.h"

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

struct BenchOptions {
    std::wstring program{};
    std::wstring arguments = L"/k";
    std::wstring title{};
    std::wstring floor{};
    int rounds = 10;
};

std::wstring BesideThisProgram(const wchar_t* name) {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1) + name;
}

bool Take(std::wstring_view argument, std::wstring_view prefix, std::wstring& value) {
    if (argument.substr(0, prefix.size()) != prefix) {
        return false;
    }
    value = argument.substr(prefix.size());
    return true;
}

std::optional<BenchOptions> ReadArguments(int count, wchar_t** arguments) {
    BenchOptions options;
    options.floor = BesideThisProgram(L"EmptyDialog.exe");
    for (int i = 1; i < count; ++i) {
        std::wstring number;
        if (Take(arguments[i], L"/rounds:", number)) {
            options.rounds = static_cast<int>(std::wcstol(number.c_str(), nullptr, 10));
        } else if (!Take(arguments[i], L"/arguments:", options.arguments) &&
                   !Take(arguments[i], L"/title:", options.title) &&
                   !Take(arguments[i], L"/floor:", options.floor)) {
            if (!options.program.empty()) {
                return std::nullopt;
            }
            options.program = arguments[i];
        }
    }
    return options.program.empty() || options.rounds < 1 ? std::nullopt : std::optional(options);
}

std::wstring SystemFile(const wchar_t* name) {
    wchar_t directory[MAX_PATH] = L"";
    GetSystemDirectoryW(directory, MAX_PATH);
    return std::wstring(directory) + L'\\' + name;
}

void PrintSubject(const Subject& subject, double floor) {
    const std::optional<double> median = Median(subject.milliseconds);
    if (median) {
        const auto [least, most] =
            std::minmax_element(subject.milliseconds.begin(), subject.milliseconds.end());
        std::wprintf(L"%-12ls %8.1f %8.1f %8.1f %10.2f %8u\n", subject.label.c_str(), *median, *least, *most,
                     floor > 0 ? *median / floor : 0.0, static_cast<unsigned>(subject.milliseconds.size()));
    }
    if (!subject.failure.empty()) {
        std::wprintf(L"%-12ls %ls\n", subject.label.c_str(), subject.failure.c_str());
    }
}

void PrintShare(const Subject& floor, const Subject& program, const Subject& other) {
    const std::optional<double> least = Median(floor.milliseconds);
    const std::optional<double> ours = Median(program.milliseconds);
    const std::optional<double> theirs = Median(other.milliseconds);
    if (least && ours && theirs && *theirs > *least) {
        std::wprintf(L"(%ls - floor) / (%ls - floor) = %.2f\n", program.label.c_str(), other.label.c_str(),
                     (*ours - *least) / (*theirs - *least));
    }
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    const std::optional<BenchOptions> options = ReadArguments(argc, argv);
    if (!options) {
        std::wprintf(
            L"StartUpBench PROGRAM [/rounds:N] [/arguments:TEXT] [/title:TEXT] [/floor:EMPTYDIALOG]\n");
        return 2;
    }
    Subject floor{L"EmptyDialog", options->floor, L""};
    Subject program{L"QLBUtl", options->program, options->arguments, options->title};
    Subject other{L"winecfg", SystemFile(L"winecfg.exe"), L""};
    for (int round = 0; round < options->rounds; ++round) {
        for (Subject* const subject : std::array{&floor, &program, &other}) {
            MeasureOnce(*subject);
        }
    }

    std::wprintf(L"milliseconds until visible, idle and answering, %d rounds in turn\n", options->rounds);
    std::wprintf(L"%-12ls %8ls %8ls %8ls %10ls %8ls\n", L"program", L"median", L"min", L"max", L"x floor",
                 L"starts");
    const double floorMedian = Median(floor.milliseconds).value_or(0);
    for (const Subject* const subject : std::array<const Subject*, 3>{&floor, &program, &other}) {
        PrintSubject(*subject, floorMedian);
    }
    PrintShare(floor, program, other);
    return 0;
}
