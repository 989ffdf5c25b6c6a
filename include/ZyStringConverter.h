// SPDX-License-Identifier: BSD-3-Clause
// The interface of two-way conversion between a value and its text.
#pragma once

#include <ZyString.h>

/** Turns values of T into text and back. What either direction throws is told by the class that implements
 * it. */
template <class T>
class ZyStringConverter
{
public:
    virtual ~ZyStringConverter() = default;

    /** The text of a value. */
    virtual ZyString convert(T const & value) const = 0;
    /** The value of a text. */
    virtual T convert(ZyString const & text) const = 0;

protected:
    ZyStringConverter() = default;
    ZyStringConverter(ZyStringConverter const &) = default;
    ZyStringConverter & operator=(ZyStringConverter const &) = default;
};
