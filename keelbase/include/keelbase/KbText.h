// SPDX-License-Identifier: BSD-3-Clause
// Text work of the suite: splitting, numbers.
#pragma once

#include <keelbase/YContainers.h>
#include <keelbase/YString.h>

/**
 * Splits a text at every \a separator. Empty pieces count, so that "a:" has two and "" has one; nothing is
 * trimmed and quotes mean nothing.
 *
 * \param pieces replaced by the pieces
 * \return their number
 */
KB_API int sp_ScanLine(YString const & text, char separator, YVector<YString> & pieces);

/**
 * The number at the start of a text in decimal, after white space and a sign; 0 when there are no digits or
 * the text is null. Beyond 64 bits it is the nearest number that fits.
 */
KB_API kb_int64 sp_atoi64(char const * text);

/**
 * A number for people, in engineering notation: a mantissa from 1 up to below 1000 without trailing zeros,
 * and "e" with an exponent that is a multiple of three, left out when it is 0: "4.7e-9", "100e-3", "1e3",
 * "22.05e3". Zero of either sign is "0"; the others are "NaN", "Infinity", "-Infinity". No locale matters.
 *
 * \param digits significant digits, from 1 to 17; what lies outside is taken as the nearer of them
 * \param exponent without a meaning here: the exponent is always a number
 */
KB_API YString sp_ConvertRealToJSEng(double value, int digits, bool exponent);
