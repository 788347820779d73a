#pragma once

#include <optional>
#include <string>
#include <vector>

/// One program whose start is measured.
struct Subject {
    std::wstring label{};
    std::wstring exePath{};
    std::wstring arguments{};

    /// Empty: the first visible top-level window of the process, whatever its title.
    std::wstring title{};

    std::vector<double> milliseconds{};
    std::wstring failure{};
};

/// Starts the program once and adds the time until its window is visible, the process waits for input and the
/// window answers; then closes it. What goes wrong is noted in `failure`, and the subject is not started
/// again.
void MeasureOnce(Subject& subject);

/// nullopt of nothing.
std::optional<double> Median(std::vector<double> values);
