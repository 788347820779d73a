#pragma once

#include "ProfileFile.h"
#include "RegistryKey.h"

#include <string>

namespace UiDriver {

/// The settings store, emptied when the object is made and when it goes: machine-wide key, user's key, ini
/// file.
class Store {
public:
    Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    ~Store();

    /// "Software\Korvo\KORVOQLB" in each hive.
    [[nodiscard]] static RegistryKey Machine();
    [[nodiscard]] static RegistryKey User();

    [[nodiscard]] static ProfileFile Ini();

    static void Wipe();

    /// All three as text; two dumps are equal when nothing changed.
    [[nodiscard]] static std::wstring Dump();
};

} // namespace UiDriver
