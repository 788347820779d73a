#pragma once

#include <vector>

/// Since some moment in the past.
double NowMilliseconds();

/// The value that `share` (0...1) of all values lie below. There must be one.
double Quantile(std::vector<double> values, double share);

double Median(const std::vector<double>& values);

/// Each value divided by the one measured in the same round.
std::vector<double> Ratios(const std::vector<double>& values, const std::vector<double>& floor);

/// The most memory that a process has held at once, in MB; of this one when it is null.
double PeakWorkingSet(void* process);
