#pragma once

#include <string>
#include <string_view>

/// One block of the log: lines `key=value`, closed by a line `end`. In a value a backslash, line feed,
/// carriage return and tab are written \\ \n \r \t.
class LogEntry {
public:
    void Add(std::wstring_view key, std::wstring_view value);
    void Add(std::wstring_view key, unsigned long long number);

    /// The whole block, its `end` line included.
    [[nodiscard]] std::wstring Text() const;

private:
    std::wstring lines_;
};
