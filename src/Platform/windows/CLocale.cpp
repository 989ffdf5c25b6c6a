// SPDX-License-Identifier: BSD-3-Clause
// The C locale as a locale object of its own.
#include "Platform/CLocale.h"

#include <locale.h>
#include <stdlib.h>

double ZyPlatform::stringToDouble(char const * text, char ** end)
{
    static _locale_t const cLocale = _create_locale(LC_ALL, "C");
    return _strtod_l(text, end, cLocale);
}
