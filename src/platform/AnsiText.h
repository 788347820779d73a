#pragma once

#include <string>
#include <string_view>

/// The system's ANSI code page (GetACP): 932 on a Japanese system, 1252 on a Western one.
class AnsiText {
public:
    virtual ~AnsiText() = default;

    /// Characters that the code page lacks become its default character ("?").
    [[nodiscard]] virtual std::string Encode(std::wstring_view text) const = 0;
    [[nodiscard]] virtual std::wstring Decode(std::string_view bytes) const = 0;
};
