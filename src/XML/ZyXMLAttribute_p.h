// SPDX-License-Identifier: BSD-3-Clause
// The state of an attribute, which sets of attributes fill directly.
#pragma once

#include <ZyString.h>
#include <ZyXMLAttribute.h>

class ZyXMLAttribute::Private : public ZyPrivateObject
{
public:
    Private() = default;
    Private(ZyString const & name_, ZyString const & value_) : name(name_), value(value_) {}

    ZyString name;
    ZyString value;
};
