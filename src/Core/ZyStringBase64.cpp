// SPDX-License-Identifier: BSD-3-Clause
// The exact text of a double, which needs the codec and so stands apart from the string.
#include <ZyString.h>

#include <ZyBase64Converter.h>

ZyString ZyString::Base64(double const & number)
{
    return ZyStringDoubleBase64Converter().convert(number);
}
