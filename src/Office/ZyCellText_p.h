// SPDX-License-Identifier: BSD-3-Clause
// Values and numbers as markup, for the writers of spreadsheets.
#pragma once

#include "Core/ZyNumberText_p.h"

#include <array>
#include <string>

class ZyVariant;

namespace ZyCellText
{
/** Appends decimal text, or six significant digits of a double. */
template <class Number>
void appendNumber(std::string & markup, Number number)
{
    std::array<char, ZyNumberText::room> text;
    markup.append(text.data(), ZyNumberText::write(text.data(), number));
}

/** Appends the text of ZyVariant::toString, escaped, and makes no string of a number for it. */
void append(std::string & markup, ZyVariant const & value);
} // namespace ZyCellText
