// SPDX-License-Identifier: BSD-3-Clause
// What only the system knows of terminals, limits and screens.
#include "Terminal.h"

#include <cstdio>

#include <io.h>

bool errorsGoToTerminal()
{
    return _isatty(_fileno(stderr)) != 0;
}

// Writes fail gently here.
void makeWritesFailGently() {}

// Painting needs no screen here.
ScreenlessPainting::ScreenlessPainting() = default;
