// SPDX-License-Identifier: BSD-3-Clause
// A value of any type as an object.
#pragma once

#include <ZyObject.h>

#include <utility>

/**
 * Holds one value of type T where only a ZyObject can be kept, as in the memory of a rule.
 *
 * Who finds the object asks for it with a dynamic cast to the very same T.
 */
template <class T>
class ZyTemplateObject : public ZyObject
{
public:
    /** Holds \a value. */
    explicit ZyTemplateObject(T value) : m_value(std::move(value)) {}

    /** The value, on loan. */
    T & value() { return m_value; }
    T const & value() const { return m_value; }

private:
    T m_value;
};
