// SPDX-License-Identifier: BSD-3-Clause
// Elements of a stream and the walk over their children, which makes a stream look like a tree.
#include <ZyXMLStreamElementReader.h>

#include "Core/ZyString_p.h"
#include "XML/ZyXMLStreamReader_p.h"

#include <ZyBase64Converter.h>
#include <ZyException.h>
#include <ZyThrow.h>

#include <string>
#include <string_view>
#include <utility>

namespace
{
ZyXMLStreamReader & checked(ZyXMLStreamReader * reader)
{
    if (!reader) {
        ZyThrow::NullPointer("Invalid parent");
    }
    return *reader;
}
} // namespace

ZyXMLStreamElementReader::Private::Private(ZyXMLStreamReader & from)
    : reader(&from), parsed(ZyXMLStreamAccess::of(from).xml.attributes()),
      name(ZyXMLStreamAccess::localName(from))
{}

ZyXMLStreamElementReader::ZyXMLStreamElementReader(ZyXMLStreamReader * reader)
    : m_d(new Private(checked(reader)))
{}

ZyXMLStreamElementReader::ZyXMLStreamElementReader(ZyXMLStreamElementReader const & other)
    : ZyXMLElementReader(), m_d(new Private(*other.d()->reader))
{}

ZyXMLStreamElementReader::~ZyXMLStreamElementReader() = default;

ZyXMLAttributeSet const & ZyXMLStreamElementReader::attributes() const
{
    if (!d()->attributes) {
        auto set = std::make_shared<ZyXMLAttributeSet>();
        d()->parsed.fill(*set);
        m_d->attributes = ZyXMLAttributeSetPtr(std::move(set));
    }
    return *d()->attributes;
}

ZyXMLStreamElementReader::StreamChildren & ZyXMLStreamElementReader::children()
{
    if (!d()->children) {
        d()->children = std::make_shared<StreamChildren>(self());
    }
    return *d()->children;
}

bool ZyXMLStreamElementReader::hasAttribute(ZyString const & name) const
{
    return d()->parsed.value(ZyTextAccess::view(name)).data() != nullptr;
}

ZyString const & ZyXMLStreamElementReader::name() const
{
    return d()->name;
}

ZyString ZyXMLStreamElementReader::readAttribute(ZyString const & name) const
{
    std::string_view const value = d()->parsed.value(ZyTextAccess::view(name));
    if (!value.data()) {
        throw ZyUnknownXMLAttributeException(name);
    }
    return ZyString(std::string(value));
}

double ZyXMLStreamElementReader::readAttributeBase64(ZyString const & name) const
{
    return ZyStringDoubleBase64Converter().convert(readAttribute(name));
}

ZyString ZyXMLStreamElementReader::readText() const
{
    if (!ZyXMLStreamAccess::isActive(*this)) {
        throw ZyInvalidXMLOperation("Attempted to read text from non-active element");
    }
    return d()->reader->readText().trim();
}

double ZyXMLStreamElementReader::readTextBase64() const
{
    return ZyStringDoubleBase64Converter().convert(readText());
}

std::shared_ptr<ZyXMLStreamElementReader> ZyXMLStreamElementReader::nextChild() const
{
    if (!ZyXMLStreamAccess::isOpen(*this)) {
        throw ZyInvalidXMLOperation("NextChild on closed element called");
    }
    std::shared_ptr<ZyXMLStreamElementReader> const keep = self();
    while (ZyXMLStreamAccess::isOpen(*this) && !ZyXMLStreamAccess::isActive(*this)) {
        d()->reader->next();
    }
    if (!ZyXMLStreamAccess::isOpen(*this)) {
        return nullptr;
    }
    return d()->reader->nextElementInElement();
}

std::shared_ptr<ZyXMLStreamElementReader> ZyXMLStreamElementReader::self() const
{
    if (!ZyXMLStreamAccess::isOpen(*this)) {
        throw ZyNullXMLStreamElementException();
    }
    return ZyXMLStreamAccess::owner(*this);
}

class ZyXMLStreamElementReader::StreamChildren::Private : public ZyPrivateObject
{
public:
    explicit Private(std::shared_ptr<ZyXMLStreamElementReader> const & owner) : element(owner) {}

    /** Not an owner: the element keeps its children, and both would live for ever. */
    std::weak_ptr<ZyXMLStreamElementReader> element;
    bool begun = false;
};

class ZyXMLStreamElementReader::StreamChildren::StreamImplementation::Private : public ZyPrivateObject
{
public:
    std::shared_ptr<ZyXMLStreamElementReader> child; ///< null behind the last one
    StreamChildren * children = nullptr;
    std::shared_ptr<ZyXMLStreamElementReader> element; ///< keeps the children alive
};

ZyXMLStreamElementReader::StreamChildren::StreamChildren(
    std::shared_ptr<ZyXMLStreamElementReader> const & element)
    : m_d(new Private(element))
{}

ZyXMLStreamElementReader::StreamChildren::~StreamChildren() = default;

ZyXMLElementReader::Children::Iterator ZyXMLStreamElementReader::StreamChildren::begin()
{
    std::shared_ptr<ZyXMLStreamElementReader> const element = d()->element.lock();
    if (d()->begun || (element && ZyXMLStreamAccess::of(*element).walked)) {
        throw ZyInvalidUseException("Begin called multiple times on a single use iterator");
    }
    d()->begun = true;
    return Iterator(std::make_shared<StreamImplementation>(nextChild(), this));
}

ZyXMLElementReader::Children::Iterator ZyXMLStreamElementReader::StreamChildren::end()
{
    return Iterator(std::make_shared<StreamImplementation>(nullptr, this));
}

std::shared_ptr<ZyXMLStreamElementReader> ZyXMLStreamElementReader::StreamChildren::nextChild()
{
    std::shared_ptr<ZyXMLStreamElementReader> const element = d()->element.lock();
    if (!element) {
        throw ZyInvalidXMLOperation("NextChild on closed element called");
    }
    return element->nextChild();
}

ZyXMLStreamElementReader::StreamChildren::StreamImplementation::StreamImplementation(
    std::shared_ptr<ZyXMLStreamElementReader> child, StreamChildren * children)
    : m_d(new Private)
{
    d()->child = std::move(child);
    d()->children = children;
    if (children) {
        d()->element = children->d()->element.lock();
    }
}

ZyXMLStreamElementReader::StreamChildren::StreamImplementation::~StreamImplementation() = default;

std::shared_ptr<ZyXMLElementReader>
ZyXMLStreamElementReader::StreamChildren::StreamImplementation::currentChild() const
{
    return d()->child;
}

std::shared_ptr<ZyXMLElementReader>
ZyXMLStreamElementReader::StreamChildren::StreamImplementation::nextChild()
{
    if (!d()->children) {
        throw ZyInvalidUseException("No parent object in iterator");
    }
    d()->child = d()->children->nextChild();
    return d()->child;
}
