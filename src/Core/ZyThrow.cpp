// SPDX-License-Identifier: BSD-3-Clause
// Throwing from code that stands in headers.
#include <ZyThrow.h>

#include <ZyException.h>

#include <stdexcept>
#include <typeinfo>

void ZyThrow::BadCast()
{
    throw std::bad_cast();
}

void ZyThrow::IndexOutOfBounds(unsigned int index, unsigned int bound)
{
    throw ZyIndexOutOfBoundsException(index, bound);
}

void ZyThrow::InvalidCall(char const * message)
{
    throw ZyInvalidCallException(message);
}

void ZyThrow::LengthError(char const * message)
{
    throw std::length_error(message);
}

void ZyThrow::NotFound()
{
    throw ZyNotFoundException();
}

void ZyThrow::NullPointer()
{
    throw ZyNullPointerException();
}

void ZyThrow::NullPointer(char const * message)
{
    throw ZyNullPointerException(message);
}
