// SPDX-License-Identifier: BSD-3-Clause
// Text of elements as markup, without the detour through UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace ZyXMLText
{
/**
 * Appends \a text, up to its first NUL, to \a markup with the very bytes that QXmlStreamWriter writes for it:
 * four characters are escaped, control characters other than tab and line ends are dropped, so are U+FFFE and
 * U+FFFF and one leading byte order mark, and bytes that are not UTF-8 become U+FFFD.
 */
void appendEscaped(std::string & markup, std::string_view text);

/** Whether a text stands for itself everywhere in markup, also in the value of an attribute: printable ASCII
 * without the characters that are escaped. */
bool isPlain(std::string_view text);
} // namespace ZyXMLText
