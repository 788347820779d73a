#pragma once

#include "platform/Console.h"

class WindowsConsole final : public Console {
public:
    bool Out(std::wstring_view text) override;
    void Error(std::wstring_view text) override;
};
