#pragma once

#include <string>

/// The system's printer until the object goes. A shell command gets its output.
class TestPrinter {
public:
    explicit TestPrinter(const std::wstring& command);
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;
    ~TestPrinter();
};
