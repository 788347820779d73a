#include "common/Statistics.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cmath>

double NowMilliseconds() {
    LARGE_INTEGER now{};
    LARGE_INTEGER perSecond{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&perSecond);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

double Quantile(std::vector<double> values, double share) {
    std::sort(values.begin(), values.end());
    const double place = share * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, values.size() - 1);
    return std::lerp(values[below], values[above], place - static_cast<double>(below));
}

double Median(const std::vector<double>& values) {
    return Quantile(values, 0.5);
}

std::vector<double> Ratios(const std::vector<double>& values, const std::vector<double>& floor) {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < std::min(values.size(), floor.size()); ++i) {
        ratios.push_back(values[i] / floor[i]);
    }
    return ratios;
}

double PeakWorkingSet(void* process) {
    constexpr double kBytesPerMegabyte = 1024.0 * 1024.0;
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    K32GetProcessMemoryInfo(process == nullptr ? GetCurrentProcess() : process, &counters, sizeof counters);
    return static_cast<double>(counters.PeakWorkingSetSize) / kBytesPerMegabyte;
}
