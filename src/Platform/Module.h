// SPDX-License-Identifier: BSD-3-Clause
// The program and the libraries that are loaded in this process.
#pragma once

#include <ZyExport.h>

#include <cstdint>

namespace ZyPlatform
{
/** A program or library. Nothing of it is on the heap, which may be locked when a fault is reported. */
struct Module
{
    char file[260] = {};     ///< the last component of its path, cut to fit; empty: no module
    std::uintptr_t base = 0; ///< where it is loaded; 0: no module
};

/** The module whose code or data an address belongs to. Takes nothing from the heap. \threads any */
ZYCORE_EXPORT Module moduleOf(std::uintptr_t address);
} // namespace ZyPlatform
