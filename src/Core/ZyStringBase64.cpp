// SPDX-License-Identifier: BSD-3-Clause
// The exact text of a double, which needs the codec and so stands apart from the string.
#include <ZyString.h>

#include <Core/ZyBase64_p.h>

#include <string>

ZyString ZyString::Base64(double const & number)
{
    char text[ZyBase64::RealSize];
    ZyBase64::EncodeReal(number, text);
    return ZyString(std::string(text, sizeof text));
}
