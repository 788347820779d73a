#pragma once

#include <atomic>
#include <string>
#include <vector>

/// Another start of the program: waits for the signal NAME.Go, asks the instance guard, and keeps its claim.
inline constexpr const wchar_t* kInstanceRole = L"instance";

/// Shared by the name NAME.
struct InstanceReport {
    std::atomic<int> ready;
    std::atomic<int> asked;
    std::atomic<int> first; ///< how many were told that no other instance runs
};

/// Argument: NAME.
int PlayInstance(const std::vector<std::wstring>& arguments);
