#pragma once

#include <string>
#include <vector>

/// One program whose start is measured.
struct Subject {
    std::wstring label{};
    std::wstring exePath{};
    std::wstring arguments{};

    std::vector<double> milliseconds{};
    std::vector<double> peakMegabytes{};
    std::wstring failure{};
};

/// Starts the program once and adds the time until it shows a top-level window, waits for input and answers;
/// then closes it. What goes wrong is noted in `failure`, and the subject is not started again.
void MeasureOnce(Subject& subject);
