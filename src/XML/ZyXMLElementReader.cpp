// SPDX-License-Identifier: BSD-3-Clause
// What all element readers share: the bases, and the iterator over whatever an implementation gives.
#include <ZyXMLElementReader.h>

#include <ZyThrow.h>

#include <utility>

ZyXMLElementReader::ZyXMLElementReader() = default;
ZyXMLElementReader::~ZyXMLElementReader() = default;

ZyXMLElementReader::Children::Children() = default;
ZyXMLElementReader::Children::~Children() = default;

ZyXMLElementReader::Children::Iterator::Implementation::Implementation() = default;
ZyXMLElementReader::Children::Iterator::Implementation::~Implementation() = default;

class ZyXMLElementReader::Children::Iterator::Private : public ZyPrivateObject
{
public:
    explicit Private(std::shared_ptr<Implementation> && shared) : implementation(std::move(shared)) {}

    std::shared_ptr<Implementation> implementation; ///< of all copies; never null
};

ZyXMLElementReader::Children::Iterator::Iterator(std::shared_ptr<Implementation> implementation)
{
    if (!implementation) {
        ZyThrow::NullPointer();
    }
    m_d.reset(new Private(std::move(implementation)));
}

ZyXMLElementReader::Children::Iterator::Iterator(Iterator const & other) : m_d(new Private(*other.d())) {}

ZyXMLElementReader::Children::Iterator &
ZyXMLElementReader::Children::Iterator::operator=(Iterator const & other)
{
    d()->implementation = other.d()->implementation;
    return *this;
}

ZyXMLElementReader::Children::Iterator::~Iterator() = default;

bool ZyXMLElementReader::Children::Iterator::operator!=(Iterator const & other) const
{
    // In one expression, so that both children live while they are compared: a child may be made for this
    // call only, and the next one then gets the same address.
    return d()->implementation->currentChild().get() != other.d()->implementation->currentChild().get();
}

ZyXMLElementReader::Children::Iterator::value_type ZyXMLElementReader::Children::Iterator::operator*() const
{
    return d()->implementation->currentChild();
}

ZyXMLElementReader::Children::Iterator & ZyXMLElementReader::Children::Iterator::operator++()
{
    d()->implementation->nextChild();
    return *this;
}
