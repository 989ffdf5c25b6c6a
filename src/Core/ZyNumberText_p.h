// SPDX-License-Identifier: BSD-3-Clause
// Numbers as text and back, always as in the C locale: an application object of the user interface may switch
// the locale of the C library, which must not reach our files.
#pragma once

#include <cstddef>
#include <string_view>

namespace ZyNumberText
{
/** Room enough for every text that write() makes. */
constexpr std::size_t room = 32;

// Each writes the text at `to`, without a NUL, and returns its end.
char * write(char * to, int number);
char * write(char * to, unsigned int number);
char * write(char * to, long long number);
char * write(char * to, double number); ///< as "%g": six significant digits

/** What atoi gives, clamped to 32 bits. */
int toInt(std::string_view text);

/** What atof gives for the C text at the front of \a text. */
double toDouble(std::string_view text);

/** Whether the text is the canonical decimal form of a 32-bit integer: no blanks, plus sign or leading zeros.
 */
bool isInteger(std::string_view text, int & number);

/** Whether strtod would read the whole text, up to a first NUL, as one number; blanks behind it are not
 * allowed. */
bool isDouble(std::string_view text, double & number);
} // namespace ZyNumberText
