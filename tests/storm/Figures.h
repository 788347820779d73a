#pragma once

#include "driver/Driver.h"

#include <cstddef>
#include <iosfwd>
#include <optional>

/// What a program holds of the system at one moment.
struct Figures {
    std::size_t windows = 0;       ///< hidden ones and those inside others too
    std::size_t gdiObjects = 0;    ///< fonts, brushes, bitmaps, regions ...
    std::size_t kernelHandles = 0; ///< files, registry keys, threads, events ...
    std::size_t privateBytes = 0;

    static Figures Of(const UiDriver::Process& process);
    /// Windows and handles of all processes.
    static Figures OfSystem();

    friend std::ostream& operator<<(std::ostream& out, const Figures& each);
};
