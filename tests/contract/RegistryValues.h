#pragma once

#include "platform/Registry.h"

#include <gtest/gtest.h>

/// What a failed test shows of a value: of a long one only the start.
inline void PrintTo(const RegistryValue& value, std::ostream* out) {
    *out << "type " << value.type << ", " << value.bytes.size() << " bytes "
         << testing::PrintToString(value.bytes.substr(0, 64));
}
