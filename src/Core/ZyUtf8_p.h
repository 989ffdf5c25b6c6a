// SPDX-License-Identifier: BSD-3-Clause
// UTF-8 to wide text and back, strict: nothing malformed gets through; and from Qt's text, which is taken as
// it is.
#pragma once

#include <QStringView>

#include <string>
#include <string_view>

namespace ZyUtf8
{
/**
 * One unit a code point where wchar_t has 32 bits, UTF-16 where it has 16.
 * \throws std::range_error "bad conversion": stray, truncated or overlong bytes, surrogates, beyond U+10FFFF
 */
std::wstring toWide(std::string_view text);

/** \throws std::range_error "bad conversion": a lone surrogate, beyond U+10FFFF */
std::string fromWide(std::wstring_view text);

/** Appends a text of Qt's; a lone surrogate becomes "?". Plain ASCII, as in most names, is copied straight.
 */
void append(std::string & to, QStringView text);
} // namespace ZyUtf8
