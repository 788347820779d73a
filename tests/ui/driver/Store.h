#pragma once

#include "ProfileFile.h"
#include "RegistryKey.h"

#include <string>

namespace UiDriver {

/// The settings store, emptied when the object is made and when it goes: machine-wide key, user's key, ini
/// file.
class Store {
public:
    /// Fails where somebody's settings may be: a machine for tests has the file TestMachineMark, or the
    /// environment has QLB_ERASE_SETTINGS.
    Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    ~Store();

    /// "Software\Korvo\KORVOQLB" in each hive.
    [[nodiscard]] static RegistryKey Machine();
    [[nodiscard]] static RegistryKey User();
    /// The first of them for programs of the other kind, 32-bit or 64-bit.
    [[nodiscard]] static RegistryKey OtherMachine();

    [[nodiscard]] static ProfileFile Ini();

    /// In the Windows directory.
    [[nodiscard]] static std::wstring TestMachineMark();

    static void Wipe();

    /// All three as text; two dumps are equal when nothing changed.
    [[nodiscard]] static std::wstring Dump();
};

} // namespace UiDriver
