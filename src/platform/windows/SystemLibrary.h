#pragma once

#include <windows.h>

#include <bit>

/// A procedure of a system library that not every run needs, or not every Windows has: loaded at the first
/// call instead of at every start. Null when the library or the procedure is missing.
template <class Procedure> Procedure* SystemProcedure(const wchar_t* library, const char* name) {
    // Never freed: the library stays for the rest of the run, as a linked one would.
    const HMODULE module = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return module == nullptr ? nullptr : std::bit_cast<Procedure*>(GetProcAddress(module, name));
}
