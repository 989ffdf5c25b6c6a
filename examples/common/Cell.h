// SPDX-License-Identifier: BSD-3-Clause
// What this program needs to know of one value of a table.
#pragma once

#include <ZyString.h>
#include <ZyVariant.h>

/** What a value is to this program. Kinds that no text can bring count by their texts. */
enum class CellKind { Empty, Integer, Decimal, Text };

CellKind kindOf(ZyVariant const & value);

/** The value as text from which the same value can be read again; the library's own text of a number is
 * rounded. */
ZyString exactText(ZyVariant const & value);

/** Whether the library's text of the value, which is what a sheet shows, has fewer digits than the value. */
bool isRounded(ZyVariant const & value);

/** The same kind of value, and the same value to the last letter and digit. */
bool isIdentical(ZyVariant const & a, ZyVariant const & b);

/** Numbers by value, whatever kind they are; texts letter for letter. */
bool isSame(ZyVariant const & a, ZyVariant const & b);

/** The order of sorting: numbers by value, then texts without regard to case, then what is empty. */
bool isLess(ZyVariant const & a, ZyVariant const & b);
