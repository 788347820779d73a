#include "common/Comparison.h"

#include "common/Statistics.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace {

constexpr double kLowerQuartile = 0.25;
constexpr double kUpperQuartile = 0.75;

} // namespace

void Comparison::Row(const std::string& what, int size, const Timed& floor, const Timed& ours) {
    std::vector<double> floorTimes;
    std::vector<double> ourTimes;
    for (int round = -1; round < rounds_; ++round) {
        const bool floorFirst = round % 2 == 0; // whoever comes second may find things warm
        std::optional<double> floorTime;
        if (floorFirst) {
            floorTime = floor();
        }
        const std::optional<double> ourTime = ours();
        if (!floorFirst) {
            floorTime = floor();
        }
        if (!floorTime || !ourTime) {
            std::printf("%-36s %7d  went wrong in the %s\n", what.c_str(), size,
                        ourTime ? "floor" : "program");
            std::fflush(stdout);
            failed_ = true;
            return;
        }
        if (round >= 0) { // the first one only warms up
            floorTimes.push_back(*floorTime);
            ourTimes.push_back(*ourTime);
        }
    }
    if (last_.empty()) {
        std::printf("%-36s %7s %9s %9s %9s %6s %11s  %s\n", "medians, in milliseconds", "size", "floor",
                    "ours", "beyond", "ratio", "quartiles", "growth");
    }
    const std::vector<double> ratios = Ratios(ourTimes, floorTimes);
    const double median = Median(ourTimes);
    std::printf("%-36s %7s %9.2f %9.2f %9.2f %6.2f %5.2f-%5.2f", what.c_str(),
                size == 0 ? "" : std::to_string(size).c_str(), Median(floorTimes), median,
                median - Median(floorTimes), Median(ratios), Quantile(ratios, kLowerQuartile),
                Quantile(ratios, kUpperQuartile));
    Measured& last = last_[what];
    if (last.size > 0) {
        std::printf("  x%.1f for x%.1f", median / last.ours, static_cast<double>(size) / last.size);
    }
    std::printf("\n");
    std::fflush(stdout);
    last = {size, median};
}

int Comparison::Finish() const {
    std::printf("%d rounds; peak working set of this benchmark: %.1f MB\n", rounds_, PeakWorkingSet(nullptr));
    return failed_ ? EXIT_FAILURE : EXIT_SUCCESS;
}

int RoundsFrom(int count, wchar_t** arguments, int fallback) {
    constexpr std::wstring_view kPrefix = L"/rounds:";
    for (int i = 1; i < count; ++i) {
        const std::wstring_view argument = arguments[i];
        if (argument.starts_with(kPrefix)) {
            return std::max(1, static_cast<int>(std::wcstol(arguments[i] + kPrefix.size(), nullptr, 10)));
        }
    }
    return fallback;
}
