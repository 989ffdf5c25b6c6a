// SPDX-License-Identifier: BSD-3-Clause
// Building objects out of the elements of a document, by their paths.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>
#include <ZyXMLPath.h>
#include <ZyXMLSerializableObject.h>

#include <functional>

class ZyFilePath;
class ZyXMLElementReader;
class ZyXMLStreamReader;

/**
 * Walks documents and builds one object for each element that a builder is registered for.
 *
 * \code
 * ZyXMLFactory factory;
 * factory.registerBuilder("Panel/Gauge",
 *     [](ZyXMLElementReader & element) {
 *         ZySharedPtr<Gauge> gauge(new Gauge);
 *         gauge->readXML(element);
 *         return gauge;
 *     },
 *     [&](ZySharedPtr<ZyXMLSerializableObject> gauge) { panel.add(gauge); });
 * factory.load(ZyFilePath("panel.xml"));
 * \endcode
 *
 * At each element the order is: its builder, which reads attributes and text; the children; then the function
 * that hooks the finished object up. An element without a builder is no error, and builders deeper in it
 * apply. A builder refuses an element by throwing ZyUnknownXMLElementException: that is as if there were
 * none.
 *
 * A document that breaks off or is malformed between two elements ends all open elements without an
 * exception: look at the reader afterwards. How deep elements nest is limited by memory alone.
 *
 * \threads to be filled before it is shared; one thread at a time for each reader
 */
class ZYCORE_EXPORT ZyXMLFactory : public ZyPrivateObject
{
public:
    /** Makes the object of an element. */
    using Builder = std::function<ZySharedPtr<ZyXMLSerializableObject>(ZyXMLElementReader &)>;
    /** Takes a finished object, whose children are finished too. */
    using PostConstruction = std::function<void(ZySharedPtr<ZyXMLSerializableObject>)>;

    /** No builders. */
    ZyXMLFactory();
    ZyXMLFactory(ZyXMLFactory const &) = delete;
    ZyXMLFactory & operator=(ZyXMLFactory const &) = delete;
    ~ZyXMLFactory() override;

    /**
     * Registers a builder for the elements at a path, with nothing to be done afterwards.
     * \throws ZyInvalidUseException the path has one: "Builder for given path already exists: " and the path
     */
    void registerBuilder(ZyXMLPath const & path, Builder builder);
    /** The same with what is to be done with each finished object. */
    void registerBuilder(ZyXMLPath const & path, Builder builder, PostConstruction postConstruction);
    /**
     * Replaces what is done with the finished objects of a path.
     * \throws ZyInvalidParameterException it has no builder: "No builder for the given path exists: " and the path
     */
    void changePostConstruction(ZyXMLPath const & path, PostConstruction postConstruction);

    /**
     * Builds the objects of a document, or, when the reader stands on a start tag, of that element as if it
     * were the root.
     *
     * \throws ZyNullPointerException there is no element any more; empty message
     * \throws ZyInvalidXMLException the document is malformed: "Invalid XML: " and the reason
     * \throws whatever a builder or a function throws, except for ZyUnknownXMLElementException, which refuses the element,
     *         and ZyInvalidUseException and ZyNullXMLStreamElementException, which end the children of the
     *         element around it that has a builder
     */
    void load(ZyXMLStreamReader & reader) const;
    /** The same for a file. \throws what the constructor of ZyXMLStreamReader throws */
    void load(ZyFilePath const & file) const;
    /** The same for a file that is validated against a schema first. \throws the same */
    void load(ZyFilePath const & file, ZyFilePath const & schema) const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
