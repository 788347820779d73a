#pragma once

#include "platform/Console.h"

#include <string>

/// Keeps what was said.
class FakeConsole final : public Console {
public:
    std::wstring out;
    std::wstring error;
    bool readerIsGone = false;

    bool Out(std::wstring_view text) override {
        out += text;
        return !readerIsGone;
    }
    void Error(std::wstring_view text) override { error += text; }
};
