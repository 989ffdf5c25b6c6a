// SPDX-License-Identifier: BSD-3-Clause
// The C locale as a locale object of its own.
#include "Platform/CLocale.h"

#include <locale.h>
#include <stdlib.h>

double ZyPlatform::stringToDouble(char const * text, char ** end)
{
    static locale_t const cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(text, end, cLocale);
}
