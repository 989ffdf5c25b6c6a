// SPDX-License-Identifier: BSD-3-Clause
// Text that is an identity.
#include <ZyCaseSensitiveString.h>

#include "Core/ZyString_p.h"

#include <typeinfo>
#include <utility>

std::type_info const * const zyCaseSensitiveStringType = &typeid(ZyCaseSensitiveString);

ZyCaseSensitiveString::ZyCaseSensitiveString() = default;

ZyCaseSensitiveString::ZyCaseSensitiveString(ZyString const & text) : ZyString(text) {}

ZyCaseSensitiveString::ZyCaseSensitiveString(ZyString && text) : ZyString(std::move(text)) {}

ZyCaseSensitiveString::ZyCaseSensitiveString(ZyCaseSensitiveString const & other) : ZyString(other) {}

ZyCaseSensitiveString::ZyCaseSensitiveString(ZyCaseSensitiveString && other) : ZyString(std::move(other)) {}

ZyCaseSensitiveString::~ZyCaseSensitiveString() = default;

ZyCaseSensitiveString & ZyCaseSensitiveString::operator=(ZyCaseSensitiveString const & other)
{
    ZyString::operator=(other);
    return *this;
}

ZyCaseSensitiveString & ZyCaseSensitiveString::operator=(ZyCaseSensitiveString && other)
{
    ZyString::operator=(std::move(other));
    return *this;
}

bool ZyCaseSensitiveString::operator==(char const * text) const
{
    return compare(ZyStringView(text), CaseSensitive) == 0;
}

bool ZyCaseSensitiveString::operator==(ZyComparableString const & other) const
{
    return compare(other, CaseSensitive) == 0;
}

bool ZyCaseSensitiveString::operator!=(char const * text) const
{
    return !(*this == text);
}

bool ZyCaseSensitiveString::operator!=(ZyComparableString const & other) const
{
    return compare(other, CaseSensitive) != 0;
}

bool ZyCaseSensitiveString::operator<(ZyComparableString const & other) const
{
    return compare(other, CaseSensitive) < 0;
}
