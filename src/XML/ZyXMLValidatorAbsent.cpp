// SPDX-License-Identifier: BSD-3-Clause
// The validator of a library that is built without Qt's XML Schema classes: it can answer nothing, and says
// so.
#include <ZyXMLValidator.h>

#include <ZyException.h>
#include <ZyString.h>

class ZyXMLValidator::Private : public ZyPrivateObject
{};

ZyXMLValidator::ZyXMLValidator(ZyString const &) : m_d(new Private) {}

ZyXMLValidator::ZyXMLValidator(ZyXMLValidator const & other)
    : ZyPrivateObject(other), m_d(new Private(*other.d()))
{}

ZyXMLValidator & ZyXMLValidator::operator=(ZyXMLValidator const & other)
{
    *d() = *other.d();
    return *this;
}

ZyXMLValidator::~ZyXMLValidator() = default;

bool ZyXMLValidator::isValid(ZyString const &, bool) const
{
    throw ZyXMLException("This library is built without validation by XML Schema");
}
