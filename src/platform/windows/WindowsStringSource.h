#pragma once

#include "platform/StringSource.h"

class WindowsStringSource final : public StringSource {
public:
    [[nodiscard]] std::wstring Load(int id) const override;
};
