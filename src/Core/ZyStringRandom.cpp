// SPDX-License-Identifier: BSD-3-Clause
// Random text, which needs the random numbers and so stands apart from the string.
#include <ZyString.h>

#include <Core/ZyMathsRandom_p.h>

#include <string_view>

namespace
{
std::string_view alphabet(ZyString::RandomType type)
{
    constexpr std::string_view all = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    switch (type) {
    case ZyString::Digits:
        return all.substr(52);
    case ZyString::LowerCase:
        return all.substr(0, 26);
    case ZyString::UpperCase:
        return all.substr(26, 26);
    case ZyString::Letters:
        return all.substr(0, 52);
    case ZyString::LettersAndDigits:
        break;
    }
    return all;
}
} // namespace

ZyString ZyString::Random(unsigned int length, RandomType type)
{
    return ZyString(ZyRandom::Text(ZyRandom::ProcessEngine(), length, alphabet(type)));
}
