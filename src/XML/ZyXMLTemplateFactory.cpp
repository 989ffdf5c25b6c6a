// SPDX-License-Identifier: BSD-3-Clause
// Classes by the names of their elements.
#include <ZyXMLTemplateFactory.h>

#include <ZyException.h>

#include <map>

class ZyXMLTemplateFactory::Private : public ZyPrivateObject
{
public:
    std::map<ZyString, Creator> creators; ///< without regard to case, as strings are ordered
    ZyList<ZyString> errors;
};

ZyXMLTemplateFactory::ZyXMLTemplateFactory() : m_d(new Private) {}

ZyXMLTemplateFactory::~ZyXMLTemplateFactory() = default;

bool ZyXMLTemplateFactory::isRegistered(ZyString const & name) const
{
    return d()->creators.find(name) != d()->creators.end();
}

ZyXMLSerializableObject * ZyXMLTemplateFactory::create(ZyXMLElementReader & reader) const
{
    return create(reader, nullptr);
}

ZyXMLSerializableObject * ZyXMLTemplateFactory::create(ZyXMLElementReader & reader,
                                                       CreationArgument const * argument) const
{
    auto const found = d()->creators.find(reader.name());
    if (found == d()->creators.end()) {
        throw ZyUnknownXMLElementException(reader.name());
    }
    try {
        return found->second(reader, argument);
    } catch (ZyException const & failure) {
        addError(failure);
        throw;
    }
}

ZyList<ZyString> const & ZyXMLTemplateFactory::errors() const
{
    return d()->errors;
}

void ZyXMLTemplateFactory::registerClass(ZyString const & name, Creator creator)
{
    d()->creators.emplace(name, creator);
}

void ZyXMLTemplateFactory::addError(ZyException const & failure) const
{
    d()->errors.add(failure.message());
}
