// SPDX-License-Identifier: BSD-3-Clause
// Text that is an identity: a string whose equality respects case.
#pragma once

#include <ZyExport.h>
#include <ZyString.h>

/**
 * A ZyString whose `==`, `!=` and `<` compare bytes as they stand, for text that is an identity.
 *
 * The left operand decides: a plain ZyString on the left compares without regard to case.
 *
 * \code
 * ZyCaseSensitiveString("Abc") == "abc";           // false
 * ZyString("abc") == ZyCaseSensitiveString("Abc"); // true
 * \endcode
 *
 * \deliberate{case-sensitive-order-is-partial} `<=`, `>` and `>=` are those of ZyString and stay without regard to
 * case: "Abc" is less than "abc" and also not less. Sort by `<` alone.
 */
class ZYCORE_EXPORT ZyCaseSensitiveString : public ZyString
{
public:
    ZyCaseSensitiveString();
    ZyCaseSensitiveString(ZyString const & text);
    /** Takes the characters over; \a text is empty afterwards. */
    ZyCaseSensitiveString(ZyString && text);
    ZyCaseSensitiveString(ZyCaseSensitiveString const & other);
    ZyCaseSensitiveString(ZyCaseSensitiveString && other);
    ~ZyCaseSensitiveString() override;

    using ZyString::operator=;
    ZyCaseSensitiveString & operator=(ZyCaseSensitiveString const & other);
    ZyCaseSensitiveString & operator=(ZyCaseSensitiveString && other);

    bool operator==(char const * text) const override;
    bool operator==(ZyComparableString const & other) const override;
    bool operator!=(char const * text) const override;
    bool operator!=(ZyComparableString const & other) const override;
    bool operator<(ZyComparableString const & other) const override;
};
