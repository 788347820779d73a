#pragma once

#include "platform/AnsiText.h"

/// The one place where text crosses between UTF-16 and the ANSI code page (CP_ACP).
[[nodiscard]] std::string ToAnsi(std::wstring_view text);
[[nodiscard]] std::wstring FromAnsi(std::string_view bytes);

class WindowsAnsiText final : public AnsiText {
public:
    [[nodiscard]] std::string Encode(std::wstring_view text) const override { return ToAnsi(text); }
    [[nodiscard]] std::wstring Decode(std::string_view bytes) const override { return FromAnsi(bytes); }
};
