// SPDX-License-Identifier: BSD-3-Clause
// The C library's number reading in the C locale, whatever locale the process has.
#pragma once

namespace ZyPlatform
{
/** strtod in the C locale. */
double stringToDouble(char const * text, char ** end);
} // namespace ZyPlatform
