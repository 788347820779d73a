#pragma once

#include "exchange/Words.h"
#include "platform/StringSource.h"

/// The dialog's own texts, in the program's language, without the system's string resources: the library that
/// reads those takes longer to load than the rest of the program takes to run.
class TableStrings final : public StringSource {
public:
    explicit TableStrings(Tongue tongue) : tongue_(tongue) {}

    [[nodiscard]] std::wstring Load(int id) const override;

private:
    Tongue tongue_;
};
