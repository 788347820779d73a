#pragma once

#include "exchange/Words.h"
#include "platform/StringSource.h"

/// The dialog's own texts, in the program's language, without the system's string resources: the library that
/// reads those takes longer to load than the rest of the program takes to run.
class TableStrings final : public StringSource {
public:
    explicit TableStrings(Tongue tongue) : tongue_(tongue) {}

    [[nodiscard]] std::wstring Load(int id) const override {
        switch (id) {
#define QLB_STRING(number, english, japanese) \
    case number:                              \
        return tongue_ == Tongue::Japanese ? L##japanese : L##english;
#include "resources/StringTable.inc"
#undef QLB_STRING
        default:
            return {};
        }
    }

private:
    Tongue tongue_;
};
