// SPDX-License-Identifier: BSD-3-Clause
// Element readers over documents in memory.
#include <ZyXMLDomElementReader.h>

#include <ZyBase64Converter.h>
#include <ZyString.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLDomElement.h>

#include <list>

using List = std::list<ZyXMLDomElement>;

class ZyXMLDomElementReader::Private : public ZyPrivateObject
{
public:
    explicit Private(ZyXMLDomElement const & source)
        : element(source), attributes(*element.attributes()), name(element.name())
    {}

    ZyXMLDomElement element;
    ZyXMLAttributeSet attributes;
    ZyString name;
    std::shared_ptr<DomChildren> children; ///< empty until they are asked for
};

class ZyXMLDomElementReader::DomChildren::Private : public ZyPrivateObject
{
public:
    std::shared_ptr<List const> list; ///< shared with the iterators
};

class ZyXMLDomElementReader::DomChildren::DomImplementation::Private : public ZyPrivateObject
{
public:
    Private(std::shared_ptr<List const> const & children, List::const_iterator position)
        : current(position), end(children->end()), list(children)
    {}

    List::const_iterator current;
    List::const_iterator end;
    std::shared_ptr<List const> list;
};

ZyXMLDomElementReader::ZyXMLDomElementReader(ZyXMLDomElement const & element) : m_d(new Private(element)) {}

ZyXMLDomElementReader::ZyXMLDomElementReader(ZyXMLDomElementReader const & other)
    : ZyXMLElementReader(), m_d(new Private(*other.d()))
{}

ZyXMLDomElementReader & ZyXMLDomElementReader::operator=(ZyXMLDomElementReader const & other)
{
    *d() = *other.d();
    return *this;
}

ZyXMLDomElementReader::~ZyXMLDomElementReader() = default;

ZyXMLDomElement const & ZyXMLDomElementReader::element() const
{
    return d()->element;
}

ZyXMLAttributeSet const & ZyXMLDomElementReader::attributes() const
{
    return d()->attributes;
}

ZyXMLDomElementReader::DomChildren & ZyXMLDomElementReader::children()
{
    if (!d()->children) {
        d()->children = std::make_shared<DomChildren>(d()->element);
    }
    return *d()->children;
}

bool ZyXMLDomElementReader::hasAttribute(ZyString const & name) const
{
    return d()->element.hasAttribute(name);
}

ZyString const & ZyXMLDomElementReader::name() const
{
    return d()->name;
}

ZyString ZyXMLDomElementReader::readAttribute(ZyString const & name) const
{
    return d()->element.attribute(name);
}

double ZyXMLDomElementReader::readAttributeBase64(ZyString const & name) const
{
    return d()->element.attributeBase64(name);
}

ZyString ZyXMLDomElementReader::readText() const
{
    return d()->element.text().trim();
}

double ZyXMLDomElementReader::readTextBase64() const
{
    return d()->element.isNull() ? 0.0 : ZyStringDoubleBase64Converter().convert(readText());
}

ZyXMLDomElementReader::DomChildren::DomChildren(ZyXMLDomElement const & element) : m_d(new Private)
{
    d()->list = std::make_shared<List const>(element.children());
}

ZyXMLDomElementReader::DomChildren::~DomChildren() = default;

ZyXMLElementReader::Children::Iterator ZyXMLDomElementReader::DomChildren::begin()
{
    auto * const state = new DomImplementation::Private(d()->list, d()->list->begin());
    return Iterator(std::shared_ptr<DomImplementation>(new DomImplementation(state)));
}

ZyXMLElementReader::Children::Iterator ZyXMLDomElementReader::DomChildren::end()
{
    auto * const state = new DomImplementation::Private(d()->list, d()->list->end());
    return Iterator(std::shared_ptr<DomImplementation>(new DomImplementation(state)));
}

ZyXMLDomElementReader::DomChildren::DomImplementation::DomImplementation(Private * state) : m_d(state) {}

ZyXMLDomElementReader::DomChildren::DomImplementation::~DomImplementation() = default;

std::shared_ptr<ZyXMLElementReader>
ZyXMLDomElementReader::DomChildren::DomImplementation::currentChild() const
{
    return d()->current == d()->end ? nullptr : std::make_shared<ZyXMLDomElementReader>(*d()->current);
}

std::shared_ptr<ZyXMLElementReader> ZyXMLDomElementReader::DomChildren::DomImplementation::nextChild()
{
    if (d()->current != d()->end) {
        ++d()->current;
    }
    return currentChild();
}
