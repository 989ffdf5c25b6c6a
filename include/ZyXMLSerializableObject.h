// SPDX-License-Identifier: BSD-3-Clause
// Classes that are an element of a document by themselves.
#pragma once

#include <ZyExport.h>

class ZyString;
class ZyXMLElementReader;
class ZyXMLElementWriter;
class ZyXMLStreamWriter;

/**
 * Base of classes that are one element each, and know its name, its attributes and its content. What the
 * factories make.
 *
 * \code
 * class Gauge : public ZyXMLSerializableObject
 * {
 * public:
 *     void readXML(ZyXMLElementReader & element) override { m_unit = element.readAttribute("unit"); }
 *     ZyString xmlElementName() const override { return "Gauge"; }
 *
 * protected:
 *     void onWriteXMLAttributes(ZyXMLElementWriter & element) const override
 *     {
 *         element.writeAttribute("unit", m_unit);
 *     }
 *     void onWriteXMLContent(ZyXMLElementWriter &) const override {}
 * };
 * \endcode
 */
class ZYCORE_EXPORT ZyXMLSerializableObject
{
public:
    virtual ~ZyXMLSerializableObject();

    /** Takes the object's state from an element. Does nothing unless it is replaced. */
    virtual void readXML(ZyXMLElementReader & element);
    /**
     * Writes the object as an element of a document: opens the element of its name, writes the attributes,
     * then the content, and closes it.
     */
    virtual void writeXML(ZyXMLStreamWriter & writer) const;
    /** The same as a child of an element that is being written. */
    virtual void writeXML(ZyXMLElementWriter & parent) const;
    /** The name of the object's element. */
    virtual ZyString xmlElementName() const = 0;

protected:
    ZyXMLSerializableObject() = default;
    ZyXMLSerializableObject(ZyXMLSerializableObject const &) = default;
    ZyXMLSerializableObject & operator=(ZyXMLSerializableObject const &) = default;

    /** Writes the attributes; called before anything else is in the element. */
    virtual void onWriteXMLAttributes(ZyXMLElementWriter & element) const = 0;
    /** Writes the text or the children. */
    virtual void onWriteXMLContent(ZyXMLElementWriter & element) const = 0;
};
